// CXmlCollectionBase, the base of all collections: element name of the items, bounds, listeners.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/foundation/SharedText.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// A collection is a bound object that adds no element of its own: each item is written under the element name
// and namespace of the collection. The bounds are checked only when an object is written or read, or on
// request; adding beyond them is allowed. The order of the virtual operations is a contract. Belongs to one
// thread at a time; not copyable.
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

    // The number of items.
    virtual int GetCount() const = 0;
    // Removes the items one by one, from the first.
    virtual void Clear() = 0;
    virtual void Remove(int index) = 0;
    // Throws CZvValidationException unless the count is within the bounds or the context ignores counts.
    virtual void ValidateCount(CSerializationContext const& ctx) const;
    virtual bool IsValidCount(CSerializationContext const& ctx) const;

    // The smallest number of items that is valid.
    int GetMinOccurs() const noexcept { return m_minOccurs; }
    // -1 for unbounded.
    int GetMaxOccurs() const noexcept { return m_maxOccurs; }

    // All listeners hear of every change, in order of registration: before it by MsgCollectionAdd or
    // MsgCollectionRemove, after it by the "Complete" form and MsgCollectionChange. A sink is borrowed: it
    // must remove itself or outlive the collection. Do not call these from within OnEvent. A sink may be
    // registered several times; removing it removes them all.
    void AddEventListener(IEventSink* sink);
    void RemoveEventListener(IEventSink* sink);

protected:
    CXmlCollectionBase();
    // The name and namespace of each item, and the bounds; a greatest number of -1 is unbounded.
    CXmlCollectionBase(char const* elementName, char const* namespaceURI, int minOccurs, int maxOccurs);

    // Whether anybody hears of changes.
    bool HasListeners() const noexcept { return m_listeners != nullptr && !m_listeners->empty(); }
    // Tell all listeners, in order of registration.
    void FireOnCollectionChange();
    void FireOnCollectionAdd(void* item);
    void FireOnCollectionAddComplete(void* item);
    // -1 for an unknown index.
    void FireOnCollectionRemove(int index);
    void FireOnCollectionRemoveComplete(int index);

    // The namespace of the items.
    detail::SharedText m_namespace;

private:
    // Calls `fire` for each listener.
    template <class Fire>
    void TellListeners(Fire fire);

    std::unique_ptr<std::vector<IEventSink*>> m_listeners; // null at first
    std::int32_t m_minOccurs = 0;
    std::int32_t m_maxOccurs = -1;
};

} // namespace ZvXmlLib16
