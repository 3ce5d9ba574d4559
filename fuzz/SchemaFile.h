// Schemas for the fuzzers, read from a file of this process.
#pragma once

#include "Fuzz.h"
#include "schema/frontend/SchemaReader.h"
#include "zvxmllib/grammar/Grammar.h"
#include "zvxmllib/grammar/Validator.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

// Null for a schema that cannot be used.
inline std::unique_ptr<schema::Schema> ReadSchemaText(std::string_view text) {
    static std::string const file =
        (std::filesystem::temp_directory_path() / ("zvxmllib_fuzz_" + std::to_string(std::random_device()())))
            .string();
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(text.data(), static_cast<std::streamsize>(text.size()));
    schema::Diagnostics diagnostics;
    std::unique_ptr<schema::Schema> read = schema::ReadSchemas({file}, schema::SchemaFiles(), diagnostics);
    std::filesystem::remove(file);
    Require((read == nullptr) == diagnostics.HasErrors());
    for (schema::Diagnostic const& diagnostic : diagnostics.GetSorted())
        Require(!schema::Diagnostics::Format(diagnostic).empty());
    return read;
}

// Whether it is valid; what is no XML is not.
inline bool IsValid(grammar::Grammar const& grammar, std::string const& xml, CSerializationContext& ctx) {
    ctx.SetStrict(true);
    return Attempt([&] {
               CXmlDocument document(ctx);
               document.LoadXml(xml.c_str());
               grammar::Validator(grammar, ctx).ValidateDocument(*document.GetDocumentElement(), true);
               return true;
           })
        .has_value();
}
