// zvxml on JSON text.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

namespace {

TEST(ZvxmlFromJson, ReadsWhatItsFirstSignificantByteTells) {
    struct Row {
        char const* options;
        char const* json;
        char const* xml;
    };
    ScratchDirectory const scratch;
    for (Row const& row : {
             Row{"", R"({"a": {"@n": 1, "b": ["x", true], "#text": "t"}})", R"(<a n="1">)"},
             Row{"", "\xEF\xBB\xBF \n/* first */ {\"a\": null}", "<a/>"},
             Row{"--json none", R"({"a": {"n": 1}})", "<a><n>1</n></a>"},
             Row{"", R"({"p:a": {"@xmlns:p": "urn:p"}})", R"(<p:a xmlns:p="urn:p"/>)"},
             Row{"--root r", R"({"a": 1})", "<r><a>1</a></r>"},
             Row{"--root r", "[]", "<r/>"},
             Row{"--root r", "-1.50", "<r>-1.50</r>"},
             Row{"--root r", "null", "<r/>"},
         }) {
        scratch.Write("in", row.json);
        for (bool const isFile : {true, false}) {
            std::string const options = "convert " + std::string(row.options);
            ToolResult const result =
                isFile ? scratch.Run(options + " in -") : scratch.Run(options + " - -", row.json);
            EXPECT_EQ(result.exitCode, 0) << row.json << result.err;
            EXPECT_THAT(result.out, testing::HasSubstr(row.xml)) << row.json;
        }
    }
    ToolResult const inspected = (scratch.Write("in", R"({"a": {"b": 1}})"), scratch.Run("inspect in"));
    EXPECT_EQ(inspected.exitCode, 0);
    EXPECT_THAT(inspected.out, testing::HasSubstr("JSON text\n"));
    EXPECT_THAT(inspected.out, testing::HasSubstr("elements      2\n"));
}

TEST(ZvxmlFromJson, SaysWhatIsWrong) {
    struct Row {
        char const* options;
        char const* json;
        char const* message;
    };
    ScratchDirectory const scratch;
    for (Row const& row : {
             Row{"", R"({"a" 1})",
                 "Expected Object Name/Value separator character ':', found '1' at line 1, position 6."},
             Row{"--no-comments", "/**/{\"a\": 1}", "Expected Value"},
             Row{"", R"({"a": 1, "b": 2})", "junk after document element at line 2"},
             Row{"--root ''", "1", "--root takes a name"},
         }) {
        scratch.Write("in", row.json);
        ToolResult const result = scratch.Run("convert " + std::string(row.options) + " in -");
        EXPECT_NE(result.exitCode, 0) << row.json;
        EXPECT_THAT(result.err, testing::HasSubstr(row.message)) << row.json;
    }
}

} // namespace
