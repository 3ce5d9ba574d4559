// zvxml-gen, the schema compiler: from XML schemas to C++ classes.
#include "Compilation.h"
#include "GeneratorOptions.h"
#include "Project.h"

#include "CommandLine.h"
#include "Errors.h"
#include "OutputFiles.h"

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

int Generate(GeneratorOptions const& options) {
    if (!options.sample.empty())
        throw UsageError("--sample is for new");
    if (options.listsOutputs) {
        for (std::string const& name : OutputNames(options.Stem(), options.parts))
            std::printf("%s\n", InFolder(options.folder, name).c_str());
        return kExitSuccess;
    }
    Compilation compilation;
    if (!Compile(options, compilation))
        return kExitFailure;
    if (options.dumpsModel) {
        std::fputs(compilation.mapping->Dump().c_str(), stdout);
        return kExitSuccess;
    }
    std::vector<EmittedFile> files = EmitClasses(options, compilation);
    if (options.locksNames)
        files.push_back({std::filesystem::absolute(options.namesFile).string(), compilation.names.Write()});
    if (options.checks)
        return AreOnDisk(files, options.folder) ? kExitSuccess : kExitFailure;
    if (!options.dependencyFile.empty())
        files.push_back(
            {std::filesystem::absolute(options.dependencyFile).string(),
             DependencyRule(options.dependencyTarget.empty() ? InFolder(options.folder, files[0].name)
                                                             : options.dependencyTarget,
                            compilation.inputs)});
    WriteFiles(files, options.folder);
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
        return MakeProject({arguments.begin() + 1, arguments.end()});
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
