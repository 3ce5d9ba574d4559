// The reader of plain JSON against the way by XML text: the same tree, or none.
#include "tests/support/BothReaders.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/ZvXmlLib.h"
#include "zvxmllib/json/PlainJsonReader.h"

#include <gmock/gmock.h>

#include <string>

using namespace ZvXmlLib16;

namespace {

std::string PathsOf(CXmlElement const& element) {
    std::string paths = element.GetXPath() + '\n';
    for (CXmlAttribute const* attribute : element.GetAttributes())
        paths += attribute->GetXPath() + '\n';
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        paths += PathsOf(*child);
    return paths;
}

// The same of the document that is made of the XML text.
void ExpectTreeOfXml(CXmlDocument& document, std::string const& json, CSerializationContext const& ctx) {
    CXmlDocument parsed(ctx);
    try {
        CBinaryData const xml = CXmlDocument(ctx).LoadJson(json.c_str());
        std::string_view const text(reinterpret_cast<char const*>(xml.GetData()), xml.GetLength());
        parsed.LoadXmlStream(xml.GetData(), xml.GetLength());
        auto const describe = [&text](CXmlDocument& tree) {
            return both_readers::Description(tree, text).GetText() + PathsOf(*tree.GetDocumentElement());
        };
        EXPECT_EQ(describe(document), describe(parsed)) << json;
    } catch (CZvException const& failure) {
        ADD_FAILURE() << json << ": " << failure.GetFullMessage();
    }
}

// What the reader takes is what goes by way of XML text; what that refuses, the reader declines.
void ExpectEqualOrDeclined(std::string const& json, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    if (PlainJsonReader::Fill(document, json, ctx))
        ExpectTreeOfXml(document, json, ctx);
    else
        EXPECT_EQ(document.GetDocumentElement(), nullptr) << json;
}

void ExpectDeclined(std::vector<std::vector<std::string>> const& rows, CSerializationContext const& ctx) {
    for (auto const& row : rows) {
        CXmlDocument document(ctx);
        EXPECT_FALSE(PlainJsonReader::Fill(document, row[0], ctx)) << row[0];
        EXPECT_EQ(document.GetDocumentElement(), nullptr) << row[0];
    }
}

TEST(PlainJson, BuildsTheTreeOfTheXmlText) {
    LocalEncoding const local(65001);
    for (bool const isStrict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(isStrict);
        for (auto const& row :
             Vectors("json.txt", isStrict ? "the short way: strict trees" : "the short way: trees")) {
            CXmlDocument document(ctx);
            ASSERT_TRUE(PlainJsonReader::Fill(document, row[0], ctx)) << row[0];
            ExpectTreeOfXml(document, row[0], ctx);
        }
    }
}

TEST(PlainJson, TakesNothingThatNeedsTheParsersJudgement) {
    LocalEncoding const local(65001);
    CSerializationContext ctx;
    std::string tooMany = "{\"a\":{\"@x\":1";
    for (int i = 0; i < 64; ++i)
        tooMany += ",\"@x" + std::to_string(i) + "\":1";
    ExpectDeclined(Vectors("json.txt", "the short way: declined"), ctx);
    ExpectDeclined({{tooMany + "}}"}}, ctx);
    ctx.SetSchemaType(SchemaType_NoNamespaces);
    ExpectDeclined({{"{\"a\":1}"}}, ctx);
    CSerializationContext strict;
    strict.SetStrict(true);
    ExpectDeclined(Vectors("json.txt", "the short way: strictly declined"), strict);
    strict.SetKeepPositions(true);
    ExpectDeclined({{"{\"a\":1}"}}, strict);
    LocalEncoding const other(1252);
    ExpectDeclined({{"{\"a\":1}"}}, CSerializationContext());
}

TEST(PlainJson, AgreesWithTheWayByXmlTextOnEachMutant) {
    static constexpr char kBytes[] = "{}[],:\"\\ 0-.eu/@#\n\t\r\x01\x80\xC3";
    LocalEncoding const local(65001);
    struct Kind {
        char const* rows;
        JsonRoundTrip mode;
        bool isStrict;
    };
    for (Kind const& kind : {Kind{"the short way: trees", JsonRoundTrip_Full, false},
                             Kind{"the short way: trees", JsonRoundTrip_None, false},
                             Kind{"the short way: strict trees", JsonRoundTrip_Full, true},
                             Kind{"the short way: strictly declined", JsonRoundTrip_None, true}}) {
        CSerializationContext ctx;
        ctx.GetJsonContext().SetSupportRoundtrip(kind.mode);
        ctx.SetStrict(kind.isStrict);
        for (auto const& row : Vectors("json.txt", kind.rows)) {
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
    for (char const* const rootName : {"r", "p:r", "r\"", "1", "@r", "#text", "xml:r", "nil"}) {
        CSerializationContext ctx;
        ctx.GetJsonContext().SetRootElementName(rootName);
        for (char const* const json :
             {"{\"a\":1,\"b\":[null]}", "{}", "{\"@xmlns:p\":\"u\"}", "{\"#text\":1}", "1"}) {
            for (bool const isStrict : {false, true}) {
                ctx.SetStrict(isStrict);
                ExpectEqualOrDeclined(json, ctx);
            }
        }
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
