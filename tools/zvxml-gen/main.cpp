// zvxml-gen, the schema compiler: from XML schemas to C++ classes.
#include "GeneratorOptions.h"
#include "Project.h"

#include "CommandLine.h"
#include "Errors.h"
#include "OutputFiles.h"
#include "SchemaOptions.h"

#include "schema/emit/Emitter.h"
#include "schema/frontend/SchemaReader.h"
#include "schema/mapping/Mapping.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

using namespace ZvXmlLib16::schema;

namespace zvxml {

namespace {

int Report(int status, std::string const& message) {
    std::fprintf(stderr, "zvxml-gen: %s\n", message.c_str());
    return status;
}

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

int Generate(GeneratorOptions const& options) {
    if (options.listsOutputs) {
        for (std::string const& name : OutputNames(options.Stem(), options.parts))
            std::printf("%s\n", InFolder(options.folder, name).c_str());
        return kExitSuccess;
    }
    Diagnostics diagnostics;
    SchemaFiles places;
    for (auto const& [from, file] : options.schema.locations)
        places.Map(from, file);
    ReadCatalogs(options.schema.catalogs, places, diagnostics);
    std::vector<std::string> inputs;
    std::unique_ptr<Schema> const schema =
        diagnostics.HasErrors() ? nullptr : ReadSchemas(options.schema.files, places, diagnostics, &inputs);
    if (schema == nullptr) {
        Tell(diagnostics, options);
        return kExitFailure;
    }
    NameTable names;
    ReadNames(options, names, diagnostics);
    Mapping const mapping(*schema, options.namespaces, options.Stem(), names, diagnostics);
    if (!Tell(diagnostics, options))
        return kExitFailure;
    if (options.dumpsModel) {
        std::fputs(mapping.Dump().c_str(), stdout);
        return kExitSuccess;
    }
    std::vector<EmittedFile> files = Emit(*schema, mapping, options.Stem(), options.parts);
    if (options.locksNames)
        files.push_back({std::filesystem::absolute(options.namesFile).string(), names.Write()});
    if (options.checks)
        return AreOnDisk(files, options.folder) ? kExitSuccess : kExitFailure;
    WriteFiles(files, options.folder);
    if (!options.dependencyFile.empty())
        WriteDependencies(options.dependencyFile,
                          options.dependencyTarget.empty() ? InFolder(options.folder, files[0].name)
                                                           : options.dependencyTarget,
                          inputs);
    return kExitSuccess;
}

int Run(std::vector<std::string> const& arguments) {
    if (arguments.empty())
        throw UsageError("no schema");
    if (arguments[0] == "--version") {
        std::puts("zvxml-gen " ZVXML_VERSION);
        return kExitSuccess;
    }
    for (std::string const& argument : arguments) {
        if (argument == "--")
            break;
        if (argument == "--help" || argument == "-h") {
            std::fputs(GeneratorHelp().c_str(), stdout);
            return kExitSuccess;
        }
    }
    if (arguments[0] == "new")
        return MakeProject({arguments.begin() + 1, arguments.end()}, &Generate);
    return Generate(ReadGeneratorOptions(arguments));
}

} // namespace

} // namespace zvxml

int main(int argc, char** argv) {
    using namespace zvxml;
    try {
        int const status = Run(std::vector<std::string>(argv + 1, argv + argc));
        if (std::fflush(stdout) != 0)
            throw FileError("standard output", std::strerror(errno));
        return status;
    } catch (UsageError const& e) {
        Report(kExitUsage, e.what());
        std::fprintf(stderr, "Try 'zvxml-gen --help' for more information.\n");
        return kExitUsage;
    } catch (FileError const& e) {
        return Report(kExitSchema, e.what());
    } catch (ZvXmlLib16::CZvException const& e) {
        return Report(kExitFailure, e.GetFullMessage());
    } catch (std::bad_alloc const&) {
        return Report(kExitFailure, "out of memory");
    } catch (std::exception const& e) {
        return Report(kExitFailure, e.what());
    }
}
