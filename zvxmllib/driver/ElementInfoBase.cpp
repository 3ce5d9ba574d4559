#include "zvxmllib/driver/ElementInfoBase.h"

#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/TextOrEmpty.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <string_view>

namespace ZvXmlLib16Data {

namespace {

constexpr std::string_view kWildcardName = "AnyElement";

} // namespace

CElementInfo::CElementInfo(char const* name, char const* ns, CProperty const& property)
    : m_name(ZvXmlLib16::detail::TextOrEmpty(name)), m_namespace(ZvXmlLib16::detail::TextOrEmpty(ns)),
      m_property(property, ZvXmlLib16::ItemType_invalid, false, name), m_isWildcard(m_name == kWildcardName) {
}

CElementInfo::CElementInfo(char const* name, char const* ns, CProperty const& property, bool nillable,
                           EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue)
    : m_enumToString(enumToString), m_name(ZvXmlLib16::detail::TextOrEmpty(name)),
      m_namespace(ZvXmlLib16::detail::TextOrEmpty(ns)),
      m_property(property, ZvXmlLib16::ItemType_i4, nillable, name),
      m_defaultValue(ZvXmlLib16::detail::TextOrEmpty(defaultValue)), m_nillable(nillable),
      m_stringToEnum(stringToEnum), m_isWildcard(false) {}

CElementInfo::CElementInfo(char const* name, char const* ns, CProperty const& property, bool nillable,
                           ItemType type, char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                           CPrimitiveRestrictions const& restrictions, char const* defaultValue)
    : m_name(ZvXmlLib16::detail::TextOrEmpty(name)), m_namespace(ZvXmlLib16::detail::TextOrEmpty(ns)),
      m_property(property, type, nillable, name), m_restrictions(restrictions), m_itemType(type),
      m_formatOverride(ZvXmlLib16::detail::TextOrEmpty(formatOverride)), m_whitespaceRule(rule),
      m_defaultValue(ZvXmlLib16::detail::TextOrEmpty(defaultValue)), m_nillable(nillable),
      m_hasRestrictions(true), m_needsCheck(ZvXmlLib16::detail::NeedsCheck(type, restrictions)),
      m_isWildcard(false) {}

CElementInfo::~CElementInfo() = default;

bool CElementInfo::Validate(Ctx const&, Object const*, bool, bool) const {
    FailNoValidate();
}

void CElementInfo::PseudoChildAttributeToXml(Ctx const&, Object const*, CXmlWriter*) const {}

CElementInfo::ChoiceMember CElementInfo::GetChoiceMember() const noexcept {
    return ChoiceMember::kOther;
}

bool CElementInfo::AcceptsName(Ctx const& ctx, Object const* object, CXmlElement const* element) const {
    if (!m_isWildcard)
        return IsThisElement(ctx, element);
    ZvVariant value;
    ReadProperty(object, value);
    auto const* const elements = dynamic_cast<ZvXmlLib16::CElementCol const*>(value.FindXmlCollection());
    return elements == nullptr || elements->AllowsStrictly(element->GetNamespaceURI());
}

bool CElementInfo::IsNestedGroup(Object const*, CSmartPtr<CXmlObjectBase>&) const {
    return false;
}

bool CElementInfo::HasContent(Object const* object) const {
    ZvVariant value;
    ReadProperty(object, value);
    switch (value.GetTypeAsEnum()) {
    case ZvXmlLib16::ItemType_XmlObjectBase:
        return value.FindXmlObject() != nullptr;
    case ZvXmlLib16::ItemType_XmlCollection:
        return value.FindXmlCollection() != nullptr && value.FindXmlCollection()->GetCount() != 0;
    default:
        return value.IsValid();
    }
}

void CElementInfo::CheckRestriction(ZvVariant const& value) const {
    if (!m_hasRestrictions)
        FailCheckRestriction(value.GetType());
    ZvXmlLib16::CheckPrimitiveVariant(m_name.c_str(), value, m_itemType, m_restrictions);
}

bool CElementInfo::IsThisElement(Ctx const& ctx, CXmlElement const* element) const {
    if (element == nullptr || element->GetLocalName() != m_name)
        return false;
    return ctx.GetIgnoreNamespaces() || element->GetNamespaceURI() == m_namespace;
}

void CElementInfo::InvokePropertyGet(Object* object, ZvVariant& value) const {
    try {
        m_property.Get(object, value);
    } catch (CZvException const& cause) {
        FailPropertyGet(m_name, cause);
    }
}

void CElementInfo::InvokePropertySet(Object* object, ZvVariant& value, CXmlElement const& element) const {
    try {
        m_property.Set(object, value);
    } catch (CZvException const& cause) {
        FailElementPropertySet(element.GetXPath(), cause);
    }
}

void CElementInfo::ReadProperty(Object const* object, ZvVariant& value) const {
    InvokePropertyGet(const_cast<Object*>(object), value);
}

// A property that is invalid or nil holds no object.
CSmartPtr<CXmlObjectBase> CElementInfo::GetObjectProperty(Object const* object) const {
    ZvVariant value;
    ReadProperty(object, value);
    ItemType const type = value.GetTypeAsEnum();
    if (value.IsNil() ||
        (type != ZvXmlLib16::ItemType_XmlObjectBase && type != ZvXmlLib16::ItemType_XmlCollection))
        return {};
    return value.GetXmlObject();
}

CSmartPtr<CXmlCollectionBase> CElementInfo::GetCollectionProperty(Object const* object) const {
    ZvVariant value;
    ReadProperty(object, value);
    CSmartPtr<CXmlCollectionBase> collection;
    if (value.GetTypeAsEnum() == ZvXmlLib16::ItemType_XmlCollection && !value.IsNil())
        collection = value.GetXmlCollection();
    if (collection == nullptr)
        FailNoCollection(m_name);
    return collection;
}

void CElementInfo::SetObjectProperty(Object* object, CXmlObjectBase* value,
                                     CXmlElement const& element) const {
    ZvVariant variant;
    variant.SetXmlObject(value);
    InvokePropertySet(object, variant, element);
}

CXmlElement* CElementInfo::FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* current,
                                       Ctx const& ctx, bool optionalChoice) const {
    ZvXmlLib16::NestingGuard const level;
    return object->FromXml_Int(element, current, ctx, optionalChoice);
}

