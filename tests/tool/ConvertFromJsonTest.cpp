// zvxml on JSON: what it recognises, what its options do, and real documents there and back.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

TEST(ZvxmlOnJson, IsToldByTheFirstSignificantByte) {
    ScratchDirectory const scratch;
    struct Row {
        char const* options;
        char const* input;
        char const* output;
    };
    for (Row const& row : {
             Row{"", "{\"a\":1}", "<a>1</a>"},
             Row{"", " \r\n\t{\"a\":{\"b\":[{\"@c\":1},2],\"#text\":\"x\"}}", "<a><b c=\"1\"/><b>2</b>x</a>"},
             Row{"", "\xEF\xBB\xBF/**/ {\"a\":{\"@xmlns:p\":\"u\",\"p:b\":{\"c\":null}}}",
                 "<a xmlns:p=\"u\"><p:b><c/></p:b></a>"},
             Row{"--root r", "[7]", "<r>7</r>"},
             Row{"--root=r", "\"x\"", "<r>x</r>"},
             Row{"--root r", "-1.50", "<r>-1.50</r>"},
             Row{"--root r", " null", "<r/>"},
             Row{"--root r --pretty", "{\"b\":{\"c\":1}}", "<r>\n\t<b>\n\t\t<c>1</c>\n\t</b>\n</r>\n"},
             Row{"--to json", "{\"a\":{\"@b\":1,\"c\":2}}", R"({"a": {"@b": "1","c": "2","#text": ""}})"},
         }) {
        std::string const options = row.options;
        ToolResult const result = scratch.Run("convert " + options + " - -", row.input);
        EXPECT_EQ(result.out, row.output) << row.input;
        EXPECT_EQ(result.exitCode, 0) << row.input << '\n' << result.err;
        scratch.Write("in.any", row.input);
        EXPECT_EQ(scratch.Run("convert " + options + " in.any -").out, row.output);
    }
}

TEST(ZvxmlOnJson, ReportsWhatIsNoJson) {
    ScratchDirectory const scratch;
    struct Row {
        char const* options;
        char const* input;
        char const* message;
    };
    for (Row const& row : {
             Row{"", "{\"a\":1,}",
                 "in.json: Expected quotation mark character '\"' before Name, found '}' at line 1, position "
                 "8."
                 "\nPath: .a\n"},
             Row{"--no-comments", "{\n/**/}",
                 "in.json: Expected quotation mark character '\"' before Name, found '/' at line 2, position "
                 "1.\n"},
             Row{"", "[1]", "in.json: JSON Array has no Name.\n"},
             Row{"", "{}", "in.json: no element found at line 2\n"},
             Row{"", "{\"a\":1,\"b\":2}", "in.json: junk after document element at line 3\n"},
         }) {
        scratch.Write("in.json", row.input);
        ToolResult const result = scratch.Run("convert " + std::string(row.options) + " in.json out.xml");
        EXPECT_EQ(result.err, row.message) << row.input;
        EXPECT_EQ(result.exitCode, 1) << row.input;
    }
}

// Names reach XML as they are, and texts with the mark of a CDATA section do, so that markup can come
// through.
TEST(ZvxmlOnJson, StaysWellFormedWhateverComesThrough) {
    ScratchDirectory const scratch;
    for (char const* const json : {R"({"r":{"a/><b":{}}})", R"({"a":"<![CDATA[]]><b/>"})",
                                   R"({"r":{"a":{"b":1,"#text":"<![CDATA[<![CDATA[<x>]]>"}}})"}) {
        scratch.Write("in.json", json);
        ToolResult const there = scratch.Run("convert in.json out.xml");
        EXPECT_EQ(there.exitCode, 0) << json << there.err;
        ToolResult const back = scratch.Run("convert out.xml -");
        EXPECT_EQ(back.exitCode, 0) << json << back.err;
        EXPECT_EQ(scratch.Run("inspect in.json").exitCode, 0) << json;
    }
}

TEST(ZvxmlOnJson, IsInspected) {
    ScratchDirectory const scratch;
    scratch.Write("in.json", R"({"a":{"@b":1,"c":{"d":"xy"},"#text":"z"}})");
    for (std::string const command : {"inspect in.json", "inspect --root a in2.json"}) {
        scratch.Write("in2.json", R"({"@b":1,"c":{"d":"xy"},"#text":"z"})");
        ToolResult const result = scratch.Run(command);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_THAT(result.out, testing::HasSubstr("\nform          JSON text\nroot          a\n"));
        EXPECT_THAT(result.out, testing::HasSubstr("\nelements      3\nattributes    1\ndepth         3\n"
                                                   "text          3 bytes\n"));
        EXPECT_THAT(result.out, testing::HasSubstr("\n  compact             30 bytes\n"));
    }
    scratch.Write("commented.json", "{/**/\"a\":1}");
    EXPECT_EQ(scratch.Run("inspect commented.json").exitCode, 0);
    EXPECT_EQ(scratch.Run("inspect --no-comments commented.json").err,
              "commented.json: Expected quotation mark character '\"' before Name, found '/' at line 1, "
              "position 2.\n");
}

TEST(ZvxmlOnJson, KeepsElementsAttributesAndTextsButLineFeedsOfRealDocuments) {
    std::vector<std::string> const documents = RealDocuments();
    ASSERT_GE(documents.size(), 6U);
    ScratchDirectory const scratch;
    auto const withoutLineFeeds = [](std::vector<std::string> lines) {
        for (std::string& line : lines)
            line.erase(std::remove(line.begin(), line.end(), '\n'), line.end());
        return lines;
    };
    for (std::string const& document : documents) {
        std::vector<std::string> const expected = withoutLineFeeds(DescribeDocument(document));
        for (std::string const name : {"there.json", "there.json.gz"}) {
            ToolResult const there = scratch.Run("convert '" + document + "' " + name);
            ASSERT_EQ(there.exitCode, 0) << document << '\n' << there.err;
            ToolResult const back = scratch.Run("convert " + name + " back.xml");
            ASSERT_EQ(back.exitCode, 0) << document << '\n' << back.err.substr(0, 500);
            EXPECT_TRUE(withoutLineFeeds(DescribeDocument(scratch.Path("back.xml"))) == expected) << document;
        }
    }
}

} // namespace
