// FormatString, which builds all messages.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <string>

namespace ZvXmlLib16 {

// printf into a string of any length. Independent of the process locale: the decimal point is always a point.
// Single-byte text only; %s takes a NUL-terminated string, null prints as "(null)".
ZV_API std::string FormatString(char const* format, ...) __attribute__((format(printf, 1, 2)));

} // namespace ZvXmlLib16
