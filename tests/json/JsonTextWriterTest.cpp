// The mapping of elements, attributes, values and collections to JSON, by calls of the writer.
#include "zvxmllib/json/JsonTextWriter.h"
#include "tests/json/JsonParser.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/foundation/TextStream.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>

using namespace ZvXmlLib16;

namespace {

constexpr char kInstance[] = "http://www.w3.org/2001/XMLSchema-instance";

// The calls that a driver makes, in short form.
struct Calls {
    CJsonTextWriter& writer;

    Calls& Start(char const* name, char const* ns = "") { return writer.WriteElementStart(name, ns), *this; }
    Calls& End() { return writer.WriteElementEnd(), *this; }
    Calls& Value(char const* text, ItemType type = ItemType_string) {
        return writer.WriteElementValue(text, type, false), *this;
    }
    Calls& Attribute(char const* name, char const* value, ItemType type = ItemType_string,
                     char const* ns = "") {
        return writer.WriteAttribute(name, ns, value, type), *this;
    }
    Calls& Scalar(char const* name, char const* text, ItemType type = ItemType_string) {
        return Start(name).Value(text, type).End();
    }
    Calls& Object(char const* name, char const* value) { return Start(name).Attribute("v", value).End(); }
    Calls& Begin() { return writer.SetCollectionState(1), *this; }
    Calls& Done() { return writer.SetCollectionState(3), *this; }
};

using Body = std::function<void(Calls&)>;
using Setup = std::function<void(CJsonTextWriter&)>;

std::string Write(Body const& body, Setup const& setup) {
    CTextStream sink(XmlEncoding_None);
    CJsonTextWriter writer(&sink);
    writer.Open();
    setup(writer);
    writer.WriteDocumentStart();
    Calls calls{writer};
    body(calls);
    writer.WriteDocumentEnd();
    writer.Close();
    return sink.GetText();
}

Setup Compact(JsonRoundTrip roundTrip = JsonRoundTrip_Full) {
    return [roundTrip](CJsonTextWriter& writer) {
        writer.SetFormatted(false);
        writer.SetRoundTrip(roundTrip);
    };
}

Setup Formatted(EOLType eol) {
    return [eol](CJsonTextWriter& writer) { writer.SetEOLType(eol); };
}

// Without line breaks and the tabs behind them; no value of the tables has any of its own.
std::string Unformatted(std::string const& text) {
    std::string result;
    for (char const c : text)
        if (c != '\r' && c != '\n' && c != '\t')
            result += c;
    return result;
}

struct Row {
    char const* json; // compact
    Body body;
};

void ExpectRows(std::vector<Row> const& rows) {
    for (Row const& row : rows) {
        EXPECT_EQ(Write(row.body, Compact()), row.json);
        EXPECT_EQ(FaultOfJson(row.json), "");
        for (EOLType const eol : {EOLType_LF, EOLType_CRLF}) {
            std::string const formatted = Write(row.body, Formatted(eol));
            EXPECT_EQ(Unformatted(formatted), row.json);
            EXPECT_EQ(FaultOfJson(formatted), "");
        }
    }
}

TEST(JsonTextWriter, MapsElementsByWhatTheyHold) {
    ExpectRows({
        {R"({"a": "x"})", [](Calls& c) { c.Scalar("a", "x"); }},
        {R"({"a": ""})", [](Calls& c) { c.Scalar("a", ""); }},
        {R"({"a": null})", [](Calls& c) { c.Start("a").End(); }},
        {R"({"a": null})",
         [](Calls& c) {
             c.Start("a").writer.WriteNilAttribute();
             c.End();
         }},
        {R"({"a": {"@b": "1"}})", [](Calls& c) { c.Start("a").Attribute("b", "1").End(); }},
        {R"({"a": {"b": "1","c": null,"d": 2}})",
         [](Calls& c) {
             c.Start("a").Scalar("b", "1").Start("c").End().Scalar("d", "2", ItemType_i4).End();
         }},
        {R"({"a": {"@b": "1","c": {"@d": "2"},"#text": "x"}})",
         [](Calls& c) {
             c.Start("a").Attribute("b", "1").Start("c").Attribute("d", "2").End().Value("x").End();
         }},
        {R"({"a": {"@b": "1","#text": ""}})",
         [](Calls& c) { c.Start("a").Attribute("b", "1").Value("").End(); }},
        {R"({"a": {"b": null,"#text": "x"}})",
         [](Calls& c) { c.Start("a").Start("b").End().Value("x").End(); }},
        // An object that ends leaves its parent one, too.
        {R"({"a": {"b": {"c": {"d": "1"}},"e": "2"}})",
         [](Calls& c) {
             c.Start("a").Start("b").Start("c").Scalar("d", "1").End().End().Scalar("e", "2").End();
         }},
        {R"({"a": "x"})",
         [](Calls& c) {
             c.writer.WriteProcessingInstruction("<?p?>");
             c.Start("a").writer.WriteInlineSchema("<schema/>");
             c.Value("x").End();
         }},
    });
}

TEST(JsonTextWriter, WritesADefaultValueLikeAnyOther) {
    EXPECT_EQ(Write(
                  [](Calls& c) {
                      c.Start("a").writer.WriteElementValue("x", ItemType_string, true);
                      c.End();
                  },
                  Compact()),
              R"({"a": "x"})");
}

TEST(JsonTextWriter, MakesAnArrayOfACollectionWhoseFirstItemIsAnObject) {
    ExpectRows({
        {R"({"a": {"i": [{"@v": "1"}]}})",
         [](Calls& c) { c.Start("a").Begin().Object("i", "1").Done().End(); }},
        {R"({"a": {"@v": "0","i": [{"@v": "1"},{"b": null},null,"x"],"z": "9"}})",
         [](Calls& c) {
             c.Start("a").Attribute("v", "0").Begin().Object("i", "1").Start("i").Start("b").End().End();
             c.Start("i").End().Scalar("i", "x").Done().Scalar("z", "9").End();
         }},
        // Two in a row, and a text behind.
        {R"({"a": {"i": [{"@v": "1"}],"j": [{"@v": "2"}],"#text": "x"}})",
         [](Calls& c) {
             c.Start("a").Begin().Object("i", "1").Done().Begin().Object("j", "2").Done().Value("x").End();
         }},
        // One in the item of another.
        {R"({"a": {"i": [{"j": [{"@v": "1"},{"@v": "2"}],"z": "3"},{"j": [{"@v": "4"}]}]}})",
         [](Calls& c) {
             c.Start("a").Begin();
             c.Start("i").Begin().Object("j", "1").Object("j", "2").Done().Scalar("z", "3").End();
             c.Start("i").Begin().Object("j", "4").Done().End();
             c.Done().End();
         }},
        // Scalars are repeated members, and so is what comes ahead of the first object.
        {R"({"a": {"i": "1","i": "2","z": "3"}})",
         [](Calls& c) {
             c.Start("a").Begin().Scalar("i", "1").Scalar("i", "2").Done().Scalar("z", "3").End();
         }},
        {R"({"a": {"i": null,"i": "1","i": [{"@v": "2"},"3"],"z": "4"}})",
         [](Calls& c) {
             c.Start("a").Begin().Start("i").End().Scalar("i", "1").Object("i", "2").Scalar("i", "3").Done();
             c.Scalar("z", "4").End();
         }},
        {R"({"a": {"i": "1","j": [{"@v": "2"}]}})",
         [](Calls& c) {
             c.Start("a").Begin().Scalar("i", "1").Done().Begin().Object("j", "2").Done().End();
         }},
        // Items of an array have no name of their own, whatever it is.
        {R"({"a": {"i": [{"@v": "1"},{"@v": "2"}]}})",
         [](Calls& c) { c.Start("a").Begin().Object("i", "1").Object("other", "2").Done().End(); }},
        // An element that is not of a collection, behind one and in one.
        {R"({"a": {"i": [{"@v": "1"}],"i": {"@v": "2"}}})",
         [](Calls& c) { c.Start("a").Begin().Object("i", "1").Done().Object("i", "2").End(); }},
        {R"({"a": null})", [](Calls& c) { c.Start("a").Begin().Done().End(); }},
    });
}

// The collection of a repeated group lies in that of another, and both write into the same element.
TEST(JsonTextWriter, ClosesTheArrayOfAGroupWhenACollectionBeginsInIt) {
    ExpectRows({
        {R"({"a": {"x": [{"@v": "1"}],"i": [{"@v": "2"}],"x": {"@v": "3"},"i": [{"@v": "4"}],"z": "5"}})",
         [](Calls& c) {
             c.Start("a").Begin();
             c.Object("x", "1").Begin().Object("i", "2").Done();
             c.Object("x", "3").Begin().Object("i", "4").Done();
             c.Done().Scalar("z", "5").End();
         }},
        {R"({"a": {"x": [{"@v": "1"}],"i": "2","i": "3","x": {"@v": "4"}}})",
         [](Calls& c) {
             c.Start("a").Begin().Object("x", "1").Begin().Scalar("i", "2").Scalar("i", "3").Done();
             c.Object("x", "4").Done().End();
         }},
        // A collection of which nobody tells the end.
        {R"({"a": {"i": [{"@v": "1"}],"@b": "2"}})",
         [](Calls& c) { c.Start("a").Begin().Object("i", "1").Attribute("b", "2").End(); }},
        {R"({"a": {"b": {"i": [{"@v": "1"}]},"c": {"i": [{"@v": "2"}],"#text": "x"}}})",
         [](Calls& c) {
             c.Start("a").Start("b").Begin().Object("i", "1").End();
             c.Start("c").Begin().Object("i", "2").Value("x").End().End();
         }},
    });
}

void WriteOrder(Calls& c) {
    c.writer.SetDefaultNamespace("urn:example");
    c.writer.AddNamespaceAlias("xs", "urn:other");
    c.Start("Order", "urn:example").Attribute("id", "5", ItemType_i4).Begin();
    c.Start("Item", "urn:example").Scalar("Name", "first").End();
    c.Start("Item", "urn:example").Begin().Start("Part").Scalar("Name", "p").Start("Free").End().End().Done();
    c.End().Scalar("Item", "bare").Done();
    c.Begin().Start("Note", "urn:other").Attribute("lang", "de").Value("x").End().Done();
    c.Scalar("Total", "12.5", ItemType_r8).End();
}

TEST(JsonTextWriter, IndentsByDepthAndByArrays) {
    std::string const expected = R"({
	"Order": {
		"@xmlns": "urn:example",
		"@xmlns:xs": "urn:other",
		"@id": 5,
		"Item": [
			{
				"Name": "first"
			},
			{
				"Part": [
					{
						"Name": "p",
						"Free": null
					}
				]
			},
			"bare"
		],
		"xs:Note": [
			{
				"@lang": "de",
				"#text": "x"
			}
		],
		"Total": 12.5
	}
})";
    std::string withCrLf;
    std::string withBlank;
    for (char const c : expected) {
        withCrLf += c == '\n' ? "\r\n" : std::string(1, c);
        withBlank += c == '\t' ? ' ' : c;
    }
    EXPECT_EQ(Write(WriteOrder, Formatted(EOLType_LF)), expected);
    EXPECT_EQ(Write(WriteOrder, Formatted(EOLType_CRLF)), withCrLf);
    EXPECT_EQ(Write(WriteOrder, [](CJsonTextWriter& writer) { writer.SetIndentChars(" "); }), withBlank);
    EXPECT_EQ(Write(WriteOrder, Compact()), Unformatted(expected));
}

