// Paths of nodes for messages, and the places where nodes stand.
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"

#include <charconv>
#include <vector>

namespace ZvXmlLib16 {

// Walks down from the root without recursion, since the depth is unlimited.
std::string CXmlElement::GetXPath() const {
    std::vector<CXmlElement const*> ancestors;
    for (CXmlElement const* element = this; element != nullptr; element = element->m_parent)
        ancestors.push_back(element);
    std::string path;
    for (auto element = ancestors.rbegin(); element != ancestors.rend(); ++element)
        path.append("/").append((*element)->GetNameWithPredicate());
    return path;
}

std::string CXmlElement::GetQName() const {
    std::string const& uri = GetNamespaceURI();
    std::string qualified;
    if (!uri.empty()) {
        qualified = GetDocument()->LookupAliasFromNamespace(uri.c_str());
        if (!qualified.empty())
            qualified += ':';
    }
    return qualified.append(GetLocalName());
}

std::string CXmlElement::GetNameWithPredicate() const {
    std::string name = GetQName();
    if (m_parent == nullptr)
        return name;
    // Siblings with the same interned name are equal; other names are compared as they are shown: a local
    // name with a colon looks like one with a prefix. What is shown ends with the local name.
    auto const isSameNamed = [&](CXmlElement const& sibling) {
        std::string const& local = sibling.GetLocalName();
        return &sibling.GetName() == &GetName() ||
               (local.size() <= name.size() &&
                name.compare(name.size() - local.size(), local.size(), local) == 0 &&
                sibling.GetQName() == name);
    };
    int position = 1;
    bool isBefore = true;
    bool hasTwin = false;
    for (CXmlElement const* sibling = m_parent->GetFirstElement(); sibling != nullptr;
         sibling = sibling->m_nextSibling) {
        if (sibling == this) {
            isBefore = false;
        } else if (isSameNamed(*sibling)) {
            hasTwin = true;
            position += isBefore ? 1 : 0;
            if (!isBefore)
                break;
        }
    }
    return hasTwin ? name + "[" + std::to_string(position) + "]" : name;
}

std::string CXmlAttribute::GetXPath() const {
    std::string path = m_element->GetXPath() + "/";
    if (!GetNamespaceURI().empty()) {
        std::string const prefix =
            m_element->GetDocument()->LookupAliasFromNamespace(GetNamespaceURI().c_str());
        if (!prefix.empty())
            path.append(prefix).append(":");
    }
    return path.append("@").append(GetLocalName());
}

// Down by the names between the slashes, each of which may have its number in brackets.
CXmlElement const* CXmlElement::FindByPath(std::string_view path) const {
    CXmlElement const* found = nullptr;
    CXmlElement const* candidates = this;
    while (!path.empty() && path.front() == '/') {
        path.remove_prefix(1);
        std::string_view step = path.substr(0, path.find('/'));
        path.remove_prefix(step.size());
        int number = 1;
        std::size_t const bracket = step.find('[');
        if (bracket != std::string_view::npos) {
            std::from_chars(step.data() + bracket + 1, step.data() + step.size(), number);
            step = step.substr(0, bracket);
        }
        for (found = candidates; found != nullptr; found = found == this ? nullptr : found->m_nextSibling) {
            if (found->GetQName() == step && --number == 0)
                break;
        }
        if (found == nullptr)
            return nullptr;
        candidates = found->GetFirstElement();
    }
    return path.empty() ? found : nullptr;
}

std::uint64_t CXmlElement::GetLine() const noexcept {
    NodePositions const* const positions = GetName().tree->GetPositions();
    return positions == nullptr ? 0 : positions->Find(*this).line;
}

std::uint64_t CXmlElement::GetColumn() const noexcept {
    NodePositions const* const positions = GetName().tree->GetPositions();
    return positions == nullptr ? 0 : positions->Find(*this).column;
}

detail::NodePosition CXmlAttribute::GetPosition() const noexcept {
    NodePositions const* const positions = GetName().tree->GetPositions();
    if (positions == nullptr)
        return {};
    return positions->Find(*m_element, static_cast<std::size_t>(this - m_element->GetAttributeAt(0)));
}

std::uint64_t CXmlAttribute::GetLine() const noexcept {
    return GetPosition().line;
}

std::uint64_t CXmlAttribute::GetColumn() const noexcept {
    return GetPosition().column;
}

} // namespace ZvXmlLib16
