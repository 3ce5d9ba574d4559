// The names of the built-in types.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"

#include <string_view>

namespace ZvXmlLib16::schema {

// False if XML Schema has no simple type of that name.
bool FindBuiltIn(std::string_view name, grammar::BuiltIn& type) noexcept;
char const* NameOf(grammar::BuiltIn type) noexcept;

// False for what is no facet.
bool FindFacet(std::string_view name, grammar::Facet& facet) noexcept;
char const* NameOf(grammar::Facet facet) noexcept;

} // namespace ZvXmlLib16::schema
