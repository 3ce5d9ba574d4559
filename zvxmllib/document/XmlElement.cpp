#include "zvxmllib/document/XmlElement.h"

#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"

namespace ZvXmlLib16 {

namespace {
constexpr char kNamespaceOfXml[] = "http://www.w3.org/XML/1998/namespace"; // needs no declaration
std::string const kAbsentValue;
std::vector<CXmlAttribute*> const kNoAttributes;
} // namespace

CXmlElement::~CXmlElement() = default;

CXmlDocument const* CXmlElement::GetDocument() const noexcept {
    return &GetName().tree->GetDocument();
}

std::vector<TextPlace> CXmlElement::GetTextPlaces() const {
    detail::TextPlaces const* const places = GetName().tree->GetTextPlaces();
    return places == nullptr ? std::vector<TextPlace>() : places->Of(*this);
}

bool CXmlElement::HasTextAheadOfChild() const {
    detail::TextPlaces const* const places = GetName().tree->GetTextPlaces();
    return places != nullptr && places->HasTextAheadOfChild(*this);
}

detail::PrefixScopes const* CXmlElement::GetScopes() const noexcept {
    return GetName().tree->GetScopes();
}

std::string CXmlElement::LookupNamespaceFromAlias(char const* alias) const {
    detail::PrefixScopes const* const scopes = GetScopes();
    if (scopes == nullptr)
        return GetDocument()->LookupNamespaceFromAlias(alias);
    std::string_view const prefix = alias == nullptr ? "" : alias;
    if (prefix == "xml")
        return kNamespaceOfXml;
    detail::PrefixDeclaration const* const declaration = scopes->Find(*this, prefix);
    return declaration == nullptr ? std::string() : *declaration->uri;
}

std::string const& CXmlElement::GetLocalName() const noexcept {
    return *GetName().localName;
}

detail::SharedText CXmlElement::ShareLocalName() const noexcept {
    return detail::SharedText::Of(*GetName().localName);
}

detail::SharedText CXmlElement::ShareNamespaceURI() const noexcept {
    return detail::SharedText::Of(*GetName().namespaceUri);
}

std::string const& CXmlElement::GetNamespaceURI() const noexcept {
    return *GetName().namespaceUri;
}

std::string const& CXmlElement::GetText() const {
    return GetNodeText().AsString(*GetName().tree, *this);
}

CXmlAttribute* CXmlElement::GetAttributeAt(std::size_t index) const noexcept {
    return reinterpret_cast<CXmlAttribute*>(&GetAttributeBlock() + 1) + index;
}

std::vector<CXmlAttribute*> const& CXmlElement::GetAttributes() const {
    return !m_text.HasMark() ? kNoAttributes : GetName().tree->KeepAttributeFaces(*this);
}

std::string const& CXmlElement::GetAttribute(std::string const& localName,
                                             std::string const& namespaceURI) const {
    for (std::size_t i = 0; i < GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *GetAttributeAt(i);
        if (attribute.GetLocalName() == localName && attribute.GetNamespaceURI() == namespaceURI)
            return attribute.GetValue();
    }
    return kAbsentValue;
}

} // namespace ZvXmlLib16
