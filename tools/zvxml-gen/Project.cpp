#include "Project.h"

#include "Compilation.h"
#include "Errors.h"
#include "OutputFiles.h"
#include "SchemaCopies.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/generated/Documents.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <system_error>

using namespace ZvXmlLib16::schema;
namespace generated = ZvXmlLib16::generated;
using ZvXmlLib16::grammar::kNone;

namespace zvxml {

namespace {

constexpr char const* kNamesFile = "names.txt";

// The text with what stands for each $name$.
std::string Fill(std::string text, std::vector<std::pair<std::string, std::string>> const& values) {
    for (auto const& [name, value] : values) {
        std::string const mark = "$" + name + "$";
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += value.size())
            text.replace(at, mark.size(), value);
    }
    return text;
}

// CMake keeps some names of targets for itself.
std::string TargetName(std::filesystem::path const& folder) {
    std::filesystem::path const whole = std::filesystem::absolute(folder).lexically_normal();
    std::string name = (whole.has_filename() ? whole : whole.parent_path()).filename().string();
    for (char& c : name) {
        bool const isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (!isPlain && c != '-' && c != '_')
            c = '_';
    }
    constexpr char const* kTaken[] = {"",     "all",       "ALL_BUILD",  "clean",         "edit_cache",
                                      "help", "install",   "INSTALL",    "rebuild_cache", "package",
                                      "test", "RUN_TESTS", "preinstall", "ZERO_CHECK",    "zvxmllib"};
    bool const isTaken = std::find(std::begin(kTaken), std::end(kTaken), name) != std::end(kTaken);
    return isTaken || name[0] == '-' ? "program" + name : name;
}

// As an argument of a command of CMake.
std::string ForCMake(std::string const& text) {
    std::string quoted = "\"";
    for (char const c : text)
        quoted += (c == '"' || c == '\\' || c == '$' ? "\\" : "") + std::string(1, c);
    return quoted + "\"";
}

std::vector<std::string> ForCMake(std::vector<std::string> texts) {
    for (std::string& text : texts)
        text = ForCMake(text);
    return texts;
}

// A keyword of zvxmllib_generate with the arguments behind it; nothing where there are none.
std::string Keyword(char const* name, std::vector<std::string> const& arguments) {
    std::string text = arguments.empty() ? "" : std::string("\n    ") + name;
    for (std::string const& argument : arguments)
        text += (arguments.size() == 1 ? " " : "\n        ") + argument;
    return text;
}

std::vector<std::string> OtherOptions(GeneratorOptions const& options) {
    std::vector<std::string> others;
    if (!options.namesFile.empty())
        others = {"--names", "\"${CMAKE_CURRENT_SOURCE_DIR}/" + std::string(kNamesFile) + "\""};
    for (std::string const& catalog : options.schema.catalogs)
        others.insert(others.end(),
                      {"--catalog", ForCMake(std::filesystem::absolute(catalog).generic_string())});
    for (std::string const& name : options.only)
        others.push_back(ForCMake("--only=" + name));
    for (std::string const& name : options.silenced)
        others.push_back("-Wno-" + name);
    for (std::string const& name : options.errors)
        others.push_back(name.empty() ? "-Werror" : "-Werror=" + name);
    return others;
}

std::string CMakeText(std::string const& target, GeneratorOptions const& options,
                      SchemaCopies const& copies) {
    std::vector<std::string> schemas;
    for (std::string const& file : options.schema.files)
        schemas.push_back(copies.PlaceOf(file));
    std::vector<std::string> namespaces;
    for (auto const& [uri, name] : options.namespaces)
        namespaces.push_back(uri + "=" + name);
    std::vector<std::string> locations;
    for (auto const& [from, file] : options.schema.locations)
        locations.push_back(from + "=" + copies.PlaceOf(file));
    std::vector<std::string> externs;
    for (auto const& [uri, header] : options.externs)
        externs.push_back(uri + "=" + header);
    std::vector<std::string> const parts(options.parts == 1 ? 0 : 1, std::to_string(options.parts));
    return Fill(
        R"(cmake_minimum_required(VERSION 3.23)
project($target$ LANGUAGES CXX)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()
find_package(zvxmllib REQUIRED)

add_executable($target$ main.cpp)
# The classes are made when the program is built, and made anew when a schema changes.
zvxmllib_generate(TARGET $target$ NAME $stem$$keywords$)
)",
        {{"target", target},
         {"stem", ForCMake(options.Stem())},
         {"keywords", Keyword("SCHEMAS", ForCMake(schemas)) + Keyword("NAMESPACES", ForCMake(namespaces)) +
                          Keyword("LOCATIONS", ForCMake(locations)) + Keyword("EXTERNS", ForCMake(externs)) +
                          Keyword("PARTS", parts) + Keyword("OPTIONS", OtherOptions(options))}});
}

constexpr char const* kMain = R"(// Reads a document, prints what it holds, and writes it again.
#include "$stem$.h"

#include <iostream>
#include <string>

