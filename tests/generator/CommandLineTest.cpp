// The schema compiler as a program: what it writes, when, and its exit statuses.
#include "../tool/ToolRun.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr char const* kSchema =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
    "<xs:import namespace='urn:q' schemaLocation='absent.xsd'/><xs:element name='a' type='xs:int'/>"
    "<xs:element name='t'><xs:complexType><xs:sequence><xs:element ref='a' minOccurs='0'/>"
    "</xs:sequence></xs:complexType></xs:element></xs:schema>";

TEST(CommandLine, HasItsStatusAndWritesAllOrNothing) {
    struct Row {
        char const* arguments;
        int status;
        char const* told;
    } const rows[] = {
        {"--out o s.xsd", 0, ""},
        {"--out o --only a -- s.xsd", 0, ""},
        {"--out o --only=a t s.xsd", 0, ""},
        {"--out o --only b s.xsd", 2, "no global element or type 'b'"},
        {"--out o -Werror s.xsd", 1, "error: there is no schema at [absent.xsd]"},
        {"--out o -Werror=missing-schema s.xsd", 1, "error: there is no schema at [absent.xsd]"},
        {"--out o -Werror=renamed s.xsd", 0, "warning: there is no schema at [absent.xsd]"},
        {"--out o -Wno-rename s.xsd", 2,
         "-Wno-rename: there is no such warning; there are missing-schema, renamed"},
        {"--out o none.xsd", 1, "the schema cannot be read"},
        {"--out o --extern urn:x=x.h s.xsd", 1, "no schema has the namespace [urn:x]"},
        {"--out o --parts 0 s.xsd", 2, "--parts takes a number"},
        {"--out o --sample a.xml s.xsd", 2, "--sample is for new"},
        {"", 2, "no schema"},
        {"--out file s.xsd", 3, "file: "},
        {"--out file/x s.xsd", 3, "file: "},
        {"--out o --name blocked s.xsd", 3, "blocked-1.cpp: is a folder"},
        {"--out o --depfile no/d s.xsd", 3, "no/d"},
        {"--out o --names no/n --lock-names s.xsd", 3, "no/n"},
        {"new o --sample wrong.xml s.xsd", 3, "wrong.xml: There is no declaration of the element [x]."},
        {"new file s.xsd", 3, "file: is no folder"},
        {"new blocked-1.cpp s.xsd", 3, "the folder is not empty"},
    };
    for (Row const& row : rows) {
        ScratchDirectory const scratch;
        scratch.Write("s.xsd", kSchema);
        scratch.Write("wrong.xml", "<x/>");
        scratch.Write("file", "");
        fs::create_directories(scratch.Path("blocked-1.cpp/full"));
        bool const isBlocked = std::string(row.arguments).find("blocked s") != std::string::npos;
        if (isBlocked)
            fs::create_directories(scratch.Path("o/blocked-1.cpp"));
        ToolResult const result = scratch.Run(row.arguments);
        EXPECT_EQ(result.exitCode, row.status) << row.arguments << "\n" << result.err;
        EXPECT_THAT(result.err, HasSubstr(row.told)) << row.arguments;
        EXPECT_EQ(fs::exists(scratch.Path("o/s.h")), row.status == 0) << row.arguments;
        EXPECT_EQ(fs::exists(scratch.Path("o")), row.status == 0 || isBlocked) << row.arguments;
        EXPECT_FALSE(fs::exists(scratch.Path("o/blocked.h"))) << row.arguments;
    }
}

// The same bytes from anywhere; files whose text is the same stay as they are.
TEST(CommandLine, RepeatsItself) {
    ScratchDirectory const scratch;
    fs::create_directories(scratch.Path("in"));
    scratch.Write("in/s.xsd", kSchema);
    ASSERT_EQ(scratch.Run("--out one --parts 2 in/s.xsd").exitCode, 0);
    ASSERT_EQ(scratch.Run("--out two --parts 2 '" + scratch.Path("in/s.xsd") + "'").exitCode, 0);
    EXPECT_EQ(scratch.Run("--list-outputs --out one --parts 2 in/s.xsd").out,
              "one/s.h\none/s-fwd.h\none/s-1.cpp\none/s-2.cpp\n");
    for (char const* const name : {"s.h", "s-fwd.h", "s-1.cpp", "s-2.cpp"})
        EXPECT_EQ(scratch.Read(std::string("one/") + name), scratch.Read(std::string("two/") + name)) << name;
    auto const old = fs::last_write_time(scratch.Path("one/s.h")) - std::chrono::hours(1);
    for (char const* const name : {"one/s.h", "one/s-fwd.h"})
        fs::last_write_time(scratch.Path(name), old);
    EXPECT_EQ(scratch.Run("--check --out one --parts 2 in/s.xsd").exitCode, 0);
    scratch.Write("one/s.h", scratch.Read("one/s.h") + "\n");
    EXPECT_EQ(scratch.Run("--check -Wno-missing-schema --out one --parts 2 in/s.xsd").err,
              "zvxml-gen: one/s.h differs\n");
    ASSERT_EQ(scratch.Run("--out one --parts 2 in/s.xsd").exitCode, 0);
    EXPECT_EQ(scratch.Read("one/s.h"), scratch.Read("two/s.h"));
    EXPECT_EQ(fs::last_write_time(scratch.Path("one/s-fwd.h")), old);
}

