#include "schema/frontend/SchemaReader.h"

#include "schema/frontend/Outline.h"
#include "schema/frontend/Resolver.h"
#include "schema/frontend/SchemaCheck.h"
#include "schema/frontend/SchemaLimits.h"
#include "schema/frontend/SchemaSet.h"

namespace ZvXmlLib16::schema {

namespace {

// The documents that the schemas have for the namespaces, in the same groups.
std::vector<std::vector<std::string>> FindRoots(std::vector<std::string> const& files,
                                                SchemaFiles const& locations, Diagnostics& diagnostics,
                                                std::vector<std::vector<std::string>> const& namespaces) {
    Diagnostics quiet; // the second reading tells all
    SchemaSet set(locations, quiet);
    for (std::string const& file : files)
        set.Add(file);
    std::vector<std::vector<std::string>> roots;
    for (std::vector<std::string> const& group : namespaces) {
        roots.emplace_back();
        for (std::string const& ns : group) {
            std::size_t const size = roots.back().size();
            for (SchemaSet::Root const& root : set.GetRoots()) {
                if (root.ns == ns)
                    roots.back().insert(roots.back().end(), root.files.begin(), root.files.end());
            }
            if (roots.back().size() == size && !quiet.HasErrors())
                diagnostics.Error({}, "no schema has the namespace [" + ns + "] of --extern");
        }
    }
    return roots;
}

} // namespace

std::unique_ptr<Schema> ReadSchemas(std::vector<std::string> const& files, SchemaFiles const& locations,
                                    Diagnostics& diagnostics, std::vector<std::string>* inputs,
                                    std::vector<std::vector<std::string>> const& before) {
    ParserLibrary const library;
    SchemaSet set(locations, diagnostics);
    if (!before.empty()) {
        for (std::vector<std::string> const& group : FindRoots(files, locations, diagnostics, before))
            set.AddBefore(group);
    }
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
