// Values of the types whose values have an order: numbers, dates and times, durations.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"
#include "zvxmllib/grammar/Instants.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace ZvXmlLib16::grammar {

// A decimal number by its digits, which are views of a text.
struct DecimalDigits {
    bool isNegative = false;   // not of 0
    std::string_view whole;    // without zeros in front
    std::string_view fraction; // without zeros at the end
};

// XML Schema Part 2, 3.2.3; an integer (3.3.13) has no point.
bool ReadDecimal(std::string_view text, DecimalDigits& value) noexcept;
bool ReadInteger(std::string_view text, DecimalDigits& value) noexcept;
Order Compare(DecimalDigits const& left, DecimalDigits const& right) noexcept;

// Of one primitive type. Views are of the text that was read.
using OrderedValue = std::variant<std::monostate, DecimalDigits, float, double, Instant, Duration>;

constexpr bool IsOrdered(BuiltIn primitive) noexcept {
    return primitive == BuiltIn::kDecimal || (primitive >= BuiltIn::kFloat && primitive <= BuiltIn::kGDay);
}

// `primitive` is an ordered one, the text after the white space rule. False for a text that is none.
bool ReadOrdered(BuiltIn primitive, std::string_view text, OrderedValue& value);
// Only tests the form where a value takes work.
bool IsOrderedForm(BuiltIn primitive, std::string_view text);
// Both of the same primitive type.
Order Compare(OrderedValue const& left, OrderedValue const& right);
// Two values of a primitive type are equal if what is appended is.
void AppendKey(OrderedValue const& value, std::string& key);

} // namespace ZvXmlLib16::grammar
