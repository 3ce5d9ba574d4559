// CAttribute, an attribute that no schema describes.
#include "zvxmllib/collections/Attribute.h"

#include "zvxmllib/collections/Failures.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <utility>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_attributeInstances("CAttribute");

} // namespace

CAttribute::CAttribute(char const* name, char const* value, char const* namespaceURI)
    : CAttribute(detail::SharedText(detail::TextOrEmpty(name)), detail::TextOrEmpty(value),
                 detail::SharedText(detail::TextOrEmpty(namespaceURI))) {}

CAttribute::CAttribute(detail::SharedText name, std::string_view value, detail::SharedText ns)
    : CInstanceMonitor(s_attributeInstances), m_name(std::move(name)), m_namespace(std::move(ns)),
      m_value(value) {}

CAttribute::~CAttribute() = default;

CXmlObjectBase* CAttribute::GetBase() {
    return this;
}

std::string CAttribute::GetNamespace() {
    return m_namespace;
}

std::string CAttribute::GetTargetNamespace() {
    return m_namespace;
}

void CAttribute::SetName(char const* name) {
    FireOnChangeName(name);
    m_name = detail::TextOrEmpty(name);
}

void CAttribute::SetValue(char const* value) {
    m_value = detail::TextOrEmpty(value);
}

void CAttribute::SetNamespace(char const* ns) {
    FireOnChangeNamespace(ns);
    m_namespace = detail::TextOrEmpty(ns);
}

CSmartPtr<CAttribute> CAttribute::Clone() const {
    return new CAttribute(m_name, m_value, m_namespace);
}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, char const*, CSerializationContext const&, bool) const {
    writer->WriteAttribute(m_name, m_namespace, m_value, ItemType_string);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, CSerializationContext const&, bool) {
    FailAttributeReadAlone();
}

void CAttribute::FireOnChangeName(char const*) {}

void CAttribute::FireOnChangeNamespace(char const*) {}

} // namespace ZvXmlLib16
