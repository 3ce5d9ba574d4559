// What the entries of a choice do: each answers whether it took the child.
#include "zvxmllib/binding/metadata/ElementInfoChoice.h"

#include "zvxmllib/binding/context/SerializationContext.h"
#include "zvxmllib/binding/metadata/Failures.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/XmlCollectionBase.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16Data {

// CElementInfoChoiceClsOpt

CElementInfoChoiceClsOpt::CElementInfoChoiceClsOpt(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType,
                                                   ClassFactory factory, int classId)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory, classId} {
    m_choiceMember = ChoiceMember::kOptional;
}
CElementInfoChoiceClsOpt::~CElementInfoChoiceClsOpt() = default;

bool CElementInfoChoiceClsOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    if (offered == nullptr || (!m_class.IsGroup() && !IsThisElement(ctx, offered)))
        return false;
    CSmartPtr<CXmlObjectBase> const child = m_class.Make(GetElementName());
    SetObjectProperty(object, child, *offered);
    if (!m_class.IsGroup()) {
        ReadRealChild(ctx, child, current, true);
        return true;
    }
    if (ReadGroup(ctx, child, element, current))
        return true;
    SetObjectProperty(object, nullptr, *offered);
    return false;
}

void CElementInfoChoiceClsOpt::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoChoiceAbsClsOpt

CElementInfoChoiceAbsClsOpt::CElementInfoChoiceAbsClsOpt(char const* name, char const* ns,
                                                         std::int32_t propertyIndex,
                                                         XmlElementType elementType, ElementFactory factory)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory} {
    m_choiceMember = ChoiceMember::kOptional;
}
CElementInfoChoiceAbsClsOpt::~CElementInfoChoiceAbsClsOpt() = default;

bool CElementInfoChoiceAbsClsOpt::ElementToXml(Ctx const& ctx, Object const* object,
                                               CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                                 CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    CSmartPtr<CXmlObjectBase> const child = MakeSubstitute(ctx, offered, m_class.factory);
    if (child == nullptr)
        return false;
    SetObjectProperty(object, child, *offered);
    ReadRealChild(ctx, child, current, false);
    return true;
}

void CElementInfoChoiceAbsClsOpt::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                            CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoChoicePrimOpt

CElementInfoChoicePrimOpt::CElementInfoChoicePrimOpt(char const* name, char const* ns,
                                                     std::int32_t propertyIndex, bool nillable, ItemType type,
                                                     char const* formatOverride,
                                                     CWhitespaceUtils::WhitespaceRule rule,
                                                     CPrimitiveRestrictions const& restrictions,
                                                     char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, type, formatOverride, rule, restrictions,
                   defaultValue) {
    m_choiceMember = ChoiceMember::kOptional;
}
CElementInfoChoicePrimOpt::~CElementInfoChoicePrimOpt() = default;

bool CElementInfoChoicePrimOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlPrim(ctx, object, writer);
}

bool CElementInfoChoicePrimOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                               CXmlElement** current, char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlPrim(ctx, object, current);
    return true;
}

// CElementInfoChoiceEnumOpt

CElementInfoChoiceEnumOpt::CElementInfoChoiceEnumOpt(char const* name, char const* ns,
                                                     std::int32_t propertyIndex, bool nillable,
                                                     EnumToString enumToString, StringToEnum stringToEnum,
                                                     char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, enumToString, stringToEnum, defaultValue) {
    m_choiceMember = ChoiceMember::kOptional;
}
CElementInfoChoiceEnumOpt::~CElementInfoChoiceEnumOpt() = default;

bool CElementInfoChoiceEnumOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlEnum(ctx, object, writer, m_enumToString);
}

bool CElementInfoChoiceEnumOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                               CXmlElement** current, char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlEnum(ctx, object, current);
    return true;
}

// CElementInfoChoiceUntpdOpt

