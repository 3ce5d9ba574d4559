// The entries of a choice: 11 classes. Each returns whether it took the child.
#pragma once

#include "zvxmllib/driver/ElementContents.h"

namespace ZvXmlLib16Data {

namespace detail {

template <class Content>
class ChoiceOption : public Content {
public:
    using Content::Content;

    CElementInfo::ChoiceMember GetChoiceMember() const noexcept override {
        return CElementInfo::ChoiceMember::kOptional;
    }
};

} // namespace detail

// The object is in place while it is filled; a nested choice may be empty.
class ZV_API CElementInfoChoiceClsOpt : public detail::ChoiceOption<detail::ClassEntry> {
public:
    using ChoiceOption::ChoiceOption;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

// The object is in place while it is filled.
class ZV_API CElementInfoChoiceAbsClsOpt : public detail::ChoiceOption<detail::AbstractClassEntry> {
public:
    using ChoiceOption::ChoiceOption;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoChoicePrimOpt : public detail::ChoiceOption<detail::PrimitiveEntry> {
public:
    using ChoiceOption::ChoiceOption;
};

class ZV_API CElementInfoChoiceEnumOpt : public detail::ChoiceOption<detail::EnumEntry> {
public:
    using ChoiceOption::ChoiceOption;
};

// The element is in place while it is filled.
class ZV_API CElementInfoChoiceUntpdOpt : public detail::ChoiceOption<detail::UntypedEntry> {
public:
    using ChoiceOption::ChoiceOption;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

// A collection as such, and the base of the other collections.
class ZV_API CElementInfoChoiceCol : public CElementInfo {
public:
    // Of an element by its name and namespace.
    CElementInfoChoiceCol(char const* name, char const* ns, CProperty const& property);

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

namespace detail {

// A collection that may be empty makes its choice optional.
template <class Collection>
class ChoiceCollection : public Collection {
public:
    using Collection::Collection;

    CElementInfo::ChoiceMember GetChoiceMember() const noexcept override {
        return CElementInfo::ChoiceMember::kCollection;
    }
};

} // namespace detail

class ZV_API CElementInfoChoiceClsCol
    : public detail::ChoiceCollection<detail::ObjectCollectionEntry<CElementInfoChoiceCol>> {
public:
    using ChoiceCollection::ChoiceCollection;
};

class ZV_API CElementInfoChoiceAbsClsCol
    : public detail::ChoiceCollection<detail::AbstractCollectionEntry<CElementInfoChoiceCol>> {
public:
    using ChoiceCollection::ChoiceCollection;
};

class ZV_API CElementInfoChoicePrimCol : public detail::ChoiceCollection<CElementInfoChoiceCol> {
public:
    using ChoiceCollection::ChoiceCollection;
};

class ZV_API CElementInfoChoiceEnumCol : public detail::ChoiceCollection<CElementInfoChoiceCol> {
public:
    using ChoiceCollection::ChoiceCollection;
};

// Untyped elements, in a CElementCol.
class ZV_API CElementInfoChoiceUntpdCol : public detail::ChoiceCollection<CElementInfoChoiceCol> {
public:
    using ChoiceCollection::ChoiceCollection;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace ZvXmlLib16Data
