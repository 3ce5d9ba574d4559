// The reader of plain JSON against the way by XML text: the same tree, or none.
#include "tests/support/LocalEncoding.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/ZvXmlLib.h"
#include "zvxmllib/json/PlainJsonReader.h"

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

TEST(PlainJson, BuildsTheTreeOfTheXmlText) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    for (auto const& row : Vectors("json.txt", "the short way: trees")) {
        std::string const& json = row[0];
        CXmlDocument document(ctx);
        ASSERT_TRUE(PlainJsonReader::Fill(document, json, ctx)) << json;
        EXPECT_EQ(Describe(document), ByWayOfXml(json, ctx)) << json;
    }
}

TEST(PlainJson, TakesNothingThatNeedsTheParsersJudgement) {
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
        EXPECT_FALSE(PlainJsonReader::Fill(document, json, ctx)) << json;
        EXPECT_EQ(document.GetDocumentElement(), nullptr) << json;
    }
    CSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaType_NoNamespaces);
    CXmlDocument document(noNamespaces);
    EXPECT_FALSE(PlainJsonReader::Fill(document, "{\"a\":1}", noNamespaces));
    LocalEncoding const other(1252);
    EXPECT_FALSE(PlainJsonReader::Fill(document, "{\"a\":1}", ctx));
}

// What the reader takes is what goes by way of XML text; what that refuses, the reader declines.
void ExpectEqualOrDeclined(std::string const& json, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    if (!PlainJsonReader::Fill(document, json, ctx)) {
        EXPECT_EQ(document.GetDocumentElement(), nullptr) << json;
        return;
    }
    try {
        EXPECT_EQ(Describe(document), ByWayOfXml(json, ctx)) << json;
    } catch (CZvException const& failure) {
        ADD_FAILURE() << json << ": " << failure.GetFullMessage();
    }
}

TEST(PlainJson, AgreesWithTheWayByXmlTextOnEachMutant) {
    static constexpr char kBytes[] = "{}[],:\"\\ 0-.eu/@#\n\t\r\x01\x80\xC3";
    LocalEncoding const local(65001);
    for (JsonRoundTrip const mode : {JsonRoundTrip_Full, JsonRoundTrip_None}) {
        CSerializationContext ctx;
        ctx.GetJsonContext().SetSupportRoundtrip(mode);
        for (auto const& row : Vectors("json.txt", "the short way: trees")) {
            std::string const& json = row[0];
            for (std::size_t i = 0; i < json.size(); ++i) {
                ExpectEqualOrDeclined(json.substr(0, i), ctx);
                ExpectEqualOrDeclined(json.substr(0, i) + json.substr(i + 1), ctx);
                for (char const byte : std::string_view(kBytes, sizeof kBytes)) {
                    ExpectEqualOrDeclined(json.substr(0, i) + byte + json.substr(i), ctx);
                    ExpectEqualOrDeclined(json.substr(0, i) + byte + json.substr(i + 1), ctx);
                }
            }
        }
    }
}

TEST(PlainJson, TakesRootNamesAndDepthsAsTheParserDoes) {
    LocalEncoding const local(65001);
    for (char const* const rootName : {"r", "p:r", "r\"", "1", "@r", "#text", "xml:r"}) {
        CSerializationContext ctx;
        ctx.GetJsonContext().SetRootElementName(rootName);
        for (char const* const json :
             {"{\"a\":1,\"b\":[2]}", "{}", "{\"@xmlns:p\":\"u\"}", "{\"#text\":1}", "1"})
            ExpectEqualOrDeclined(json, ctx);
    }
    CSerializationContext const ctx;
    for (int const depth : {10, 48, 49, 50, 97, 98, 99, 100}) {
        std::string objects = "1";
        std::string arrays = "1";
        for (int i = 0; i < depth; ++i) {
            objects = "{\"a\":" + objects + '}';
            arrays = i % 2 == 0 ? '[' + arrays + ']' : "{\"a\":" + arrays + '}';
        }
        ExpectEqualOrDeclined(objects, ctx);
        ExpectEqualOrDeclined(arrays, ctx);
    }
}

} // namespace
