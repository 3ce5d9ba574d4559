// A part of a schema: some global components with what they need.
#pragma once

#include "schema/model/Schema.h"

#include <string>
#include <vector>

namespace ZvXmlLib16::schema {

// Drops what the global elements and types of these names do not need. A name is NAME, in whatever namespace,
// or {URI}NAME. Needed are types, with their bases, and child elements, with the members of their
// substitution groups. Derived types that a document could name by xsi:type are dropped, but for those of
// abstract types, since nothing else could stand there. Global attributes and notations stay.
//
// Sets `schema.documentElements`. Returns the first name that the schema does not have, empty if it has all.
std::string KeepOnly(Schema& schema, std::vector<std::string> const& names);

} // namespace ZvXmlLib16::schema
