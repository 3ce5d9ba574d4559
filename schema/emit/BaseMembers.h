// The members that generated classes inherit.
#pragma once

#include <string_view>

namespace ZvXmlLib16::schema {

// Whether a name means a member of the base of generated classes, or the base itself, where it stands inside
// such a class.
bool IsBaseMember(std::string_view name);

} // namespace ZvXmlLib16::schema
