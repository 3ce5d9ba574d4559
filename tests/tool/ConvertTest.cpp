// zvxml convert on small documents: what is kept, and what each option does.
#include "tests/support/Vectors.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

using testing::StartsWith;

namespace {

TEST(ZvxmlConvert, GivesDocumentsTheirOwnPrefixesBack) {
    ScratchDirectory const scratch;
    for (auto const& row : Vectors("tool.txt", "prefixes: input, output")) {
        ToolResult const result = scratch.Run("convert --lax - -", row[0]);
        EXPECT_EQ(result.out, row[1]) << row[0];
        EXPECT_EQ(result.exitCode, 0) << row[0] << '\n' << result.err;
    }
}

TEST(ZvxmlConvert, KeepsTextsThatLookLikeMarkup) {
    ScratchDirectory const scratch;
    for (char const* text :
         {"&lt;![CDATA[x]]&gt;y", "&lt;![CDATA[", "&lt;![CDATA[]]&gt;&lt;/a&gt;]]&gt;]]&gt;", "a]]&gt;b",
          "&amp;amp;&lt;b/&gt;", "\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E", " \n\t "}) {
        scratch.Write("in.xml", "<r><a>" + std::string(text) + "</a></r>");
        for (char const* options : {"", "--encoding utf-16", "--pretty"}) {
            ToolResult const result = scratch.Run("convert " + std::string(options) + " in.xml out.xml");
            ASSERT_EQ(result.exitCode, 0) << text << '\n' << result.err;
            EXPECT_EQ(DescribeDocument(scratch.Path("out.xml"), Texts::OfElementsWithoutChildren),
                      DescribeDocument(scratch.Path("in.xml"), Texts::OfElementsWithoutChildren))
                << text << ' ' << options;
        }
    }
}

TEST(ZvxmlConvert, ReadsFastInfosetByItsContent) {
    ScratchDirectory const scratch;
    // Its declarations are prefixes of the document like any other, and its name says nothing.
    using namespace std::string_literals;
    std::string const declared = "\xE0\0\0\1\0\x38\xCF\0p\0u\xF0\x3F\x81\x81\0a\x92\0p:x\xF0"s;
    EXPECT_EQ(scratch.Run("convert --lax - -", declared).out, R"(<p:a xmlns:p="u">p:x</p:a>)");
    EXPECT_THAT(scratch.Run("convert --lax - -", declared.substr(0, declared.size() - 1)).err,
                testing::HasSubstr("standard input: Failed to parse FastInfoset. Unexpected End of File."));
}

TEST(ZvxmlConvert, WritesAsItsOptionsSay) {
    ScratchDirectory const scratch;
    struct OptionRow {
        char const* options;
        std::string output;
    };
    using namespace std::string_literals;
    for (OptionRow const& row :
         {OptionRow{"", "<a>\n <b>x\ny</b>\n <c/></a>"s},
          OptionRow{"--pretty", "<a>\n\t<b>x\ny</b>\n\t<c/>\n</a>\n"s},
          OptionRow{"--pretty --compact", "<a>\n <b>x\ny</b>\n <c/></a>"s},
          OptionRow{"--indent 2", "<a>\n  <b>x\ny</b>\n  <c/>\n</a>\n"s},
          OptionRow{"--indent=0", "<a>\n<b>x\ny</b>\n<c/>\n</a>\n"s},
          OptionRow{"--indent 1 --indent tab", "<a>\n\t<b>x\ny</b>\n\t<c/>\n</a>\n"s},
          OptionRow{"--pretty --eol=crlf", "<a>\r\n\t<b>x\r\ny</b>\r\n\t<c/>\r\n</a>\r\n"s},
          OptionRow{"--indent 2 --declaration",
                    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\n  <b>x\ny</b>\n  <c/>\n</a>\n"s}}) {
        ToolResult const result =
            scratch.Run("convert " + std::string(row.options) + " - -", "<a>\n <b>x\ny</b>\n <c/></a>");
        EXPECT_EQ(result.out, row.output) << row.options;
        EXPECT_EQ(result.exitCode, 0) << row.options << '\n' << result.err;
    }
}

TEST(ZvxmlConvert, ChoosesFormAndCompressionByEndingAndOption) {
    ScratchDirectory const scratch;
    std::string const document = "<r>" + std::string(500, 'x') + "</r>";
    scratch.Write("in.xml", document);
    using namespace std::string_literals;
    struct FormRow {
        char const *options, *output;
        std::string start; // of the bytes
    };
    for (FormRow const& row : {FormRow{"--encoding utf-16", "out.xml", "\xFF\xFE<\0r\0"s},
                               FormRow{"", "a.gz", "\x1F\x8B"},
                               FormRow{"", "a.xml.gz", "\x1F\x8B"},
                               FormRow{"--gzip", "b.xml", "\x1F\x8B"},
                               FormRow{"", "a.zz", "\x78\x01"},
                               FormRow{"", "a.xml.zlib", "\x78\x01"},
                               FormRow{"--zlib", "a.gz", "\x78\x01"},
                               FormRow{"--zlib --to xml", "c.data", "\x78\x01"},
                               FormRow{"", "gz", "<r>"},
                               FormRow{"--encoding utf-16 --gzip", "d.xml", "\x1F\x8B"},
                               FormRow{"--encoding utf-16 --zlib --declaration", "d.xml", "\x78\x01"},
                               FormRow{"", "a.json", "{\"r\""},
                               FormRow{"--to json", "b.xml", "{\"r\""},
                               FormRow{"--to xml", "c.json", "<r>"},
                               FormRow{"", "d.json.gz", "\x1F\x8B"},
                               FormRow{"", "e.json.zz", "\x78\x01"},
                               FormRow{"--lax --encoding utf-16", "f.json", "{\0\"\0r\0\"\0"s},
                               FormRow{"", "a.fi", "\xE0\0\0\1"s},
                               FormRow{"", "b.finf", "\xE0\0\0\1"s},
                               FormRow{"--declaration", "c.fi", "<?xml version='1.0' encoding='finf'?>\xE0"},
                               FormRow{"", "d.fi.gz", "\x1F\x8B"},
                               FormRow{"", "e.finf.zz", "\x78\x01"},
                               FormRow{"--to xml", "f.fi", "<r>"}}) {
        std::string const what = std::string(row.options) + ' ' + row.output;
        ToolResult const result =
            scratch.Run("convert " + std::string(row.options) + " in.xml " + row.output);
        ASSERT_EQ(result.exitCode, 0) << what << '\n' << result.err;
        EXPECT_THAT(scratch.Read(row.output), StartsWith(row.start)) << what;
        bool const isUtf16Json = row.start[0] == '{' && row.start[1] == '\0'; // which nothing reads
        if (!isUtf16Json) {
            EXPECT_EQ(scratch.Run("convert --to xml " + std::string(row.output) + " -").out, document)
                << what;
        }
    }
    EXPECT_EQ(scratch.Run("convert --encoding utf-16 - -", "<a/>").out, "\xFF\xFE<\0a\0/\0>\0"s);
    EXPECT_THAT(scratch.Run("convert --lax --encoding utf-16 --to json in.xml -").out,
                StartsWith("{\0\"\0"s));
}

TEST(ZvxmlConvert, ReadsAndWritesTheSameFile) {
    ScratchDirectory const scratch;
    scratch.Write("a.xml", "<a> <b/> </a>");
    ASSERT_EQ(scratch.Run("convert --pretty a.xml a.xml").exitCode, 0);
    EXPECT_EQ(scratch.Read("a.xml"), "<a>\n\t<b/>\n</a>\n");
}

TEST(ZvxmlConvert, TakesAllBehindTwoDashesForFiles) {
    ScratchDirectory const scratch;
    scratch.Write("--pretty", "<a><b/></a>");
    ToolResult const result = scratch.Run("convert -- --pretty --help");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(scratch.Read("--help"), "<a><b/></a>");
}

TEST(ZvxmlConvert, LeavesTheOutputAloneWhenTheInputIsBad) {
    ScratchDirectory const scratch;
    scratch.Write("bad.xml", "<a><b></a>");
    scratch.Write("out.xml", "before");
    EXPECT_EQ(scratch.Run("convert bad.xml out.xml").exitCode, 1);
    EXPECT_EQ(scratch.Read("out.xml"), "before");
}

} // namespace
