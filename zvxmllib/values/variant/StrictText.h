// Values from and to the texts that XML Schema Part 2 gives their types, and no others.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {

// Reading. The text has had its white space rule applied. RequireLexical throws CZvInvalidValueException
// unless the text has the form of the type and the value class keeps all of it; the conversions go on to
// throw for what is out of range.
void RequireLexical(ItemType type, std::string_view text);
// By RequireLexical; the value class keeps the sign of every zone, and 24:00:00 is the start of the next day.
CDateTime StrictDateTimeFromText(ItemType type, std::string_view text);
// Like ZvVariant::FromText, without a rule.
void StrictFromText(ZvVariant& value, std::string_view text, ItemType type);

// Writing. As ZvVariant::ToText for a value that is to be one of `type`: of the lexical form, and so that
// reading gives an equal value. `name` is for the message of CZvInvalidStateException where there is none.
std::string const& ToStrictText(char const* name, ZvVariant const& value, ItemType type, char const* format,
                                std::string& buffer);

} // namespace ZvXmlLib16::detail
