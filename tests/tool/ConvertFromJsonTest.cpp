// zvxml on JSON: what it recognises, and what its options do.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

namespace {

TEST(ZvxmlOnJson, IsToldByTheFirstSignificantByte) {
    ScratchDirectory const scratch;
    struct Row {
        char const* options;
        char const* input;
        char const* output;
    };
    for (Row const& row :
         {Row{"", "{\"a\":1}", "<a>1</a>"},
          Row{"", " \r\n\t{\"a\":{\"b\":[{\"@c\":1},2],\"#text\":\"x\"}}", "<a><b c=\"1\"/><b>2</b>x</a>"},
          Row{"", "\xEF\xBB\xBF/**/ {\"a\":{\"@xmlns:p\":\"u\",\"p:b\":{\"c\":null}}}",
              "<a xmlns:p=\"u\"><p:b><c/></p:b></a>"},
          Row{"--root r", "[7]", "<r>7</r>"}, Row{"--root=r", "\"x\"", "<r>x</r>"},
          Row{"--root r", "-1.50", "<r>-1.50</r>"}, Row{"--root r", " null", "<r/>"},
          Row{"--root r --pretty", "{\"b\":{\"c\":1}}", "<r>\n\t<b>\n\t\t<c>1</c>\n\t</b>\n</r>\n"},
          Row{"--to json", "{\"a\":{\"@b\":1,\"c\":2}}", R"({"a": {"@b": "1","c": "2","#text": ""}})"}}) {
        std::string const options = row.options;
        ToolResult const result = scratch.Run("convert " + options + " - -", row.input);
        EXPECT_EQ(result.out, row.output) << row.input;
        EXPECT_EQ(result.exitCode, 0) << row.input << '\n' << result.err;
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
}

} // namespace
