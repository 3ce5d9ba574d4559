// How the members of a JSON object that stand for attributes and texts are named.
#pragma once

#include <string_view>

namespace ZvXmlLib16::detail {

inline constexpr char kAttributeMark = '@'; // before the name of an attribute
inline constexpr std::string_view kTextName = "#text";

} // namespace ZvXmlLib16::detail
