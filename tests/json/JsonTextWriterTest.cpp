// The mapping of elements, attributes, values and collections to JSON, by calls of the writer.
#include "zvxmllib/json/JsonTextWriter.h"
#include "tests/json/JsonParser.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/Vectors.h"
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

// Scripts and their compact JSON.
void ExpectRows(std::string const& section) {
    for (auto const& row : Vectors("json.txt", section)) {
        Script const script(row[0]);
        EXPECT_EQ(Write(script, Compact()), row[1]);
        EXPECT_EQ(FaultOfJson(row[1]), "");
        for (EOLType const eol : {EOLType_LF, EOLType_CRLF}) {
            std::string const formatted = Write(script, Formatted(eol));
            EXPECT_EQ(Unformatted(formatted), row[1]);
            EXPECT_EQ(FaultOfJson(formatted), "");
        }
    }
}

TEST(JsonTextWriter, MapsElementsByWhatTheyHold) {
    ExpectRows("writer maps elements by what they hold");
}

TEST(JsonTextWriter, MakesAnArrayOfACollectionWhoseFirstItemIsAnObject) {
    ExpectRows("writer makes an array of a collection whose first item is an object");
}

// The collection of a repeated group lies in that of another, and both write into the same element.
TEST(JsonTextWriter, ClosesTheArrayOfAGroupWhenACollectionBeginsInIt) {
    ExpectRows("writer closes the array of a group when a collection begins in it");
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
         R"("@i:type": "p:T","@b": "1","@p:c": "2","e": null,"p:f": null,"#text": "x"}})"}};
    for (auto const& row : rows) {
        EXPECT_EQ(Write(script, Compact(row.mode)), row.json);
        EXPECT_EQ(FaultOfJson(row.json), "");
    }
    // Without namespaces no aliases are needed.
    for (JsonRoundTrip const mode : {JsonRoundTrip_None, JsonRoundTrip_NoNamespaces})
        EXPECT_EQ(Write(Script("(u|a ^u|T (v|b '1'))"), Compact(mode)), R"({"a": {"b": "1"}})");
}

TEST(JsonTextWriter, NamesNamespacesByTheirAliases) {
    ExpectRows("writer names namespaces by their aliases");
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
    } const rows[] = {{R"("quoted\)", R"("\"quoted\\")"},
                      {"\b\t\f\r/", R"("\b\t\f/")"},
                      {"\x01\x0B\x0E\x1F\x7F", "\"\\u0001\\u000B\\u000E\\u001F\x7F\""},
                      {"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E", "\"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E\""},
                      {"before\0behind"s, R"("before")"},
                      {std::string(5000, 'x') + "\"", '"' + std::string(5000, 'x') + R"(\"")"}};
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
    for (auto const& row : Vectors("json.txt", "what the writer refuses"))
        EXPECT_EQ(MessageOf<CZvException>([&] { Write(Script(row[0]), Compact()); }), row[1]) << row[0];
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
