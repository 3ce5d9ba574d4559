// How values of simple types are told to writers.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/grammar/SimpleTypes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::generated {

// The type of a text for the writer, which decides how JSON has it: numbers and booleans are those that JSON
// can write, everything else is a string.
ItemType ItemTypeOf(grammar::SimpleTypes const& types, std::uint32_t type, std::string_view text);
// The text as it is written: of a number or boolean the form that JSON has, too; otherwise the text itself.
std::string WrittenForm(grammar::SimpleTypes const& types, std::uint32_t type, std::string const& text);

} // namespace ZvXmlLib16::generated
