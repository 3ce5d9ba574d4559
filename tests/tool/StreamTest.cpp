// zvxml convert, format and same without --lax: what is kept, what is refused, and in how much memory.
#include "tests/support/Vectors.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

TEST(ZvxmlStreams, WriteWhatTheyRead) {
    ScratchDirectory const scratch;
    for (auto const& row :
         Vectors("tool-streams.txt", "conversions: arguments, standard input, standard output")) {
        ToolResult const result = scratch.Run(row[0], row[1]);
        EXPECT_EQ(result.out, row[2]) << row[0] << ' ' << row[1];
        EXPECT_EQ(result.err, "") << row[0] << ' ' << row[1];
    }
}

TEST(ZvxmlStreams, RefuseWhatTheyCannotKeep) {
    ScratchDirectory const scratch;
    for (auto const& row :
         Vectors("tool-streams.txt", "refusals: arguments, standard input, standard error")) {
        ToolResult const result = scratch.Run(row[0] + " - out", row[1]);
        EXPECT_EQ(result.err, "zvxml: standard input:" + row[2] + '\n') << row[0] << ' ' << row[1];
        EXPECT_EQ(result.exitCode, 1) << row[1];
        EXPECT_FALSE(std::filesystem::exists(scratch.Path("out"))) << row[1];
    }
}

TEST(ZvxmlStreams, TellWhereDocumentsDiffer) {
    ScratchDirectory const scratch;
    for (auto const& row : Vectors("tool-streams.txt", "differences: other document, what is told")) {
        scratch.Write("other", row[0]);
        ToolResult const result = scratch.Run("same - other", "<a b=\"1\">x<c/>y</a>");
        EXPECT_EQ(result.out, row[1].empty() ? "" : row[1] + '\n') << row[0];
        EXPECT_EQ(result.exitCode, row[1].empty() ? 0 : 1) << row[0];
    }
    EXPECT_EQ(scratch.Run("same - other", "<a b='1'>x<c>").exitCode, 2);
    EXPECT_EQ(scratch.Run("same other -", "<a b='1'>x<c>").exitCode, 2);
}

TEST(ZvxmlStreams, TellWhatTheyLeaveOut) {
    ScratchDirectory const scratch;
    scratch.Write("in.xml", "<!DOCTYPE a><a><!--1--><b/><?p?><!--2--></a>");
    ToolResult const result = scratch.Run("convert --keep-going --to json in.xml");
    EXPECT_EQ(result.out, "{\"a\": {\"b\": \"\"}}");
    EXPECT_EQ(result.err,
              "zvxml: warning: in.xml: 2 comments left out, for which JSON text has no place\n"
              "zvxml: warning: in.xml: 1 processing instruction left out, for which JSON text has no place\n"
              "zvxml: warning: in.xml: 1 document type left out, for which JSON text has no place\n");
    EXPECT_EQ(scratch.Run("convert --color --keep-going --to json in.xml").err.substr(0, 20),
              "\033[1mzvxml:\033[0m \033[35m");
}

TEST(ZvxmlStreams, ReplaceFilesInTheirFormAndCompression) {
    ScratchDirectory const scratch;
    ASSERT_EQ(scratch.Run("convert - a.json.gz", "<a><b/></a>").exitCode, 0);
    ASSERT_EQ(scratch.Run("format --indent 0 --in-place a.json.gz").exitCode, 0);
    EXPECT_EQ(scratch.Read("a.json.gz").substr(0, 2), "\x1F\x8B");
    EXPECT_EQ(scratch.Run("convert --to json --indent 0 a.json.gz").out, "{\n\"a\": {\n\"b\": \"\"\n}\n}\n");
    scratch.Write("b.xml", "<a></b>");
    EXPECT_EQ(scratch.Run("format --in-place b.xml").exitCode, 1);
    EXPECT_EQ(scratch.Read("b.xml"), "<a></b>");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch.Path("")), {}),
              5); // and what Run makes
}

TEST(ZvxmlStreams, ReadAllMembersOfAGzipFileAndNoDamagedOne) {
    ScratchDirectory const scratch;
    ASSERT_EQ(scratch.Run("convert - 1.gz", "<a/>").exitCode, 0);
    ASSERT_EQ(scratch.Run("convert - 2.gz", "<!--z--><a/>").exitCode, 0);
    std::string const member = scratch.Read("1.gz");
    scratch.Write("two.gz", member + scratch.Read("2.gz"));
    EXPECT_EQ(scratch.Run("convert two.gz").err, "zvxml: two.gz:2:1: junk after document element\n");
    scratch.Write("cut.gz", member.substr(0, member.size() - 1));
    EXPECT_EQ(scratch.Run("convert cut.gz").err, "zvxml: cut.gz: damaged gzip: it ends too early\n");
}

} // namespace
