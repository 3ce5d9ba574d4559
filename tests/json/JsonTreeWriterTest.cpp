// The short way of JSON into the tree against the way by XML text: the same tree, or none.
#include "zvxmllib/json/JsonTreeWriter.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/ZvXmlLib.h"

#include <gmock/gmock.h>

#include <string>

using namespace ZvXmlLib16;

namespace {

std::string Describe(CXmlElement const& element) {
    std::string text = element.GetXPath() + " {" + element.GetNamespaceURI() + "}" + element.GetLocalName();
    for (CXmlAttribute const* attribute : element.GetAttributes())
        text +=
            ' ' + attribute->GetXPath() + " {" + attribute->GetNamespaceURI() + "}=" + attribute->GetValue();
    text += ": " + element.GetText() + '\n';
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        text += Describe(*child);
    return text;
}

std::string Describe(CXmlDocument const& document) {
    std::string text = Describe(*document.GetDocumentElement());
    for (char const* prefix : {"", "p", "q", "xml"})
        text += document.LookupNamespaceFromAlias(prefix) + ';';
    return text;
}

std::string ByWayOfXml(std::string const& json, CSerializationContext const& ctx) {
    CBinaryData const xml = CXmlDocument(ctx).LoadJson(json.c_str());
    CXmlDocument document(ctx);
    document.LoadXmlStream(xml.GetData(), xml.GetLength());
    return Describe(document);
}

TEST(JsonTreeWriter, BuildsTheTreeOfTheXmlText) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    for (auto const& row : Vectors("json.txt", "the short way: trees")) {
        std::string const& json = row[0];
        CXmlDocument document(ctx);
        ASSERT_TRUE(CJsonTreeWriter::Fill(document, json, ctx)) << json;
        EXPECT_EQ(Describe(document), ByWayOfXml(json, ctx)) << json;
    }
}

TEST(JsonTreeWriter, TakesNothingThatNeedsTheParsersJudgement) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    std::string tooMany = "{\"a\":{\"@x\":1";
    for (int i = 0; i < 64; ++i)
        tooMany += ",\"@x" + std::to_string(i) + "\":1";
    std::vector<std::vector<std::string>> rows = Vectors("json.txt", "the short way: declined");
    rows.push_back({tooMany + "}}"});
    for (auto const& row : rows) {
        std::string const& json = row[0];
        CXmlDocument document(ctx);
        EXPECT_FALSE(CJsonTreeWriter::Fill(document, json, ctx)) << json;
        EXPECT_EQ(document.GetDocumentElement(), nullptr) << json;
    }
    CSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaType_NoNamespaces);
    CXmlDocument document(noNamespaces);
    EXPECT_FALSE(CJsonTreeWriter::Fill(document, "{\"a\":1}", noNamespaces));
    LocalEncoding const other(1252);
    EXPECT_FALSE(CJsonTreeWriter::Fill(document, "{\"a\":1}", ctx));
}

TEST(JsonTreeWriter, LeavesFailuresOfTheTextAsTheyAre) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    CXmlDocument document(ctx);
    EXPECT_EQ(MessageOf<CZvValidationException>([&] { CJsonTreeWriter::Fill(document, "{\"a\":[x", ctx); }),
              "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found 'x' at line 1, "
              "position 7.");
}

} // namespace
