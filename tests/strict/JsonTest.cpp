// JSON by the usual rules and by the strict ones: row by row, then whole documents out and in again.
#include "tests/strict/Twice.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/json/ExactJsonWriter.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/streams/TextStream.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace entries;

namespace {

// What an untyped element becomes that reads the JSON and is written as XML, or the failure.
std::string XmlOf(std::string const& json, CSerializationContext const& ctx) {
    try {
        CSmartPtr<CElement> const element(new CElement(""));
        CXmlDocument document(ctx);
        CBinaryData const xml = document.LoadJsonStream(reinterpret_cast<unsigned char const*>(json.data()),
                                                        static_cast<std::uint32_t>(json.size()));
        document.LoadXmlStream(xml.GetData(), xml.GetLength());
        struct Copy : CElement {
            explicit Copy(CXmlElement* root) : CElement("") { CopyXmlElement(root); }
        };
        CSmartPtr<CElement> const copy(new Copy(document.GetDocumentElement()));
        return copy->ToXml(false, false, EOLType_LF, CSerializationContext());
    } catch (CZvException const& failure) {
        return failure.GetMessage().substr(0, failure.GetMessage().find("\nPath: "));
    }
}

std::string JsonOf(CElement& element, CSerializationContext const& ctx) {
    try {
        return element.ToJson(false, EOLType_LF, ctx);
    } catch (CZvException const& failure) {
        return failure.GetMessage();
    }
}

CSmartPtr<CElement> ElementOf(char const* xml) {
    CSmartPtr<CElement> const element(new CElement(""));
    element->FromXml(xml);
    return element;
}

TEST(StrictJson, ReadsByTheLetter) {
    struct Row {
        std::string json;
        std::string strict;
        std::string usual; // but for the line breaks of the XML in between
        std::string rootName;
    };
    for (
        Row const& row : {
            Row{R"({"a/><b":1})", "Failed to convert name 'a/><b' to Element name in XML.",
                "junk after document element at line 2", ""},
            Row{R"({"r":{"@x=\"1\" y":1}})", "Failed to convert name 'x=\"1\" y' to Attribute name in XML.",
                R"(<r x="1" y="1"/>)", ""},
            Row{R"({"r":{"@":1}})", "Failed to convert name '' to Attribute name in XML.",
                "not well-formed (invalid token) at line 2", ""},
            Row{"{\"r\":{\"a\":[1\n2]}}",
                "Expected Array separator character ',', found '2' at line 2, position 1.",
                "<r><a>12</a></r>", ""},
            Row{"{\"r\":\n12\n}", "<r>12</r>", "<r>12</r>", ""},
            Row{"{\"r\":\"x\ty\"}", "Invalid control character [U+0009] in string at line 1, position 8.",
                "<r>x\ty</r>", ""},
            Row{"{\"r\":\"x\ny\"}", "Invalid control character [U+000A] in string at line 2, position 0.",
                "<r>xy</r>", ""},
            Row{R"({"r":"x\u0000y"})", "The character [U+0000] of [r] can not be expressed in XML.",
                "<r>x</r>", ""},
            Row{R"({"r":"\uFFFE"})", "The character [U+FFFE] of [r] can not be expressed in XML.",
                "not well-formed (invalid token) at line 2", ""},
            Row{R"({"r":"\uD800"})", "Invalid surrogate in string at line 1, position 13.",
                "<r>\xEF\xBF\xBD</r>", ""},
            Row{R"({"r":"\uD83D\uDE00"})", "<r>\xF0\x9F\x98\x80</r>", "<r>\xF0\x9F\x98\x80</r>", ""},
            Row{"{\"r\":\n \"\xC0\xAF\"}", "Invalid UTF-8 in string at line 2, position 3.",
                "<r>\xEF\xBF\xBD\xEF\xBF\xBD</r>", ""},
            Row{R"({"r":1}garbage)", "Expected the end of JSON, found 'g' at line 1, position 8.", "<r>1</r>",
                ""},
            Row{R"({"r":1}{"s":2})", "Expected the end of JSON, found '{' at line 1, position 8.", "<r>1</r>",
                ""},
            Row{"/*x*/{}",
                "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '/' at line 1, "
                "position 1.",
                "no element found at line 2", ""},
            Row{R"({"r":{"a":1,"a":2}})",
                "The Name 'a' stands twice in a JSON Object at line 1, position 16.",
                "<r><a>1</a><a>2</a></r>", ""},
            Row{R"({"a":1,"b":2})", "JSON has more than one root element, set a RootElementName.",
                "junk after document element at line 3", ""},
            Row{R"({"a":1,"b":2})", "<r><a>1</a><b>2</b></r>", "<r><a>1</a><b>2</b></r>", "r"},
            Row{R"({"r":{"@xmlns:n\u0069l":"urn:x","n\u0069l:a":null}})",
                R"(<r><AA:a xmlns:AA="urn:x" xmlns:AB="http://www.w3.org/2001/XMLSchema-instance" AB:nil="true"/></r>)",
                R"(<r><AA:a xmlns:AA="urn:x"/></r>)", ""},
            Row{R"([{"a":1}])", "<r><a>1</a></r>", "<r><a>1</a></r>", "r"},
            Row{R"({"r":[1,2]})", "JSON has more than one root element, set a RootElementName.",
                "junk after document element at line 3", ""},
            Row{R"({"r":{"b":1,"@a":1,"#text":"t"}})", R"(<r a="1"><b>1</b>t</r>)",
                "Failed to convert value '1' to Attribute string value in XML.", ""},
            Row{R"({"r":{"@a":{"b":1}}})",
                "The JSON Attribute '@a' has no plain value at line 1, position 12.", "<r><b>1</b></r>", ""},
            Row{R"({"r":{"#text":[1]}})",
                "The JSON Attribute '#text' has no plain value at line 1, position 15.", "<r>1</r>", ""},
            Row{R"({"r":{"a":[[1,2]]}})", "JSON Array has no Name.", "<r><a>1</a><a>2</a></r>", ""},
            Row{"null", "JSON has no root element.", "no element found at line 2", ""},
            Row{"  ", "JSON has no root element.", "no element found at line 2", ""},
            Row{"{}", "JSON has no root element.", "no element found at line 2", ""},
            Row{R"({"r":{"a":[],"@b":null,"c":{}}})", "<r><c/></r>", "<r><c/></r>", ""},
            Row{R"({"w":{"a":{"c":"x"}}})", "<w><a><c>x</c></a></w>", "<w><a><c>x</c></a></w>", ""},
        }) {
        CSerializationContext ctx = Strict();
        ctx.GetJsonContext().SetRootElementName(row.rootName.c_str());
        EXPECT_EQ(XmlOf(row.json, ctx), row.strict) << row.json;
        ctx.SetStrict(false);
        std::string usual = XmlOf(row.json, ctx);
        for (std::size_t at = 0; (at = usual.find('\n', at)) != std::string::npos;)
            usual.erase(at, usual.find_first_not_of("\n\t", at) - at);
        EXPECT_EQ(usual, row.usual) << row.json;
    }
}

