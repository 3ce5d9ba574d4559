#include "schema/frontend/SchemaReader.h"

#include "schema/frontend/Outline.h"
#include "schema/frontend/Resolver.h"
#include "schema/frontend/SchemaCheck.h"
#include "schema/frontend/SchemaLimits.h"
#include "schema/frontend/SchemaSet.h"

namespace ZvXmlLib16::schema {

std::unique_ptr<Schema> ReadSchemas(std::vector<std::string> const& files, SchemaFiles const& locations,
                                    Diagnostics& diagnostics, std::vector<std::string>* inputs) {
    ParserLibrary const library;
    SchemaSet set(locations, diagnostics);
    for (std::string const& file : files)
        set.Add(file);
    set.Close();
    if (inputs != nullptr)
        *inputs = set.GetFiles();
    if (!diagnostics.HasErrors())
        CheckLimits(set, diagnostics);
    if (!diagnostics.HasErrors())
        CheckSchemaSet(set, diagnostics);
    if (diagnostics.HasErrors())
        return nullptr;
    auto schema = std::make_unique<Schema>();
    schema->targetNamespaces = set.GetTargetNamespaces();
    Resolver(set, *schema, diagnostics).ResolveAll();
    if (diagnostics.HasErrors())
        return nullptr;
    return schema;
}

void ReadCatalogs(std::vector<std::string> const& files, SchemaFiles& locations, Diagnostics& diagnostics) {
    ParserLibrary const library;
    for (std::string const& file : files)
        locations.AddCatalog(file, diagnostics);
}

} // namespace ZvXmlLib16::schema
