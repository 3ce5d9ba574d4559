#include "zvxmllib/driver/AttributeInfoFamily.h"

#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/StrictValues.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/variant/ZvVariant.h"
#include "zvxmllib/writers/XmlWriter.h"

namespace ZvXmlLib16Data {

namespace {

CSmartPtr<ZvXmlLib16::CXmlObjectBase> CollectionOf(ZvVariant const& value) {
    if (value.GetTypeAsEnum() != ZvXmlLib16::ItemType_XmlCollection || value.IsNil())
        return {};
    return value.GetXmlObject();
}

CSmartPtr<ZvXmlLib16::CAttributeCol> AttributesOf(ZvVariant const& value) {
    CSmartPtr<CXmlObjectBase> const collection = CollectionOf(value);
    return dynamic_cast<ZvXmlLib16::CAttributeCol*>(static_cast<CXmlObjectBase*>(collection));
}

} // namespace

CAttributeInfoPrimitive::CAttributeInfoPrimitive(char const* name, char const* ns, CProperty const& property,
                                                 bool optional, ZvXmlLib16::ItemType type,
                                                 char const* formatOverride,
                                                 ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule,
                                                 ZvXmlLib16::CPrimitiveRestrictions const& restrictions,
                                                 char const* defaultValue)
    : CAttributeInfo(name, ns, property, optional, defaultValue, type), m_restrictions(restrictions),
      m_type(type), m_formatOverride(ZvXmlLib16::detail::TextOrEmpty(formatOverride)), m_rule(rule),
      m_needsCheck(ZvXmlLib16::detail::NeedsCheck(type, restrictions)) {}

CAttributeInfoPrimitive::~CAttributeInfoPrimitive() = default;

void CAttributeInfoPrimitive::CheckRestriction(ZvVariant const& value) const {
    ZvXmlLib16::CheckPrimitiveVariant(m_name.c_str(), value, m_type, m_restrictions);
}

detail::StrictValue CAttributeInfoPrimitive::AsStrictValue() const noexcept {
    return {m_name, m_type, m_rule, m_restrictions};
}

std::string const& CAttributeInfoPrimitive::ToText(CSerializationContext const& ctx, ZvVariant const& value,
                                                   std::string& buffer) const {
    return ctx.GetStrict() ? AsStrictValue().ToText(value, m_formatOverride, buffer)
                           : value.ToText(m_formatOverride.c_str(), buffer);
}

void CAttributeInfoPrimitive::AttributeToXml(CSerializationContext const& ctx,
                                             CXmlGeneratedClass const* object, CXmlWriter* writer) const {
    std::string buffer;
    if (m_property.IsValue() && !m_needsCheck && !ctx.GetStrict()) {
        std::string const* const text = m_property.ToText(object, m_formatOverride, buffer);
        if (text != nullptr ? IsSuppressedDefault(ctx, *text) : m_optional)
            return;
        if (text != nullptr)
            return writer->WriteAttribute(m_name, m_namespace, *text, m_type);
    }
    ZvVariant value;
    ReadProperty(object, value);
    if (m_optional && !value.IsValid())
        return;
    std::string const& text = ToText(ctx, value, buffer);
    if (IsSuppressedDefault(ctx, text))
        return;
    if (m_needsCheck) {
        if (ctx.GetStrict())
            AsStrictValue().Check(value, text);
        else
            CheckRestriction(value);
    }
    writer->WriteAttribute(m_name, m_namespace, text, value.GetTypeAsEnum());
}

bool CAttributeInfoPrimitive::AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                                               CXmlAttribute* attribute) {
    bool const isStrict = ctx.GetStrict();
    if (isStrict ? !IsThisAttribute(ctx, attribute) : !HasExactName(*attribute))
        return false;
    if (m_property.IsValue() && !isStrict) {
        m_property.Parse(object, attribute->GetValueView(), m_rule);
        return true;
    }
    ZvVariant value;
    if (isStrict)
        AsStrictValue().Read(value, attribute->GetValueView(), *attribute);
    else
        value.FromText(attribute->GetValueView(), m_type, m_rule);
    InvokePropertySet(object, value, *attribute);
    return true;
}

void CAttributeInfoPrimitive::Validate(CSerializationContext const&, bool found) const {
    ValidatePresence(found);
}

