// Help, version, messages and exit codes of the tool.
#include "tests/support/Vectors.h"
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
    scratch.Write("two.json", "{\"a\": 1,\n \"b\": 2}");
    scratch.Write("comment.json", "{/**/\"a\":1}");
    scratch.Write("text.gz", "\x1F\x8B no gzip at all");
    scratch.Write("lost.xml", "<a><!--x--><?p?>\n<b/>y<c/></a>");
    scratch.Write("entity.xml", "<!DOCTYPE a SYSTEM 'b.dtd'>\n<a>&b;</a>");
    scratch.Write("uri.xml", "<a xmlns='u?a&amp;b'/>");
    scratch.Write("path.xml", "<a xmlns='c:\\x'/>");
    std::filesystem::create_directory(scratch.Path("dir"));
    for (auto const& row : Vectors("tool.txt", "failures: arguments, how the message begins")) {
        ToolResult const result = scratch.Run(row[0]);
        EXPECT_EQ(result.exitCode, 1) << row[0];
        EXPECT_THAT(result.err, StartsWith(row[1])) << row[0];
        EXPECT_EQ(result.out, "") << row[0];
    }
}

TEST(ZvxmlMessages, ReportsOutputThatFindsNoSpace) {
    ScratchDirectory const scratch;
    scratch.Write("good.xml", "<a/>");
    for (char const* arguments : {"convert good.xml -", "inspect good.xml", "--help", "convert --help"}) {
        ToolResult const result = scratch.RunInto("/dev/full", arguments);
        EXPECT_EQ(result.exitCode, 1) << arguments;
        EXPECT_EQ(result.err, "zvxml: standard output: No space left on device\n") << arguments;
    }
}

TEST(ZvxmlMessages, RefusesCommandLinesThatMakeNoSense) {
    ScratchDirectory const scratch;
    scratch.Write("a.xml", "<a/>");
    for (auto const& row : Vectors("tool.txt", "senseless command lines: arguments, message, what to try")) {
        ToolResult const result = scratch.Run(row[0]);
        EXPECT_EQ(result.exitCode, 2) << row[0];
        EXPECT_EQ(result.err, row[1] + "\nTry 'zvxml " + row[2] + "' for more information.\n") << row[0];
        EXPECT_EQ(result.out, "") << row[0];
        EXPECT_FALSE(std::filesystem::exists(scratch.Path("b.xml"))) << row[0];
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
          Row{"convert --pretty -h", "Usage: zvxml convert [OPTION]... [IN [OUT]]\n"},
          Row{"help inspect", "Usage: zvxml inspect [OPTION]... "}}) {
        ToolResult const result = scratch.Run(row.arguments);
        EXPECT_EQ(result.exitCode, 0) << row.arguments;
        EXPECT_THAT(result.out, HasSubstr(row.output)) << row.arguments;
        EXPECT_EQ(result.err, "") << row.arguments;
    }
}

} // namespace
