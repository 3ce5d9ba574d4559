#include "SchemaOptions.h"

#include "Errors.h"

#include "schema/frontend/SchemaReader.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/grammar/Grammar.h"

#include <cstdio>

using namespace ZvXmlLib16::schema;

namespace zvxml {

namespace {

// What is beyond the means of the validator, such as a pattern that the library of regular expressions
// refuses.
void TestGrammar(Schema const& schema) {
    try {
        ZvXmlLib16::grammar::Grammar const grammar(schema.GetRows());
    } catch (ZvXmlLib16::CZvException const& e) {
        std::fprintf(stderr, "zvxml: %s\n", e.GetMessage().c_str());
        throw SchemaError("the schema cannot be used");
    }
}

} // namespace

void SchemaOptions::AddLocation(std::string const& text) {
    std::size_t const equals = text.rfind('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == text.size())
        throw UsageError("--location takes FROM=FILE, not '" + text + "'");
    locations.emplace_back(text.substr(0, equals), text.substr(equals + 1));
}

std::unique_ptr<Schema> SchemaOptions::Read() const {
    Diagnostics diagnostics;
    SchemaFiles places;
    for (auto const& [from, file] : locations)
        places.Map(from, file);
    ReadCatalogs(catalogs, places, diagnostics);
    std::unique_ptr<Schema> schema;
    if (!diagnostics.HasErrors())
        schema = ReadSchemas(files, places, diagnostics);
    std::size_t errors = 0;
    for (Diagnostic const& diagnostic : diagnostics.GetSorted()) {
        if (diagnostic.severity != Severity::kError || ++errors <= kMostErrors)
            std::fprintf(stderr, "%s\n", Diagnostics::Format(diagnostic).c_str());
    }
    if (errors > kMostErrors)
        std::fprintf(stderr, "zvxml: %zu more errors\n", errors - kMostErrors);
    if (schema == nullptr)
        throw SchemaError("the schema cannot be used");
    TestGrammar(*schema);
    return schema;
}

} // namespace zvxml