CAttributeInfoEnum::CAttributeInfoEnum(char const* name, char const* ns, CProperty const& property,
                                       bool optional, char const* (*enumToString)(int),
                                       int (*stringToEnum)(char const*), char const* defaultValue)
    : CAttributeInfo(name, ns, property, optional, defaultValue, ZvXmlLib16::ItemType_i4),
      m_enumToString(enumToString), m_stringToEnum(stringToEnum) {}

CAttributeInfoEnum::~CAttributeInfoEnum() = default;

void CAttributeInfoEnum::AttributeToXml(CSerializationContext const& ctx, CXmlGeneratedClass const* object,
                                        CXmlWriter* writer) const {
    ZvVariant value;
    ReadProperty(object, value);
    if (m_optional && !value.IsValid())
        return;
    // A mandatory attribute without a value fails like the conversion of it.
    std::string const text = value.GetTypeAsEnum() == ZvXmlLib16::ItemType_i4
                                 ? ZvXmlLib16::detail::TextOrEmpty(m_enumToString(value.GetI4()))
                                 : value.ToString(nullptr);
    if (IsSuppressedDefault(ctx, text))
        return;
    writer->WriteAttribute(m_name, m_namespace, text, ZvXmlLib16::ItemType_string);
}

bool CAttributeInfoEnum::AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                                          CXmlAttribute* attribute) {
    if (!IsThisAttribute(ctx, attribute))
        return false;
    ZvVariant value;
    value.SetI4(m_stringToEnum(attribute->GetValue().c_str()));
    InvokePropertySet(object, value, *attribute);
    return true;
}

void CAttributeInfoEnum::Validate(CSerializationContext const&, bool found) const {
    ValidatePresence(found);
}

CAttributeInfoAny::CAttributeInfoAny(char const* name, char const* ns, CProperty const& property,
                                     bool optional, char const* allowedNamespaces,
                                     char const* targetNamespace, char const* defaultValue)
    : CAttributeInfo(name, ns, property, optional, defaultValue),
      m_allowedNamespaces(ZvXmlLib16::detail::TextOrEmpty(allowedNamespaces)),
      m_targetNamespace(ZvXmlLib16::detail::TextOrEmpty(targetNamespace)) {}

CAttributeInfoAny::~CAttributeInfoAny() = default;

void CAttributeInfoAny::AttributeToXml(CSerializationContext const& ctx, CXmlGeneratedClass const* object,
                                       CXmlWriter* writer) const {
    ZvVariant value;
    ReadProperty(object, value);
    CSmartPtr<CXmlObjectBase> const attributes = CollectionOf(value);
    if (attributes == nullptr)
        FailNoCollection(m_name);
    ToXml_Int(attributes, writer, false, GetTargetNamespace(object).c_str(), ctx);
}

bool CAttributeInfoAny::AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                                         CXmlAttribute* attribute) {
    if (!IsNamespaceValid(attribute->GetNamespaceURI(), m_allowedNamespaces, m_targetNamespace,
                          ctx.GetStrict()))
        return false;
    ZvVariant value;
    InvokePropertyGet(object, value);
    CSmartPtr<ZvXmlLib16::CAttributeCol> const attributes = AttributesOf(value);
    if (attributes == nullptr)
        FailNoAttributeCollection();
    attributes->Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                    attribute->GetNamespaceURI().c_str());
    return true;
}

void CAttributeInfoAny::Validate(CSerializationContext const&, bool) const {}

void CAttributeInfoAny::KeepDeclarations(CXmlGeneratedClass const* object, CXmlElement const& element) const {
    ZvVariant value;
    ReadProperty(object, value);
    if (CSmartPtr<ZvXmlLib16::CAttributeCol> const attributes = AttributesOf(value))
        attributes->KeepDeclarations(element);
}

void CAttributeInfoAny::WriteDeclarations(CXmlGeneratedClass const* object, CXmlWriter& writer) const {
    ZvVariant value;
    ReadProperty(object, value);
    if (CSmartPtr<ZvXmlLib16::CAttributeCol> const attributes = AttributesOf(value))
        attributes->WriteDeclarations(writer);
}

} // namespace ZvXmlLib16Data
