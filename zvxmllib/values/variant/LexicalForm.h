// The lexical forms of the primitive types (XML Schema Part 2, 3.2 and 3.3).
#pragma once

#include "zvxmllib/foundation/Enumerations.h"

#include <string_view>

namespace ZvXmlLib16::detail {

// Whether the text, after its white space rule, has the form of the type. Ranges are the conversion's to
// test: those of integers, and of the fields of dates but for zones and 24:00:00. What the value classes can
// not hold has no form: signs and zones of gYear, zones of gMonth and gDay. Every text is a string, and a
// char.
bool HasLexicalForm(ItemType type, std::string_view text) noexcept;

// gYear, gMonth and gDay: the zone that the text ends in, empty if there is none.
std::string_view ZoneOf(std::string_view text) noexcept;

// The decimal places of a decimal, without zeros at the end.
std::size_t CountDecimalPlaces(std::string_view text) noexcept;

} // namespace ZvXmlLib16::detail
