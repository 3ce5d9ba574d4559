// zvxml convert on real documents: there and back in every form.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

namespace {

TEST(ZvxmlOnRealDocuments, KeepsElementsAttributesTextsAndNamespaces) {
    struct Form {
        char const* options;
        char const* file;
        Texts texts; // the indent joins the text of elements with children, and JSON has no line feeds
    };
    std::vector<std::string> const documents = RealDocuments();
    ASSERT_GE(documents.size(), 6U);
    ScratchDirectory const scratch;
    for (std::string const& document : documents) {
        for (Form const& form :
             {Form{"", "form.xml", Texts::All}, Form{"--lax", "form.xml", Texts::All},
              Form{"--encoding utf-16 --declaration", "form.xml", Texts::All},
              Form{"", "form.xml.gz", Texts::All}, Form{"--eol crlf", "form.xml.zz", Texts::All},
              Form{"--lax", "form.fi", Texts::All},
              Form{"--lax --add-length 1000000 --declaration", "form.finf.gz", Texts::All},
              Form{"--lax", "form.json", Texts::WithoutLineFeeds},
              Form{"--lax", "form.json.gz", Texts::WithoutLineFeeds},
              Form{"--pretty", "form.xml", Texts::OfElementsWithoutChildren}}) {
            std::string const what = document + ' ' + form.options + ' ' + form.file;
            ToolResult const there =
                scratch.Run("convert " + std::string(form.options) + " '" + document + "' " + form.file);
            ASSERT_EQ(there.exitCode, 0) << what << '\n' << there.err;
            EXPECT_EQ(there.err, "") << what;
            ToolResult const back = scratch.Run("convert --lax " + std::string(form.file) + " back.xml");
            ASSERT_EQ(back.exitCode, 0) << what << '\n' << back.err;
            std::vector<std::string> const expected = DescribeDocument(document, form.texts);
            if (form.texts != Texts::WithoutLineFeeds) {
                EXPECT_TRUE(DescribeDocument(scratch.Path(form.file), form.texts) == expected) << what;
            }
            EXPECT_TRUE(DescribeDocument(scratch.Path("back.xml"), form.texts) == expected) << what;
        }
    }
}

TEST(ZvxmlOnRealDocuments, FormatsAFormattedDocumentToTheSameBytes) {
    ScratchDirectory const scratch;
    int checked = 0;
    for (std::string const& document : RealDocuments()) {
        ASSERT_EQ(scratch.Run("format '" + document + "' once.xml").exitCode, 0) << document;
        ASSERT_EQ(scratch.Run("format once.xml twice.xml").exitCode, 0) << document;
        EXPECT_TRUE(scratch.Read("once.xml") == scratch.Read("twice.xml")) << document;
        EXPECT_EQ(scratch.Run("same '" + document + "' once.xml").out, "") << document;
        ++checked;
    }
    EXPECT_GE(checked, 5);
}

// JSON has no place for mixed content, and the message says so.
TEST(ZvxmlOnRealDocuments, HoldsTheSameInEveryForm) {
    ScratchDirectory const scratch;
    int inJson = 0;
    std::vector<std::string> const documents = RealDocuments();
    for (std::string const& document : documents) {
        for (std::string const form : {"form.xml.gz", "form.fi", "form.json", "form.fi.zz"}) {
            ToolResult const there = scratch.Run("convert --keep-going '" + document + "' " + form);
            bool const isJson = form == "form.json";
            inJson += isJson && there.exitCode == 0 ? 1 : 0;
            if (isJson && there.exitCode != 0) {
                EXPECT_THAT(there.err, testing::ContainsRegex(":[0-9]+:[0-9]+: .* has no place")) << document;
                continue;
            }
            ASSERT_EQ(there.exitCode, 0) << document << ' ' << form << there.err;
            ToolResult const same = scratch.Run("same '" + document + "' " + form);
            EXPECT_EQ(same.out + same.err, "") << document << ' ' << form;
            ASSERT_EQ(scratch.Run("convert " + form + " back.xml").exitCode, 0) << document;
            EXPECT_EQ(scratch.Run("same back.xml '" + document + "'").exitCode, 0) << document << ' ' << form;
        }
    }
    EXPECT_GE(inJson, 5);
}

} // namespace
