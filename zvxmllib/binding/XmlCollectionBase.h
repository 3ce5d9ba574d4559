// CXmlCollectionBase, what all collections share: the element of their items, bounds, listeners.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// A collection is a bound object that adds no element of its own: each item is written under the element
// name and namespace of the collection. The bounds are looked at only when an object is written or read,
// or when somebody asks; adding is never refused for them. The order of the virtual operations is a
// contract. Belongs to one thread at a time; not copyable.
class ZV_API CXmlCollectionBase : public CXmlObjectBase {
public:
    CXmlCollectionBase(CXmlCollectionBase const&) = delete;
    CXmlCollectionBase& operator=(CXmlCollectionBase const&) = delete;

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override;

protected:
    ~CXmlCollectionBase() override;
    // Throws: a collection is never the outermost element.
    std::string GetTargetNamespace() override;

public:
    // The namespace of the items.
    std::string GetNamespace() override;

    virtual int GetCount() const = 0;
    // Removes the items one by one, from the first.
    virtual void Clear() = 0;
    virtual void Remove(int index) = 0;
    // Throws CZvValidationException unless the count is in the bounds or the context ignores counts.
    virtual void ValidateCount(CSerializationContext const& ctx) const;
    virtual bool IsValidCount(CSerializationContext const& ctx) const;

    int GetMinOccurs() const noexcept { return m_minOccurs; }
    // -1 for unbounded.
    int GetMaxOccurs() const noexcept { return m_maxOccurs; }

    // Every change is told to all listeners in order of registration: before it by MsgCollectionAdd or
    // MsgCollectionRemove, after it by the "Complete" form and MsgCollectionChange. A sink is borrowed: it
    // removes itself or outlives the collection. Not to be called from within OnEvent. One sink may be
    // registered several times; it is removed altogether.
    void AddEventListener(IEventSink* sink);
    void RemoveEventListener(IEventSink* sink);

protected:
    CXmlCollectionBase();
    CXmlCollectionBase(char const* elementName, char const* namespaceURI, int minOccurs, int maxOccurs);

    bool HasListeners() const noexcept { return !m_listeners.empty(); }
    void FireOnCollectionChange();
    void FireOnCollectionAdd(void* item);
    void FireOnCollectionAddComplete(void* item);
    // -1 for an index that is not known.
    void FireOnCollectionRemove(int index);
    void FireOnCollectionRemoveComplete(int index);

    std::string m_namespace;

private:
    std::vector<IEventSink*> m_listeners;
    std::int32_t m_minOccurs = 0;
    std::int32_t m_maxOccurs = -1;
};

} // namespace ZvXmlLib16
