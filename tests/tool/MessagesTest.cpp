// Help, version, messages and exit codes of the tool.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

TEST(ZvxmlMessages, ReportsFilesThatCannotBeConverted) {
    ScratchDirectory const scratch;
    scratch.Write("good.xml", "<a/>");
    scratch.Write("bad.xml", "<a>\n<b>\n</a>");
    scratch.Write("empty.xml", "");
    scratch.Write("bad.json", "{\"a\"");
    scratch.Write("comment.json", "{/**/\"a\":1}");
    scratch.Write("text.gz", "\x1F\x8B no gzip at all");
    scratch.Write("uri.xml", "<a xmlns='u?a&amp;b'/>");
    scratch.Write("path.xml", "<a xmlns='c:\\x'/>");
    std::filesystem::create_directory(scratch.Path("dir"));
    struct Row {
        char const* arguments;
        char const* message; // its start
    };
    for (Row const& row :
         {Row{"convert none.xml out.xml",
              "none.xml: Failed to open the file [none.xml] Error [0x00000002]\n"},
          Row{"convert dir out.xml", "dir: Failed to open the file [dir] Error [0x00000015]\n"},
          Row{"convert bad.xml out.xml", "bad.xml: "},
          Row{"convert empty.xml out.xml", "empty.xml: "},
          Row{"convert bad.json out.xml", "bad.json: Unexpected End of File."},
          Row{"convert --no-comments comment.json out.xml", "comment.json: Expected quotation mark"},
          Row{"convert text.gz out.xml", "text.gz: "},
          Row{"convert - out.xml", "standard input: XML Stream is empty!\n"},
          Row{"convert good.xml dir", "dir: Failed to write data to the file [dir] error [0x00000015]\n"},
          Row{"convert good.xml none/out.xml",
              "none/out.xml: Failed to write data to the file [none/out.xml] error [0x00000002]\n"},
          Row{"convert good.xml none/out.zz", "none/out.zz: "},
          Row{"convert good.xml /dev/full",
              "/dev/full: Failed to write data to the file [/dev/full] error [0x0000001C]\n"},
          Row{"convert good.xml out.gz", "out.gz: Failed to compress data. [Error Code: 0]\n"},
          Row{"convert uri.xml out.xml", "uri.xml: The namespace [u?a&b] holds characters"},
          Row{"convert uri.xml none/out.json", "none/out.json: Failed to write data"},
          Row{"convert path.xml out.json", "path.xml: The namespace [c:\\x] holds characters"},
          Row{"convert --json none path.xml none/out.json", "none/out.json: Failed to write data"},
          Row{"inspect none.xml", "none.xml: No such file or directory\n"},
          Row{"inspect dir", "dir: Is a directory\n"},
          Row{"inspect bad.xml", "bad.xml: "}}) {
        ToolResult const result = scratch.Run(row.arguments);
        EXPECT_EQ(result.exitCode, 1) << row.arguments;
        EXPECT_THAT(result.err, StartsWith(row.message)) << row.arguments;
        EXPECT_EQ(result.out, "") << row.arguments;
    }
}

TEST(ZvxmlMessages, ReportsOutputThatFindsNoSpace) {
    ScratchDirectory const scratch;
    scratch.Write("good.xml", "<a/>");
    for (char const* arguments : {"convert good.xml -", "inspect good.xml", "--help", "convert --help"}) {
        ToolResult const result = scratch.RunInto("/dev/full", arguments);
        EXPECT_EQ(result.exitCode, 1) << arguments;
        EXPECT_EQ(result.err, "standard output: No space left on device\n") << arguments;
    }
}

TEST(ZvxmlMessages, RefusesCommandLinesThatMakeNoSense) {
    ScratchDirectory const scratch;
    scratch.Write("a.xml", "<a/>");
    struct Row {
        char const* arguments;
        char const* message;
    };
    for (Row const& row :
         {Row{"", "zvxml: no command\n"},
          Row{"bake", "zvxml: unknown command 'bake'\n"},
          Row{"--bake", "zvxml: unknown option '--bake'\n"},
          Row{"convert", "zvxml: convert takes an input and an output\n"},
          Row{"convert a.xml", "zvxml: convert takes an input and an output\n"},
          Row{"convert a.xml b.xml c.xml", "zvxml: convert takes an input and an output\n"},
          Row{"convert --prety a.xml b.xml", "zvxml: unknown option '--prety'\n"},
          Row{"convert -x a.xml b.xml", "zvxml: unknown option '-x'\n"},
          Row{"convert --pretty=yes a.xml b.xml", "zvxml: option '--pretty' takes no value\n"},
          Row{"convert a.xml b.xml --indent", "zvxml: option '--indent' needs a value\n"},
          Row{"convert --indent two a.xml b.xml",
              "zvxml: --indent takes a number of blanks from 0 to 99, or 'tab'\n"},
          Row{"convert --json some a.xml b.json",
              "zvxml: --json takes full or no-namespaces or none, not 'some'\n"},
          Row{"convert --to yaml a.xml b.xml", "zvxml: unknown format 'yaml'; known: xml, json, fi\n"},
          Row{"convert --eol cr a.xml b.xml", "zvxml: --eol takes lf or crlf, not 'cr'\n"},
          Row{"convert --encoding latin1 a.xml b.xml",
              "zvxml: --encoding takes utf-8 or utf-16, not 'latin1'\n"},
          Row{"convert --add-length x a.xml b.xml",
              "zvxml: --add-length takes a number from 0 to 4294967295\n"},
          Row{"convert --add-length -1 a.xml b.xml",
              "zvxml: --add-length takes a number from 0 to 4294967295\n"},
          Row{"convert --add-length 4294967296 a.xml b.xml",
              "zvxml: --add-length takes a number from 0 to 4294967295\n"},
          Row{"inspect", "zvxml: inspect takes one file\n"},
          Row{"inspect a.xml b.xml", "zvxml: inspect takes one file\n"},
          Row{"inspect --deep a.xml", "zvxml: unknown option '--deep'\n"}}) {
        ToolResult const result = scratch.Run(row.arguments);
        EXPECT_EQ(result.exitCode, 2) << row.arguments;
        EXPECT_EQ(result.err, std::string(row.message) + "Try 'zvxml --help' for more information.\n")
            << row.arguments;
        EXPECT_EQ(result.out, "") << row.arguments;
        EXPECT_FALSE(std::filesystem::exists(scratch.Path("b.xml"))) << row.arguments;
    }
}

TEST(ZvxmlMessages, GivesHelpAndVersionOnStandardOutput) {
    ScratchDirectory const scratch;
    struct Row {
        char const* arguments;
        char const* output; // a part of it
    };
    for (Row const& row :
         {Row{"--help", "Usage: zvxml COMMAND"}, Row{"-h", "convert"},
          Row{"--version", "zvxml " ZV_TOOL_VERSION "\n"}, Row{"convert --help", "--declaration"},
          Row{"convert --pretty -h", "Usage: zvxml convert [OPTION]... IN OUT\n"},
          Row{"inspect --help", "Usage: zvxml inspect [OPTION]... FILE\n"}}) {
        ToolResult const result = scratch.Run(row.arguments);
        EXPECT_EQ(result.exitCode, 0) << row.arguments;
        EXPECT_THAT(result.out, HasSubstr(row.output)) << row.arguments;
        EXPECT_EQ(result.err, "") << row.arguments;
    }
}

} // namespace