TEST(JsonTextWriter, KeepsAsMuchAsItsModeSays) {
    Body const body = [](Calls& c) {
        c.writer.SetDefaultNamespace("d");
        c.writer.AddNamespaceAlias("p", "u");
        c.writer.AddNamespaceAlias("i", kInstance);
        c.Start("a", "u").writer.WriteTypeAttribute("u", "T", ItemType_string);
        c.Attribute("b", "1").Attribute("c", "2", ItemType_string, "u");
        c.Start("e", "d").End().Start("f", "u").End().Value("x").End();
    };
    struct {
        JsonRoundTrip mode;
        char const* json;
    } const rows[] = {
        {JsonRoundTrip_None, R"({"a": {"b": "1","c": "2","e": null,"f": null,"": "x"}})"},
        {JsonRoundTrip_NoNamespaces, R"({"a": {"@b": "1","@c": "2","e": null,"f": null,"#text": "x"}})"},
        {JsonRoundTrip_Full,
         R"({"p:a": {"@xmlns": "d","@xmlns:i": "http://www.w3.org/2001/XMLSchema-instance","@xmlns:p": "u",)"
         R"("@i:type": "p:T","@b": "1","@p:c": "2","e": null,"p:f": null,"#text": "x"}})"},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Write(body, Compact(row.mode)), row.json);
        EXPECT_EQ(FaultOfJson(row.json), "");
    }
}

TEST(JsonTextWriter, NamesNamespacesByTheirAliases) {
    ExpectRows({
        // The root alone may have an alias made up; its declaration comes first.
        {R"({"AA:a": {"@xmlns:AA": "u","@xmlns": "d","@xmlns:p": "v","p:b": "1","AA:c": "2"}})",
         [](Calls& c) {
             c.writer.SetDefaultNamespace("d");
             c.writer.AddNamespaceAlias("p", "v");
             c.Start("a", "u").Start("b", "v").Value("1").End().Start("c", "u").Value("2").End().End();
         }},
        {R"({"a": {"@xmlns": "d"}})",
         [](Calls& c) {
             c.writer.SetDefaultNamespace("d");
             c.Start("a", "d").End();
         }},
        // In the order of the namespaces; an empty alias is none.
        {R"({"a": {"@xmlns:z": "u1","@xmlns:y": "u3","#text": "x"}})",
         [](Calls& c) {
             c.writer.AddNamespaceAlias("y", "u3");
             c.writer.AddNamespaceAlias("z", "u1");
             c.writer.AddNamespaceAlias("", "u2");
             c.writer.AddNamespaceAlias("w", "http://www.w3.org/XML/1998/namespace/more");
             c.Start("a").Value("x").End();
         }},
        {R"({"a": {"@xml:lang": "de"}})",
         [](Calls& c) {
             c.Start("a").Attribute("lang", "de", ItemType_string, "http://www.w3.org/XML/1998/namespace");
             c.End();
         }},
        // An attribute in the default namespace needs an alias all the same; a type in it does not.
        {R"({"a": {"@xmlns": "d","@xmlns:p": "d","@xmlns:i": "http://www.w3.org/2001/XMLSchema-instance",)"
         R"("@p:b": "1","c": {"@i:type": "T"},"e": {"@i:type": "T"}}})",
         [](Calls& c) {
             c.writer.SetDefaultNamespace("d");
             c.writer.AddNamespaceAlias("p", "d");
             c.writer.AddNamespaceAlias("i", kInstance);
             c.Start("a", "d").Attribute("b", "1", ItemType_string, "d");
             c.Start("c", "d").writer.WriteTypeAttribute("d", "T", ItemType_string);
             c.End().Start("e", "d").writer.WriteTypeAttribute("", "T", ItemType_string);
             c.End().End();
         }},
        // What is made known inside an element holds there.
        {R"({"a": {"b": {"q:c": "1","e": "2"}}})",
         [](Calls& c) {
             c.Start("a").Start("b").writer.AddNamespaceAlias("q", "u");
             c.writer.SetDefaultNamespace("d");
             c.Start("c", "u").Value("1").End().Start("e", "d").Value("2").End().End().End();
         }},
        // Later items of an array have no name, so theirs needs no alias.
        {R"({"a": {"i": [{"@v": "1"},"x"]}})",
         [](Calls& c) {
             c.Start("a").Begin().Object("i", "1").Start("i", "unknown").Value("x").End().Done().End();
         }},
    });
}

TEST(JsonTextWriter, QuotesAllButNumbersAndBooleans) {
    for (std::uint32_t number = ItemType_invalid; number <= ItemType_integer; ++number) {
        auto const type = static_cast<ItemType>(number);
        bool const isBare = (number >= 3 && number <= 12) || number >= 24;
        std::string const value = isBare ? "1" : R"("1")";
        EXPECT_EQ(Write([&](Calls& c) { c.Start("a").Attribute("b", "1", type).Value("1", type).End(); },
                        Compact()),
                  R"({"a": {"@b": )" + value + R"(,"#text": )" + value + "}}")
            << number;
    }
    // No JSON, but the lexical forms of XML Schema.
    EXPECT_EQ(Write([](Calls& c) { c.Scalar("a", "-INF", ItemType_r8); }, Compact()), R"({"a": -INF})");
}

TEST(JsonTextWriter, EscapesValuesByteByByte) {
    using namespace std::string_literals;
    struct {
        std::string text;
        std::string json;
    } const rows[] = {
        {R"("quoted\)", R"("\"quoted\\")"},
        {"\b\t\f\r/", R"("\b\t\f/")"},
        {"\x01\x0B\x0E\x1F\x7F", "\"\\u0001\\u000B\\u000E\\u001F\x7F\""},
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E", "\"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E\""},
        {"before\0behind"s, R"("before")"},
        {std::string(5000, 'x') + "\"", '"' + std::string(5000, 'x') + R"(\"")"},
    };
    for (auto const& row : rows) {
        std::string const json = Write(
            [&](Calls& c) {
                c.Start("a");
                c.writer.WriteAttribute("b", "", row.text, ItemType_string);
                c.writer.WriteElementValue(row.text, ItemType_string, false);
                c.End();
            },
            Compact());
        EXPECT_EQ(json, R"({"a": {"@b": )" + row.json + R"(,"#text": )" + row.json + "}}");
        EXPECT_EQ(FaultOfJson(json), "");
    }
}

TEST(JsonTextWriter, WritesLineFeedsOfValuesAsTheyAre) {
    Body const body = [](Calls& c) { c.Scalar("a", "x\r\ny\nz"); };
    EXPECT_EQ(Write(body, Compact()), "{\"a\": \"x\ny\nz\"}");
    EXPECT_EQ(Write(body, Formatted(EOLType_CRLF)), "{\r\n\t\"a\": \"x\r\ny\r\nz\"\r\n}");
}

TEST(JsonTextWriter, WritesComments) {
    Body const body = [](Calls& c) {
        c.writer.WriteComment("a \"b\"");
        c.Start("a").Attribute("b", "1").writer.WriteComment("c");
        c.End();
    };
    EXPECT_EQ(Write(body, Compact()), "{/* a \\\"b\\\" */\n\"a\": {\"@b\": \"1\"/* c */\n}}");
    EXPECT_EQ(Write(body, Formatted(EOLType_LF)),
              "{\n/* a \\\"b\\\" */\n\t\"a\": {\n\t\t\"@b\": \"1\"/* c */\n\n\t}\n}");
}

TEST(JsonTextWriter, WritesSeveralRootsAsMembersOfTheDocument) {
    Body const body = [](Calls& c) { c.Scalar("i", "1").Start("i").Attribute("v", "2").End(); };
    EXPECT_EQ(Write(body, Compact()), R"({"i": "1","i": {"@v": "2"}})");
    EXPECT_EQ(Write(body, Formatted(EOLType_LF)),
              "{\n\t\"i\": \"1\",\n\t\"i\": {\n\t\t\"@v\": \"2\"\n\t}\n}");
}

TEST(JsonTextWriter, RefusesWhatItCannotWrite) {
    struct {
        char const* message;
        Body body;
    } const rows[] = {
        {"Unknown Namespace: u.", [](Calls& c) { c.Start("a").Start("b", "u"); }},
        {"Unknown Namespace: u.", [](Calls& c) { c.Start("a").Attribute("b", "", ItemType_string, "u"); }},
        {"Unknown Namespace: d.",
         [](Calls& c) {
             c.writer.SetDefaultNamespace("d");
             c.Start("a", "d").Attribute("b", "", ItemType_string, "d");
         }},
        {"Unknown Namespace: u.",
         [](Calls& c) {
             c.writer.AddNamespaceAlias("i", kInstance);
             c.Start("a").writer.WriteTypeAttribute("u", "T", ItemType_string);
         }},
        {"Unknown Namespace: http://www.w3.org/2001/XMLSchema-instance.",
         [](Calls& c) { c.Start("a").writer.WriteTypeAttribute("", "T", ItemType_string); }},
        {"Invalid EOL type.", [](Calls& c) { c.writer.SetEOLType(static_cast<EOLType>(2)); }},
        {"An Element has not been closed.", [](Calls& c) { c.Start("a"); }},
        {"Attributes must be added before elements", [](Calls& c) { c.Attribute("a", "1"); }},
        {"Attributes must be added before elements",
         [](Calls& c) { c.writer.WriteTypeAttribute("", "T", ItemType_string); }},
        {"A value must be written inside an element.", [](Calls& c) { c.Scalar("a", "1").Value("2"); }},
        {"There is no open element to be closed.", [](Calls& c) { c.End(); }},
        {"In JSON nothing can follow the text of an element that began with its text.",
         [](Calls& c) { c.Start("a").Value("1").Value("2"); }},
        {"In JSON nothing can follow the text of an element that began with its text.",
         [](Calls& c) { c.Start("a").Value("1").Start("b"); }},
        {"In JSON nothing can follow the text of an element that began with its text.",
         [](Calls& c) { c.Start("a").Value("1").Attribute("b", "2"); }},
    };
    for (auto const& row : rows)
        EXPECT_EQ(MessageOf<CZvException>([&] { Write(row.body, Compact()); }), row.message);
}

TEST(JsonTextWriter, NeedsNoAliasesWithoutNamespaces) {
    for (JsonRoundTrip const mode : {JsonRoundTrip_None, JsonRoundTrip_NoNamespaces}) {
        EXPECT_EQ(Write(
                      [](Calls& c) {
                          c.Start("a", "u").writer.WriteTypeAttribute("u", "T", ItemType_string);
                          c.Start("b", "v").Value("1").End().End();
                      },
                      Compact(mode)),
                  R"({"a": {"b": "1"}})");
    }
}

class CountingSink : public CTextStream {
public:
    CountingSink() : CTextStream(XmlEncoding_None) {}
    void Flush() override { m_lengths.push_back(GetLength()); }
    std::vector<std::size_t> m_lengths; // at each flush
};

TEST(JsonTextWriter, FlushesWhenAnElementStartsBehindFourKilobytes) {
    CountingSink sink;
    CJsonTextWriter writer(&sink);
    writer.SetFormatted(false);
    writer.WriteDocumentStart();
    Calls calls{writer};
    calls.Start("a").Attribute("b", std::string(4084, 'x').c_str()); // behind {"a": {"@b": "
    EXPECT_EQ(sink.GetLength(), 4099U);
    EXPECT_TRUE(sink.m_lengths.empty()) << "attributes do not look at the length";
    calls.Start("c").Value("x").End().Start("d").End().End();
    writer.WriteDocumentEnd();
    EXPECT_THAT(sink.m_lengths, testing::ElementsAre(4105U, 4114U));
}

} // namespace
