// What the entries of an all group do: each takes at most one child, and answers whether it did.
#include "zvxmllib/binding/metadata/ElementInfoAll.h"

#include "zvxmllib/binding/context/SerializationContext.h"
#include "zvxmllib/binding/metadata/Failures.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/XmlCollectionBase.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16Data {

// CElementInfoAllClsMnd

CElementInfoAllClsMnd::CElementInfoAllClsMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                             XmlElementType elementType, ClassFactory factory, int classId,
                                             bool contentMandatory)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory, classId},
      m_contentMandatory(contentMandatory) {}
CElementInfoAllClsMnd::~CElementInfoAllClsMnd() = default;

bool CElementInfoAllClsMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlCls(ctx, object, writer, false));
}

bool CElementInfoAllClsMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType) {
    if (m_class.IsGroup())
        return ReadGroup(ctx, GetObjectProperty(object), element, current);
    if (!IsThisElement(ctx, *current))
        return false;
    ReadRealChild(ctx, GetObjectProperty(object), current, false);
    return true;
}

bool CElementInfoAllClsMnd::Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const {
    if (!found && checkMandatory && !m_class.IsGroup() && !m_contentMandatory)
        return true;
    return ValidateMandatory(found, checkMandatory);
}

void CElementInfoAllClsMnd::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                      CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoAllClsOpt

CElementInfoAllClsOpt::CElementInfoAllClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                             XmlElementType elementType, ClassFactory factory, int classId)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory, classId} {}
CElementInfoAllClsOpt::~CElementInfoAllClsOpt() = default;

bool CElementInfoAllClsOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoAllClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    if (offered == nullptr)
        return false;
    if (!m_class.IsGroup() && !IsThisElement(ctx, offered))
        return false;
    CSmartPtr<CXmlObjectBase> const child = m_class.Make(GetElementName());
    if (!m_class.IsGroup())
        ReadRealChild(ctx, child, current, false);
    else if (!ReadGroup(ctx, child, element, current))
        return false;
    SetObjectProperty(object, child, *offered);
    return true;
}

bool CElementInfoAllClsOpt::Validate(Ctx const&, Object const*, bool, bool) const {
    return true;
}

void CElementInfoAllClsOpt::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                      CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoAllAbsClsMnd

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType,
                                                   ElementFactory factory, int)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory} {}
CElementInfoAllAbsClsMnd::~CElementInfoAllAbsClsMnd() = default;

bool CElementInfoAllAbsClsMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlCls(ctx, object, writer, false));
}

bool CElementInfoAllAbsClsMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    if (offered == nullptr)
        return false;
    CSmartPtr<CXmlObjectBase> const child =
        m_class.IsGroup() ? m_class.factory(offered) : MakeSubstitute(ctx, offered, m_class.factory);
    if (child == nullptr)
        return false;
    if (!m_class.IsGroup())
        ReadRealChild(ctx, child, current, false);
    else if (!ReadGroup(ctx, child, element, current))
        return false;
    SetObjectProperty(object, child, *offered);
    return true;
}

bool CElementInfoAllAbsClsMnd::Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const {
    return ValidateMandatory(found, checkMandatory);
}

void CElementInfoAllAbsClsMnd::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoAllAbsClsOpt

CElementInfoAllAbsClsOpt::CElementInfoAllAbsClsOpt(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType,
                                                   ElementFactory factory)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory} {}
CElementInfoAllAbsClsOpt::~CElementInfoAllAbsClsOpt() = default;

bool CElementInfoAllAbsClsOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoAllAbsClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    if (offered == nullptr)
        return false;
    CSmartPtr<CXmlObjectBase> const child =
        m_class.IsGroup() ? m_class.factory(offered) : MakeSubstitute(ctx, offered, m_class.factory);
    if (child == nullptr)
        return false;
    if (!m_class.IsGroup())
        ReadRealChild(ctx, child, current, false);
    else if (!ReadGroup(ctx, child, element, current))
        return false;
    SetObjectProperty(object, child, *offered);
    return true;
}

bool CElementInfoAllAbsClsOpt::Validate(Ctx const&, Object const*, bool, bool) const {
    return true;
}

void CElementInfoAllAbsClsOpt::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoAllPrimMnd

CElementInfoAllPrimMnd::CElementInfoAllPrimMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, ItemType type, char const* formatOverride,
                                               CWhitespaceUtils::WhitespaceRule rule,
                                               CPrimitiveRestrictions const& restrictions,
                                               char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, type, formatOverride, rule, restrictions,
                   defaultValue) {}
CElementInfoAllPrimMnd::~CElementInfoAllPrimMnd() = default;

bool CElementInfoAllPrimMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlPrim(ctx, object, writer));
}

bool CElementInfoAllPrimMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                            CXmlElement** current, char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlPrim(ctx, object, current);
    return true;
}

bool CElementInfoAllPrimMnd::Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const {
    return ValidateMandatory(found, checkMandatory);
}

// CElementInfoAllPrimOpt

CElementInfoAllPrimOpt::CElementInfoAllPrimOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, ItemType type, char const* formatOverride,
                                               CWhitespaceUtils::WhitespaceRule rule,
                                               CPrimitiveRestrictions const& restrictions,
                                               char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, type, formatOverride, rule, restrictions,
                   defaultValue) {}
CElementInfoAllPrimOpt::~CElementInfoAllPrimOpt() = default;

bool CElementInfoAllPrimOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlPrim(ctx, object, writer);
}

bool CElementInfoAllPrimOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                            CXmlElement** current, char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlPrim(ctx, object, current);
    return true;
}

