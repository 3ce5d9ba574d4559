// What the entries of a sequence do. A mandatory entry that is absent fails in a real element and
// answers false in a group; an optional one is done in any case.
#include "zvxmllib/binding/metadata/ElementInfoSeq.h"

#include "zvxmllib/binding/context/SerializationContext.h"
#include "zvxmllib/binding/metadata/Failures.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/XmlCollectionBase.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16Data {

// CElementInfoSeqClsMnd

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                             XmlElementType elementType, ClassFactory factory, int classId,
                                             bool contentMandatory)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory, classId},
      m_contentMandatory(contentMandatory) {}
CElementInfoSeqClsMnd::~CElementInfoSeqClsMnd() = default;

bool CElementInfoSeqClsMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlCls(ctx, object, writer, false));
}

bool CElementInfoSeqClsMnd::ReadOptionalGroup(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, XmlElementType parentType) const {
    bool const hadCursor = *current != nullptr;
    if (ReadGroup(ctx, GetObjectProperty(object), element, current) || !hadCursor)
        return true;
    // False lets the driver of a real element skip an unknown child and offer the next one.
    return !ctx.GetIgnoreUnknownElements() || parentType != XmlElementType_Element;
}

bool CElementInfoSeqClsMnd::ReadMandatoryGroup(Ctx const& ctx, Object* object, CXmlElement* element,
                                               CXmlElement** current, XmlElementType parentType) const {
    if (*current != nullptr && ReadGroup(ctx, GetObjectProperty(object), element, current))
        return true;
    if (parentType == XmlElementType_Element)
        FailRequiredChild(GetElementName(), element->GetXPath());
    return false;
}

bool CElementInfoSeqClsMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType parentType) {
    if (m_class.IsGroup())
        return m_contentMandatory ? ReadMandatoryGroup(ctx, object, element, current, parentType)
                                  : ReadOptionalGroup(ctx, object, element, current, parentType);
    if (parentType == XmlElementType_Element) {
        if (FindMandatory(ctx, element, current))
            ReadRealChild(ctx, GetObjectProperty(object), current, false);
        return true;
    }
    if (!IsThisElement(ctx, *current))
        return false;
    ReadRealChild(ctx, GetObjectProperty(object), current, false);
    return true;
}

void CElementInfoSeqClsMnd::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                      CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoSeqClsOpt

CElementInfoSeqClsOpt::CElementInfoSeqClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                             XmlElementType elementType, ClassFactory factory, int classId)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory, classId} {}
CElementInfoSeqClsOpt::~CElementInfoSeqClsOpt() = default;

bool CElementInfoSeqClsOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoSeqClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    if (m_class.IsGroup()) {
        if (offered == nullptr)
            return true;
        CSmartPtr<CXmlObjectBase> const child = m_class.Make(GetElementName());
        if (ReadGroup(ctx, child, element, current))
            SetObjectProperty(object, child, *offered);
        return true;
    }
    if (IsThisElement(ctx, offered)) {
        CSmartPtr<CXmlObjectBase> const child = m_class.Make(GetElementName());
        ReadRealChild(ctx, child, current, false);
        SetObjectProperty(object, child, *offered);
    }
    return true;
}

void CElementInfoSeqClsOpt::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                      CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoSeqAbsClsMnd

CElementInfoSeqAbsClsMnd::CElementInfoSeqAbsClsMnd(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType,
                                                   ElementFactory factory)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory} {}
CElementInfoSeqAbsClsMnd::~CElementInfoSeqAbsClsMnd() = default;

bool CElementInfoSeqAbsClsMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlCls(ctx, object, writer, false));
}

bool CElementInfoSeqAbsClsMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, char const*, XmlElementType parentType) {
    CXmlElement* const offered = *current;
    CSmartPtr<CXmlObjectBase> const child = MakeSubstitute(ctx, offered, m_class.factory);
    if (child != nullptr) {
        ReadRealChild(ctx, child, current, false);
        SetObjectProperty(object, child, *offered);
        return true;
    }
    if (parentType == XmlElementType_Element)
        FailNoSubstitution(GetElementName(), element->GetXPath());
    return false;
}

void CElementInfoSeqAbsClsMnd::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoSeqAbsClsOpt

