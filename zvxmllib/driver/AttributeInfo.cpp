#include "zvxmllib/driver/AttributeInfo.h"

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/values/variant/ZvVariant.h"

namespace ZvXmlLib16Data {

CAttributeInfo::CAttributeInfo(char const* name, char const* ns, CProperty const& property, bool optional,
                               char const* defaultValue, ZvXmlLib16::ItemType type)
    : m_name(ZvXmlLib16::detail::TextOrEmpty(name)), m_namespace(ZvXmlLib16::detail::TextOrEmpty(ns)),
      m_property(property, type, false, name), m_optional(optional),
      m_defaultValue(ZvXmlLib16::detail::TextOrEmpty(defaultValue)) {}

CAttributeInfo::~CAttributeInfo() = default;

bool CAttributeInfo::IsThisAttribute(CSerializationContext const& ctx, CXmlAttribute* attribute) {
    if (attribute == nullptr || attribute->GetLocalName() != m_name)
        return false;
    return ctx.GetIgnoreNamespaces() || attribute->GetNamespaceURI() == m_namespace;
}

bool CAttributeInfo::HasExactName(CXmlAttribute const& attribute) const noexcept {
    return attribute.GetLocalName() == m_name && attribute.GetNamespaceURI() == m_namespace;
}

void CAttributeInfo::InvokePropertyGet(CXmlGeneratedClass* object, ZvVariant& value) const {
    try {
        m_property.Get(object, value);
    } catch (CZvException const& cause) {
        FailPropertyGet(m_name, cause);
    }
}

void CAttributeInfo::InvokePropertySet(CXmlGeneratedClass* object, ZvVariant& value,
                                       CXmlAttribute const& attribute) const {
    try {
        m_property.Set(object, value);
    } catch (CZvException const& cause) {
        FailAttributePropertySet(attribute.GetValue(), attribute.GetXPath(), cause);
    }
}

void CAttributeInfo::ReadProperty(CXmlGeneratedClass const* object, ZvVariant& value) const {
    InvokePropertyGet(const_cast<CXmlGeneratedClass*>(object), value);
}

bool CAttributeInfo::IsSuppressedDefault(CSerializationContext const& ctx, std::string const& text) const {
    return m_optional && !m_defaultValue.empty() && ctx.GetNoOptionalAttributeDefaultOutput() &&
           text == m_defaultValue;
}

// No option of the context relaxes this.
void CAttributeInfo::ValidatePresence(bool found) const {
    if (!m_optional && !found)
        FailRequiredAttribute(m_name);
}

std::string CAttributeInfo::GetTargetNamespace(CXmlObjectBase const* object) {
    return const_cast<CXmlObjectBase*>(object)->GetTargetNamespace();
}

void CAttributeInfo::ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot, char const* ns,
                               CSerializationContext const& ctx) {
    object->ToXml_Int(writer, isRoot, ns, ctx, false);
}

bool CAttributeInfo::IsNamespaceValid(std::string const& ns, std::string const& allowed,
                                      std::string const& target, bool isStrict) {
    return ZvXmlLib16::IsNamespaceAllowed(ns, allowed, target, isStrict);
}

void CAttributeInfo::TestNamespace(std::string const& ns, std::string const& allowed,
                                   std::string const& target) {
    if (!IsNamespaceValid(ns, allowed, target))
        ZvXmlLib16::FailNamespaceNotAllowed(ns, allowed, target);
}

} // namespace ZvXmlLib16Data
