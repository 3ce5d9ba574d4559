#include "zvxmllib/driver/ElementInfoAll.h"

#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16Data {

// CElementInfoAllClsMnd

CElementInfoAllClsMnd::CElementInfoAllClsMnd(char const* name, char const* ns, CProperty const& property,
                                             XmlElementType elementType, ClassFactory factory, int classId,
                                             bool contentMandatory)
    : AllMandatory(name, ns, property, elementType, factory, classId), m_contentMandatory(contentMandatory) {}

bool CElementInfoAllClsMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType) {
    if (IsGroup())
        return ReadGroup(ctx, GetObjectProperty(object), element, current);
    if (!IsThisElement(ctx, *current))
        return false;
    ReadRealChild(ctx, GetObjectProperty(object), current, false);
    return true;
}

bool CElementInfoAllClsMnd::Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const {
    if (!found && checkMandatory && !IsGroup() && !m_contentMandatory)
        return true;
    return ValidateMandatory(found, checkMandatory);
}

// Abstract classes

bool detail::AllAbstractClassEntry::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                                   CXmlElement** current, char const* ns,
                                                   XmlElementType parentType) {
    if (!IsGroup())
        return AbstractClassEntry::ElementFromXml(ctx, object, element, current, ns, parentType);
    if (*current == nullptr)
        return false;
    CSmartPtr<CXmlObjectBase> const child = MakeFor(*current);
    return child != nullptr && TakeInto(ctx, object, child, element, current);
}

CElementInfoAllAbsClsMnd::CElementInfoAllAbsClsMnd(char const* name, char const* ns,
                                                   CProperty const& property, XmlElementType elementType,
                                                   ElementFactory factory, int)
    : AllMandatory(name, ns, property, elementType, factory) {}

// CElementInfoAllUntpdMnd

bool CElementInfoAllUntpdMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType) {
    return PassesNameTest(ctx, *current) && ReadGroup(ctx, GetObjectProperty(object), element, current);
}

// Collections

CElementInfoAllCol::CElementInfoAllCol(char const* name, char const* ns, CProperty const& property)
    : CElementInfo(name, ns, property) {
    m_usesClassNamespace = false;
}

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

bool CElementInfoAllUntpdCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType) {
    return AllCollectionFromXml(ctx, object, element, current, true);
}

CElementInfoAllEnumCol::CElementInfoAllEnumCol(char const* name, char const* ns, CProperty const& property)
    : CElementInfo(name, ns, property) {}

} // namespace ZvXmlLib16Data
