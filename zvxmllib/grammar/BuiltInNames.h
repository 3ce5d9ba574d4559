// The names of the built-in types and of the facets.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"

#include <string_view>

namespace ZvXmlLib16::grammar {

// False if XML Schema has no simple type of that name.
bool FindBuiltIn(std::string_view name, BuiltIn& type) noexcept;
char const* NameOf(BuiltIn type) noexcept;

// False for what is no facet.
bool FindFacet(std::string_view name, Facet& facet) noexcept;
char const* NameOf(Facet facet) noexcept;

} // namespace ZvXmlLib16::grammar
