// zvxml inspect.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

TEST(ZvxmlInspect, TellsWhatADocumentIs) {
    ScratchDirectory const scratch;
    std::string const text(300, 'x');
    ToolResult const result =
        scratch.Run("inspect -", "<p:a xmlns:p='u' x='1'>" + text + "<b y='2' z='3'><c/></b></p:a>");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    for (char const* line :
         {"file          standard input\n", "size          352 bytes\n", "wrapper       none\n",
          "form          XML text, UTF-8\n", "root          a\n", "namespace     u\n", "elements      3\n",
          "attributes    3\n", "depth         3\n", "text          300 bytes\n",
          "  compact            352 bytes\n", "  UTF-16             706 bytes\n"})
        EXPECT_THAT(result.out, HasSubstr(line));
}

TEST(ZvxmlInspect, GivesTheSizesOfTheFilesThatConvertWrites) {
    ScratchDirectory const scratch;
    std::string const document = ZV_EXAMPLE_DATA_DIR "/ubl-invoice.xml";
    std::string const report = scratch.Run("inspect '" + document + "'").out;
    struct Row {
        char const* title;
        char const* options;
    };
    for (Row const& row : {Row{"compact", ""}, Row{"pretty", "--pretty"}, Row{"UTF-16", "--encoding utf-16"},
                           Row{"gzip", "--gzip"}, Row{"zlib", "--zlib"}, Row{"JSON", "--to json"},
                           Row{"Fast Infoset", "--to fi"}}) {
        ASSERT_EQ(scratch.Run("convert --keep-going " + std::string(row.options) + " '" + document + "' out")
                      .exitCode,
                  0);
        std::string size = std::to_string(scratch.Read("out").size());
        std::string title = row.title;
        title.append(12 - title.size(), ' ');
        size.insert(0, 10 - size.size(), ' ');
        EXPECT_THAT(report, HasSubstr("  " + title + size + " bytes\n")) << row.title;
    }
}

TEST(ZvxmlInspect, TellsWrapperAndEncoding) {
    ScratchDirectory const scratch;
    scratch.Write("in.xml", "<r>" + std::string(500, 'x') + "</r>");
    struct Row {
        char const* options; // of the conversion
        char const* wrapper;
        char const* form;
    };
    for (Row const& row : {
             Row{"--gzip", "wrapper       gzip\n", "form          XML text, UTF-8\n"},
             Row{"--zlib --declaration", "wrapper       zlib\n", "form          XML text, UTF-8\n"},
             Row{"--encoding utf-16", "wrapper       none\n",
                 "form          XML text, UTF-16, low byte first\n"},
             Row{"--encoding utf-16 --gzip", "wrapper       gzip\n",
                 "form          XML text, UTF-16, low byte first\n"},
         }) {
        ASSERT_EQ(scratch.Run("convert " + std::string(row.options) + " in.xml out").exitCode, 0)
            << row.options;
        ToolResult const result = scratch.Run("inspect out");
        EXPECT_THAT(result.out, HasSubstr(row.wrapper)) << row.options;
        EXPECT_THAT(result.out, HasSubstr(row.form)) << row.options;
    }
    EXPECT_THAT(scratch.Run("inspect -", "<?xml version='1.0' encoding='ISO-8859-1'?><a/>").out,
                HasSubstr("form          XML text, ISO-8859-1\n"));
}

TEST(ZvxmlInspect, SaysWhyAFormCannotHoldADocument) {
    ScratchDirectory const scratch;
    ToolResult const result = scratch.Run("inspect", "<a><!--c-->x<b/></a>");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("comments      1\nwritten as\n  compact             20 bytes\n"));
    EXPECT_THAT(result.out, HasSubstr("  JSON        text ahead of the element 'b' has no place in JSON\n"));
    EXPECT_THAT(scratch.Run("inspect --no-sizes", "<a/>").out, testing::Not(HasSubstr("written")));
}

TEST(ZvxmlInspect, GoesAsDeepAsADocument) {
    ScratchDirectory const scratch;
    constexpr int kDepth = 100000;
    std::string document;
    for (int i = 0; i < kDepth; ++i)
        document += "<a>";
    for (int i = 0; i < kDepth; ++i)
        document += "</a>";
    scratch.Write("deep.xml", document);
    ToolResult const inspected = scratch.Run("inspect deep.xml");
    EXPECT_EQ(inspected.exitCode, 0) << inspected.err;
    EXPECT_THAT(inspected.out, HasSubstr("depth         100000\n"));
    EXPECT_THAT(inspected.out,
                HasSubstr("  JSON        elements nest more than 9999 deep, too deep for JSON\n"));
    ASSERT_EQ(scratch.Run("convert deep.xml out.fi").exitCode, 0);
    EXPECT_EQ(scratch.Run("same out.fi deep.xml").exitCode, 0);
    ToolResult const converted = scratch.Run("convert --lax deep.xml out.xml");
    EXPECT_EQ(converted.exitCode, 1);
    EXPECT_THAT(converted.err, testing::StartsWith("zvxml: deep.xml: "));
}

TEST(ZvxmlInspect, ListsTheVocabularyThatAFastInfosetDocumentBuilds) {
    ScratchDirectory const scratch;
    std::string const document = ZV_TEST_DATA_DIR "/fastinfoset/names-40.fi";
    ToolResult const result = scratch.Run("inspect '" + document + "'");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    for (char const* line :
         {"form          Fast Infoset\n", "elements      79\n", "  compact            682 bytes\n",
          "  namespace names          1\n          1  http://www.w3.org/XML/1998/namespace\n",
          "  element names           40\n          1  r\n          2  e1\n",
          "         20  e19\n             and 20 more\n", "  character chunks         7\n          1  1\n"})
        EXPECT_THAT(result.out, HasSubstr(line));
    EXPECT_THAT(scratch.Run("inspect --vocabulary '" + document + "'").out, HasSubstr("         40  e39\n"));
    // Prefix, namespace and what cannot stand on a line.
    using namespace std::string_literals;
    std::string const small =
        "<?xml version='1.0' encoding='finf'?>\xE0\0\0\1\0\x38\xCF\0p\0u\xF0\x3F\x81\x81\0a\x92\0x\ny\xFF"s;
    EXPECT_THAT(
        scratch.Run("inspect -", small).out,
        testing::AllOf(HasSubstr("form          Fast Infoset behind <?xml version='1.0' encoding='finf'?>\n"),
                       HasSubstr("          1  p:a {u}\n"), HasSubstr("          1  x\\ny\n")));
}

} // namespace
