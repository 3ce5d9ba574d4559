#include "zvxmllib/driver/ElementContents.h"

#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlElement.h"

namespace ZvXmlLib16Data::detail {

// ValueEntry

bool ValueEntry::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return IsPrimitive() ? ElementToXmlPrim(ctx, object, writer)
                         : ElementToXmlEnum(ctx, object, writer, m_enumToString);
}

bool ValueEntry::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*, CXmlElement** current,
                                char const*, XmlElementType) {
    if (!IsThisElement(ctx, *current))
        return false;
    ReadValue(ctx, object, current);
    return true;
}

void ValueEntry::ReadValue(Ctx const& ctx, Object* object, CXmlElement** current) const {
    if (IsPrimitive())
        ElementFromXmlPrim(ctx, object, current);
    else
        ElementFromXmlEnum(ctx, object, current);
}

PrimitiveEntry::PrimitiveEntry(char const* name, char const* ns, CProperty const& property, bool nillable,
                               ItemType type, char const* formatOverride,
                               CWhitespaceUtils::WhitespaceRule rule,
                               CPrimitiveRestrictions const& restrictions, char const* defaultValue)
    : ValueEntry(name, ns, property, nillable, type, formatOverride, rule, restrictions, defaultValue) {
    m_usesClassNamespace = false;
    m_repeatsRefusals = true;
}

EnumEntry::EnumEntry(char const* name, char const* ns, CProperty const& property, bool nillable,
                     EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue)
    : ValueEntry(name, ns, property, nillable, enumToString, stringToEnum, defaultValue) {
    m_usesClassNamespace = false;
    m_repeatsRefusals = true;
}

// ObjectEntry

ObjectEntry::ObjectEntry(char const* name, char const* ns, CProperty const& property,
                         XmlElementType elementType)
    : CElementInfo(name, ns, property), m_elementType(elementType) {
    m_usesClassNamespace = false;
    m_repeatsRefusals = true;
}

bool ObjectEntry::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

void ObjectEntry::PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    ObjectAttributesToXml(ctx, object, writer, m_elementType);
}

bool ObjectEntry::TakeInto(Ctx const& ctx, Object* object, CXmlObjectBase* child, CXmlElement* element,
                           CXmlElement** current) const {
    CXmlElement const& offered = **current;
    if (!IsGroup())
        ReadRealChild(ctx, child, current, false);
    else if (!ReadGroup(ctx, child, element, current))
        return false;
    SetObjectProperty(object, child, offered);
    return true;
}

// ClassEntry

ClassEntry::ClassEntry(char const* name, char const* ns, CProperty const& property,
                       XmlElementType elementType, ClassFactory factory, int classId)
    : ObjectEntry(name, ns, property, elementType), m_factory(factory), m_classId(classId) {}

bool ClassEntry::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                                char const*, XmlElementType) {
    if (*current == nullptr || (!IsGroup() && !IsThisElement(ctx, *current)))
        return false;
    return TakeInto(ctx, object, MakeChild(), element, current);
}

// The object that is there, which is made by Init, says the same as a new one.
bool ClassEntry::IsNestedGroup(Object const* object, CSmartPtr<CXmlObjectBase>& group) const {
    if (!IsGroup())
        return false;
    group = GetObjectProperty(object);
    if (group == nullptr && m_factory != nullptr)
        group = MakeChild();
    return true;
}

// AbstractClassEntry

bool AbstractClassEntry::IsNestedGroup(Object const*, CSmartPtr<CXmlObjectBase>&) const {
    return IsGroup();
}

bool AbstractClassEntry::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    auto const write = [&] { return ObjectEntry::ElementToXml(ctx, object, writer); };
    return IsGroup() ? write() : WithTypes(ctx, writer, write);
}

AbstractClassEntry::AbstractClassEntry(char const* name, char const* ns, CProperty const& property,
                                       XmlElementType elementType, ElementFactory factory)
    : ObjectEntry(name, ns, property, elementType), m_factory(factory) {}

bool AbstractClassEntry::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement*, CXmlElement** current,
                                        char const*, XmlElementType) {
    CXmlElement const* const offered = *current;
    CSmartPtr<CXmlObjectBase> const child = MakeSubstitute(ctx, *current);
    if (child == nullptr)
        return false;
    ReadRealChild(ctx, child, current, false);
    SetObjectProperty(object, child, *offered);
    return true;
}

CSmartPtr<CXmlObjectBase> AbstractClassEntry::MakeSubstitute(Ctx const& ctx, CXmlElement* current) const {
    if (!IsThisElement(ctx, current))
        return {};
    return MakeFor(current);
}

// UntypedEntry

UntypedEntry::UntypedEntry(char const* name, char const* ns, CProperty const& property,
                           char const* allowedNamespaces, char const* targetNamespace)
    : CElementInfo(name, ns, property),
      m_allowedNamespaces(allowedNamespaces == nullptr ? "" : allowedNamespaces),
      m_targetNamespace(targetNamespace == nullptr ? "" : targetNamespace) {}

bool UntypedEntry::ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const {
    return ElementToXmlCls(ctx, object, writer, false);
}

bool UntypedEntry::ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                                  char const* ns, XmlElementType) {
    CXmlElement const* const offered = *current;
    if (!PassesNameTest(ctx, offered))
        return false;
    CSmartPtr<CElement> const child = MakeChild(ns);
    if (!ReadGroup(ctx, child, element, current))
        return false;
    SetObjectProperty(object, child, *offered);
    return true;
}

bool UntypedEntry::AcceptsName(Ctx const& ctx, Object const*, CXmlElement const* element) const {
    return IsWildcard() ? ZvXmlLib16::IsNamespaceAllowed(element->GetNamespaceURI(), m_allowedNamespaces,
                                                         m_targetNamespace, true)
                        : IsThisElement(ctx, element);
}

CSmartPtr<CElement> UntypedEntry::MakeChild(char const* ns) const {
    return NewUntyped(ns, m_allowedNamespaces, m_targetNamespace);
}

} // namespace ZvXmlLib16Data::detail
