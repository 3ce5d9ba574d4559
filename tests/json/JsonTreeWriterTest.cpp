// The short way of JSON into the tree against the way by XML text: the same tree, or none.
#include "zvxmllib/json/JsonTreeWriter.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
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
    for (char const* json :
         {R"({"a":"x"})", R"({"a":null})", R"({"a":[]})",
          R"({"a":{"b":[1,{"@c":2,"#text":"x"},{"d":{"e":""}},null],"f":true,"#text":"tail\n"}})",
          R"({"a":{"b":{"c":1,"c":2},"#text":"x"}})", R"({"a":{"@b":"<&>\"'\n","c":"<&>\"'\n\t]]>"}})",
          R"({"a":{"@xmlns":"u","@xmlns:p":"v","@xmlns:q":"v","b":1,"p:b":{"@p:c":1,"@c":2},"q:b":"x"}})",
          R"({"p:a":{"@p:b":1,"@xmlns:p":"u"}})", R"({"a":{"@xmlns":"","@xml:lang":"de"}})",
          R"({"a":{"@b":"\u00e4\u20ac\ud83d\ude00\u007f","#text":"\u00e4\ufffd"}})",
          R"({"r":{"a":{"#text":1,"b":2},"c":{"#text":{"d":1}}}})"}) {
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
    for (std::string const& json :
         std::initializer_list<std::string>{"{}",
                                            R"({"a":1,"b":2})",
                                            R"({"a b":1})",
                                            R"({"1":1})",
                                            "{\"\xC3\xA4\":1}",
                                            R"({"a":{"b:":1}})",
                                            R"({"a":{"p:b":1}})",
                                            R"({"a":{"@p:b":1}})",
                                            R"({"a":{"@b":1,"@b":2}})",
                                            R"({"a":{"b":{"@c":1,"@c":2}}})",
                                            R"({"a":{"@xmlns:p":"u","@xmlns:q":"u","@p:b":1,"@q:b":2}})",
                                            R"({"a":{"@xmlns":"u","@xmlns":"v"}})",
                                            R"({"a":{"@xmlns:p":""}})",
                                            R"({"a":{"@xmlns:xml":"u"}})",
                                            R"({"a":{"@xmlns":"http://www.w3.org/XML/1998/namespace"}})",
                                            R"({"a":{"@xmlns":"u|v"}})",
                                            R"({"a":{"b":{"@xmlns":"u"}}})",
                                            R"({"a":"\u0001"})",
                                            R"({"a":"x\r"})",
                                            R"({"a":{"@b":"\t"}})",
                                            R"({"a":"\uffff"})",
                                            "{\"a\":\"\xC3\"}",
                                            R"({"a":"<![CDATA[x]]>"})",
                                            R"({"a":{"#text":1,"@b":2}})",
                                            "5",
                                            tooMany + "}}"}) {
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
