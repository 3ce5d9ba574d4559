// CXmlCollection, bound objects in a list of counted references.
#include "zvxmllib/collections/XmlCollection.h"

#include "zvxmllib/collections/Failures.h"

#include <memory>

namespace ZvXmlLib16 {

CXmlCollection::CXmlCollection() = default;

CXmlCollection::CXmlCollection(char const* elementName, char const* namespaceURI, int minOccurs,
                               int maxOccurs)
    : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs) {}

CXmlCollection::~CXmlCollection() {
    try {
        if (HasListeners())
            CXmlCollection::Clear();
    } catch (...) {
        // An exception from a listener ends the notifications, not the clearing.
    }
    while (CNode* const node = m_pHead) {
        m_pHead = node->m_pNext;
        delete node;
    }
}

int CXmlCollection::GetCount() const {
    return m_count;
}

void CXmlCollection::Clear() {
    while (m_count >= 1)
        Remove(0);
}

void CXmlCollection::Remove(int index) {
    RemoveNode(GetNodeAtIndex(index));
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& ctx) const {
    for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
        CXmlObjectBase::AttributesToXml_Int(node->m_item->GetBase(), writer, ctx);
}

void CXmlCollection::AppendItem(CXmlObjectBase* item) {
    FireOnCollectionAdd(item);
    InsertBefore(nullptr, item);
}

void CXmlCollection::PrependItem(CXmlObjectBase* item) {
    FireOnCollectionAdd(item);
    InsertBefore(m_pHead, item);
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item) {
    if (index < 0 || index > m_count)
        FailIndexOutOfRange();
    if (index == m_count) {
        AppendItem(item);
        return;
    }
    FireOnCollectionAdd(item);
    InsertBefore(GetNodeAtIndex(index), item);
}

void CXmlCollection::AddAfterItem(CXmlObjectBase const* after, CXmlObjectBase* item) {
    if (after == nullptr) {
        PrependItem(item);
        return;
    }
    FireOnCollectionAdd(item);
    InsertBefore(GetNodeForItem(after)->m_pNext, item);
}

void CXmlCollection::AddBeforeItem(CXmlObjectBase const* before, CXmlObjectBase* item) {
    if (before == nullptr) {
        AppendItem(item);
        return;
    }
    FireOnCollectionAdd(item);
    InsertBefore(GetNodeForItem(before), item);
}

CXmlCollection::CNode* CXmlCollection::GetNodeAtIndex(int index) const {
    if (index > GetCount() - 1 || index < 0)
        FailIndexOutOfRange(index, GetCount());
    CNode* node = m_pHead;
    for (int i = 0; i < index; ++i)
        node = node->m_pNext;
    return node;
}

CXmlCollection::CNode* CXmlCollection::GetNodeForItem(CXmlObjectBase const* item) const {
    CXmlObjectBase const* const wanted = item->GetBase();
    for (CNode* node = m_pHead; node != nullptr; node = node->m_pNext) {
        if (node->m_item->GetBase() == wanted)
            return node;
    }
    FailItemNotFound();
}

void CXmlCollection::RemoveNode(CNode* node) {
    FireOnCollectionRemove(-1);
    Unlink(node);
    delete node;
    --m_count;
    FireOnCollectionRemoveComplete(-1);
    FireOnCollectionChange();
}

void CXmlCollection::InsertBefore(CNode* next, CXmlObjectBase* item) {
    std::unique_ptr<CNode> node(new CNode{item, next, next == nullptr ? m_pTail : next->m_pPrev});
    (node->m_pPrev == nullptr ? m_pHead : node->m_pPrev->m_pNext) = node.get();
    (next == nullptr ? m_pTail : next->m_pPrev) = node.get();
    static_cast<void>(node.release()); // the list has it
    ++m_count;
    FireOnCollectionAddComplete(item);
    FireOnCollectionChange();
}

void CXmlCollection::Unlink(CNode* node) noexcept {
    (node->m_pPrev == nullptr ? m_pHead : node->m_pPrev->m_pNext) = node->m_pNext;
    (node->m_pNext == nullptr ? m_pTail : node->m_pNext->m_pPrev) = node->m_pPrev;
}

} // namespace ZvXmlLib16
