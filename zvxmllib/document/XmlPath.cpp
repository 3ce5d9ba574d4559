// Paths of nodes for messages.
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"

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
        return sibling.m_name == m_name ||
               (local.size() <= name.size() &&
                name.compare(name.size() - local.size(), local.size(), local) == 0 &&
                sibling.GetQName() == name);
    };
    int position = 1;
    bool isBefore = true;
    bool hasTwin = false;
    for (CXmlElement const* sibling = m_parent->m_firstChild; sibling != nullptr;
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

} // namespace ZvXmlLib16