CElementInfoSeqAbsClsOpt::CElementInfoSeqAbsClsOpt(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType,
                                                   ElementFactory factory)
    : CElementInfo(name, ns, propertyIndex), m_class{elementType, factory} {}
CElementInfoSeqAbsClsOpt::~CElementInfoSeqAbsClsOpt() = default;

bool CElementInfoSeqAbsClsOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoSeqAbsClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                              CXmlElement** current, char const*, XmlElementType) {
    CXmlElement* const offered = *current;
    CSmartPtr<CXmlObjectBase> const child = MakeSubstitute(ctx, offered, m_class.factory);
    if (child != nullptr) {
        ReadRealChild(ctx, child, current, false);
        SetObjectProperty(object, child, *offered);
    }
    return true;
}

void CElementInfoSeqAbsClsOpt::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_class.elementType);
}

// CElementInfoSeqPrimMnd

CElementInfoSeqPrimMnd::CElementInfoSeqPrimMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, ItemType type, char const* formatOverride,
                                               CWhitespaceUtils::WhitespaceRule rule,
                                               CPrimitiveRestrictions const& restrictions,
                                               char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, type, formatOverride, rule, restrictions,
                   defaultValue) {}
CElementInfoSeqPrimMnd::~CElementInfoSeqPrimMnd() = default;

bool CElementInfoSeqPrimMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlPrim(ctx, object, writer));
}

bool CElementInfoSeqPrimMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                            CXmlElement** current, char const*, XmlElementType parentType) {
    if (parentType == XmlElementType_Element) {
        if (FindMandatory(ctx, element, current))
            ElementFromXmlPrim(ctx, object, current);
        return true;
    }
    while (!IsThisElement(ctx, *current)) {
        if (!ctx.GetIgnoreUnknownElements() || *current == nullptr)
            return false;
        *current = (*current)->GetNextSiblingElement();
    }
    ElementFromXmlPrim(ctx, object, current);
    return true;
}

// CElementInfoSeqPrimOpt

CElementInfoSeqPrimOpt::CElementInfoSeqPrimOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, ItemType type, char const* formatOverride,
                                               CWhitespaceUtils::WhitespaceRule rule,
                                               CPrimitiveRestrictions const& restrictions,
                                               char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, type, formatOverride, rule, restrictions,
                   defaultValue) {}
CElementInfoSeqPrimOpt::~CElementInfoSeqPrimOpt() = default;

bool CElementInfoSeqPrimOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlPrim(ctx, object, writer);
}

bool CElementInfoSeqPrimOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                            CXmlElement** current, char const*, XmlElementType) {
    if (IsThisElement(ctx, *current))
        ElementFromXmlPrim(ctx, object, current);
    return true;
}

// CElementInfoSeqEnumMnd

CElementInfoSeqEnumMnd::CElementInfoSeqEnumMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, EnumToString enumToString,
                                               StringToEnum stringToEnum, char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, enumToString, stringToEnum, defaultValue) {}
CElementInfoSeqEnumMnd::~CElementInfoSeqEnumMnd() = default;

bool CElementInfoSeqEnumMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlEnum(ctx, object, writer, m_enumToString));
}

bool CElementInfoSeqEnumMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                            CXmlElement** current, char const*, XmlElementType parentType) {
    if (parentType == XmlElementType_Element) {
        if (FindMandatory(ctx, element, current))
            ElementFromXmlEnum(ctx, object, current);
        return true;
    }
    if (!IsThisElement(ctx, *current))
        return false;
    ElementFromXmlEnum(ctx, object, current);
    return true;
}

// CElementInfoSeqEnumOpt

CElementInfoSeqEnumOpt::CElementInfoSeqEnumOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                               bool nillable, EnumToString enumToString,
                                               StringToEnum stringToEnum, char const* defaultValue)
    : CElementInfo(name, ns, propertyIndex, nillable, enumToString, stringToEnum, defaultValue) {}
CElementInfoSeqEnumOpt::~CElementInfoSeqEnumOpt() = default;

bool CElementInfoSeqEnumOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlEnum(ctx, object, writer, m_enumToString);
}

bool CElementInfoSeqEnumOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                            CXmlElement** current, char const*, XmlElementType) {
    if (IsThisElement(ctx, *current))
        ElementFromXmlEnum(ctx, object, current);
    return true;
}

// CElementInfoSeqUntpdMnd

