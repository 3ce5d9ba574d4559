// zvxml, the command-line tool: finds the command, and turns failures into messages and exit codes.
#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Messages.h"
#include "Progress.h"

#include "zvxmllib/platform/Terminal.h"

#include <zvxmllib/ZvXmlLib.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

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
    {"format", "indent a document without touching its content", &Format, &FormatHelp},
    {"same", "tell whether two documents hold the same", &Same, &SameHelp},
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
                       "Converts, formats, compares, inspects and validates documents: XML text, JSON and "
                       "Fast\nInfoset.\n\nCommands:\n";
    for (Command const& command : kCommands)
        text += "  " + (command.name + std::string(14, ' ')).substr(0, 16) + command.summary + '\n';
    return text + "\nOptions:\n"
                  "  --help          this text, or that of a command: zvxml help COMMAND\n"
                  "  --version       the version\n"
                  "  --color[=WHEN]  colours in messages: auto (the default, on a terminal unless\n"
                  "                  NO_COLOR is set), always or never\n\n"
                  "Exit status: 0 for success, 1 if a file cannot be read, converted or written,\n"
                  "2 for a command line that makes no sense, 3 for a schema that cannot be used.\n";
}

int PrintHelp(std::vector<std::string> const& arguments) {
    if (arguments.size() > 1)
        throw UsageError("help takes one command");
    return Print(arguments.empty() ? Help() : FindCommand(arguments[0]).help());
}

// Takes --color from wherever it stands ahead of "--".
std::vector<std::string> TakeColor(std::vector<std::string> arguments) {
    constexpr std::string_view kOption = "--color";
    for (std::size_t i = 0; i < arguments.size() && arguments[i] != "--";) {
        Argument const argument = SplitArgument(arguments[i]);
        if (argument.name != kOption) {
            ++i;
            continue;
        }
        std::string const when = argument.hasValue ? argument.value : "always";
        if (when != "auto" && when != "always" && when != "never")
            throw UsageError("--color takes auto or always or never, not '" + when + "'");
        SetColorMode(when == "auto"     ? ColorMode::kAuto
                     : when == "always" ? ColorMode::kAlways
                                        : ColorMode::kNever);
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i));
    }
    return arguments;
}

// The command is for hints.
int Run(std::vector<std::string> const& arguments, Command const*& command) {
    if (arguments.empty())
        throw UsageError("no command");
    if (IsHelp(arguments[0]))
        return Print(Help());
    if (arguments[0] == "--version" || arguments[0] == "-V")
        return Print("zvxml " ZVXML_VERSION "\n");
    std::vector<std::string> const rest(arguments.begin() + 1, arguments.end());
    if (arguments[0] == "help")
        return PrintHelp(rest);
    command = &FindCommand(arguments[0]);
    if (HasHelpOption(rest))
        return Print(command->help());

    ZvXmlLib16::SetLocalCharEncoding(kUtf8CodePage);
    ZvXmlLib16::SetDecompressionLimit(kMostDecompressed);
    ZvXmlLib16::SetGeneratorVersion(ZvXmlLib16::kLibraryMajorVersion, ZvXmlLib16::kLibraryMinorVersion);
    Progress progress(ZvXmlLib16::platform::IsStandardErrorTerminal());
    return command->run(rest, progress);
}

int Report(int exitCode, std::string const& message) {
    TellError(message);
    return exitCode;
}

} // namespace

int main(int argc, char** argv) {
    Command const* command = nullptr;
    try {
        int const status = Run(TakeColor(std::vector<std::string>(argv + 1, argv + argc)), command);
        if (std::fflush(stdout) != 0)
            throw FileError("standard output", std::strerror(errno));
        return status;
    } catch (UsageError const& e) {
        TellError(e.what());
        TellHint(command == nullptr
                     ? "Try 'zvxml --help' for more information."
                     : "Try 'zvxml help " + std::string(command->name) + "' for more information.");
        return kExitUsage;
    } catch (SchemaError const& e) {
        return Report(kExitSchema, e.what());
    } catch (std::bad_alloc const&) {
        return Report(kExitFailure, "out of memory");
    } catch (std::exception const& e) {
        return Report(kExitFailure, e.what());
    }
}
