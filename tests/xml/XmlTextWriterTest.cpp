// XML text as it is laid down: tags, prefixes and their scope, escaping, line ends and indent.
#include "zvxmllib/xml/XmlTextWriter.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/Vectors.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/writers/StrictWriter.h"
#include "zvxmllib/xml/ExactXmlWriter.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

TEST(XmlTextWriter, LaysElementsOut) {
    for (auto const& row : Vectors("xml.txt", "elements: what, script, compact, formatted")) {
        EXPECT_EQ(XmlOf(Script(row[1])), row[2]) << row[0];
        EXPECT_EQ(XmlOf(Script(row[1]), true), row[3]) << row[0];
    }
    EXPECT_EQ(XmlOf([](CXmlWriter& w) { w.WriteComment("<1>\n2"); }), "<!--&lt;1&gt;\n2-->\n");
    auto const isDefault = [](CXmlWriter& w) {
        w.WriteElementStart("a", "");
        w.WriteElementValue("x", ItemType_string, true);
        w.WriteElementEnd();
    };
    EXPECT_EQ(XmlOf(isDefault), "<a/>") << "a default value is left out";
}

TEST(XmlTextWriter, EscapesTextAndAttributes) {
    for (auto const& row : Vectors("xml.txt", "escapes: value, text, attribute, end of line")) {
        auto const body = [&](CXmlWriter& w) {
            w.WriteElementStart("a", "");
            w.WriteAttribute("b", "", row[0], ItemType_string);
            w.WriteElementValue(row[0], ItemType_string, false);
            w.WriteElementEnd();
        };
        EXPECT_EQ(XmlOf(body, false, row[3] == "EOLType_LF" ? EOLType_LF : EOLType_CRLF),
                  std::string("<a b=\"") + row[2] + "\">" + row[1] + "</a>");
    }
    EXPECT_EQ(XmlOf(Script(std::string("(a 'a\0<b')", 10))), "<a>a</a>");
}

TEST(XmlTextWriter, PutsPrefixesInScope) {
    for (auto const& row : Vectors("xml.txt", "prefixes: what, script, text"))
        EXPECT_EQ(XmlOf(Script(row[1])), row[2]) << row[0];
}

TEST(XmlTextWriter, GoesOnWithThreeLettersBehindZZ) {
    std::string script = "!AAB=given (r";
    for (int i = 0; i < 679; ++i)
        script += " @u" + std::to_string(i) + "|x=";
    std::string const xml = XmlOf(Script(script + ")"));
    for (char const* declaration :
         {R"( xmlns:AZ="u25" )", R"( xmlns:BA="u26" )", R"( xmlns:ZZ="u675" )", R"( xmlns:AAA="u676" )",
          R"( xmlns:AAC="u677" )", R"( xmlns:AAD="u678" )"})
        EXPECT_THAT(xml, testing::HasSubstr(declaration));
}

