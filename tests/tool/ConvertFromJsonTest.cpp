// zvxml on JSON: what it recognises, and what its options do.
#include "tests/support/Vectors.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

namespace {

TEST(ZvxmlOnJson, IsToldByTheFirstSignificantByte) {
    ScratchDirectory const scratch;
    for (auto const& row : Vectors("tool.txt", "from JSON: options, input, output")) {
        std::string const& options = row[0];
        ToolResult const result = scratch.Run("convert --lax " + options + " - -", row[1]);
        EXPECT_EQ(result.out, row[2]) << row[1];
        EXPECT_EQ(result.exitCode, 0) << row[1] << '\n' << result.err;
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
