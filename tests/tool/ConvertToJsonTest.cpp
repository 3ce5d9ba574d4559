// zvxml convert to JSON: what it writes, as its options say, and as another parser sees it.
#include "tests/json/JsonParser.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

namespace {

struct Row {
    char const* options;
    char const* input;
    char const* output;
};

TEST(ZvxmlConvertToJson, GivesEveryNamespaceAnAliasAtTheRoot) {
    ScratchDirectory const scratch;
    for (Row const& row :
         {Row{"", R"(<a xmlns="u"><b/></a>)", R"({"a": {"@xmlns": "u","b": "","#text": ""}})"},
          Row{"", R"(<p:a xmlns:p="u"><q:b xmlns:q="v" q:c="1"/></p:a>)",
              R"({"p:a": {"@xmlns:p": "u","@xmlns:q": "v","q:b": {"@q:c": "1","#text": ""},"#text": ""}})"},
          Row{"", R"(<a><b xmlns="u"/><b xmlns="v">x</b></a>)",
              R"({"a": {"@xmlns:ns1": "u","@xmlns:ns2": "v","ns1:b": "","ns2:b": "x","#text": ""}})"},
          Row{"", R"(<a xml:lang="de">x</a>)", R"({"a": {"@xml:lang": "de","#text": "x"}})"},
          Row{"--json full", R"(<a xmlns="u&amp;w"/>)", R"({"a": {"@xmlns": "u&w","#text": ""}})"},
          Row{"--json no-namespaces", R"(<p:a xmlns:p="u" p:b="1"><c/>x</p:a>)",
              R"({"a": {"@b": "1","c": "","#text": "x"}})"},
          Row{"--json=none", R"(<p:a xmlns:p="u" p:b="1"><c/>x</p:a>)",
              R"({"a": {"b": "1","c": "","": "x"}})"}}) {
        ToolResult const result =
            scratch.Run("convert --to json " + std::string(row.options) + " - -", row.input);
        EXPECT_EQ(result.out, row.output) << row.input;
        EXPECT_EQ(FaultOfJson(row.output), "");
        EXPECT_EQ(result.exitCode, 0) << row.input << '\n' << result.err;
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
            ToolResult const result = scratch.Run("convert --json " + mode + " '" + document + "' out.json");
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