TEST(StrictJson, MakesNoMarkupOfAText) {
    Model model;
    model.name = "r";
    model.elements = {new CElementInfoSeqPrimMnd("name", "", 0, false, ItemType_string, nullptr,
                                                 CWhitespaceUtils::WhitespaceRule_Preserve,
                                                 CPrimitiveRestrictions(), nullptr),
                      new CElementInfoSeqPrimOpt("role", "", 1, false, ItemType_string, nullptr,
                                                 CWhitespaceUtils::WhitespaceRule_Preserve,
                                                 CPrimitiveRestrictions(), nullptr)};
    model.Finish();
    char const* const json = R"({"r":{"name":"<![CDATA[x]]></name><role>admin</role><!--"}})";
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromJson(json, Strict());
    EXPECT_EQ(probe->properties[0].GetString(), "<![CDATA[x]]></name><role>admin</role><!--");
    EXPECT_FALSE(probe->properties[1].IsValid());
}

TEST(StrictJson, KeepsNilApartFromEmpty) {
    Model model;
    model.name = "r";
    model.elements = {Prim<CElementInfoSeqPrimMnd>("n", 0, nullptr, true)};
    model.Finish();
    CSerializationContext const ctx = Strict();
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromJson(R"({"r":{"n":null}})", ctx);
    EXPECT_TRUE(probe->properties[0].IsNil());
    EXPECT_EQ(probe->ToJson(false, EOLType_LF, ctx), R"({"r": {"n": null}})");
    EXPECT_EQ(probe->ToJson(false, EOLType_LF, CSerializationContext()), R"({"r": {"n": null}})");
    probe->FromJson(R"({"r":{"n":5}})", ctx);
    EXPECT_EQ(probe->ToJson(false, EOLType_LF, ctx), R"({"r": {"n": 5}})");
}

