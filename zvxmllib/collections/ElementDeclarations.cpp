// CElement and CAttributeCol: the prefixes that their names in texts and values need.
#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/PrefixScopes.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace ZvXmlLib16 {

namespace {

// Not beyond what ends a name; characters beyond ASCII count as part of it.
bool IsNameByte(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.' || static_cast<unsigned char>(c) > 127;
}

// Calls `found` with each name in the text that a colon and another name follow: what may be a prefix.
template <class Found>
void FindPrefixes(std::string_view text, Found found) {
    for (std::size_t colon = text.find(':'); colon < text.size(); colon = text.find(':', colon + 1)) {
        std::size_t start = colon;
        while (start != 0 && IsNameByte(text[start - 1]))
            --start;
        if (start != colon && colon + 1 != text.size() && IsNameByte(text[colon + 1]))
            found(text.substr(start, colon - start));
    }
}

// The declarations that texts of an element need, and all of its own if they are asked for.
class NeededDeclarations {
public:
    enum class Begin { kWithNone, kWithItsOwn };
    NeededDeclarations(detail::PrefixScopes const& scopes, CXmlElement const& element, Begin begin)
        : m_scopes(scopes), m_element(element) {
        if (begin == Begin::kWithItsOwn)
            m_needed = scopes.GetDeclared(element);
        for (detail::PrefixDeclaration const& declaration : m_needed)
            m_prefixes.insert(*declaration.prefix);
    }
    void AddText(std::string_view text) {
        FindPrefixes(text, [this](std::string_view prefix) { AddPrefix(prefix); });
    }
    void AddPrefix(std::string_view prefix) {
        if (!m_prefixes.insert(prefix).second)
            return;
        if (detail::PrefixDeclaration const* const declaration = m_scopes.Find(m_element, prefix))
            m_needed.push_back(*declaration);
    }
    std::vector<detail::PrefixDeclaration> const& Get() const noexcept { return m_needed; }

private:
    detail::PrefixScopes const& m_scopes;
    CXmlElement const& m_element;
    std::vector<detail::PrefixDeclaration> m_needed;
    std::unordered_set<std::string_view> m_prefixes; // looked up already
};

// In place of the one of this prefix.
void Declare(std::vector<CElement::Declaration>& declarations, std::string_view prefix,
             std::string_view uri) {
    auto const known = std::find_if(
        declarations.begin(), declarations.end(),
        [prefix](CElement::Declaration const& declaration) { return declaration.prefix.Get() == prefix; });
    if (known != declarations.end())
        known->namespaceURI = uri;
    else
        declarations.push_back({detail::SharedText(prefix), detail::SharedText(uri)});
}

} // namespace

std::vector<CElement::Declaration> const& CElement::GetDeclarations() const noexcept {
    static std::vector<Declaration> const kNone;
    return m_rules == nullptr ? kNone : m_rules->declarations;
}

void CElement::DeclarePrefix(char const* prefix, char const* namespaceURI) {
    Declare(OwnRules().declarations, detail::TextOrEmpty(prefix), detail::TextOrEmpty(namespaceURI));
}

// Behind the text. A type without a prefix is one of the default namespace.
void CElement::KeepDeclarations(CXmlElement const& element) {
    if (m_rules != nullptr)
        m_rules->declarations.clear();
    detail::PrefixScopes const* const scopes = element.GetScopes();
    if (scopes == nullptr)
        return;
    NeededDeclarations needed(*scopes, element, NeededDeclarations::Begin::kWithItsOwn);
    needed.AddText(m_text);
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *element.GetAttributeAt(i);
        std::string_view const value = attribute.GetValueView();
        needed.AddText(value);
        if (value.find(':') == std::string_view::npos && attribute.GetLocalName() == "type" &&
            attribute.GetNamespaceURI() == kSchemaInstanceNamespace)
            needed.AddPrefix({});
    }
    for (detail::PrefixDeclaration const& declaration : needed.Get())
        OwnRules().declarations.push_back(
            {detail::SharedText::Of(*declaration.prefix), detail::SharedText::Of(*declaration.uri)});
}

void CElement::WriteDeclarations(CXmlWriter& writer) const {
    for (Declaration const& declaration : GetDeclarations())
        writer.DeclareOnNextElement(declaration.prefix, declaration.namespaceURI);
}

void CAttributeCol::DeclarePrefix(char const* prefix, char const* namespaceURI) {
    if (m_declarations == nullptr)
        m_declarations = std::make_unique<std::vector<Declaration>>();
    Declare(*m_declarations, detail::TextOrEmpty(prefix), detail::TextOrEmpty(namespaceURI));
}

void CAttributeCol::KeepDeclarations(CXmlElement const& element) {
    detail::PrefixScopes const* const scopes = element.GetScopes();
    if (scopes == nullptr)
        return;
    NeededDeclarations needed(*scopes, element, NeededDeclarations::Begin::kWithNone);
    for (CAttribute const* const attribute : *this)
        needed.AddText(attribute->m_value);
    for (detail::PrefixDeclaration const& declaration : needed.Get())
        DeclarePrefix(declaration.prefix->c_str(), declaration.uri->c_str());
}

void CAttributeCol::WriteDeclarations(CXmlWriter& writer) const {
    if (m_declarations == nullptr)
        return;
    for (Declaration const& declaration : *m_declarations)
        writer.DeclareOnNextElement(declaration.prefix, declaration.namespaceURI);
}

} // namespace ZvXmlLib16