CElementInfoSeqUntpdMnd::CElementInfoSeqUntpdMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                                                 char const* allowedNamespaces, char const* targetNamespace)
    : CElementInfo(name, ns, propertyIndex), m_untyped(allowedNamespaces, targetNamespace) {}
CElementInfoSeqUntpdMnd::~CElementInfoSeqUntpdMnd() = default;

bool CElementInfoSeqUntpdMnd::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return Mandatory(ElementToXmlCls(ctx, object, writer, false));
}

bool CElementInfoSeqUntpdMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType parentType) {
    if (*current == nullptr)
        FailRequiredChild(GetElementName(), element->GetXPath());
    CSmartPtr<CXmlObjectBase> const child = GetObjectProperty(object);
    if (PassesNameTest(*current) && ReadGroup(ctx, child, element, current))
        return true;
    if (parentType == XmlElementType_Element)
        FailRequiredWildcard(GetElementNamespace(), element->GetXPath());
    return false;
}

// CElementInfoSeqUntpdOpt

CElementInfoSeqUntpdOpt::CElementInfoSeqUntpdOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                                 char const* allowedNamespaces, char const* targetNamespace)
    : CElementInfo(name, ns, propertyIndex), m_untyped(allowedNamespaces, targetNamespace) {
    m_usesClassNamespace = true;
}
CElementInfoSeqUntpdOpt::~CElementInfoSeqUntpdOpt() = default;

bool CElementInfoSeqUntpdOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool CElementInfoSeqUntpdOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const* ns, XmlElementType) {
    CXmlElement* const offered = *current;
    if (offered == nullptr)
        return true;
    CSmartPtr<CElement> const child = NewUntyped(ns, m_untyped.allowedNamespaces, m_untyped.targetNamespace);
    if (PassesNameTest(offered) && ReadGroup(ctx, child, element, current))
        SetObjectProperty(object, child, *offered);
    return true;
}

// Collections

CElementInfoSeqCol::CElementInfoSeqCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfo(name, ns, propertyIndex) {}
CElementInfoSeqCol::~CElementInfoSeqCol() = default;

bool CElementInfoSeqCol::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlColOfValidCount(ctx, object, writer);
}

bool CElementInfoSeqCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                        CXmlElement** current, char const*, XmlElementType parentType) {
    return SeqCollectionFromXml(ctx, object, element, current, parentType, false);
}

CElementInfoSeqClsCol::CElementInfoSeqClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                                             XmlElementType elementType)
    : CElementInfoSeqCol(name, ns, propertyIndex), m_elementType(elementType) {}
CElementInfoSeqClsCol::~CElementInfoSeqClsCol() = default;

void CElementInfoSeqClsCol::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                      CXmlWriter* writer) const {
    CollectionAttributesToXml(ctx, object, writer, m_elementType);
}

CElementInfoSeqAbsClsCol::CElementInfoSeqAbsClsCol(char const* name, char const* ns,
                                                   std::int32_t propertyIndex, XmlElementType elementType)
    : CElementInfoSeqCol(name, ns, propertyIndex), m_elementType(elementType) {}
CElementInfoSeqAbsClsCol::~CElementInfoSeqAbsClsCol() = default;

void CElementInfoSeqAbsClsCol::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object,
                                                         CXmlWriter* writer) const {
    CollectionAttributesToXml(ctx, object, writer, m_elementType);
}

CElementInfoSeqPrimCol::CElementInfoSeqPrimCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfoSeqCol(name, ns, propertyIndex) {}
CElementInfoSeqPrimCol::~CElementInfoSeqPrimCol() = default;

CElementInfoSeqEnumCol::CElementInfoSeqEnumCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfoSeqCol(name, ns, propertyIndex) {}
CElementInfoSeqEnumCol::~CElementInfoSeqEnumCol() = default;

CElementInfoSeqUntpdCol::CElementInfoSeqUntpdCol(char const* name, char const* ns, std::int32_t propertyIndex)
    : CElementInfoSeqCol(name, ns, propertyIndex) {}
CElementInfoSeqUntpdCol::~CElementInfoSeqUntpdCol() = default;

bool CElementInfoSeqUntpdCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType parentType) {
    return SeqCollectionFromXml(ctx, object, element, current, parentType, true);
}

} // namespace ZvXmlLib16Data
