// CXmlCollection, bound objects in a list of counted references.
#pragma once

#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/foundation/SmartPtr.h"

#include <cstdint>

namespace ZvXmlLib16 {

// The base of collections of one class; a derived class offers Add, Item and the like with its own item type.
// Items are shared with everybody else who holds them, and may be in a collection several times. Adding at
// the end takes constant time, access by position does not. The destructor notifies listeners of each item
// too, and never throws.
class ZV_API CXmlCollection : public CXmlCollectionBase {
public:
    // An item in the list.
    struct CNode {
        CSmartPtr<CXmlObjectBase> m_item; // never null
        CNode* m_pNext = nullptr;         // toward the tail
        CNode* m_pPrev = nullptr;         // toward the head
    };

protected:
    ~CXmlCollection() override;
    // Writes nothing: a collection has no element of its own.
    void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& ctx) const override;
    using CXmlObjectBase::AttributesToXml_Int;

public:
    // As in the base.
    int GetCount() const override;
    void Clear() override;
    // Throws CZvInvalidParamException for an index out of range, before any event.
    void Remove(int index) override;

protected:
    CXmlCollection();
    // As CXmlCollectionBase.
    CXmlCollection(char const* elementName, char const* namespaceURI, int minOccurs, int maxOccurs);

    // Add at the end, or at the front, and tell the listeners. The collection shares the item.
    void AppendItem(CXmlObjectBase* item);
    void PrependItem(CXmlObjectBase* item);
    // The item gets this index. Throws CZvInvalidParamException for an index above the count.
    void AddItemAt(int index, CXmlObjectBase* item);
    // Adds after `after`, or at the front for null. Throws CZvInvalidParamException, after the first event,
    // if it is not in the collection.
    void AddAfterItem(CXmlObjectBase const* after, CXmlObjectBase* item);
    // Adds before `before`, or at the end for null. Throws like AddAfterItem.
    void AddBeforeItem(CXmlObjectBase const* before, CXmlObjectBase* item);

    // Throws CZvInvalidParamException for an index out of range.
    CNode* GetNodeAtIndex(int index) const;
    // The first node with this object. Throws CZvInvalidParamException if there is none.
    CNode* GetNodeForItem(CXmlObjectBase const* item) const;
    // Deletes the node. Listeners get no index, since the list does not know it.
    void RemoveNode(CNode* node);

    // Head and tail are both null or both set.
    CNode* m_pHead = nullptr; // owned, with all that follow
    CNode* m_pTail = nullptr;
    std::int32_t m_count = 0;

private:
    // Links a new node before `next`, or at the end for null, and notifies listeners.
    void InsertBefore(CNode* next, CXmlObjectBase* item);
    void Unlink(CNode* node) noexcept;
};

} // namespace ZvXmlLib16
