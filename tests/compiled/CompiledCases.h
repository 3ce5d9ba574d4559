// Schemas whose classes were compiled into this program.
#pragma once

#include "zvxmllib/generated/BoundSchema.h"

#include <cstddef>

namespace compiled {

struct Case {
    ZvXmlLib16::generated::BoundSchema const& (*schema)(); // with the classes
    char const* files;                                     // of the schema, ';' between two
};

// Generated beside the classes.
extern Case const kCases[];
extern std::size_t const kCaseCount;
// Where imported schemas lie, FROM=FILE, closed by null.
extern char const* const kLocations[];

} // namespace compiled
