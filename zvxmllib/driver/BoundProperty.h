// The property of an entry: its place, and what can be done with a member of its type.
#pragma once

#include "zvxmllib/driver/Property.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"

#include <string>
#include <string_view>

namespace ZvXmlLib16Data::detail {

class ZV_API BoundProperty {
public:
    // `type` is ItemType_invalid for objects and collections, i4 for enumerations. Throws
    // CZvInvalidParamException, with the name of the entry, for a member that does not fit.
    BoundProperty(CProperty const& property, ZvXmlLib16::ItemType type, bool isNillable, char const* name);

    std::int32_t GetIndex() const noexcept { return m_property.GetIndex(); }
    bool IsMember() const noexcept { return m_property.IsMember(); }
    // Throw what the class of the object throws.
    void Get(ZvXmlLib16::CXmlGeneratedClass* object, ZvXmlLib16::ZvVariant& value) const {
        if (m_access == nullptr)
            object->AccessProperty(m_property.GetIndex(), true, value);
        else
            m_access->get(Find(object), value);
    }
    void Set(ZvXmlLib16::CXmlGeneratedClass* object, ZvXmlLib16::ZvVariant& value) const {
        if (m_access == nullptr)
            object->AccessProperty(m_property.GetIndex(), false, value);
        else
            m_access->set(Find(object), value);
    }

    // Whether it is a member with a value of a simple type. Only then the others may be called.
    bool IsValue() const noexcept { return m_access != nullptr && m_access->parse != nullptr; }
    void Parse(ZvXmlLib16::CXmlGeneratedClass* object, std::string_view text,
               ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule) const {
        m_access->parse(Find(object), text, rule);
    }
    std::string const* ToText(ZvXmlLib16::CXmlGeneratedClass const* object, std::string const& format,
                              std::string& buffer) const {
        return m_access->toText(Find(const_cast<ZvXmlLib16::CXmlGeneratedClass*>(object)), format.c_str(),
                                buffer);
    }

private:
    void* Find(ZvXmlLib16::CXmlGeneratedClass* object) const noexcept {
        return m_property.m_find(m_property, object);
    }

    CProperty const m_property;
    MemberAccess const* const m_access; // null for a number
};

} // namespace ZvXmlLib16Data::detail
