// How the members of a JSON object that stand for attributes and texts are named.
#pragma once

#include <string_view>

namespace ZvXmlLib16::detail {

inline constexpr char kAttributeMark = '@'; // before the name of an attribute
inline constexpr std::string_view kTextName = "#text";

// Strict JSON: the prefix that marks a null as nil; where a name has this in it, with underscores behind.
inline constexpr std::string_view kNilPrefix = "nil";

} // namespace ZvXmlLib16::detail