namespace {

void Print(ZvXmlLib16::generated::CTypedObject const& object, std::string const& indent) {
    for (auto const& attribute : object.AllAttributes())
        std::cout << indent << '@' << (attribute.row != nullptr ? attribute.row->name : attribute.name.c_str())
                  << " = " << attribute.value << '\n';
    for (std::size_t i = 0; i < object.ContentNodes().size(); ++i) {
        auto const* const child = object.ChildAt(i);
        std::cout << indent << object.NameAt(i);
        if (child == nullptr) {
            std::cout << " = " << object.ContentNodes()[i].text << '\n';
            continue;
        }
        std::cout << '\n';
        Print(*child, indent + "  ");
    }
    if (!object.ContentText().empty())
        std::cout << indent << object.ContentText() << '\n';
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "Usage: " << argv[0] << " DOCUMENT [OUTPUT]\n";
        return 2;
    }
    std::string const file = argv[1];
    // The ending decides on the format: .json, .fi, or XML.
    std::string const output = argc > 2 ? argv[2] : "copy-of-" + file.substr(file.find_last_of("/\\") + 1);
    try {
        $read$
        Print(*document, "");
        $write$
        std::cout << "Written to " << output << '\n';
        return 0;
    } catch (ZvXmlLib16::CZvException const& e) {
        std::cerr << file << ": " << e.GetFullMessage() << '\n';
        return 1;
    }
}
)";

// For documents of one kind, or of all that the schema has.
std::string MainText(Mapping const& mapping, std::string const& stem, DocumentPlan const* document) {
    std::string read = "auto const document = ZvXmlLib16::generated::ReadFile(" + mapping.GetHomeNamespace() +
                       "::" + Identifier(stem) +
                       "Schema(),\n            ZvXmlLib16::grammar::kNone, file, "
                       "ZvXmlLib16::generated::StrictContext());";
    std::string write = "ZvXmlLib16::generated::WriteFile(*document, document->DeclarationId(), output,\n"
                        "            ZvXmlLib16::generated::StrictContext());";
    if (document != nullptr) {
        read = "auto const document = " + document->ns + "::Read" + document->name + "(file);";
        write = document->ns + "::Write" + document->name + "(*document, output);";
        if (document->objectClass != kNone) {
            ClassPlan const& plan = mapping.GetClasses()[document->objectClass];
            read = "ZvXmlLib16::CSmartPtr<" + plan.ns + "::" + plan.name + "> const" + read.substr(10);
        }
    }
    return Fill(kMain, {{"stem", stem}, {"read", read}, {"write", write}});
}

// As one word of a command.
std::string ForShell(std::string const& text) {
    if (text.find_first_of(" '\"$&;()<>|*?\\`") == std::string::npos)
        return text;
    std::string quoted = "'";
    for (char const c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// The element that the sample is, which has to be valid.
std::uint32_t RootOf(Schema const& schema, std::string const& file, std::string const& bytes) {
    try {
        generated::BoundSchema const bound(schema.GetRows());
        return generated::ReadBytes(bound, kNone, reinterpret_cast<unsigned char const*>(bytes.data()),
                                    bytes.size(), generated::StrictContext())
            ->DeclarationId();
    } catch (ZvXmlLib16::CZvException const& e) {
        throw FileError(file, e.GetFullMessage());
    }
}

// What main.cpp reads: the sample's kind, or the only one; null for all kinds.
DocumentPlan const* FindDocument(Mapping const& mapping, std::uint32_t root) {
    std::vector<DocumentPlan> const& documents = mapping.GetDocuments();
    auto const found = std::find_if(documents.begin(), documents.end(), [root](DocumentPlan const& document) {
        return document.element == root;
    });
    if (found != documents.end())
        return &*found;
    return root == kNone && documents.size() == 1 ? &documents.front() : nullptr;
}

} // namespace

int MakeProject(std::vector<std::string> const& arguments) {
    if (arguments.empty() || arguments[0].empty() || arguments[0][0] == '-')
        throw UsageError("new takes a folder and a schema");
    std::string const folder = arguments[0];
    std::error_code failure;
    if (std::filesystem::exists(folder, failure) &&
        !(std::filesystem::is_directory(folder) && std::filesystem::is_empty(folder)))
        throw FileError(folder,
                        std::filesystem::is_directory(folder) ? "the folder is not empty" : "is no folder");
    GeneratorOptions const options = ReadGeneratorOptions({arguments.begin() + 1, arguments.end()});
    if (options.folder != "." || options.checks || options.listsOutputs || options.dumpsModel)
        throw UsageError("new takes no --out, --check, --list-outputs or --dump-model");
    Compilation compilation;
    if (!Compile(options, compilation))
        return kExitFailure;
    EmitClasses(options, compilation); // refuses what the build would refuse
    SchemaCopies const copies(compilation.inputs);
    std::vector<EmittedFile> files = copies.Read();
    std::uint32_t root = kNone;
    std::string sample = "DOCUMENT";
    if (!options.sample.empty()) {
        std::string const bytes = ReadWholeFile(options.sample, "the sample cannot be read");
        root = RootOf(*compilation.schema, options.sample, bytes);
        files.push_back({std::filesystem::path(options.sample).filename().string(), bytes});
        sample = InFolder(folder, files.back().name);
    }
    std::string const target = TargetName(folder);
    files.push_back({"CMakeLists.txt", CMakeText(target, options, copies)});
    files.push_back({"main.cpp", MainText(*compilation.mapping, options.Stem(),
                                          FindDocument(*compilation.mapping, root))});
    if (options.locksNames)
        files.push_back({std::filesystem::absolute(options.namesFile).string(), compilation.names.Write()});
    if (!options.namesFile.empty())
        files.push_back({kNamesFile, compilation.names.Write()});
    WriteFiles(files, folder);
    std::string const build = ForShell((std::filesystem::path(folder) / "build").string());
    std::string const program = ForShell((std::filesystem::path(folder) / "build" / target).string());
    std::printf("Made %s. Build and run it:\n  cmake -S %s -B %s && cmake --build %s\n  %s %s\n",
                folder.c_str(), ForShell(folder).c_str(), build.c_str(), build.c_str(), program.c_str(),
                ForShell(sample).c_str());
    return kExitSuccess;
}

} // namespace zvxml
