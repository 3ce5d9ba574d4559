// How values of simple types are told to writers.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/grammar/SimpleTypes.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::generated {

// Sets `written` to the text as it is written: of a number or boolean the form that JSON has, too; otherwise
// the text itself. The result decides how JSON has it: numbers and booleans are those that JSON can write,
// everything else is a string.
ItemType ToWrittenForm(grammar::SimpleTypes const& types, std::uint32_t type, std::string_view text,
                       std::string& written);

} // namespace ZvXmlLib16::generated
