// The door of the front end: from schema files to a schema.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/frontend/SchemaFiles.h"
#include "schema/model/Schema.h"

#include <memory>
#include <string>
#include <vector>

namespace ZvXmlLib16::schema {

// Reads the schemas with all that they include, import and redefine, tests them by the rules of XML
// Schema 1.0, and resolves their components. Null if there are errors, which are told with their places;
// warnings are told, too.
// `inputs`, unless null, gets the files that were read. `before` has namespaces in groups: what a group has
// in the schemas, with all that it imports, comes first, as if it were read alone; see Schema::before.
std::unique_ptr<Schema> ReadSchemas(std::vector<std::string> const& files, SchemaFiles const& locations,
                                    Diagnostics& diagnostics, std::vector<std::string>* inputs = nullptr,
                                    std::vector<std::vector<std::string>> const& before = {});

// Adds the catalogs to the locations.
void ReadCatalogs(std::vector<std::string> const& files, SchemaFiles& locations, Diagnostics& diagnostics);

} // namespace ZvXmlLib16::schema
