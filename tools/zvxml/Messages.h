// What the tool says on standard error.
#pragma once

#include <string>

namespace zvxml {

// Whether messages are coloured. "auto": on a terminal, unless the environment variable NO_COLOR has a value.
enum class ColorMode { kAuto, kAlways, kNever };
void SetColorMode(ColorMode mode);

// "zvxml: " and the message, which begins with the file and the place. Line ends in it become blanks.
void TellError(std::string const& message);
void TellWarning(std::string const& message);
// What is wrong with a document that was to be tested: the message alone, as compilers say it.
void TellVerdict(std::string const& message);
// As it is.
void TellHint(std::string const& hint);

} // namespace zvxml
