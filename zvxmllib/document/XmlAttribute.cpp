#include "zvxmllib/document/XmlAttribute.h"

#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/XmlNamespaces.h"

#include <algorithm>
#include <array>

namespace ZvXmlLib16 {

namespace {

constexpr std::array<std::string_view, 4> kNamespaceAttributes = {"xmlns", "type", "schemaLocation",
                                                                  "noNamespaceSchemaLocation"};

bool IsSchemaInstance(std::string_view uri) {
    return uri == kSchemaInstanceNamespace || uri == kXmlnsNamespace;
}

} // namespace

CXmlAttribute::~CXmlAttribute() = default;

std::string const& CXmlAttribute::GetLocalName() const noexcept {
    return *GetName().localName;
}

detail::SharedText CXmlAttribute::ShareLocalName() const noexcept {
    return detail::SharedText::Of(*GetName().localName);
}

detail::SharedText CXmlAttribute::ShareNamespaceURI() const noexcept {
    return detail::SharedText::Of(*GetName().namespaceUri);
}

std::string const& CXmlAttribute::GetNamespaceURI() const noexcept {
    return *GetName().namespaceUri;
}

std::string const& CXmlAttribute::GetValue() const {
    return m_value.AsString(*GetName().tree, *m_element);
}

bool CXmlAttribute::IsNamespaceAttribute() const noexcept {
    return IsSchemaInstance(GetNamespaceURI()) &&
           std::find(kNamespaceAttributes.begin(), kNamespaceAttributes.end(), GetLocalName()) !=
               kNamespaceAttributes.end();
}

bool CXmlAttribute::IsNilAttribute() const noexcept {
    return GetLocalName() == "nil" && IsSchemaInstance(GetNamespaceURI());
}

} // namespace ZvXmlLib16
