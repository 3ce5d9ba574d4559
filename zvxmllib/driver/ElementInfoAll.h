// The entries of an all group: 16 classes. Each takes at most one child, or the items of its collection, and
// returns whether it is done.
#pragma once

#include "zvxmllib/driver/ElementContents.h"

namespace ZvXmlLib16Data {

namespace detail {

template <class Content>
class AllMandatory : public MandatoryEntry<Content> {
public:
    using MandatoryEntry<Content>::MandatoryEntry;

    bool Validate(Ctx const&, Object const*, bool found, bool checkMandatory) const override {
        return this->ValidateMandatory(found, checkMandatory);
    }
};

template <class Content>
class AllOptional : public Content {
public:
    using Content::Content;

    bool Validate(Ctx const&, Object const*, bool, bool) const override { return true; }
};

// An abstract class may be a group here.
class ZV_API AllAbstractClassEntry : public AbstractClassEntry {
public:
    using AbstractClassEntry::AbstractClassEntry;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace detail

// Its object is made by Init, so factory and class id are not used.
class ZV_API CElementInfoAllClsMnd : public detail::AllMandatory<detail::ClassEntry> {
public:
    // Name and namespace of the element, the property, what stands behind it, and its factory, which is not
    // used.
    CElementInfoAllClsMnd(char const* name, char const* ns, CProperty const& property,
                          XmlElementType elementType, ClassFactory factory, int classId,
                          bool contentMandatory);

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;

private:
    bool const m_contentMandatory;
};

class ZV_API CElementInfoAllClsOpt : public detail::AllOptional<detail::ClassEntry> {
public:
    using AllOptional::AllOptional;
};

// One of the classes that an abstract one has; the element factory finds it.
class ZV_API CElementInfoAllAbsClsMnd : public detail::AllMandatory<detail::AllAbstractClassEntry> {
public:
    // Nothing reads `reserved`.
    CElementInfoAllAbsClsMnd(char const* name, char const* ns, CProperty const& property,
                             XmlElementType elementType, ElementFactory factory, int reserved);
};

class ZV_API CElementInfoAllAbsClsOpt : public detail::AllOptional<detail::AllAbstractClassEntry> {
public:
    using AllOptional::AllOptional;
};

class ZV_API CElementInfoAllPrimMnd : public detail::AllMandatory<detail::PrimitiveEntry> {
public:
    using AllMandatory::AllMandatory;
};

class ZV_API CElementInfoAllPrimOpt : public detail::AllOptional<detail::PrimitiveEntry> {
public:
    using AllOptional::AllOptional;
};

class ZV_API CElementInfoAllEnumMnd : public detail::AllMandatory<detail::EnumEntry> {
public:
    using AllMandatory::AllMandatory;
};

class ZV_API CElementInfoAllEnumOpt : public detail::AllOptional<detail::EnumEntry> {
public:
    using AllOptional::AllOptional;
};

// The element is the one of the property.
class ZV_API CElementInfoAllUntpdMnd : public detail::AllMandatory<detail::UntypedEntry> {
public:
    using AllMandatory::AllMandatory;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoAllUntpdOpt : public detail::AllOptional<detail::UntypedEntry> {
public:
    using AllOptional::AllOptional;
};

// A collection as such, and the base of the other collections. It is offered the cursor in each round.
class ZV_API CElementInfoAllCol : public CElementInfo {
public:
    // Of an element by its name and namespace.
    CElementInfoAllCol(char const* name, char const* ns, CProperty const& property);

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
};

class ZV_API CElementInfoAllClsCol : public detail::ObjectCollectionEntry<CElementInfoAllCol> {
public:
    using ObjectCollectionEntry::ObjectCollectionEntry;
};

class ZV_API CElementInfoAllAbsClsCol : public detail::AbstractCollectionEntry<CElementInfoAllCol> {
public:
    using AbstractCollectionEntry::AbstractCollectionEntry;
};

class ZV_API CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;
};

// Stays abstract: no table holds one.
class ZV_API CElementInfoAllEnumCol : public CElementInfo {
protected:
    // As CElementInfoAllCol.
    CElementInfoAllEnumCol(char const* name, char const* ns, CProperty const& property);
};

// Untyped elements, in a CElementCol.
class ZV_API CElementInfoAllUntpdCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace ZvXmlLib16Data