bool CElementInfoAllPrimOpt::Validate(Ctx const&, Object const*, bool, bool) const {
    return true;
}

// CElementInfoAllEnumMnd

CElementInfoAllEnumMnd::CElementInfoAllEnumMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, EnumToString enumToString,
                                               StringToEnum stringToEnum, char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, enumToString, stringToEnum, defaultValue) {}
CElementInfoAllEnumMnd::~CElementInfoAllEnumMnd() = default;

bool CElementInfoAllEnumMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlEnum(ctx, object, writer, m_enumToString));
}

bool CElementInfoAllEnumMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                            CXmlElement** current, char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlEnum(ctx, object, current);
    return true;
}

bool CElementInfoAllEnumMnd::Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const {
    return ValidateMandatory(found, checkMandatory);
}

// CElementInfoAllEnumOpt

CElementInfoAllEnumOpt::CElementInfoAllEnumOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, EnumToString enumToString,
                                               StringToEnum stringToEnum, char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, enumToString, stringToEnum, defaultValue) {}
CElementInfoAllEnumOpt::~CElementInfoAllEnumOpt() = default;

bool CElementInfoAllEnumOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlEnum(ctx, object, writer, m_enumToString);
}

bool CElementInfoAllEnumOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                            CXmlElement** current, char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlEnum(ctx, object, current);
    return true;
}

bool CElementInfoAllEnumOpt::Validate(Ctx const&, Object const*, bool, bool) const {
    return true;
}

// CElementInfoAllUntpdMnd

CElementInfoAllUntpdMnd::CElementInfoAllUntpdMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                                 char const* allowedNamespaces, char const* targetNamespace)
    : CElementInfo(name, ns, propertyIndex), m_untyped(allowedNamespaces, targetNamespace) {}
CElementInfoAllUntpdMnd::~CElementInfoAllUntpdMnd() = default;

bool CElementInfoAllUntpdMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlCls(ctx, object, writer, false));
}

bool CElementInfoAllUntpdMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType) {
    return PassesNameTest(*current) && ReadGroup(ctx, GetObjectProperty(object), element, current);
}

bool CElementInfoAllUntpdMnd::Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const {
    return ValidateMandatory(found, checkMandatory);
}

// CElementInfoAllUntpdOpt

CElementInfoAllUntpdOpt::CElementInfoAllUntpdOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                                 char const* allowedNamespaces, char const* targetNamespace)
    : CElementInfo(name, ns, propertyIndex), m_untyped(allowedNamespaces, targetNamespace) {
    m_usesClassNamespace = true;
}
CElementInfoAllUntpdOpt::~CElementInfoAllUntpdOpt() = default;

bool CElementInfoAllUntpdOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoAllUntpdOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const* ns, XmlElementType) {
    CXmlElement* const offered = *current;
    if (!PassesNameTest(offered))
        return false;
    CSmartPtr<CElement> const child = NewUntyped(ns, m_untyped.allowedNamespaces, m_untyped.targetNamespace);
    if (!ReadGroup(ctx, child, element, current))
        return false;
    SetObjectProperty(object, child, *offered);
    return true;
}

bool CElementInfoAllUntpdOpt::Validate(Ctx const&, Object const*, bool, bool) const {
    return true;
}

// Collections

CElementInfoAllCol::CElementInfoAllCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfo(name, ns, propertyIndex) {}
CElementInfoAllCol::~CElementInfoAllCol() = default;

bool CElementInfoAllCol::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlColOfValidCount(ctx, object, writer);
}

bool CElementInfoAllCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                        CXmlElement** current, char const*, XmlElementType) {
    return AllCollectionFromXml(ctx, object, element, current, false);
}

bool CElementInfoAllCol::Validate(Ctx const& ctx, Object const* object, bool, bool checkMandatory) const {
    CSmartPtr<CXmlCollectionBase> const collection = GetCollectionProperty(object);
    if (!checkMandatory)
        return collection->IsValidCount(ctx);
    collection->ValidateCount(ctx);
    return true;
}

CElementInfoAllClsCol::CElementInfoAllClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                                             XmlElementType elementType)
    : CElementInfoAllCol(name, ns, propertyIndex), m_elementType(elementType) {}
CElementInfoAllClsCol::~CElementInfoAllClsCol() = default;

void CElementInfoAllClsCol::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                      CXmlWriter* writer) const {
    CollectionAttributesToXml(ctx, object, writer, m_elementType);
}

CElementInfoAllAbsClsCol::CElementInfoAllAbsClsCol(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType)
    : CElementInfoAllCol(name, ns, propertyIndex), m_elementType(elementType) {}
CElementInfoAllAbsClsCol::~CElementInfoAllAbsClsCol() = default;

void CElementInfoAllAbsClsCol::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    CollectionAttributesToXml(ctx, object, writer, m_elementType);
}

CElementInfoAllPrimCol::CElementInfoAllPrimCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfoAllCol(name, ns, propertyIndex) {}
CElementInfoAllPrimCol::~CElementInfoAllPrimCol() = default;

CElementInfoAllEnumCol::CElementInfoAllEnumCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfo(name, ns, propertyIndex) {}
CElementInfoAllEnumCol::~CElementInfoAllEnumCol() = default;

CElementInfoAllUntpdCol::CElementInfoAllUntpdCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfoAllCol(name, ns, propertyIndex) {}
CElementInfoAllUntpdCol::~CElementInfoAllUntpdCol() = default;

bool CElementInfoAllUntpdCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType) {
    return AllCollectionFromXml(ctx, object, element, current, true);
}

} // namespace ZvXmlLib16Data
