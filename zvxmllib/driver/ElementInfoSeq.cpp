#include "zvxmllib/driver/ElementInfoSeq.h"

#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/driver/UnknownScan.h"

namespace ZvXmlLib16Data {

// CElementInfoSeqClsMnd

CElementInfoSeqClsMnd::CElementInfoSeqClsMnd(char const* name, char const* ns, CProperty const& property,
                                             XmlElementType elementType, ClassFactory factory, int classId,
                                             bool contentMandatory)
    : MandatoryEntry(name, ns, property, elementType, factory, classId),
      m_contentMandatory(contentMandatory) {}

bool CElementInfoSeqClsMnd::ReadOptionalGroup(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, XmlElementType parentType) const {
    bool const hadCursor = *current != nullptr;
    if (ReadGroup(ctx, GetObjectProperty(object), element, current) || !hadCursor)
        return true;
    // False lets the driver of a real element skip an unknown child and offer the next one.
    return !ctx.SkipsUnexpectedElements() || parentType != XmlElementType_Element;
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
    if (IsGroup())
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

// The other mandatory entries

bool CElementInfoSeqAbsClsMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                              CXmlElement** current, char const* ns,
                                              XmlElementType parentType) {
    if (AbstractClassEntry::ElementFromXml(ctx, object, element, current, ns, parentType))
        return true;
    if (parentType == XmlElementType_Element)
        FailNoSubstitution(GetElementName(), element->GetXPath());
    return false;
}

bool CElementInfoSeqPrimMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                            CXmlElement** current, char const*, XmlElementType parentType) {
    if (parentType == XmlElementType_Element) {
        if (FindMandatory(ctx, element, current))
            ReadValue(ctx, object, current);
        return true;
    }
    if (!IsThisElement(ctx, *current) &&
        !(ctx.SkipsUnexpectedElements() && PassUnknown(ctx, *object, element, current)))
        return false;
    ReadValue(ctx, object, current);
    return true;
}

// In a group this entry alone moves on by itself, and leaves the cursor at the end if it finds nothing.
bool CElementInfoSeqPrimMnd::PassUnknown(Ctx const& ctx, Object const& object, CXmlElement const* element,
                                         CXmlElement** current) const {
    using ZvXmlLib16::UnknownScan;
    CXmlElement const* const first = *current;
    CXmlElement* last = nullptr;
    UnknownScan* const scan = UnknownScan::Of(element);
    while (*current != nullptr && !IsThisElement(ctx, *current)) {
        last = scan != nullptr ? scan->PassRefused(*this, object, *current) : *current;
        *current = last->GetNextSiblingElement();
    }
    if (scan != nullptr && last != nullptr)
        scan->NoteRefused(*this, object, *first, *last);
    if (scan != nullptr && *current == nullptr)
        scan->PassToEnd();
    return *current != nullptr;
}

bool CElementInfoSeqEnumMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                            CXmlElement** current, char const* ns,
                                            XmlElementType parentType) {
    if (parentType != XmlElementType_Element)
        return ValueEntry::ElementFromXml(ctx, object, element, current, ns, parentType);
    if (FindMandatory(ctx, element, current))
        ReadValue(ctx, object, current);
    return true;
}

bool CElementInfoSeqUntpdMnd::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType parentType) {
    if (*current == nullptr)
        FailRequiredChild(GetElementName(), element->GetXPath());
    CSmartPtr<CXmlObjectBase> const child = GetObjectProperty(object);
    if (PassesNameTest(ctx, *current) && ReadGroup(ctx, child, element, current))
        return true;
    if (parentType == XmlElementType_Element)
        FailRequiredWildcard(GetElementNamespace(), element->GetXPath());
    return false;
}

// CElementInfoSeqUntpdOpt

// The child is made before its name is checked, so that a forbidden namespace always fails.
bool CElementInfoSeqUntpdOpt::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const* ns, XmlElementType) {
    CXmlElement const* const offered = *current;
    if (offered == nullptr)
        return true;
    CSmartPtr<CElement> const child = MakeChild(ns);
    if (PassesNameTest(ctx, offered) && ReadGroup(ctx, child, element, current))
        SetObjectProperty(object, child, *offered);
    return true;
}

// Collections

CElementInfoSeqCol::CElementInfoSeqCol(char const* name, char const* ns, CProperty const& property)
    : CElementInfo(name, ns, property) {
    m_usesClassNamespace = false;
}

bool CElementInfoSeqCol::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlColOfValidCount(ctx, object, writer);
}

bool CElementInfoSeqCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                        CXmlElement** current, char const*, XmlElementType parentType) {
    return SeqCollectionFromXml(ctx, object, element, current, parentType, false);
}

bool CElementInfoSeqUntpdCol::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element,
                                             CXmlElement** current, char const*, XmlElementType parentType) {
    return SeqCollectionFromXml(ctx, object, element, current, parentType, true);
}

} // namespace ZvXmlLib16Data
