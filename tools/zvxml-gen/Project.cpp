#include "Project.h"

#include "Errors.h"
#include "OutputFiles.h"

#include "schema/emit/CppText.h"
#include "schema/emit/Emitter.h"
#include "schema/frontend/SchemaReader.h"
#include "schema/mapping/Mapping.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

using namespace ZvXmlLib16::schema;

namespace zvxml {

namespace {

std::string CMakeText(std::string const& name, GeneratorOptions const& options) {
    std::string sources;
    for (std::string const& output : OutputNames(options.Stem(), options.parts))
        sources += " generated/" + output;
    return "cmake_minimum_required(VERSION 3.23)\nproject(" + name +
           " LANGUAGES CXX)\n\nif(NOT CMAKE_BUILD_TYPE)\n    set(CMAKE_BUILD_TYPE Release)\nendif()\n"
           "find_package(zvxmllib REQUIRED)\n\n"
           "# The classes in generated/ were made by zvxml-gen; make them anew when the schema changes.\n"
           "add_executable(" +
           name + " main.cpp" + sources + ")\ntarget_include_directories(" + name +
           " PRIVATE generated)\ntarget_link_libraries(" + name + " PRIVATE zvxmllib::generated)\n";
}

std::string ClassOf(Mapping const& mapping, DocumentPlan const& document) {
    if (document.objectClass == ZvXmlLib16::grammar::kNone)
        return "ZvXmlLib16::generated::CTypedObject";
    ClassPlan const& plan = mapping.GetClasses()[document.objectClass];
    return plan.ns + "::" + plan.name;
}

// Tries each kind of document that the schema has.
std::string MainText(Mapping const& mapping, std::string const& stem) {
    std::string text =
        "// Reads a document, prints what it holds, and writes it back.\n#include \"" + stem +
        ".h\"\n\n#include <cstdio>\n#include <iostream>\n#include <string>\n\nnamespace {\n\n"
        "void Print(ZvXmlLib16::generated::CTypedObject const& object, std::string const& indent) {\n"
        "    for (auto const& attribute : object.AllAttributes())\n"
        "        std::cout << indent << '@' << (attribute.row != nullptr ? attribute.row->name : "
        "attribute.name.c_str()) << \" = \" << attribute.value << '\\n';\n"
        "    for (std::size_t i = 0; i < object.ContentNodes().size(); ++i) {\n"
        "        auto const& node = object.ContentNodes()[i];\n"
        "        auto const* const child = object.ChildAt(i);\n"
        "        std::cout << indent << object.NameAt(i);\n"
        "        if (child == nullptr) {\n            std::cout << \" = \" << node.text << '\\n';\n"
        "            continue;\n        }\n        std::cout << '\\n';\n"
        "        Print(*child, indent + \"  \");\n    }\n"
        "    if (!object.ContentText().empty())\n        std::cout << indent << object.ContentText() << "
        "'\\n';\n}\n\n"
        "} // namespace\n\nint main(int argc, char** argv) {\n"
        "    if (argc < 2) {\n        std::cerr << \"Usage: \" << argv[0] << \" DOCUMENT [OUTPUT]\\n\";\n"
        "        return 2;\n    }\n    try {\n"
        "        auto const object = ZvXmlLib16::generated::ReadFile(" +
        mapping.GetHomeNamespace() + "::" + Identifier(stem) +
        "Schema(),\n            ZvXmlLib16::grammar::kNone, argv[1], "
        "ZvXmlLib16::generated::StrictContext());\n";
    for (DocumentPlan const& document : mapping.GetDocuments()) {
        if (document.objectClass == ZvXmlLib16::grammar::kNone)
            continue;
        text += "        // " + document.ns + "::Read" + document.name + " gives " +
                ClassOf(mapping, document) + " for <" + document.xmlName + ">.\n";
        break;
    }
    return text +
           "        Print(*object, \"\");\n        if (argc > 2)\n"
           "            object->ToXmlFile(argv[2], true, false, ZvXmlLib16::XmlEncoding_UTF8, "
           "ZvXmlLib16::EOLType_LF,\n"
           "                ZvXmlLib16::generated::StrictContext(), ZvXmlLib16::CompressionType_None);\n"
           "        return 0;\n"
           "    } catch (ZvXmlLib16::CZvException const& e) {\n        std::cerr << argv[1] << \": \" << "
           "e.GetFullMessage() << '\\n';\n        return 1;\n    }\n}\n";
}

} // namespace

int MakeProject(std::vector<std::string> const& arguments, int (*generate)(GeneratorOptions const& options)) {
    if (arguments.empty() || arguments[0].empty() || arguments[0][0] == '-')
        throw UsageError("new takes a folder and a schema");
    std::filesystem::path const folder(arguments[0]);
    std::error_code failure;
    if (std::filesystem::exists(folder, failure) && !std::filesystem::is_empty(folder, failure))
        throw FileError(folder.string(), "the folder is not empty");
    GeneratorOptions options = ReadGeneratorOptions({arguments.begin() + 1, arguments.end()});
    options.folder = (folder / "generated").string();
    int const status = generate(options);
    if (status != kExitSuccess)
        return status;
    Diagnostics told;
    SchemaFiles places;
    for (auto const& [from, file] : options.schema.locations)
        places.Map(from, file);
    ReadCatalogs(options.schema.catalogs, places, told);
    std::unique_ptr<Schema> const schema = ReadSchemas(options.schema.files, places, told);
    NameTable names;
    ReadNames(options, names, told);
    Mapping const mapping(*schema, options.namespaces, options.Stem(), names, told);
    std::string const name = Identifier(std::filesystem::absolute(folder).filename().string());
    WriteFiles(
        {{"CMakeLists.txt", CMakeText(name, options)}, {"main.cpp", MainText(mapping, options.Stem())}},
        folder.string());
    std::printf("Made %s. Build and run it:\n  cmake -S %s -B %s/build && cmake --build %s/build\n  "
                "%s/build/%s DOCUMENT\n",
                folder.string().c_str(), folder.string().c_str(), folder.string().c_str(),
                folder.string().c_str(), folder.string().c_str(), name.c_str());
    return kExitSuccess;
}

} // namespace zvxml
