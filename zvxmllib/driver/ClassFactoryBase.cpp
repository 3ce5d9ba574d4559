#include "zvxmllib/driver/ClassFactoryBase.h"

#include "zvxmllib/binding/StrictElement.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

#include <optional>
#include <utility>

namespace ZvXmlLib16 {

namespace {

std::string const& TypeAttribute(CXmlElement const* element) {
    static std::string const s_name = "type";
    static std::string const s_namespace = "http://www.w3.org/2001/XMLSchema-instance";
    return element->GetAttribute(s_name, s_namespace);
}

// Nothing without the attribute, and where the document is not strict.
std::optional<TypeName> StrictTypeName(CXmlElement const& element) {
    if (!element.GetDocument()->GetContext().GetStrict())
        return std::nullopt;
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *element.GetAttributeAt(i);
        if (IsTypeAttribute(attribute))
            return ReadTypeName(element, attribute);
    }
    return std::nullopt;
}

} // namespace

CClassfactoryBase::~CClassfactoryBase() = default;

std::string CClassfactoryBase::GetElementType(CXmlElement* element) {
    if (std::optional<TypeName> strict = StrictTypeName(*element))
        return std::move(strict->name);
    std::string const& type = TypeAttribute(element);
    std::size_t const colon = type.find(':');
    return colon == std::string::npos ? type : type.substr(colon + 1);
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
    if (std::optional<TypeName> strict = StrictTypeName(*element))
        return std::move(strict->ns);
    std::string const& type = TypeAttribute(element);
    std::size_t const colon = type.find(':');
    if (colon == std::string::npos)
        return element->GetNamespaceURI();
    std::string const declared =
        element->GetDocument()->LookupNamespaceFromAlias(type.substr(0, colon).c_str());
    return declared.empty() ? element->GetNamespaceURI() : declared;
}

} // namespace ZvXmlLib16
