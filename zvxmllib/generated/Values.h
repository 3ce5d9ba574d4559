// Values of simple types from and to the texts that typed objects hold.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/SimpleTypes.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/BigInteger.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/variant/Conversions.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::generated {

// For each ItemType: the C++ type, and the conversions. FromText takes what the type allows and throws
// CZvInvalidValueException for what the C++ type cannot hold.
template <ItemType type>
struct Codec;

// The shortest text that gives the number back.
std::string ShortestText(float value);
std::string ShortestText(double value);

namespace detail {

template <class Value>
std::string Shortest(Value const&, std::string text) {
    return text;
}
inline std::string Shortest(float value, std::string const&) {
    return ShortestText(value);
}
inline std::string Shortest(double value, std::string const&) {
    return ShortestText(value);
}

} // namespace detail

#define ZV_GENERATED_CODEC(name, Policy, Name, ValueClass, KIND, slot)                                       \
    template <>                                                                                              \
    struct Codec<ItemType_##name> {                                                                          \
        using Value = ValueClass;                                                                            \
        static Value FromText(std::string const& text) {                                                     \
            return CConversions::name##FromString(text, CWhitespaceUtils::WhitespaceRule_Preserve);          \
        }                                                                                                    \
        static std::string ToText(Value const& value) {                                                      \
            return detail::Shortest(value, CConversions::name##ToString(value));                             \
        }                                                                                                    \
    };
ZV_SIMPLE_TYPES(ZV_GENERATED_CODEC)
#undef ZV_GENERATED_CODEC

// The words of a list.
std::vector<std::string> SplitList(std::string_view text);

// A list of values of that type.
template <ItemType type>
struct ListCodec {
    // The values in order.
    using Value = std::vector<typename Codec<type>::Value>;
    // Of words with white space between them.
    static Value FromText(std::string const& text) {
        Value values;
        for (std::string const& word : SplitList(text))
            values.push_back(Codec<type>::FromText(word));
        return values;
    }
    // With a blank between two words.
    static std::string ToText(Value const& values) {
        std::string text;
        for (auto const& value : values)
            text += (text.empty() ? "" : " ") + Codec<type>::ToText(value);
        return text;
    }
};

// The texts of an enumeration, in the order of the enumerators.
struct EnumTexts {
    char const* const* texts; // borrowed; in the order of the enumerators
    std::size_t count;        // of the texts

    // The number of the enumerator. Throws CZvInvalidValueException.
    std::size_t Find(std::string_view text) const;
    // Throws CZvInvalidParamException for a number that is none.
    char const* At(std::size_t number) const;
};

// `Traits` names the enumeration as Value and gives its texts by Texts().
template <class Traits>
struct EnumCodec {
    // The enumeration.
    using Value = typename Traits::Value;
    // Throws CZvInvalidValueException for a text that is none of them.
    static Value FromText(std::string const& text) { return static_cast<Value>(Traits::Texts().Find(text)); }
    // Throws CZvInvalidParamException for a value that is none of them.
    static std::string ToText(Value value) { return Traits::Texts().At(static_cast<std::size_t>(value)); }
};

} // namespace ZvXmlLib16::generated
