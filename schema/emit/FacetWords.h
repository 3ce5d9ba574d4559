// What a simple type allows, for people.
#pragma once

#include "schema/model/Schema.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16::schema {

// "at most 20 characters, matches [A-Z]+": the facets of the simple type with this id and of its bases, the
// narrowest of each kind; of lists also what the items are, of unions the members. Empty for none.
std::string FacetWords(Schema const& schema, std::uint32_t type);

// Of a default or fixed value; empty for none.
std::string ConstraintWords(grammar::ValueConstraint constraint, char const* value);

} // namespace ZvXmlLib16::schema
