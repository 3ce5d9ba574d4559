#include "GeneratorOptions.h"

#include "CommandLine.h"
#include "schema/diagnostics/Diagnostics.h"
#include "schema/naming/ReservedNames.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>

namespace zvxml {

namespace {

constexpr unsigned kMostParts = 1000;

std::pair<std::string, std::string> SplitAtEquals(char const* option, std::string const& text) {
    std::size_t const equals = text.rfind('=');
    if (equals == std::string::npos || equals + 1 == text.size())
        throw UsageError(std::string(option) + " takes URI=VALUE, not '" + text + "'");
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
        {"--namespace", "URI=a::b", "the C++ namespace for that of a schema",
         [](Options& o, Text const& v) {
             auto const [uri, name] = SplitAtEquals("--namespace", v);
             if (!IsNamespace(name))
                 throw UsageError("--namespace: '" + name + "' is no free name for a namespace of C++");
             o.namespaces[uri] = name;
         }},
        {"--location", "FROM=FILE", "where a schema lies: FROM is a URI or its namespace",
         [](Options& o, Text const& v) { o.schema.AddLocation(v); }},
        {"--catalog", "FILE", "an OASIS XML catalog that says where schemas lie",
         [](Options& o, Text const& v) { o.schema.catalogs.push_back(v); }},
        {"--only", "NAME...", "these global elements and types, with what they need",
         [](Options& o, Text const& v) { o.only.push_back(v); }},
        {"--extern", "URI=HEADER", "a namespace that was generated before, to that header",
         [](Options& o, Text const& v) { o.externs.push_back(SplitAtEquals("--extern", v)); }},
        {"--parts", "N", "spread the code over N source files (1)",
         [](Options& o, Text const& v) { o.parts = ParseParts(v); }},
        {"--names", "FILE", "take names from this table", [](Options& o, Text const& v) { o.namesFile = v; }},
        {"--lock-names", nullptr, "write all names to that table, so that they stay",
         [](Options& o, Text const&) { o.locksNames = true; }},
        {"--check", nullptr, "write nothing; status 1 if files would change",
         [](Options& o, Text const&) { o.checks = true; }},
        {"--list-outputs", nullptr, "write nothing; print the names of the files",
         [](Options& o, Text const&) { o.listsOutputs = true; }},
        {"--dump-model", nullptr, "write nothing; print what becomes of the schema",
         [](Options& o, Text const&) { o.dumpsModel = true; }},
        {"--depfile", "FILE", "write what was read, for make and ninja",
         [](Options& o, Text const& v) { o.dependencyFile = v; }},
        {"--depfile-target", "FILE", "what depends on it (the header)",
         [](Options& o, Text const& v) { o.dependencyTarget = v; }},
        {"--sample", "DOCUMENT", "new: the document that the project begins with",
         [](Options& o, Text const& v) { o.sample = v; }},
    };
    return table;
}

bool IsWarning(std::string const& name) {
    using ZvXmlLib16::schema::kWarningNames;
    return std::find(std::begin(kWarningNames), std::end(kWarningNames), name) != std::end(kWarningNames);
}

std::string WarningNames() {
    std::string names;
    for (std::string_view const name : ZvXmlLib16::schema::kWarningNames)
        names += (names.empty() ? "" : ", ") + std::string(name);
    return names;
}

// -Wno-NAME, -Werror, -Werror=NAME. False for another argument.
bool TakeWarningOption(std::string const& argument, GeneratorOptions& options) {
    if (argument == "-Werror") {
        options.errors.insert(std::string());
        return true;
    }
    bool const isError = argument.compare(0, 8, "-Werror=") == 0;
    if (!isError && argument.compare(0, 5, "-Wno-") != 0)
        return false;
    std::string const name = argument.substr(isError ? 8 : 5);
    if (!IsWarning(name))
        throw UsageError(argument + ": there is no such warning; there are " + WarningNames());
    (isError ? options.errors : options.silenced).insert(name);
    return true;
}

// Whether it can be one more name behind --only, and not a schema.
bool IsMoreOnly(std::string const& argument) {
    std::error_code ignored;
    return argument[0] == '{' || (argument[0] != '-' && argument.find_first_of("./\\") == std::string::npos &&
                                  !std::filesystem::exists(argument, ignored));
}

} // namespace

std::string GeneratorOptions::Stem() const {
    return name.empty() && !schema.files.empty() ? std::filesystem::path(schema.files.front()).stem().string()
                                                 : name;
}

GeneratorOptions ReadGeneratorOptions(std::vector<std::string> const& arguments) {
    GeneratorOptions options;
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        bool const isOnly = arguments[i].compare(0, 6, "--only") == 0;
        if (!TakeWarningOption(arguments[i], options))
            rest.push_back(arguments[i]);
        if (arguments[i] == "--only" && i + 1 < arguments.size())
            rest.push_back(arguments[++i]);
        while (isOnly && i + 1 < arguments.size() && !arguments[i + 1].empty() &&
               IsMoreOnly(arguments[i + 1]))
            rest.push_back("--only=" + arguments[++i]);
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
           "Makes C++ classes of XML schemas; with `new` a project that builds and runs.\n" +
           OptionsHelp(OptionTable()) +
           "  -Werror[=NAME], -Wno-NAME   warnings as errors, or left out\n"
           "Status: 0, 1 for a bad schema, 2 for a bad command line, 3 for files that fail.\n";
}

} // namespace zvxml