// Each construct of a schema as code.
TEST(CommandLine, WritesTheGoldenTexts) {
    ToolResult const result =
        ScratchDirectory().Run("--check --out '" ZV_GOLDEN "' '" ZV_GOLDEN "/golden.xsd'");
    EXPECT_EQ(result.exitCode, 0) << result.err << "\nWrite them anew if this is meant:\n" ZV_TOOL
                                  << " --out " ZV_GOLDEN " " ZV_GOLDEN "/golden.xsd";
}

TEST(CommandLine, MakesAProjectForASample) {
    ScratchDirectory const scratch;
    scratch.Write("s.xsd", kSchema);
    scratch.Write("a.json", "{\"a\": 5}");
    ToolResult const result = scratch.Run("new 'my x' --sample a.json s.xsd");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("'my x/build/my_x' 'my x/a.json'\n"));
    EXPECT_EQ(scratch.Read("my x/a.json"), "{\"a\": 5}");
    EXPECT_THAT(scratch.Read("my x/main.cpp"), HasSubstr("auto const document = s::ReadA(file);"));
    EXPECT_THAT(scratch.Read("my x/CMakeLists.txt"),
                HasSubstr("zvxmllib_generate(TARGET my_x NAME \"s\"\n    SCHEMAS \"schemas/s.xsd\")\n"));
    EXPECT_EQ(scratch.Read("my x/schemas/s.xsd"), kSchema);
}

// What the schemas include lies beside their copies as it lay beside them, and all options come along.
TEST(CommandLine, MakesAProjectWithAllThatWasRead) {
    ScratchDirectory const scratch;
    fs::create_directories(scratch.Path("a/main"));
    fs::create_directories(scratch.Path("a/other"));
    std::string const start = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'";
    scratch.Write("a/main/s.xsd",
                  start + "><xs:include schemaLocation='../parts.xsd'/><xs:import namespace='urn:o'/>"
                          "<xs:element name='e' type='T'/><xs:element name='f'/></xs:schema>");
    scratch.Write("a/parts.xsd",
                  start + "><xs:complexType name='T'><xs:attribute name='n' type='xs:int'/></xs:complexType>"
                          "</xs:schema>");
    scratch.Write("a/other/o.xsd", start + " targetNamespace='urn:o'/>");
    ToolResult const result =
        scratch.Run("new p --location urn:o=a/other/o.xsd --namespace 'urn:o=x::y' --only e --parts 2 "
                    "-Wno-renamed --names n.txt --lock-names a/main/s.xsd");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    for (char const* const name : {"main/s.xsd", "parts.xsd", "other/o.xsd"})
        EXPECT_EQ(scratch.Read(std::string("p/schemas/") + name), scratch.Read(std::string("a/") + name));
    EXPECT_EQ(scratch.Read("p/names.txt"), scratch.Read("n.txt"));
    EXPECT_THAT(scratch.Read("p/CMakeLists.txt"),
                HasSubstr("SCHEMAS \"schemas/main/s.xsd\"\n    NAMESPACES \"urn:o=x::y\"\n"
                          "    LOCATIONS \"urn:o=schemas/other/o.xsd\"\n    PARTS 2\n    OPTIONS\n"
                          "        --names\n        \"${CMAKE_CURRENT_SOURCE_DIR}/names.txt\"\n"
                          "        \"--only=e\"\n        -Wno-renamed)"));
}

TEST(CommandLine, HelpFitsAScreen) {
    std::string const help = ScratchDirectory().Run("--help").out;
    std::size_t lines = 0;
    for (std::size_t at = 0, end = 0; (end = help.find('\n', at)) != std::string::npos; at = end + 1, ++lines)
        EXPECT_LE(end - at, 80U) << help.substr(at, end - at);
    EXPECT_LE(lines, 24U);
}

} // namespace
