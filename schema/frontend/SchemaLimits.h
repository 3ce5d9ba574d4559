// Refuses schemas that are out of all proportion.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/frontend/SchemaSet.h"

namespace ZvXmlLib16::schema {

// What refers to each other too deeply, or is too large when references are replaced, would cost the check by
// the parser its stack, or time and memory without bound. Tells an error for the first of such. Circles are
// left to the check.
void CheckLimits(SchemaSet const& set, Diagnostics& diagnostics);

} // namespace ZvXmlLib16::schema
