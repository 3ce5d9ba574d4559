#include "zvxmllib/document/PrefixScopes.h"

#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16 {

void PrefixScopes::AddElement(CXmlElement const* element) {
    if (m_next.empty()) {
        m_declared.erase(element);
        return;
    }
    m_declared[element].swap(m_next);
    m_next.clear();
}

std::vector<PrefixDeclaration> const& PrefixScopes::GetDeclared(CXmlElement const& element) const {
    static std::vector<PrefixDeclaration> const kNone;
    auto const found = m_declared.find(&element);
    return found == m_declared.end() ? kNone : found->second;
}

std::string const* PrefixScopes::Find(CXmlElement const& element, std::string_view prefix) const {
    if (m_declared.empty())
        return nullptr;
    for (CXmlElement const* scope = &element; scope != nullptr; scope = scope->GetParentElm()) {
        for (PrefixDeclaration const& declaration : GetDeclared(*scope)) {
            if (*declaration.prefix == prefix)
                return declaration.uri;
        }
    }
    return nullptr;
}

} // namespace ZvXmlLib16
