#include "zvxmllib/driver/ElementInfoChoice.h"

#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16Data {

// CElementInfoChoiceClsOpt

bool CElementInfoChoiceClsOpt::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, true);
}

bool CElementInfoChoiceClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, char const*, XmlElementType) {
    CXmlElement const* const offered = *current;
    if (offered == nullptr || (!IsGroup() && !IsThisElement(ctx, offered)))
        return false;
    CSmartPtr<CXmlObjectBase> const child = MakeChild();
    SetObjectProperty(object, child, *offered);
    if (!IsGroup()) {
        ReadRealChild(ctx, child, current, true);
        return true;
    }
    if (ReadGroup(ctx, child, element, current))
        return true;
    SetObjectProperty(object, nullptr, *offered);
    return false;
}

// CElementInfoChoiceAbsClsOpt

bool CElementInfoChoiceAbsClsOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*,
                                                 CXmlElement** current, char const*, XmlElementType) {
    CXmlElement const* const offered = *current;
    CSmartPtr<CXmlObjectBase> const child = MakeSubstitute(ctx, *current);
    if (child == nullptr)
        return false;
    SetObjectProperty(object, child, *offered);
    ReadRealChild(ctx, child, current, false);
    return true;
}

// CElementInfoChoiceUntpdOpt

bool CElementInfoChoiceUntpdOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                                CXmlElement** current, char const* ns, XmlElementType) {
    CXmlElement const* const offered = *current;
    if (offered == nullptr)
        return false;
    CSmartPtr<CElement> const child = MakeChild(ns);
    SetObjectProperty(object, child, *offered);
    if (PassesNameTest(ctx, offered) && ReadGroup(ctx, child, element, current))
        return true;
    SetObjectProperty(object, nullptr, *offered);
    return false;
}

// Collections

CElementInfoChoiceCol::CElementInfoChoiceCol(char const* name, char const* ns, CProperty const& property)
    : CElementInfo(name, ns, property) {
    m_usesClassNamespace = false;
}

bool CElementInfoChoiceCol::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCol(ctx, object, writer);
}

bool CElementInfoChoiceCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                           CXmlElement** current, char const*, XmlElementType parentType) {
    return ChoiceCollectionFromXml(ctx, object, element, current, parentType, false);
}

bool CElementInfoChoiceUntpdCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                                CXmlElement** current, char const*,
                                                XmlElementType parentType) {
    return ChoiceCollectionFromXml(ctx, object, element, current, parentType, true);
}

} // namespace ZvXmlLib16Data