void CElementInfo::AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                       Ctx const& ctx) const {
    ZvXmlLib16::NestingGuard const level;
    object->AttributesToXml_Int(writer, ctx);
}

bool CElementInfo::PassesNameTest(Ctx const& ctx, CXmlElement const* element) const {
    if (ctx.GetStrict() && !m_isWildcard)
        return IsThisElement(ctx, element);
    return element != nullptr && (m_isWildcard || element->GetLocalName() == m_name);
}

CSmartPtr<CElement> CElementInfo::NewUntyped(char const* ns, std::string const& allowedNamespaces,
                                             std::string const& targetNamespace) const {
    std::string const own = GetAnyDefaultNamespace(allowedNamespaces.c_str(), ns, targetNamespace.c_str());
    return new CElement(m_name.c_str(), own.c_str(), allowedNamespaces.c_str(), targetNamespace.c_str());
}

std::string CElementInfo::GetAnyDefaultNamespace(char const* allowed, char const* ns, char const* target) {
    std::string_view rule = ZvXmlLib16::detail::TextOrEmpty(allowed);
    if (rule.size() >= 3 && rule.substr(0, 2) == "##")
        rule = rule.substr(0, rule.find(' '));
    std::string_view const own = ZvXmlLib16::detail::TextOrEmpty(ns);
    if (rule == "##any")
        return std::string(own);
    if (rule == "##other")
        return own.empty() ? "DefaultNamespace" : "";
    if (rule == "##targetNamespace")
        return ZvXmlLib16::detail::TextOrEmpty(target);
    return std::string();
}

} // namespace ZvXmlLib16Data