TEST(StrictJson, WritesWhatOtherProgramsRead) {
    struct Row {
        char const* xml;
        std::string usual;
        std::string strict;
    };
    for (Row const& row : {
             Row{"<r>a\nb</r>", "{\"r\": \"a\nb\"}", R"({"r": "a\nb"})"},
             Row{"<r><n>1</n><n>2</n></r>", R"({"r": {"n": "1","n": "2","#text": ""}})",
                 R"({"r": {"n": ["1","2"]}})"},
             Row{"<r><a>1</a><b>2</b><a>3</a></r>", R"({"r": {"a": "1","b": "2","a": "3","#text": ""}})",
                 "JSON can not express the Element [a] in this place."},
             Row{"<r><a/></r>", R"({"r": {"a": "","#text": ""}})", R"({"r": {"a": ""}})"},
             Row{"<r k='1'/>", R"({"r": {"@k": "1","#text": ""}})", R"({"r": {"@k": "1"}})"},
             Row{"<p:r xmlns:p='urn:&quot;'><e xmlns='urn:e'/></p:r>", "Unknown Namespace: urn:e.",
                 R"({"AA:r": {"@xmlns:AA": "urn:\"","AB:e": {"@xmlns:AB": "urn:e"}}})"},
         }) {
        CSmartPtr<CElement> const element = ElementOf(row.xml);
        EXPECT_EQ(JsonOf(*element, CSerializationContext()), row.usual) << row.xml;
        std::string const strict = JsonOf(*element, Strict());
        EXPECT_EQ(strict, row.strict) << row.xml;
        if (strict[0] != '{')
            continue;
        EXPECT_TRUE(nlohmann::json::accept(strict)) << strict;
        EXPECT_EQ(XmlOf(strict, Strict()), element->ToXml(false, false, EOLType_LF, CSerializationContext()))
            << strict;
    }

    CTextStream sink(XmlEncoding_UTF8);
    CExactJsonWriter writer(&sink, JsonRoundTrip_Full);
    writer.Begin(false, EOLType_LF, Strict());
    writer.SetDefaultNamespace("urn:d");
    writer.WriteElementStart("r", "urn:d");
    writer.WriteElementStart("n", "");
    writer.WriteElementEnd();
    writer.WriteElementEnd();
    writer.Close();
    EXPECT_STREQ(sink.GetText(), R"({"r": {"@xmlns": "urn:d","n": {"@xmlns": ""}}})");
}

Model* s_choice = nullptr;

// A model, a document, and what becomes of it; the strict JSON gives the document back.
struct ClassRow {
    std::vector<CElementInfo*> elements;
    char const* content;
    char const* usual;
    char const* strict;
    std::function<void(Probe&)> init = {};
};

