// Converts the primitive types from and to any piece of text. CConversions does the same for strings.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SimpleTypes.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace ZvXmlLib16::detail {

using TextRule = CWhitespaceUtils::WhitespaceRule;

// As a function takes a value of the class.
template <class Value>
using Parameter = std::conditional_t<std::is_arithmetic_v<Value>, Value, Value const&>;

// i4FromText, i4ToText and so on, for each type. The text is in `buffer`, whose memory is reused, or is the
// value itself. A format is null, empty, or as CConversions says; only r4, r8 and decimal use it.
#define ZV_TEXT_VALUE(name, Policy, Name, Value, KIND, slot)                                                 \
    Value name##FromText(std::string_view text, TextRule rule);                                              \
    std::string const& name##ToText(Parameter<Value> value, char const* format, std::string& buffer);
ZV_SIMPLE_TYPES(ZV_TEXT_VALUE)
#undef ZV_TEXT_VALUE

} // namespace ZvXmlLib16::detail
