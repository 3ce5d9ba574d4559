// zvxml, the command-line tool: finds the command, and turns failures into messages and exit codes.
#include "Commands.h"
#include "Errors.h"
#include "Progress.h"

#include "zvxmllib/platform/Terminal.h"

#include <zvxmllib/ZvXmlLib.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

namespace {

using namespace zvxml;

constexpr unsigned kUtf8CodePage = 65001;
constexpr std::uint64_t kMostDecompressed = std::uint64_t{1} << 30; // a file may come from anybody

struct Command {
    char const* name;
    char const* summary;
    int (*run)(std::vector<std::string> const& arguments, Progress& progress);
    std::string (*help)();
};
constexpr Command kCommands[] = {
    {"convert", "read a document and write it in another form", &Convert, &ConvertHelp},
    {"inspect", "tell what a document is, and its size in each form", &Inspect, &InspectHelp},
#ifdef ZVXML_HAS_SCHEMAS
    {"validate", "test documents by XML schemas", &Validate, &ValidateHelp},
#endif
};

Command const& FindCommand(std::string const& name) {
    for (Command const& command : kCommands)
        if (name == command.name)
            return command;
    throw UsageError((name[0] == '-' ? "unknown option '" : "unknown command '") + name + "'");
}

bool IsHelp(std::string const& argument) {
    return argument == "--help" || argument == "-h";
}

// Help and version go to standard output and succeed. Options after "--" are operands.
bool HasHelpOption(std::vector<std::string> const& arguments) {
    for (std::string const& argument : arguments) {
        if (argument == "--")
            return false;
        if (IsHelp(argument))
            return true;
    }
    return false;
}

int Print(std::string const& text) {
    std::fputs(text.c_str(), stdout);
    return kExitSuccess;
}

std::string Help() {
    std::string text = "Usage: zvxml COMMAND [OPTION]... FILE...\n"
                       "Converts, inspects and validates XML documents.\n\nCommands:\n";
    for (Command const& command : kCommands)
        text += "  " + (command.name + std::string(10, ' ')).substr(0, 12) + command.summary + '\n';
    return text + "\nOptions:\n"
                  "  --help      this text, or that of a command: zvxml COMMAND --help\n"
                  "  --version   the version\n\n"
                  "Exit status: 0 for success, 1 if a file cannot be read, converted or written,\n"
                  "2 for a command line that makes no sense, 3 for a schema that cannot be used.\n";
}

int Run(std::vector<std::string> const& arguments) {
    if (arguments.empty())
        throw UsageError("no command");
    if (IsHelp(arguments[0]))
        return Print(Help());
    if (arguments[0] == "--version" || arguments[0] == "-V")
        return Print("zvxml " ZVXML_VERSION "\n");
    Command const& command = FindCommand(arguments[0]);
    std::vector<std::string> const rest(arguments.begin() + 1, arguments.end());
    if (HasHelpOption(rest))
        return Print(command.help());

    ZvXmlLib16::SetLocalCharEncoding(kUtf8CodePage);
    ZvXmlLib16::SetDecompressionLimit(kMostDecompressed);
    ZvXmlLib16::SetGeneratorVersion(ZvXmlLib16::kLibraryMajorVersion, ZvXmlLib16::kLibraryMinorVersion);
    Progress progress(ZvXmlLib16::platform::IsStandardErrorTerminal());
    return command.run(rest, progress);
}

int Report(int exitCode, char const* message) {
    std::fprintf(stderr, "%s\n", message);
    return exitCode;
}

} // namespace

int main(int argc, char** argv) {
    try {
        int const status = Run(std::vector<std::string>(argv + 1, argv + argc));
        if (std::fflush(stdout) != 0)
            throw FileError("standard output", std::strerror(errno));
        return status;
    } catch (UsageError const& e) {
        std::fprintf(stderr, "zvxml: %s\n", e.what());
        return Report(kExitUsage, "Try 'zvxml --help' for more information.");
    } catch (FileError const& e) {
        return Report(kExitFailure, e.what());
    } catch (SchemaError const& e) {
        return Report(kExitSchema, (std::string("zvxml: ") + e.what()).c_str());
    } catch (std::bad_alloc const&) {
        return Report(kExitFailure, "zvxml: out of memory");
    } catch (std::exception const& e) {
        std::fprintf(stderr, "zvxml: ");
        return Report(kExitFailure, e.what());
    }
}
