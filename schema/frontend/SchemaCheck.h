// The rules of XML Schema for schemas themselves, tested by the parser library.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/frontend/SchemaSet.h"

namespace ZvXmlLib16::schema {

// Tells each violation, with its place. What the set did not find counts as an empty schema.
void CheckSchemaSet(SchemaSet const& set, Diagnostics& diagnostics);

} // namespace ZvXmlLib16::schema
