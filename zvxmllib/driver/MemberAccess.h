// What can be done with a member of a class that stands for a property, by the type of the member.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/text/Whitespace.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace ZvXmlLib16Data::detail {

// Each function takes the address of the member. `parse` and `toText` are null for what is no value of a
// simple type.
struct MemberAccess {
    // Stores the member in `value`; invalid if it holds nothing.
    void (*get)(void const* member, ZvXmlLib16::ZvVariant& value);
    // Sets the member. Throws CZvInvalidParamException for an object of another class.
    void (*set)(void* member, ZvXmlLib16::ZvVariant& value);
    // From the text of an element or attribute. Throws what the conversion of the type throws.
    void (*parse)(void* member, std::string_view text, ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule);
    // The text, in `buffer` or the member itself; null if it holds nothing.
    std::string const* (*toText)(void const* member, char const* format, std::string& buffer);
};

// Of values and optional values of the simple types. Null for a type that the member does not hold. Made for
// the C++ types of ZV_SIMPLE_VALUES, and the other integers of the language.
template <class Value>
struct ValueAccess {
    static MemberAccess const* Of(ZvXmlLib16::ItemType type) noexcept;
    static MemberAccess const* OfOptional(ZvXmlLib16::ItemType type) noexcept;
};
// Of a ZvVariant, for any type.
ZV_API MemberAccess const* AccessOfVariant() noexcept;

template <class Member>
struct OptionalTraits : std::false_type {
    using Value = Member;
};
template <class Inner>
struct OptionalTraits<std::optional<Inner>> : std::true_type {
    using Value = Inner;
};

template <class Member>
struct PointerTraits : std::false_type {};
template <class Class>
struct PointerTraits<CSmartPtr<Class>> : std::true_type {
    using Target = Class;
};

// An enumeration, which a variant holds as i4.
template <class Member>
struct EnumMember {
    using Enum = typename OptionalTraits<Member>::Value;

    static void Get(void const* member, ZvXmlLib16::ZvVariant& value) {
        auto const& place = *static_cast<Member const*>(member);
        if constexpr (OptionalTraits<Member>::value) {
            if (place)
                value.SetI4(static_cast<std::int32_t>(*place));
            else
                value.SetInvalid();
        } else {
            value.SetI4(static_cast<std::int32_t>(place));
        }
    }
    static void Set(void* member, ZvXmlLib16::ZvVariant& value) {
        *static_cast<Member*>(member) = static_cast<Enum>(value.GetI4());
    }
    static constexpr MemberAccess kAccess{&Get, &Set, nullptr, nullptr};
};

// An object or a collection.
template <class Target>
struct PointerMember {
    static constexpr bool kIsCollection = std::is_base_of_v<ZvXmlLib16::CXmlCollectionBase, Target>;

    static void Get(void const* member, ZvXmlLib16::ZvVariant& value) {
        Target* const target = *static_cast<CSmartPtr<Target> const*>(member);
        if constexpr (kIsCollection)
            value.SetXmlCollection(target);
        else if (target != nullptr)
            value.SetXmlObject(target);
        else
            value.SetInvalid();
    }
    static void Set(void* member, ZvXmlLib16::ZvVariant& value) {
        ZvXmlLib16::CXmlObjectBase* const object = value.FindXmlObject();
        auto* const target = dynamic_cast<Target*>(object);
        if (target == nullptr && object != nullptr)
            throw ZvXmlLib16::CZvInvalidParamException("The object is of another class than its property");
        *static_cast<CSmartPtr<Target>*>(member) = target;
    }
    static constexpr MemberAccess kAccess{&Get, &Set, nullptr, nullptr};
};

// By the C++ type of the member. Null if it does not fit the type of the entry, which is ItemType_invalid for
// objects and collections.
template <class Member>
MemberAccess const* AccessOf(ZvXmlLib16::ItemType type) noexcept {
    using Value = typename OptionalTraits<Member>::Value;
    if constexpr (std::is_same_v<Member, ZvXmlLib16::ZvVariant>)
        return AccessOfVariant();
    else if constexpr (PointerTraits<Member>::value)
        return type == ZvXmlLib16::ItemType_invalid
                   ? &PointerMember<typename PointerTraits<Member>::Target>::kAccess
                   : nullptr;
    else if constexpr (std::is_enum_v<Value>)
        return type == ZvXmlLib16::ItemType_i4 ? &EnumMember<Member>::kAccess : nullptr;
    else if constexpr (OptionalTraits<Member>::value)
        return ValueAccess<Value>::OfOptional(type);
    else
        return ValueAccess<Value>::Of(type);
}

} // namespace ZvXmlLib16Data::detail
