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
    for (
        Row const& row : {
            Row{"", R"(<a xmlns="u"><b/></a>)", R"({"a": {"@xmlns": "u","b": "","#text": ""}})"},
            Row{"", R"(<p:a xmlns:p="u"><q:b xmlns:q="v" q:c="1"/></p:a>)",
                R"({"p:a": {"@xmlns:p": "u","@xmlns:q": "v","q:b": {"@q:c": "1","#text": ""},"#text": ""}})"},
            Row{"", R"(<a><b xmlns="u"/><b xmlns="v">x</b></a>)",
                R"({"a": {"@xmlns:ns1": "u","@xmlns:ns2": "v","ns1:b": "","ns2:b": "x","#text": ""}})"},
            Row{"", R"(<a xml:lang="de">x</a>)", R"({"a": {"@xml:lang": "de","#text": "x"}})"},
            Row{"--json full", R"(<a xmlns="u&amp;w"/>)", R"({"a": {"@xmlns": "u&w","#text": ""}})"},
            Row{"--json no-namespaces", R"(<p:a xmlns:p="u" p:b="1"><c/>x</p:a>)",
                R"({"a": {"@b": "1","c": "","#text": "x"}})"},
            Row{"--json=none", R"(<p:a xmlns:p="u" p:b="1"><c/>x</p:a>)",
                R"({"a": {"b": "1","c": "","": "x"}})"},
        }) {
        ToolResult const result =
            scratch.Run("convert --to json " + std::string(row.options) + " - -", row.input);
        EXPECT_EQ(result.out, row.output) << row.input;
        EXPECT_EQ(FaultOfJson(row.output), "");
        EXPECT_EQ(result.exitCode, 0) << row.input << '\n' << result.err;
    }
}

TEST(ZvxmlConvertToJson, WritesAsItsOptionsSay) {
    ScratchDirectory const scratch;
    constexpr char kInput[] = "<a>\n <b c='1'>x</b>\n</a>";
    for (Row const& row : {
             Row{"--indent 2", kInput,
                 "{\n  \"a\": {\n    \"b\": {\n      \"@c\": \"1\",\n      \"#text\": \"x\"\n    },\n"
                 "    \"#text\": \"\"\n  }\n}"},
             Row{"--indent 0 --eol crlf", kInput,
                 "{\r\n\"a\": {\r\n\"b\": {\r\n\"@c\": \"1\",\r\n\"#text\": \"x\"\r\n},\r\n\"#text\": "
                 "\"\"\r\n}\r\n}"},
             Row{"--declaration", "<a>x</a>", R"({"a": "x"})"},
             // White space between elements is text like any other, line ends included.
             Row{"", kInput, "{\"a\": {\"b\": {\"@c\": \"1\",\"#text\": \"x\"},\"#text\": \"\n \n\"}}"},
         }) {
        ToolResult const result =
            scratch.Run("convert --to json " + std::string(row.options) + " - -", row.input);
        EXPECT_EQ(result.out, row.output) << row.options;
        EXPECT_EQ(result.exitCode, 0) << row.options << '\n' << result.err;
    }
}

TEST(ZvxmlConvertToJson, IsToldByEndingsAndWritesNoByteOrderMark) {
    ScratchDirectory const scratch;
    scratch.Write("in.xml", "<r>" + std::string(500, 'x') + "</r>");
    using namespace std::string_literals;
    struct FileRow {
        char const* arguments;
        char const* output;
        std::string start;
    };
    for (FileRow const& row : {
             FileRow{"in.xml a.json", "a.json", "{\"r\""s},
             FileRow{"--to json in.xml b.xml", "b.xml", "{\"r\""s},
             FileRow{"--to xml in.xml c.json", "c.json", "<r>"s},
             FileRow{"in.xml d.json.gz", "d.json.gz", "\x1F\x8B"s},
             FileRow{"in.xml e.json.zz", "e.json.zz", "\x78\x01"s},
             FileRow{"--encoding utf-16 in.xml f.json", "f.json", "{\0\"\0r\0\"\0"s},
         }) {
        ToolResult const result = scratch.Run("convert " + std::string(row.arguments));
        ASSERT_EQ(result.exitCode, 0) << row.arguments << '\n' << result.err;
        EXPECT_THAT(scratch.Read(row.output), testing::StartsWith(row.start)) << row.arguments;
    }
    EXPECT_THAT(scratch.Run("convert --encoding utf-16 --to json in.xml -").out,
                testing::StartsWith("{\0\"\0"s));
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
