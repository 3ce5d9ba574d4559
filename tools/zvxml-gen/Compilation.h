// From the command line to what becomes of the schemas.
#pragma once

#include "GeneratorOptions.h"

#include "schema/emit/Emitter.h"
#include "schema/mapping/Mapping.h"
#include "schema/model/Schema.h"
#include "schema/naming/NameTable.h"

#include <memory>
#include <string>
#include <vector>

namespace zvxml {

struct Compilation {
    std::unique_ptr<ZvXmlLib16::schema::Schema> schema;
    ZvXmlLib16::schema::NameTable names;
    std::unique_ptr<ZvXmlLib16::schema::Mapping> mapping;
    std::vector<ZvXmlLib16::schema::ExternSet> externs;
    std::vector<std::string> inputs; // the schemas that were read
};

// Reads the schemas and maps them. Tells errors and warnings on standard error; false if there are errors.
// Throws UsageError for an --only that the schemas do not have, and FileError.
bool Compile(GeneratorOptions const& options, Compilation& compilation);

// The classes as text.
std::vector<ZvXmlLib16::schema::EmittedFile> EmitClasses(GeneratorOptions const& options,
                                                         Compilation const& compilation);

} // namespace zvxml