TEST(StrictJson, WritesClassesSoThatTheyAreReadAgain) {
    Model choice;
    choice.type = XmlElementType_Pseudo;
    choice.group = XmlElementGroupType_Choice;
    choice.elements = {Prim<CElementInfoChoicePrimOpt>("k", 0), Prim<CElementInfoChoicePrimOpt>("m", 1)};
    choice.Finish();
    s_choice = &choice;
    auto const number = [](char const* format, ItemType type = ItemType_r8) {
        return new CElementInfoSeqPrimOpt("n", "", 0, false, type, format,
                                          CWhitespaceUtils::WhitespaceRule_Collapse, CPrimitiveRestrictions(),
                                          nullptr);
    };
    auto const values = [](Probe& probe) { probe.properties[0].SetXmlCollection(NewCol<Ci4Col>({"n"})); };
    auto const groups = [](Probe& probe) {
        probe.properties[0].SetXmlCollection(new ProbeCol(*s_choice, 0, -1));
    };
    auto const groupCol = [] { return new CElementInfoSeqClsCol("group", "", 0, XmlElementType_Pseudo); };
    for (ClassRow& row : std::vector<ClassRow>{
             {{number(nullptr)}, "<n>INF</n>", R"({"order": {"n": INF}})", R"({"order": {"n": "INF"}})"},
             {{number(nullptr)}, "<n>-1.5</n>", R"({"order": {"n": -1.5}})", R"({"order": {"n": -1.5}})"},
             {{number("%#.0f")}, "<n>3.</n>", R"({"order": {"n": 3.}})", R"({"order": {"n": "3."}})"},
             {{number("%.0f", ItemType_decimal)},
              "<n>3.</n>",
              R"({"order": {"n": 3.}})",
              R"({"order": {"n": 3}})"},
             {{new CElementInfoSeqPrimCol("n", "", 0)},
              "<n>1</n>",
              R"({"order": {"n": 1}})",
              R"({"order": {"n": [1]}})",
              values},
             {{new CElementInfoSeqPrimCol("n", "", 0)},
              "<n>1</n><n>2</n>",
              R"({"order": {"n": 1,"n": 2}})",
              R"({"order": {"n": [1,2]}})",
              values},
             {{new CElementInfoSeqPrimCol("n", "", 0)}, "", R"({"order": null})", R"({"order": {}})", values},
             {{groupCol()},
              "<k>1</k><m>2</m>",
              R"({"order": {"k": 1,"m": 2}})",
              R"({"order": {"k": 1,"m": 2}})",
              groups},
             {{groupCol()},
              "<k>1</k><m>2</m><k>3</k>",
              R"({"order": {"k": 1,"m": 2,"k": 3}})",
              "JSON can not express the Element [k] in this place.",
              groups},
         }) {
        Model model;
        model.elements = row.elements;
        model.init = row.init;
        model.Finish();
        CSmartPtr<Probe> const probe(new Probe(model));
        std::string const xml = "<order>" + std::string(row.content) + "</order>";
        probe->FromXml(xml.c_str(), Strict());
        auto const written = [&](CSerializationContext const& ctx) {
            try {
                return probe->ToJson(false, EOLType_LF, ctx);
            } catch (CZvException const& failure) {
                std::string const message = failure.GetFullMessage();
                return message.substr(message.rfind('\n') + 1);
            }
        };
        EXPECT_EQ(written(CSerializationContext()), row.usual);
        std::string const strict = written(Strict());
        EXPECT_EQ(strict, row.strict);
        if (strict[0] != '{')
            continue;
        EXPECT_TRUE(nlohmann::json::accept(strict)) << strict;
        CSmartPtr<Probe> const again(new Probe(model));
        again->FromJson(strict.c_str(), Strict());
        EXPECT_EQ(Write(*again, Strict()), Write(*probe, Strict()));
    }
}