TEST(XmlTextWriter, WritesTheOptionsAskedFor) {
    CTextStream sink(XmlEncoding_UTF8);
    CXmlTextWriter writer(&sink);
    writer.Open();
    writer.SetEOLType(EOLType_CRLF);
    writer.SetIndentChars("  ");
    writer.SetWriteDefaultElementValues(true);
    writer.WriteDeclaration();
    writer.WriteDirective("<!DOCTYPE a>");
    writer.WriteElementStart("a", "");
    writer.WriteElementStart("b", "");
    writer.WriteElementValue("x", ItemType_string, true);
    writer.WriteElementEnd();
    writer.SetIndentChars("\t");
    Script("(c)")(writer);
    writer.BeginChild();
    writer.WriteRawLine("<raw>");
    writer.WriteElementEnd();
    writer.Close();
    EXPECT_STREQ(sink.GetText(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!DOCTYPE a>\r\n<a>\r\n"
                                 "  <b>x</b>\r\n\t<c/>\r\n<raw>\r\n</a>\r\n");
}

TEST(XmlTextWriter, ReportsMisuse) {
    for (auto const& row : Vectors("xml.txt", "misuse of the writer"))
        EXPECT_EQ(MessageOf<CZvException>([&] { XmlOf(Script(row[0])); }), row[1]) << row[0];
    CTextStream sink(XmlEncoding_None);
    CXmlTextWriter writer(&sink);
    EXPECT_EQ(MessageOf<CZvException>([&] { writer.SetEOLType(static_cast<EOLType>(2)); }),
              "Invalid EOL type.");
    EXPECT_EQ(writer.GetEOLType(), EOLType_LF);
    writer.WriteElementStart("a", "");
    EXPECT_EQ(MessageOf<CZvException>([&] { writer.WriteDirective("x"); }),
              "Headed directives must appear before an Element has been added.");
}

// A document of elements with these texts, each in one step where the writer can.
template <class Writer>
std::string WriteTexts(std::vector<std::string> const& texts, bool inOneStep, bool formatted) {
    CTextStream sink(XmlEncoding_None);
    sink.SetNeedsFlush(false);
    Writer writer(&sink);
    writer.SetFormatted(formatted);
    writer.SetEOLType(formatted ? EOLType_CRLF : EOLType_LF);
    writer.SetDefaultNamespace("d");
    writer.AddNamespaceAlias("p", "known");
    writer.WriteElementStart("root", "d");
    std::size_t steps = 0;
    for (std::string const& text : texts) {
        for (char const* const ns : {"d", "known", "new", ""}) {
            if (inOneStep && writer.TryWriteTextElement("name", ns, text, ItemType_string)) {
                ++steps;
                continue;
            }
            writer.WriteElementStart("name", ns);
            writer.WriteElementValue(text, ItemType_string, false);
            writer.WriteElementEnd();
        }
    }
    EXPECT_EQ(steps != 0, inOneStep);
    writer.WriteElementEnd();
    writer.Close();
    return std::string(sink.GetText(), sink.GetLength());
}

TEST(XmlTextWriter, WritesTheSameInOneStep) {
    std::vector<std::string> texts{"", "<![CDATA[x]]>", std::string(600, '&'), "\xC3\xA9"};
    for (std::size_t length = 1; length < 40; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            std::string text(length, 'x');
            text[at] = "&<>\r\n\t\"'"[(length + at) % 8];
            texts.push_back(text);
        }
    }
    std::vector<std::string> withNul = texts;
    withNul.push_back(std::string("a\0<b", 4));
    for (bool const formatted : {false, true}) {
        EXPECT_EQ(WriteTexts<CXmlTextWriter>(withNul, true, formatted),
                  WriteTexts<CXmlTextWriter>(withNul, false, formatted));
        using Exact = StrictWriter<CExactXmlWriter>;
        struct Strict : Exact {
            explicit Strict(CTextStream* sink) : Exact(true, sink, true) {}
        };
        EXPECT_EQ(WriteTexts<Strict>(texts, true, formatted), WriteTexts<Strict>(texts, false, formatted));
    }
}

TEST(XmlTextWriter, TakesOneStepOnlyWhereNoFlushIsDue) {
    CTextStream sink(XmlEncoding_None);
    CXmlTextWriter writer(&sink);
    EXPECT_FALSE(writer.TryWriteTextElement("a", "", "the root", ItemType_string));
    writer.WriteElementStart("a", "");
    EXPECT_TRUE(writer.TryWriteTextElement("a", "", "x", ItemType_string));
    writer.WriteElementValue(std::string(4000, 'x'), ItemType_string, false);
    EXPECT_FALSE(writer.TryWriteTextElement("a", "", std::string(100, 'x'), ItemType_string));
}

// Counts how often the writer hands its text on.
class FlushedSink : public CTextStream {
public:
    FlushedSink() : CTextStream(XmlEncoding_None) {}
    void Flush() override {
        m_lengths.push_back(GetLength());
        m_buffer.Reset();
    }
    std::vector<std::size_t> m_lengths;
};

TEST(XmlTextWriter, HandsTheTextOnAt4096Characters) {
    FlushedSink sink;
    CXmlTextWriter writer(&sink);
    writer.SetFormatted(false);
    writer.WriteElementStart("a", "");
    writer.WriteElementValue(std::string(4092, 'x'), ItemType_string, false);
    EXPECT_THAT(sink.m_lengths, testing::ElementsAre());
    writer.WriteElementEnd();
    writer.WriteComment(std::string(4096, 'x'));
    EXPECT_THAT(sink.m_lengths, testing::ElementsAre(4099u, 4104u));
}

} // namespace
