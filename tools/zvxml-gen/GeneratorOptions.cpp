#include "GeneratorOptions.h"

#include "CommandLine.h"
#include "schema/naming/ReservedNames.h"

#include <algorithm>
#include <filesystem>

namespace zvxml {

namespace {

constexpr unsigned kMostParts = 1000;

std::pair<std::string, std::string> SplitAtEquals(char const* option, std::string const& text) {
    std::size_t const equals = text.rfind('=');
    if (equals == std::string::npos || equals + 1 == text.size())
        throw UsageError(std::string(option) + " takes URI=NAME, not '" + text + "'");
    return {text.substr(0, equals), text.substr(equals + 1)};
}

// a::b, of parts that are free names.
bool IsNamespace(std::string const& name) {
    using namespace ZvXmlLib16::schema;
    for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + 2) {
        end = name.find("::", at);
        std::string const part = name.substr(at, end == std::string::npos ? end : end - at);
        if (IsReserved(part) || (at == 0 && IsGlobal(part)))
            return false;
    }
    bool isStart = true;
    for (std::size_t i = 0; i < name.size(); ++i) {
        char const c = name[i];
        bool const isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
        if (c == ':' && !isStart && i + 2 < name.size() && name[i + 1] == ':') {
            isStart = true;
            ++i;
        } else if (isLetter || (!isStart && c >= '0' && c <= '9')) {
            isStart = false;
        } else {
            return false;
        }
    }
    return !isStart;
}

unsigned ParseParts(std::string const& text) {
    bool const isNumber =
        !text.empty() && text.size() <= 4 && text.find_first_not_of("0123456789") == std::string::npos;
    unsigned const parts = isNumber ? static_cast<unsigned>(std::stoul(text)) : 0;
    if (parts == 0 || parts > kMostParts)
        throw UsageError("--parts takes a number from 1 to " + std::to_string(kMostParts));
    return parts;
}

std::vector<Option<GeneratorOptions>> const& OptionTable() {
    using Options = GeneratorOptions;
    using Text = std::string;
    static std::vector<Option<Options>> const table = {
        {"--out", "DIR", "the folder to write to (the current one)",
         [](Options& o, Text const& v) { o.folder = v; }},
        {"--name", "STEM", "the name of the files (that of the first schema)",
         [](Options& o, Text const& v) { o.name = v; }},
        {"--namespace", "URI=a::b", "\nthe C++ namespace for that of a schema",
         [](Options& o, Text const& v) {
             auto const [uri, name] = SplitAtEquals("--namespace", v);
             if (!IsNamespace(name))
                 throw UsageError("--namespace: '" + name + "' is no free name for a namespace of C++");
             o.namespaces[uri] = name;
         }},
        {"--location", "FROM=FILE",
         "\nwhere the schema FROM lies: a URI, a location as a schema\nnames it, or a namespace",
         [](Options& o, Text const& v) { o.schema.AddLocation(v); }},
        {"--catalog", "FILE", "an OASIS XML catalog that says where schemas lie",
         [](Options& o, Text const& v) { o.schema.catalogs.push_back(v); }},
        {"--parts", "N", "spread the code over N source files (1)",
         [](Options& o, Text const& v) { o.parts = ParseParts(v); }},
        {"--names", "FILE", "take names from this table", [](Options& o, Text const& v) { o.namesFile = v; }},
        {"--lock-names", nullptr, "write all names to that table, so that they stay",
         [](Options& o, Text const&) { o.locksNames = true; }},
        {"--check", nullptr, "write nothing; status 1 if the files would change",
         [](Options& o, Text const&) { o.checks = true; }},
        {"--list-outputs", nullptr, "write nothing; print the names of the files",
         [](Options& o, Text const&) { o.listsOutputs = true; }},
        {"--dump-model", nullptr, "write nothing; print what becomes of the schema",
         [](Options& o, Text const&) { o.dumpsModel = true; }},
        {"--depfile", "FILE", "write the schemas that were read, for make and ninja",
         [](Options& o, Text const& v) { o.dependencyFile = v; }},
        {"--depfile-target", "FILE", "\nwhat depends on them, in place of the header",
         [](Options& o, Text const& v) { o.dependencyTarget = v; }},
    };
    return table;
}

// -Wno-NAME, -Werror, -Werror=NAME. False for another argument.
bool TakeWarningOption(std::string const& argument, GeneratorOptions& options) {
    if (argument == "-Werror")
        options.errors.insert(std::string());
    else if (argument.compare(0, 8, "-Werror=") == 0)
        options.errors.insert(argument.substr(8));
    else if (argument.compare(0, 5, "-Wno-") == 0)
        options.silenced.insert(argument.substr(5));
    else
        return false;
    return true;
}

} // namespace

std::string GeneratorOptions::Stem() const {
    return name.empty() && !schema.files.empty() ? std::filesystem::path(schema.files.front()).stem().string()
                                                 : name;
}

GeneratorOptions ReadGeneratorOptions(std::vector<std::string> const& arguments) {
    GeneratorOptions options;
    std::vector<std::string> rest;
    for (std::string const& argument : arguments) {
        if (!TakeWarningOption(argument, options))
            rest.push_back(argument);
    }
    options.schema.files = ReadArguments(rest, OptionTable(), options);
    if (options.schema.files.empty())
        throw UsageError("no schema");
    if (options.locksNames && options.namesFile.empty())
        throw UsageError("--lock-names needs --names FILE");
    return options;
}

std::string GeneratorHelp() {
    return "Usage: zvxml-gen [OPTION]... SCHEMA...\n"
           "       zvxml-gen new DIR [OPTION]... SCHEMA...\n"
           "Makes C++ classes from XML schemas: STEM.h, STEM-fwd.h and STEM-1.cpp. With `new` a\n"
           "project that builds and runs. Nothing is fetched from a network.\n\n" +
           OptionsHelp(OptionTable()) +
           "  -Werror[=NAME]   warnings, or those of this name, are errors\n"
           "  -Wno-NAME        no warnings of this name\n"
           "\nExit status: 0 for success, 1 for a schema that cannot be used, 2 for a command line that\n"
           "makes no sense, 3 for a file that cannot be written.\n";
}

} // namespace zvxml