TEST(StrictJson, KeepsNilBesideAttributes) {
    Model model;
    model.attributes = {Attribute("k", 0, true)};
    model.elements = {Prim<CElementInfoSeqPrimOpt>("n", 1)};
    model.Finish();
    CSmartPtr<NillableProbe> const probe(new NillableProbe(model));
    probe->FromJson(R"({"order": {"#text": null, "@k": 1}})", Strict());
    EXPECT_TRUE(probe->GetIsNil());
    EXPECT_EQ(probe->ToJson(false, EOLType_LF, CSerializationContext()), R"({"order": {"@k": 1}})");
    EXPECT_EQ(probe->ToJson(false, EOLType_LF, Strict()), R"({"order": {"@k": 1,"#text": null}})");
    // Where the entry is not nillable.
    CSmartPtr<Probe> const plain(new Probe(model));
    EXPECT_THAT([&] { plain->FromJson(R"({"order": {"n": null}})", Strict()); },
                testing::Throws<CZvException>(testing::Property(
                    &CZvException::GetFullMessage,
                    testing::HasSubstr("Invalid use of 'nil' attribute in non-nillable element."))));
}

TEST(StrictJson, ShowsLittleOfTheDocumentInAFailure) {
    OrderOf model({Prim<CElementInfoSeqPrimOpt>("n", 0)});
    CSmartPtr<Probe> const probe(new Probe(model));
    std::string const json = R"({"order": {"secret": ")" + std::string(1000, 's') + "\"}}";
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        std::string const message = MessageOf<CZvException>([&] { probe->FromJson(json.c_str(), ctx); });
        EXPECT_EQ(message.size() < 500, strict) << message;
    }
}

TEST(StrictJson, RefusesNamesThatMeetWithoutMarks) {
    CSmartPtr<CElement> const element = ElementOf("<q a='1'><a>2</a></q>");
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_None);
        EXPECT_EQ(JsonOf(*element, ctx), strict ? "JSON can not express the Element [a] in this place."
                                                : R"({"q": {"a": "1","a": "2","": ""}})");
    }
}

TEST(StrictJson, RefusesWhatWouldBeNoDocument) {
    CSerializationContext const ctx = Strict();
    struct Row {
        char const* name;
        char const* text;
        char const* strict;
    };
    for (Row const& row :
         {Row{"a b", "", "Invalid Element Name [a b]."}, Row{"", "", "Invalid Element Name []."},
          Row{"p:a", "", "Invalid Element Name [p:a]."},
          Row{"a", "x\x01y", "The character [U+0001] of [a] can not be expressed in XML."},
          Row{"a", "\xFF", "The text of [a] is not valid in the local encoding."}}) {
        CSmartPtr<CElement> const element(new CElement(row.name));
        element->SetText(row.text);
        EXPECT_EQ(JsonOf(*element, ctx), row.strict);
        EXPECT_EQ(JsonOf(*element, CSerializationContext())[0], '{');
    }
    CSmartPtr<CElement> const twins = ElementOf("<a/>");
    twins->GetAttributes()->Add("k", "1");
    twins->GetAttributes()->Add("k", "2");
    EXPECT_EQ(JsonOf(*twins, ctx), "The Attribute [k] is already written.");
    CSmartPtr<CElementCol> const none(new CElementCol("", "##any", "", 0, -1));
    EXPECT_THROW(none->ToJson(false, EOLType_LF, ctx), CZvInvalidStateException);
    EXPECT_THROW(twins->ToJsonStream(false, XmlEncoding_UTF16, EOLType_LF, ctx, CompressionType_None),
                 CZvException);
}

TEST(StrictJson, NestsAsDeepAsItReads) {
    CSerializationContext const ctx = Strict();
    CSmartPtr<CElement> const root(new CElement("a"));
    CSmartPtr<CElement> inner(root);
    for (int level = 0; level < 900; ++level)
        inner = inner->GetChildElements()->Add("a", "");
    std::string const json = root->ToJson(false, EOLType_LF, ctx);
    EXPECT_EQ(XmlOf(json, ctx), root->ToXml(false, false, EOLType_LF, CSerializationContext()));
}

} // namespace