CElementInfoChoiceUntpdOpt::CElementInfoChoiceUntpdOpt(char const* name, char const* ns,
                                                       std::int32_t propertyIndex,
                                                       char const* allowedNamespaces,
                                                       char const* targetNamespace)
    : CElementInfo(name, ns, propertyIndex), m_untyped(allowedNamespaces, targetNamespace) {
    m_choiceMember = ChoiceMember::kOptional;
    m_usesClassNamespace = true;
}
CElementInfoChoiceUntpdOpt::~CElementInfoChoiceUntpdOpt() = default;

bool CElementInfoChoiceUntpdOpt::ElementToXml(Ctx const& ctx, Object const* object,
                                              CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoChoiceUntpdOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                                CXmlElement** current, char const* ns, XmlElementType) {
    CXmlElement* const offered = *current;
    if (offered == nullptr)
        return false;
    CSmartPtr<CElement> const child = NewUntyped(ns, m_untyped.allowedNamespaces, m_untyped.targetNamespace);
    SetObjectProperty(object, child, *offered);
    if (PassesNameTest(offered) && ReadGroup(ctx, child, element, current))
        return true;
    SetObjectProperty(object, nullptr, *offered);
    return false;
}

// Collections

CElementInfoChoiceCol::CElementInfoChoiceCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfo(name, ns, propertyIndex) {}
CElementInfoChoiceCol::~CElementInfoChoiceCol() = default;

bool CElementInfoChoiceCol::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCol(ctx, object, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType parentType) {
    return ChoiceCollectionFromXml(ctx, object, element, current, parentType, false);
}

CElementInfoChoiceClsCol::CElementInfoChoiceClsCol(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType)
    : CElementInfoChoiceCol(name, ns, propertyIndex), m_elementType(elementType) {
    m_choiceMember = ChoiceMember::kCollection;
}
CElementInfoChoiceClsCol::~CElementInfoChoiceClsCol() = default;

void CElementInfoChoiceClsCol::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    CollectionAttributesToXml(ctx, object, writer, m_elementType);
}

CElementInfoChoiceAbsClsCol::CElementInfoChoiceAbsClsCol(char const* name, char const* ns,
                                                         std::int32_t propertyIndex,
                                                         XmlElementType elementType)
    : CElementInfoChoiceCol(name, ns, propertyIndex), m_elementType(elementType) {
    m_choiceMember = ChoiceMember::kCollection;
}
CElementInfoChoiceAbsClsCol::~CElementInfoChoiceAbsClsCol() = default;

void CElementInfoChoiceAbsClsCol::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                            CXmlWriter* writer) const {
    CollectionAttributesToXml(ctx, object, writer, m_elementType);
}

CElementInfoChoicePrimCol::CElementInfoChoicePrimCol(char const* name, char const* ns,
                                                     std::int32_t propertyIndex)
    : CElementInfoChoiceCol(name, ns, propertyIndex) {
    m_choiceMember = ChoiceMember::kCollection;
}
CElementInfoChoicePrimCol::~CElementInfoChoicePrimCol() = default;

CElementInfoChoiceEnumCol::CElementInfoChoiceEnumCol(char const* name, char const* ns,
                                                     std::int32_t propertyIndex)
    : CElementInfoChoiceCol(name, ns, propertyIndex) {
    m_choiceMember = ChoiceMember::kCollection;
}
CElementInfoChoiceEnumCol::~CElementInfoChoiceEnumCol() = default;

CElementInfoChoiceUntpdCol::CElementInfoChoiceUntpdCol(char const* name, char const* ns,
                                                       std::int32_t propertyIndex)
    : CElementInfoChoiceCol(name, ns, propertyIndex) {
    m_choiceMember = ChoiceMember::kCollection;
}
CElementInfoChoiceUntpdCol::~CElementInfoChoiceUntpdCol() = default;

bool CElementInfoChoiceUntpdCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                                CXmlElement** current, char const*,
                                                XmlElementType parentType) {
    return ChoiceCollectionFromXml(ctx, object, element, current, parentType, true);
}

} // namespace ZvXmlLib16Data
