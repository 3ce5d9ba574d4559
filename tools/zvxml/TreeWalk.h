// A walk over all elements of a parsed tree in document order.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// Follows the links of the tree, so depth costs no stack.
class TreeWalk {
public:
    // `root` may be null: an empty walk.
    explicit TreeWalk(ZvXmlLib16::CXmlElement const* root) noexcept
        : m_current(root), m_depth(root == nullptr ? 0 : 1) {}

    // Null after the last element.
    ZvXmlLib16::CXmlElement const* Current() const noexcept { return m_current; }
    // 1 for the root.
    unsigned long Depth() const noexcept { return m_depth; }

    void Advance() noexcept {
        if (m_current->GetFirstElement() != nullptr) {
            m_current = m_current->GetFirstElement();
            ++m_depth;
            return;
        }
        // The root has no sibling and no parent, so the walk ends there.
        while (m_current != nullptr && m_current->GetNextSiblingElement() == nullptr) {
            m_current = m_current->GetParentElm();
            --m_depth;
        }
        if (m_current != nullptr)
            m_current = m_current->GetNextSiblingElement();
    }

private:
    ZvXmlLib16::CXmlElement const* m_current;
    unsigned long m_depth;
};

} // namespace zvxml
