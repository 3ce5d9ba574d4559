// The mapping of elements, attributes, values and collections to JSON, by calls of the writer.
#include "zvxmllib/json/JsonTextWriter.h"
#include "tests/json/JsonParser.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "zvxmllib/streams/TextStream.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>

using namespace ZvXmlLib16;

namespace {

using Body = std::function<void(CJsonTextWriter&)>;
using Setup = std::function<void(CJsonTextWriter&)>;

std::string Write(Body const& body, Setup const& setup) {
    CTextStream sink(XmlEncoding_None);
    CJsonTextWriter writer(&sink);
    writer.Open();
    setup(writer);
    writer.WriteDocumentStart();
    body(writer);
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
    Script script;
    char const* json; // compact
};

void ExpectRows(std::vector<Row> const& rows) {
    for (Row const& row : rows) {
        EXPECT_EQ(Write(row.script, Compact()), row.json);
        EXPECT_EQ(FaultOfJson(row.json), "");
        for (EOLType const eol : {EOLType_LF, EOLType_CRLF}) {
            std::string const formatted = Write(row.script, Formatted(eol));
            EXPECT_EQ(Unformatted(formatted), row.json);
            EXPECT_EQ(FaultOfJson(formatted), "");
        }
    }
}

TEST(JsonTextWriter, MapsElementsByWhatTheyHold) {
    ExpectRows({
        {"(a 'x')", R"({"a": "x"})"},
        {"(a '')", R"({"a": ""})"},
        {"(a)", R"({"a": null})"},
        {"(a %)", R"({"a": null})"},
        {"(a @b=1)", R"({"a": {"@b": "1"}})"},
        {"(a (b '1') (c) (d #2))", R"({"a": {"b": "1","c": null,"d": 2}})"},
        {"(a @b=1 (c @d=2) 'x')", R"({"a": {"@b": "1","c": {"@d": "2"},"#text": "x"}})"},
        {"(a @b=1 '')", R"({"a": {"@b": "1","#text": ""}})"},
        {"(a (b) 'x')", R"({"a": {"b": null,"#text": "x"}})"},
        // An object that ends leaves its parent one, too.
        {"(a (b (c (d '1'))) (e '2'))", R"({"a": {"b": {"c": {"d": "1"}},"e": "2"}})"},
        {"? (a $ 'x')", R"({"a": "x"})"},
    });
}

TEST(JsonTextWriter, MakesAnArrayOfACollectionWhoseFirstItemIsAnObject) {
    ExpectRows({
        {"(a [(i @v=1)])", R"({"a": {"i": [{"@v": "1"}]}})"},
        {"(a @v=0 [(i @v=1) (i (b)) (i) (i 'x')] (z '9'))",
         R"({"a": {"@v": "0","i": [{"@v": "1"},{"b": null},null,"x"],"z": "9"}})"},
        // Two in a row, and a text behind.
        {"(a [(i @v=1)] [(j @v=2)] 'x')", R"({"a": {"i": [{"@v": "1"}],"j": [{"@v": "2"}],"#text": "x"}})"},
        // One in the item of another.
        {"(a [(i [(j @v=1) (j @v=2)] (z '3')) (i [(j @v=4)])])",
         R"({"a": {"i": [{"j": [{"@v": "1"},{"@v": "2"}],"z": "3"},{"j": [{"@v": "4"}]}]}})"},
        // Scalars are repeated members, and so is what comes ahead of the first object.
        {"(a [(i '1') (i '2')] (z '3'))", R"({"a": {"i": "1","i": "2","z": "3"}})"},
        {"(a [(i) (i '1') (i @v=2) (i '3')] (z '4'))",
         R"({"a": {"i": null,"i": "1","i": [{"@v": "2"},"3"],"z": "4"}})"},
        {"(a [(i '1')] [(j @v=2)])", R"({"a": {"i": "1","j": [{"@v": "2"}]}})"},
        // Items of an array have no name of their own, whatever it is.
        {"(a [(i @v=1) (other @v=2)])", R"({"a": {"i": [{"@v": "1"},{"@v": "2"}]}})"},
        // An element that is not of a collection, behind one and in one.
        {"(a [(i @v=1)] (i @v=2))", R"({"a": {"i": [{"@v": "1"}],"i": {"@v": "2"}}})"},
        {"(a [])", R"({"a": null})"},
    });
}

// The collection of a repeated group lies in that of another, and both write into the same element.
TEST(JsonTextWriter, ClosesTheArrayOfAGroupWhenACollectionBeginsInIt) {
    ExpectRows({
        {"(a [(x @v=1) [(i @v=2)] (x @v=3) [(i @v=4)]] (z '5'))",
         R"({"a": {"x": [{"@v": "1"}],"i": [{"@v": "2"}],"x": {"@v": "3"},"i": [{"@v": "4"}],"z": "5"}})"},
        {"(a [(x @v=1) [(i '2') (i '3')] (x @v=4)])",
         R"({"a": {"x": [{"@v": "1"}],"i": "2","i": "3","x": {"@v": "4"}}})"},
        // A collection of which nobody tells the end.
        {"(a [(i @v=1) @b=2)", R"({"a": {"i": [{"@v": "1"}],"@b": "2"}})"},
        {"(a (b [(i @v=1)) (c [(i @v=2) 'x'))",
         R"({"a": {"b": {"i": [{"@v": "1"}]},"c": {"i": [{"@v": "2"}],"#text": "x"}}})"},
    });
}

TEST(JsonTextWriter, IndentsByDepthAndByArrays) {
    Script const order("*urn:example !xs=urn:other (urn:example|Order @id=5 "
                       "[(urn:example|Item (Name 'first')) (urn:example|Item [(Part (Name 'p') (Free))]) "
                       "(Item 'bare')] [(urn:other|Note @lang=de 'x')] (Total #12))");
    std::string const expected = R"({
	"Order": {
		"@xmlns": "urn:example",
		"@xmlns:xs": "urn:other",
		"@id": "5",
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
		"Total": 12
	}
})";
    std::string withCrLf;
    std::string withBlank;
    for (char const c : expected) {
        withCrLf += c == '\n' ? "\r\n" : std::string(1, c);
        withBlank += c == '\t' ? ' ' : c;
    }
    EXPECT_EQ(Write(order, Formatted(EOLType_LF)), expected);
    EXPECT_EQ(Write(order, Formatted(EOLType_CRLF)), withCrLf);
    EXPECT_EQ(Write(order, [](CJsonTextWriter& writer) { writer.SetIndentChars(" "); }), withBlank);
    EXPECT_EQ(Write(order, Compact()), Unformatted(expected));
}

TEST(JsonTextWriter, KeepsAsMuchAsItsModeSays) {
    Script const script("*d !p=u !i=http://www.w3.org/2001/XMLSchema-instance "
                        "(u|a ^u|T @b=1 @u|c=2 (d|e) (u|f) 'x')");
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
        EXPECT_EQ(Write(script, Compact(row.mode)), row.json);
        EXPECT_EQ(FaultOfJson(row.json), "");
    }
    // Without namespaces no aliases are needed.
    for (JsonRoundTrip const mode : {JsonRoundTrip_None, JsonRoundTrip_NoNamespaces})
        EXPECT_EQ(Write(Script("(u|a ^u|T (v|b '1'))"), Compact(mode)), R"({"a": {"b": "1"}})");
}

TEST(JsonTextWriter, NamesNamespacesByTheirAliases) {
    ExpectRows({
        // The root alone may have an alias made up; its declaration comes first.
        {"*d !p=v (u|a (v|b '1') (u|c '2'))",
         R"({"AA:a": {"@xmlns:AA": "u","@xmlns": "d","@xmlns:p": "v","p:b": "1","AA:c": "2"}})"},
        {"*d (d|a)", R"({"a": {"@xmlns": "d"}})"},
        // In the order of the namespaces; an empty alias is none.
        {"!y=u3 !z=u1 !=u2 !w=http://www.w3.org/XML/1998/namespace/more (a 'x')",
         R"({"a": {"@xmlns:z": "u1","@xmlns:y": "u3","#text": "x"}})"},
        {"(a @http://www.w3.org/XML/1998/namespace|lang=de)", R"({"a": {"@xml:lang": "de"}})"},
        // An attribute in the default namespace needs an alias all the same; a type in it does not.
        {"*d !p=d !i=http://www.w3.org/2001/XMLSchema-instance (d|a @d|b=1 (d|c ^d|T) (d|e ^T))",
         R"({"a": {"@xmlns": "d","@xmlns:p": "d","@xmlns:i": "http://www.w3.org/2001/XMLSchema-instance",)"
         R"("@p:b": "1","c": {"@i:type": "T"},"e": {"@i:type": "T"}}})"},
        // What is made known inside an element holds there.
        {"(a (b !q=u *d (u|c '1') (d|e '2')))", R"({"a": {"b": {"q:c": "1","e": "2"}}})"},
        // Later items of an array have no name, so theirs needs no alias.
        {"(a [(i @v=1) (unknown|i 'x')])", R"({"a": {"i": [{"@v": "1"},"x"]}})"},
    });
}

TEST(JsonTextWriter, QuotesAllButNumbersAndBooleans) {
    auto const typed = [](ItemType type, char const* value) {
        return [=](CXmlWriter& w) {
            w.WriteElementStart("a", "");
            w.WriteAttribute("b", "", value, type);
            w.WriteElementValue(value, type, true); // a default value like any other
            w.WriteElementEnd();
        };
    };
    for (std::uint32_t type = ItemType_invalid; type <= ItemType_integer; ++type) {
        bool const isBare = (type >= 3 && type <= 12) || type >= 24;
        std::string const value = isBare ? "1" : R"("1")";
        EXPECT_EQ(Write(typed(static_cast<ItemType>(type), "1"), Compact()),
                  R"({"a": {"@b": )" + value + R"(,"#text": )" + value + "}}")
            << type;
    }
    // No JSON, but the lexical forms of XML Schema.
    EXPECT_EQ(Write(typed(ItemType_r8, "-INF"), Compact()), R"({"a": {"@b": -INF,"#text": -INF}})");
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
        std::string const json = Write(Script("(a @b='" + row.text + "' '" + row.text + "')"), Compact());
        EXPECT_EQ(json, R"({"a": {"@b": )" + row.json + R"(,"#text": )" + row.json + "}}");
        EXPECT_EQ(FaultOfJson(json), "");
    }
    // Line feeds are written as they are.
    Script const lines("(a 'x\r\ny\nz')");
    EXPECT_EQ(Write(lines, Compact()), "{\"a\": \"x\ny\nz\"}");
    EXPECT_EQ(Write(lines, Formatted(EOLType_CRLF)), "{\r\n\t\"a\": \"x\r\ny\r\nz\"\r\n}");
}

TEST(JsonTextWriter, WritesComments) {
    Body const body = [](CJsonTextWriter& w) {
        w.WriteComment("a \"b\"");
        Script("(a @b=1 ~)")(w);
    };
    EXPECT_EQ(Write(body, Compact()), "{/* a \\\"b\\\" */\n\"a\": {\"@b\": \"1\"/* c */\n}}");
    EXPECT_EQ(Write(body, Formatted(EOLType_LF)),
              "{\n/* a \\\"b\\\" */\n\t\"a\": {\n\t\t\"@b\": \"1\"/* c */\n\n\t}\n}");
}

TEST(JsonTextWriter, WritesSeveralRootsAsMembersOfTheDocument) {
    Script const script("(i '1') (i @v=2)");
    EXPECT_EQ(Write(script, Compact()), R"({"i": "1","i": {"@v": "2"}})");
    EXPECT_EQ(Write(script, Formatted(EOLType_LF)),
              "{\n\t\"i\": \"1\",\n\t\"i\": {\n\t\t\"@v\": \"2\"\n\t}\n}");
}

TEST(JsonTextWriter, RefusesWhatItCannotWrite) {
    struct {
        char const* script;
        char const* message;
    } const rows[] = {
        {"(a (u|b", "Unknown Namespace: u."},
        {"(a @u|b=", "Unknown Namespace: u."},
        {"*d (d|a @d|b=", "Unknown Namespace: d."},
        {"!i=http://www.w3.org/2001/XMLSchema-instance (a ^u|T", "Unknown Namespace: u."},
        {"(a ^T", "Unknown Namespace: http://www.w3.org/2001/XMLSchema-instance."},
        {"(a", "An Element has not been closed."},
        {"@a=1", "Attributes must be added before elements"},
        {"^T", "Attributes must be added before elements"},
        {"(a '1') '2'", "A value must be written inside an element."},
        {")", "There is no open element to be closed."},
        {"(a '1' '2'", "In JSON nothing can follow the text of an element that began with its text."},
        {"(a '1' (b", "In JSON nothing can follow the text of an element that began with its text."},
        {"(a '1' @b=2", "In JSON nothing can follow the text of an element that began with its text."},
    };
    for (auto const& row : rows)
        EXPECT_EQ(MessageOf<CZvException>([&] { Write(Script(row.script), Compact()); }), row.message)
            << row.script;
    EXPECT_EQ(MessageOf<CZvException>([] { Write({}, Formatted(static_cast<EOLType>(2))); }),
              "Invalid EOL type.");
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
    Script("(a @b=" + std::string(4084, 'x'))(writer); // behind {"a": {"@b": "
    EXPECT_EQ(sink.GetLength(), 4099U);
    EXPECT_TRUE(sink.m_lengths.empty()) << "attributes do not look at the length";
    Script("(c 'x') (d))")(writer);
    writer.WriteDocumentEnd();
    EXPECT_THAT(sink.m_lengths, testing::ElementsAre(4105U, 4114U));
}

} // namespace
