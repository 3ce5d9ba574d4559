// The entries of a sequence: 16 classes. A missing mandatory entry throws in a real element and returns false
// in a group; an optional entry always returns true.
#pragma once

#include "zvxmllib/driver/ElementContents.h"

namespace ZvXmlLib16Data {

namespace detail {

template <class Content>
class SequenceOption : public Content {
public:
    using Content::Content;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override {
        Content::ElementFromXml(ctx, object, element, current, ns, parentType);
        return true;
    }
};

} // namespace detail

// Its object is made by Init, so factory and class id are not used.
class ZV_API CElementInfoSeqClsMnd : public detail::MandatoryEntry<detail::ClassEntry> {
public:
    // With `contentMandatory` a group must take at least one child.
    CElementInfoSeqClsMnd(char const* name, char const* ns, CProperty const& property,
                          XmlElementType elementType, ClassFactory factory, int classId,
                          bool contentMandatory);

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

private:
    bool ReadOptionalGroup(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                           XmlElementType parentType) const;
    bool ReadMandatoryGroup(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                            XmlElementType parentType) const;

    bool const m_contentMandatory;
};

class ZV_API CElementInfoSeqClsOpt : public detail::SequenceOption<detail::ClassEntry> {
public:
    using SequenceOption::SequenceOption;
};

// One of the classes that an abstract one has; the element factory finds it.
class ZV_API CElementInfoSeqAbsClsMnd : public detail::MandatoryEntry<detail::AbstractClassEntry> {
public:
    using MandatoryEntry::MandatoryEntry;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqAbsClsOpt : public detail::SequenceOption<detail::AbstractClassEntry> {
public:
    using SequenceOption::SequenceOption;
};

// A value of a simple type.
class ZV_API CElementInfoSeqPrimMnd : public detail::MandatoryEntry<detail::PrimitiveEntry> {
public:
    using MandatoryEntry::MandatoryEntry;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

private:
    bool PassUnknown(Ctx const& ctx, Object const& object, CXmlElement const* element,
                     CXmlElement** current) const;
};

class ZV_API CElementInfoSeqPrimOpt : public detail::SequenceOption<detail::PrimitiveEntry> {
public:
    using SequenceOption::SequenceOption;
};

// An enumerator; the property holds it as i4.
class ZV_API CElementInfoSeqEnumMnd : public detail::MandatoryEntry<detail::EnumEntry> {
public:
    using MandatoryEntry::MandatoryEntry;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqEnumOpt : public detail::SequenceOption<detail::EnumEntry> {
public:
    using SequenceOption::SequenceOption;
};

// The element is the one of the property.
class ZV_API CElementInfoSeqUntpdMnd : public detail::MandatoryEntry<detail::UntypedEntry> {
public:
    using MandatoryEntry::MandatoryEntry;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

// An untyped element, which reading makes.
class ZV_API CElementInfoSeqUntpdOpt : public detail::UntypedEntry {
public:
    using UntypedEntry::UntypedEntry;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

// A collection as such, and the base of the other collections.
class ZV_API CElementInfoSeqCol : public CElementInfo {
public:
    // Of an element by its name and namespace.
    CElementInfoSeqCol(char const* name, char const* ns, CProperty const& property);

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqClsCol : public detail::ObjectCollectionEntry<CElementInfoSeqCol> {
public:
    using ObjectCollectionEntry::ObjectCollectionEntry;
};

class ZV_API CElementInfoSeqAbsClsCol : public detail::AbstractCollectionEntry<CElementInfoSeqCol> {
public:
    using AbstractCollectionEntry::AbstractCollectionEntry;
};

class ZV_API CElementInfoSeqPrimCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
};

class ZV_API CElementInfoSeqEnumCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
};

// Untyped elements, in a CElementCol.
class ZV_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace ZvXmlLib16Data
