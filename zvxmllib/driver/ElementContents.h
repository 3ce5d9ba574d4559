// What the members of the element family share by the kind of their content, whatever group they belong to:
// fields, writing, and the usual reading.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h" // its smart pointers release one
#include "zvxmllib/driver/ElementInfoBase.h"

#include <string>

namespace ZvXmlLib16Data::detail {

using Ctx = CElementInfo::Ctx;
using Object = CElementInfo::Object;

// The usual ElementFromXml of an entry takes the child under the cursor if it belongs to the entry, sets the
// property, and returns whether it did.

// An element with a text.
class ZV_API ValueEntry : public CElementInfo {
public:
    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

protected:
    using CElementInfo::CElementInfo;

    // Takes the element under the cursor, which IsThisElement has accepted.
    void ReadValue(Ctx const& ctx, Object* object, CXmlElement** current) const;
};

class ZV_API PrimitiveEntry : public ValueEntry {
public:
    PrimitiveEntry(char const* name, char const* ns, CProperty const& property, bool nillable, ItemType type,
                   char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                   CPrimitiveRestrictions const& restrictions, char const* defaultValue);
};

class ZV_API EnumEntry : public ValueEntry {
public:
    EnumEntry(char const* name, char const* ns, CProperty const& property, bool nillable,
              EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
};

// An object of a generated class: a real element, or a nested group (Pseudo), whose content and attributes
// stand in the enclosing element.
class ZV_API ObjectEntry : public CElementInfo {
public:
    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

protected:
    ObjectEntry(char const* name, char const* ns, CProperty const& property, XmlElementType elementType);

    bool IsGroup() const noexcept { return m_elementType == ZvXmlLib16::XmlElementType_Pseudo; }
    // Fills the new `child` from the element under the cursor, or from the children from there on. Returns
    // false and sets nothing for a group that took none.
    bool TakeInto(Ctx const& ctx, Object* object, CXmlObjectBase* child, CXmlElement* element,
                  CXmlElement** current) const;

private:
    XmlElementType const m_elementType;
};

// Its class factory makes a new object for each reading.
class ZV_API ClassEntry : public ObjectEntry {
public:
    ClassEntry(char const* name, char const* ns, CProperty const& property, XmlElementType elementType,
               ClassFactory factory, int classId);

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

protected:
    bool IsNestedGroup(Object const* object, CSmartPtr<CXmlObjectBase>& group) const override;
    CSmartPtr<CXmlObjectBase> MakeChild() const { return m_factory(m_classId, GetElementName().c_str()); }

private:
    ClassFactory const m_factory;
    int const m_classId;
};

// Its element factory makes an object that fits the element, or none. The usual reading does not cover
// groups.
class ZV_API AbstractClassEntry : public ObjectEntry {
public:
    AbstractClassEntry(char const* name, char const* ns, CProperty const& property,
                       XmlElementType elementType, ElementFactory factory);

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

protected:
    bool IsNestedGroup(Object const* object, CSmartPtr<CXmlObjectBase>& group) const override;
    // The factory's object for an element, or null.
    CSmartPtr<CXmlObjectBase> MakeFor(CXmlElement* element) const { return m_factory(element); }
    // The same for the element under the cursor; null if that is a different one.
    CSmartPtr<CXmlObjectBase> MakeSubstitute(Ctx const& ctx, CXmlElement* current) const;

private:
    ElementFactory const m_factory;
};

// An untyped element of this name, or a wildcard under the name "AnyElement", with its namespace rule.
class ZV_API UntypedEntry : public CElementInfo {
public:
    UntypedEntry(char const* name, char const* ns, CProperty const& property, char const* allowedNamespaces,
                 char const* targetNamespace);

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

protected:
    bool AcceptsName(Ctx const& ctx, Object const* object, CXmlElement const* element) const override;
    // `ns` is the namespace of the class.
    CSmartPtr<CElement> MakeChild(char const* ns) const;

private:
    std::string const m_allowedNamespaces;
    std::string const m_targetNamespace;
};

// The object cannot be written without the element.
template <class Content>
class MandatoryEntry : public Content {
public:
    using Content::Content;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override {
        return this->Mandatory(Content::ElementToXml(ctx, object, writer));
    }
};

// A collection of objects, real elements or nested groups. Collection is the member of the group for
// collections.
template <class Collection>
class ObjectCollectionEntry : public Collection {
public:
    ObjectCollectionEntry(char const* name, char const* ns, CProperty const& property,
                          XmlElementType elementType)
        : Collection(name, ns, property), m_elementType(elementType) {}

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override {
        this->CollectionAttributesToXml(ctx, object, writer, m_elementType);
    }

protected:
    bool HoldsGroups() const noexcept override { return m_elementType == ZvXmlLib16::XmlElementType_Pseudo; }
    bool IsNestedGroup(CElementInfo::Object const* object, CSmartPtr<CXmlObjectBase>& group) const override {
        return HoldsGroups() && this->MakeItemOfGroup(object, group);
    }

private:
    XmlElementType const m_elementType;
};

// The same of an abstract class, whose items say their types.
template <class Collection>
class AbstractCollectionEntry : public ObjectCollectionEntry<Collection> {
public:
    using ObjectCollectionEntry<Collection>::ObjectCollectionEntry;

    bool ElementToXml(CElementInfo::Ctx const& ctx, CElementInfo::Object const* object,
                      CXmlWriter* writer) const override {
        return CElementInfo::WithTypes(ctx, writer, [&] {
            return ObjectCollectionEntry<Collection>::ElementToXml(ctx, object, writer);
        });
    }
};

} // namespace ZvXmlLib16Data::detail
