// zvxml convert to JSON: what it writes, as its options say, and as another parser sees it.
#include "tests/json/JsonParser.h"
#include "tests/support/Vectors.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

namespace {

TEST(ZvxmlConvertToJson, GivesEveryNamespaceAnAliasAtTheRoot) {
    ScratchDirectory const scratch;
    for (auto const& row : Vectors("tool.txt", "to JSON: options, input, output")) {
        ToolResult const result = scratch.Run("convert --lax --to json " + row[0] + " - -", row[1]);
        EXPECT_EQ(result.out, row[2]) << row[1];
        EXPECT_EQ(FaultOfJson(row[2]), "");
        EXPECT_EQ(result.exitCode, 0) << row[1] << '\n' << result.err;
    }
}

// Line feeds are those of texts, as nothing is formatted.
std::string WithEscapedLineFeeds(std::string const& text) {
    std::string result;
    for (char const c : text)
        result += c == '\n' ? "\\n" : std::string(1, c);
    return result;
}

TEST(ZvxmlConvertToJson, GivesTheElementsAndAttributesOfRealDocuments) {
    ScratchDirectory const scratch;
    for (std::string const& document : RealDocuments()) {
        for (std::string const mode : {"none", "no-namespaces", "full"}) {
            ToolResult const result =
                scratch.Run("convert --lax --json " + mode + " '" + document + "' out.json");
            ASSERT_EQ(result.exitCode, 0) << document << '\n' << result.err;
            ASSERT_EQ(FaultOfJson(WithEscapedLineFeeds(scratch.Read("out.json"))).substr(0, 300), "")
                << document << ' ' << mode;
        }
        JsonCounts const counts = CountNames(WithEscapedLineFeeds(scratch.Read("out.json")));
        std::string const report = scratch.Run("inspect '" + document + "'").out;
        EXPECT_THAT(report, testing::HasSubstr("\nelements      " + std::to_string(counts.elements) +
                                               "\nattributes    " + std::to_string(counts.attributes) + '\n'))
            << document;
    }
}

} // namespace
