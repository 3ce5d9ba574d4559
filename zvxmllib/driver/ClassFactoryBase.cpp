#include "zvxmllib/driver/ClassFactoryBase.h"

#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16 {

namespace {

std::string const& TypeAttribute(CXmlElement const* element) {
    static std::string const s_name = "type";
    static std::string const s_namespace = "http://www.w3.org/2001/XMLSchema-instance";
    return element->GetAttribute(s_name, s_namespace);
}

} // namespace

CClassfactoryBase::~CClassfactoryBase() = default;

std::string CClassfactoryBase::GetElementType(CXmlElement* element) {
    std::string const& type = TypeAttribute(element);
    std::size_t const colon = type.find(':');
    return colon == std::string::npos ? type : type.substr(colon + 1);
}

std::string CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
    std::string const& type = TypeAttribute(element);
    std::size_t const colon = type.find(':');
    if (colon == std::string::npos)
        return element->GetNamespaceURI();
    std::string const declared =
        element->GetDocument()->LookupNamespaceFromAlias(type.substr(0, colon).c_str());
    return declared.empty() ? element->GetNamespaceURI() : declared;
}

} // namespace ZvXmlLib16
