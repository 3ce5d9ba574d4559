#include "Compilation.h"

#include "Errors.h"
#include "OutputFiles.h"

#include "schema/frontend/SchemaReader.h"
#include "schema/model/KeepOnly.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <utility>

using namespace ZvXmlLib16::schema;

namespace zvxml {

namespace {

// Tells the diagnostics. True if they let the run go on.
bool Tell(Diagnostics const& diagnostics, GeneratorOptions const& options) {
    bool mayGoOn = true;
    std::size_t errors = 0;
    for (Diagnostic diagnostic : diagnostics.GetSorted()) {
        if (diagnostic.severity == Severity::kWarning) {
            if (options.IsSilenced(diagnostic.name))
                continue;
            if (options.IsError(diagnostic.name))
                diagnostic.severity = Severity::kError;
        }
        mayGoOn = mayGoOn && diagnostic.severity != Severity::kError;
        if (diagnostic.severity != Severity::kError || ++errors <= kMostErrors)
            std::fprintf(stderr, "%s\n", Diagnostics::Format(diagnostic).c_str());
    }
    if (errors > kMostErrors)
        std::fprintf(stderr, "zvxml-gen: %zu more errors\n", errors - kMostErrors);
    return mayGoOn;
}

// The headers of --extern with their namespaces, in the order of the command line.
std::vector<std::pair<std::string, std::vector<std::string>>> GroupExterns(GeneratorOptions const& options) {
    std::vector<std::pair<std::string, std::vector<std::string>>> groups;
    for (auto const& [ns, header] : options.externs) {
        std::string const& wanted = header;
        auto const known = std::find_if(groups.begin(), groups.end(),
                                        [&wanted](auto const& group) { return group.first == wanted; });
        if (known == groups.end())
            groups.push_back({header, {ns}});
        else
            known->second.push_back(ns);
    }
    return groups;
}

} // namespace

bool Compile(GeneratorOptions const& options, Compilation& compilation) {
    Diagnostics diagnostics;
    SchemaFiles places;
    for (auto const& [from, file] : options.schema.locations)
        places.Map(from, file);
    ReadCatalogs(options.schema.catalogs, places, diagnostics);
    auto const externs = GroupExterns(options);
    std::vector<std::vector<std::string>> before;
    for (auto const& [header, namespaces] : externs)
        before.push_back(namespaces);
    if (!diagnostics.HasErrors())
        compilation.schema =
            ReadSchemas(options.schema.files, places, diagnostics, &compilation.inputs, before);
    if (compilation.schema == nullptr) {
        Tell(diagnostics, options);
        return false;
    }
    if (!options.only.empty()) {
        std::string const missing = KeepOnly(*compilation.schema, options.only);
        if (!missing.empty())
            throw UsageError("--only: the schema has no global element or type '" + missing + "'");
    }
    ReadNames(options, compilation.names, diagnostics);
    compilation.mapping = std::make_unique<Mapping>(*compilation.schema, options.namespaces, options.Stem(),
                                                    compilation.names, diagnostics);
    for (auto const& [header, namespaces] : externs)
        compilation.externs.push_back({header, std::filesystem::path(header).stem().string(),
                                       compilation.mapping->NamespaceFor(namespaces.front())});
    return Tell(diagnostics, options);
}

std::vector<EmittedFile> EmitClasses(GeneratorOptions const& options, Compilation const& compilation) {
    return Emit(*compilation.schema, *compilation.mapping, options.Stem(), options.parts,
                compilation.externs);
}

} // namespace zvxml
