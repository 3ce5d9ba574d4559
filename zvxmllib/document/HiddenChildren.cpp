#include "zvxmllib/document/HiddenChildren.h"

namespace ZvXmlLib16 {

// A hidden child keeps its own link, so that in the other order each gets its place back.
HiddenChildren::~HiddenChildren() {
    for (auto link = m_links.rbegin(); link != m_links.rend(); ++link)
        SetNext(link->before, link->hidden);
}

CXmlElement* HiddenChildren::Before(CXmlElement const* child) const noexcept {
    CXmlElement* before = nullptr;
    for (CXmlElement* at = m_parent.GetFirstElement(); at != nullptr && at != child;
         at = at->GetNextSiblingElement())
        before = at;
    return before;
}

void HiddenChildren::Hide(CXmlElement* before, CXmlElement& child) {
    m_links.push_back({before, &child});
    SetNext(before, child.GetNextSiblingElement());
}

void HiddenChildren::SetNext(CXmlElement* before, CXmlElement* next) noexcept {
    (before == nullptr ? m_parent.GetContent().firstChild : before->m_nextSibling) = next;
}

} // namespace ZvXmlLib16
