#include "zvxmllib/driver/MemberAccess.h"

#include "zvxmllib/foundation/SimpleTypes.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/BigInteger.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/text/TextValues.h"

#include <utility>

namespace ZvXmlLib16Data::detail {

using namespace ZvXmlLib16;
using Rule = CWhitespaceUtils::WhitespaceRule;

namespace {

// A member of another integer type holds the same values.
template <class Member, class Value>
constexpr bool Holds() {
    if constexpr (std::is_same_v<Member, Value>)
        return true;
    else if constexpr (std::is_integral_v<Member> && std::is_integral_v<Value> &&
                       !std::is_same_v<Member, bool> && !std::is_same_v<Value, bool>)
        return sizeof(Member) == sizeof(Value) &&
               std::is_signed_v<Member> == (std::is_signed_v<Value> || std::is_same_v<Value, char>);
    else
        return false;
}

// A type of the table: its value, and its conversions.
template <ItemType type>
struct Simple;
#define ZV_SIMPLE(name, Policy, Name, Value_, KIND, slot)                                                    \
    template <>                                                                                              \
    struct Simple<ItemType_##name> {                                                                         \
        using Value = Value_;                                                                                \
        static void Store(Value const& from, ZvVariant& to) { to.Set##Name(from); }                          \
        static Value Fetch(ZvVariant& from) { return from.Get##Name(); }                                     \
        static Value Parse(std::string_view text, Rule rule) {                                               \
            return ZvXmlLib16::detail::name##FromText(text, rule);                                           \
        }                                                                                                    \
        static std::string const& ToText(Value const& value, char const* format, std::string& buffer) {      \
            return ZvXmlLib16::detail::name##ToText(value, format, buffer);                                  \
        }                                                                                                    \
    };
ZV_SIMPLE_TYPES(ZV_SIMPLE)
#undef ZV_SIMPLE

template <class Member, ItemType type, bool isOptional>
struct ValueMember {
    using Type = Simple<type>;
    using Place = std::conditional_t<isOptional, std::optional<Member>, Member>;

    static void Get(void const* member, ZvVariant& value) {
        if (Member const* const held = Find(member))
            Type::Store(Convert(*held), value);
        else
            value.SetInvalid();
    }
    static void Set(void* member, ZvVariant& value) {
        if constexpr (type == ItemType_string)
            *static_cast<Place*>(member) = value.TakeString();
        else
            *static_cast<Place*>(member) = static_cast<Member>(Type::Fetch(value));
    }
    static void Parse(void* member, std::string_view text, Rule rule) {
        Place& place = *static_cast<Place*>(member);
        if constexpr (type == ItemType_string) {
            ZvXmlLib16::detail::RuledText ruled(rule, text);
            if (std::string* const own = ruled.Own())
                place = std::move(*own);
            else
                place = std::string(text);
        } else {
            place = static_cast<Member>(Type::Parse(text, rule));
        }
    }
    static std::string const* ToText(void const* member, char const* format, std::string& buffer) {
        Member const* const held = Find(member);
        return held == nullptr ? nullptr : &Type::ToText(Convert(*held), format, buffer);
    }
    static constexpr MemberAccess kAccess{&Get, &Set, &Parse, &ToText};

private:
    static Member const* Find(void const* member) {
        if constexpr (isOptional) {
            auto const& place = *static_cast<Place const*>(member);
            return place ? &*place : nullptr;
        } else {
            return static_cast<Member const*>(member);
        }
    }
    // The value itself, or a number of the same width.
    static decltype(auto) Convert(Member const& held) {
        if constexpr (std::is_same_v<Member, typename Type::Value>)
            return (held);
        else
            return static_cast<typename Type::Value>(held);
    }
};

template <class Member, bool isOptional>
MemberAccess const* Find(ItemType wanted) noexcept {
    switch (wanted) {
#define ZV_CASE(name, Policy, Name, Value, KIND, slot)                                                       \
    case ItemType_##name:                                                                                    \
        if constexpr (Holds<Member, Value>())                                                                \
            return &ValueMember<Member, ItemType_##name, isOptional>::kAccess;                               \
        else                                                                                                 \
            return nullptr;
        ZV_SIMPLE_TYPES(ZV_CASE)
#undef ZV_CASE
    default:
        return nullptr;
    }
}

} // namespace

template <class Value>
MemberAccess const* ValueAccess<Value>::Of(ItemType type) noexcept {
    return Find<Value, false>(type);
}

template <class Value>
MemberAccess const* ValueAccess<Value>::OfOptional(ItemType type) noexcept {
    return Find<Value, true>(type);
}

#define ZV_ACCESS(Value) template struct ZV_API ValueAccess<Value>;
ZV_SIMPLE_VALUES(ZV_ACCESS)
ZV_ACCESS(signed char)
ZV_ACCESS(long)
ZV_ACCESS(unsigned long)
#undef ZV_ACCESS

MemberAccess const* AccessOfVariant() noexcept {
    struct VariantMember {
        static void Get(void const* member, ZvVariant& value) {
            value = *static_cast<ZvVariant const*>(member);
        }
        static void Set(void* member, ZvVariant& value) {
            *static_cast<ZvVariant*>(member) = std::move(value);
        }
    };
    static constexpr MemberAccess kAccess{&VariantMember::Get, &VariantMember::Set, nullptr, nullptr};
    return &kAccess;
}

} // namespace ZvXmlLib16Data::detail
