#include "zvxmllib/document/PrefixScopes.h"

#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16::detail {

void PrefixScopes::AddElement(CXmlElement const* element) {
    ++m_elements;
    auto const gone = m_declared.find(element);
    if (gone != m_declared.end()) {
        for (PrefixDeclaration const& declaration : gone->second)
            m_prefixes[*declaration.prefix].declarations.erase(element);
        m_declared.erase(gone);
    }
    if (m_next.empty())
        return;
    for (PrefixDeclaration const& declaration : m_next)
        m_prefixes[*declaration.prefix].declarations[element] = declaration;
    m_declared[element].swap(m_next);
    m_next.clear();
}

std::vector<PrefixDeclaration> const& PrefixScopes::GetDeclared(CXmlElement const& element) const {
    static std::vector<PrefixDeclaration> const kNone;
    auto const found = m_declared.find(&element);
    return found == m_declared.end() ? kNone : found->second;
}

// Siblings mostly ask for the same, however deep they are.
PrefixDeclaration const* PrefixScopes::Find(CXmlElement const& element, std::string_view prefix) const {
    auto const found = m_prefixes.find(prefix);
    if (found == m_prefixes.end())
        return nullptr;
    Prefix const& known = found->second;
    auto const findOn = [&known](CXmlElement const* scope) {
        auto const declared = known.declarations.find(scope);
        return declared == known.declarations.end() ? nullptr : &declared->second;
    };
    if (PrefixDeclaration const* const own = findOn(&element))
        return own;
    CXmlElement const* scope = element.GetParentElm();
    if (known.answered == m_elements && known.parent == scope)
        return known.answer;
    known.answered = m_elements;
    known.parent = scope;
    for (known.answer = nullptr; scope != nullptr && known.answer == nullptr; scope = scope->GetParentElm())
        known.answer = findOn(scope);
    return known.answer;
}

} // namespace ZvXmlLib16::detail
