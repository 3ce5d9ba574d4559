// Every failure of the value types. The texts are a contract with callers.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

[[noreturn]] void FailAppendToSharedData(std::uint32_t holders);
[[noreturn]] void FailReleaseSharedData(std::uint32_t holders);
[[noreturn]] void FailHexLength();
[[noreturn]] void FailHexDigit(char digit);
[[noreturn]] void FailDataIndex(std::uint32_t index);
[[noreturn]] void FailWhitespaceRule();

// Conversions. `typeName` is that of an integer or floating-point type.
[[noreturn]] void FailNumberText(std::string_view text, char const* typeName);
[[noreturn]] void FailNumberTooLarge(std::string_view text, char const* typeName);
[[noreturn]] void FailCharText(std::string_view text);
[[noreturn]] void FailBooleanText(std::string_view text);

// Strict texts. `name` is that of the element or attribute.
[[noreturn]] void FailZoneIsLost(std::string_view zone);
[[noreturn]] void FailDecimalPlaces(std::string_view text, std::int32_t most);
[[noreturn]] void FailWrittenText(std::string const& text, char const* name, std::string const& typeName);

// CBigInteger. `operation` is the operator as the message writes it.
[[noreturn]] void FailZeroDivisor(char const* operation);
[[noreturn]] void FailNegativeSquareRoot();
[[noreturn]] void FailBeyondIntegerType(char const* typeName);
[[noreturn]] void FailInfiniteInteger();

// CDecimal. The position is counted from 0.
[[noreturn]] void FailDecimalText(std::size_t position, std::string_view text);
[[noreturn]] void FailBeyondDecimalTarget(char const* typeName);

// The variant.
[[noreturn]] void FailTypeName(ItemType type);
[[noreturn]] void FailTypeToString(ItemType type); // and from a string
[[noreturn]] void FailUnknownType();

// Facets. A null name counts as empty.
[[noreturn]] void FailFacetOfInteger(char const* name, std::int32_t value);
[[noreturn]] void FailFacetOfReal(char const* name, double value);
[[noreturn]] void FailFacetOfText(char const* name, std::string const& value);
[[noreturn]] void FailFacetsOfType(std::string const& typeName);
// `expression` is the compiled form of the pattern, `error` the message of the regular expression library.
[[noreturn]] void FailRegularExpression(std::string const& expression, std::string const& error);
// `cause` is the full message of the former.
[[noreturn]] void FailPattern(std::string const& cause, char const* name, std::string const& value);

} // namespace ZvXmlLib16
