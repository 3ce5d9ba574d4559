// CZvIterator, a forward iterator over an object collection.
#pragma once

#include "zvxmllib/collections/XmlCollection.h"

namespace ZvXmlLib16 {

namespace detail {
[[noreturn]] ZV_API void FailIteratorAtEnd();
} // namespace detail

// Valid while its current item is in the collection. The item is borrowed.
template <class T>
class CZvIterator {
public:
    // Stands at this node; null for the end.
    explicit CZvIterator(CXmlCollection::CNode* node) noexcept : m_node(node) {}

    // Compares items: two positions with the same item are equal.
    bool operator!=(CZvIterator const& other) const noexcept {
        if (m_node == other.m_node)
            return false;
        if (m_node == nullptr || other.m_node == nullptr)
            return true;
        return static_cast<CXmlObjectBase*>(m_node->m_item) != other.m_node->m_item;
    }

    // Do not call at the end.
    T* operator*() const { return static_cast<T*>(static_cast<CXmlObjectBase*>(m_node->m_item)); }

    // Throws CZvException at the end.
    CZvIterator& operator++() {
        if (m_node == nullptr)
            detail::FailIteratorAtEnd();
        m_node = m_node->m_pNext;
        return *this;
    }

private:
    CXmlCollection::CNode* m_node; // null at the end
};

} // namespace ZvXmlLib16
