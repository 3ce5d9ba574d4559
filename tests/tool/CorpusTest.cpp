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
             {Form{"", "form.xml", Texts::All},
              Form{"--encoding utf-16 --declaration", "form.xml", Texts::All},
              Form{"", "form.xml.gz", Texts::All}, Form{"--eol crlf", "form.xml.zz", Texts::All},
              Form{"", "form.fi", Texts::All},
              Form{"--add-length 1000000 --declaration", "form.finf.gz", Texts::All},
              Form{"", "form.json", Texts::WithoutLineFeeds},
              Form{"", "form.json.gz", Texts::WithoutLineFeeds},
              Form{"--pretty", "form.xml", Texts::OfElementsWithoutChildren}}) {
            std::string const what = document + ' ' + form.options + ' ' + form.file;
            ToolResult const there =
                scratch.Run("convert " + std::string(form.options) + " '" + document + "' " + form.file);
            ASSERT_EQ(there.exitCode, 0) << what << '\n' << there.err;
            EXPECT_EQ(there.err, "") << what;
            ToolResult const back = scratch.Run("convert " + std::string(form.file) + " back.xml");
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
        if (HasMixedContent(document))
            continue;
        ASSERT_EQ(scratch.Run("convert --pretty '" + document + "' once.xml").exitCode, 0) << document;
        ASSERT_EQ(scratch.Run("convert --pretty once.xml twice.xml").exitCode, 0) << document;
        EXPECT_TRUE(scratch.Read("once.xml") == scratch.Read("twice.xml")) << document;
        ++checked;
    }
    EXPECT_GE(checked, 5);
}

} // namespace
