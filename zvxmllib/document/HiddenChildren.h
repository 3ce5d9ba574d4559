// HiddenChildren, children of an element that are passed over while it is read.
#pragma once

#include "zvxmllib/document/XmlElement.h"

#include <vector>

namespace ZvXmlLib16 {

// As long as the object lives, the hidden children are not met by a walk over the children of their parent.
// The document is not to be changed meanwhile.
class HiddenChildren {
public:
    explicit HiddenChildren(CXmlElement& parent) noexcept : m_parent(parent) {}
    HiddenChildren(HiddenChildren const&) = delete;
    HiddenChildren& operator=(HiddenChildren const&) = delete;
    ~HiddenChildren();

    // Those from `child` on that `isHidden` answers true for. Returns the first of the others.
    template <class Test>
    CXmlElement* HideFrom(CXmlElement* child, Test isHidden) {
        CXmlElement* before = Before(child); // the last that is shown
        for (CXmlElement* first = nullptr;; child = child->GetNextSiblingElement()) {
            if (child == nullptr)
                return first;
            if (isHidden(*child)) {
                Hide(before, *child);
                continue;
            }
            before = child;
            if (first == nullptr)
                first = child;
        }
    }

private:
    struct Link {
        CXmlElement* before; // null for the parent
        CXmlElement* hidden;
    };

    CXmlElement* Before(CXmlElement const* child) const noexcept;
    void Hide(CXmlElement* before, CXmlElement& child);
    void SetNext(CXmlElement* before, CXmlElement* next) noexcept;

    CXmlElement& m_parent;
    std::vector<Link> m_links;
};

} // namespace ZvXmlLib16
