// Names that generated code cannot use.
#pragma once

#include <string_view>

namespace ZvXmlLib16::schema {

// A keyword of C++ or C, a macro of the standard headers, or a name that generated code uses itself.
bool IsReserved(std::string_view name);

// What the C library or POSIX declares globally, where a namespace would collide with it.
bool IsGlobal(std::string_view name);

} // namespace ZvXmlLib16::schema
