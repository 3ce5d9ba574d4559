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
    void (*run)(std::vector<std::string> const& arguments, Progress& progress);
    std::string (*help)();
};
constexpr Command kCommands[] = {
    {"convert", "read a document and write it in another form", &Convert, &ConvertHelp},
    {"inspect", "tell what a document is, and its size in each form", &Inspect, &InspectHelp},
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

void Print(std::string const& text) {
    std::fputs(text.c_str(), stdout);
}

std::string Help() {
    std::string text = "Usage: zvxml COMMAND [OPTION]... FILE...\n"
                       "Converts and inspects XML documents.\n\nCommands:\n";
    for (Command const& command : kCommands)
        text += "  " + std::string(command.name) + "     " + command.summary + '\n';
    return text + "\nOptions:\n"
                  "  --help      this text, or that of a command: zvxml COMMAND --help\n"
                  "  --version   the version\n\n"
                  "Exit status: 0 for success, 1 if a file cannot be read, converted or written,\n"
                  "2 for a command line that makes no sense.\n";
}

void Run(std::vector<std::string> const& arguments) {
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
    command.run(rest, progress);
}

int Report(int exitCode, char const* message) {
    std::fprintf(stderr, "%s\n", message);
    return exitCode;
}

} // namespace

int main(int argc, char** argv) {
    try {
        Run(std::vector<std::string>(argv + 1, argv + argc));
        if (std::fflush(stdout) != 0)
            throw FileError("standard output", std::strerror(errno));
        return kExitSuccess;
    } catch (UsageError const& e) {
        std::fprintf(stderr, "zvxml: %s\n", e.what());
        return Report(kExitUsage, "Try 'zvxml --help' for more information.");
    } catch (FileError const& e) {
        return Report(kExitFailure, e.what());
    } catch (std::bad_alloc const&) {
        return Report(kExitFailure, "zvxml: out of memory");
    } catch (std::exception const& e) {
        std::fprintf(stderr, "zvxml: ");
        return Report(kExitFailure, e.what());
    }
}
