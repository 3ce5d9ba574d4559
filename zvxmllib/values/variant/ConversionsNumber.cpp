// Texts of the simple types: integers and floating point.
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/text/TextValues.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace ZvXmlLib16 {

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;

// True if only the end of the text, or a NUL, follows what was read.
bool IsAtEnd(std::string_view text, std::size_t length) {
    return length == text.size() || text[length] == '\0';
}

// The rules of strtol and its relatives at the width of Integer: a magnitude that does not fit is reported
// before anything after the digits.
template <class Integer>
Integer IntegerFromText(std::string_view value, Rule rule, char const* typeName) {
    Integer number = 0;
    if (detail::IsKnownRule(rule) && detail::ReadPlainInteger(value, number)) // no rule changes such a text
        return number;

    detail::RuledText const ruled(rule, value);
    std::string_view const text = ruled.Get();
    if (text.empty())
        FailNumberText(text, typeName);
    detail::IntegerText const read = detail::ScanInteger(text);
    unsigned long long limit = static_cast<unsigned long long>(std::numeric_limits<Integer>::max());
    if (std::is_signed_v<Integer> && read.isNegative)
        ++limit;
    if (read.isBeyond64Bits || read.magnitude > limit)
        FailNumberTooLarge(text, typeName);
    if (!IsAtEnd(text, read.length))
        FailNumberText(text, typeName);
    return static_cast<Integer>(read.isNegative ? 0 - read.magnitude : read.magnitude);
}

// The message shows the text before the rule.
template <class Small, class Wide>
Small NarrowInteger(Wide number, std::string_view value, char const* typeName) {
    if (number < std::numeric_limits<Small>::min() || number > std::numeric_limits<Small>::max())
        FailNumberTooLarge(value, typeName);
    return static_cast<Small>(number);
}

double RealFromText(std::string_view value, Rule rule, char const* typeName) {
    if (detail::IsKnownRule(rule)) {
        // No rule changes a number that fills the text: rules change only what is skipped.
        detail::RealText const read = detail::ScanReal(value);
        if (read.length != 0 && read.length == value.size())
            return read.value;
    }

    detail::RuledText const ruled(rule, value);
    std::string_view const text = ruled.Get();
    if (text.empty())
        FailNumberText(text, typeName);
    if (text == "NaN" || text == "1.#QNAN" || text == "-NAN")
        return std::numeric_limits<double>::quiet_NaN();
    if (text == "-INF")
        return -std::numeric_limits<double>::infinity();
    if (text == "INF")
        return std::numeric_limits<double>::infinity();
    detail::RealText const read = detail::ScanReal(text);
    if (!IsAtEnd(text, read.length))
        FailNumberText(text, typeName);
    return read.value;
}

std::string const& RealToText(double value, char const* format, int digits, std::size_t limit,
                              std::string& buffer) {
    if (std::isnan(value))
        return buffer = "NaN";
    if (std::isinf(value))
        return buffer = value < 0 ? "-INF" : "INF";
    if (format == nullptr || *format == '\0')
        return detail::PrintReal(value, digits, buffer);
    return detail::PrintReal(value, format, limit, buffer);
}

constexpr int kDigitsR4 = 7;
constexpr int kDigitsR8 = 16;
constexpr std::size_t kLimitR4 = 31;
constexpr std::size_t kLimitR8 = 47;

} // namespace

namespace detail {

char i1FromText(std::string_view text, TextRule rule) {
    return static_cast<char>(NarrowInteger<signed char>(i4FromText(text, rule), text, "i1"));
}

short i2FromText(std::string_view text, TextRule rule) {
    return NarrowInteger<short>(i4FromText(text, rule), text, "i2");
}

std::int32_t i4FromText(std::string_view text, TextRule rule) {
    return IntegerFromText<std::int32_t>(text, rule, "i4");
}

long long i8FromText(std::string_view text, TextRule rule) {
    return IntegerFromText<long long>(text, rule, "i8");
}

unsigned char ui1FromText(std::string_view text, TextRule rule) {
    return NarrowInteger<unsigned char>(ui4FromText(text, rule), text, "ui1");
}

unsigned short ui2FromText(std::string_view text, TextRule rule) {
    return NarrowInteger<unsigned short>(ui4FromText(text, rule), text, "ui2");
}

std::uint32_t ui4FromText(std::string_view text, TextRule rule) {
    return IntegerFromText<std::uint32_t>(text, rule, "ui4");
}

unsigned long long ui8FromText(std::string_view text, TextRule rule) {
    return IntegerFromText<unsigned long long>(text, rule, "ui8");
}

float r4FromText(std::string_view text, TextRule rule) {
    static_assert(std::numeric_limits<float>::is_iec559); // a double beyond a float narrows to infinity
    return static_cast<float>(RealFromText(text, rule, "r4"));
}

double r8FromText(std::string_view text, TextRule rule) {
    return RealFromText(text, rule, "r8");
}

std::string const& i1ToText(char value, char const*, std::string& buffer) {
    return PrintInteger(static_cast<int>(static_cast<signed char>(value)), buffer);
}

std::string const& i2ToText(short value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& i4ToText(std::int32_t value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& i8ToText(long long value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& ui1ToText(unsigned char value, char const*, std::string& buffer) {
    return PrintInteger(static_cast<unsigned>(value), buffer);
}

std::string const& ui2ToText(unsigned short value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& ui4ToText(std::uint32_t value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& ui8ToText(unsigned long long value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& r4ToText(float value, char const* format, std::string& buffer) {
    return RealToText(static_cast<double>(value), format, kDigitsR4, kLimitR4, buffer);
}

std::string const& r8ToText(double value, char const* format, std::string& buffer) {
    return RealToText(value, format, kDigitsR8, kLimitR8, buffer);
}

} // namespace detail

} // namespace ZvXmlLib16
