// XML text as it is laid down: tags, prefixes and their scope, escaping, line ends and indent.
#include "zvxmllib/xml/XmlTextWriter.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/streams/TextStream.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

TEST(XmlTextWriter, LaysElementsOut) {
    struct Row {
        char const* what;
        Script script;
        char const* compact;
        char const* formatted;
    };
    Row const rows[] = {
        {"nothing", "", "", ""},
        {"an empty element", "(a)", "<a/>", "<a/>\n"},
        {"an empty value leaves the start tag open for attributes", "(a '' @b=c)", "<a b=\"c\"/>",
         "<a b=\"c\"/>\n"},
        {"children and texts", "(a (b '1') (c (d '2') (d '3')) (e))",
         "<a><b>1</b><c><d>2</d><d>3</d></c><e/></a>",
         "<a>\n\t<b>1</b>\n\t<c>\n\t\t<d>2</d>\n\t\t<d>3</d>\n\t</c>\n\t<e/>\n</a>\n"},
        {"a text behind children", "(a (b '1') 'x')", "<a><b>1</b>x</a>", "<a>\n\t<b>1</b>\nx</a>\n"},
        {"a comment leaves the start tag open", "~ (a ~)", "<!--c-->\n<a<!--c-->\n/>",
         "<!--c-->\n<a<!--c-->\n/>\n"},
        {"instructions and an inline schema", "? (a @b=c $)", "<?p?>\n\n<a b=\"c\" \n<s/>\n/>",
         "<?p?>\n\n<a b=\"c\" \n<s/>\n/>\n"}};
    for (Row const& row : rows) {
        EXPECT_EQ(XmlOf(row.script), row.compact) << row.what;
        EXPECT_EQ(XmlOf(row.script, true), row.formatted) << row.what;
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
    struct Row {
        char const* value;
        char const* text;
        char const* attribute;
        EOLType eol;
    };
    Row const rows[] = {
        {"<&>\"'\t", "&lt;&amp;&gt;\"'\t", "&lt;&amp;&gt;&quot;'\t", EOLType_LF},
        {"a\nb", "a\nb", "a&#xA;b", EOLType_LF},
        {"a\nb\n", "a\r\nb\r\n", "a&#xA;b&#xA;", EOLType_CRLF},
        {"a\r\nb\r", "a\nb", "a&#xA;b", EOLType_LF},
        {"&", "&amp;", "&amp;", EOLType_LF},
        {"]]>", "]]&gt;", "]]&gt;", EOLType_LF},
        {"\xC3\xA4<\xE2\x82\xAC", "\xC3\xA4&lt;\xE2\x82\xAC", "\xC3\xA4&lt;\xE2\x82\xAC", EOLType_LF},
        {"<![CDATA[<&>\n]]>", "<![CDATA[<&>\n]]>", "&lt;![CDATA[&lt;&amp;&gt;&#xA;]]&gt;", EOLType_CRLF},
        {" <![CDATA[<]]>", " &lt;![CDATA[&lt;]]&gt;", " &lt;![CDATA[&lt;]]&gt;", EOLType_LF}};
    for (Row const& row : rows) {
        auto const body = [&](CXmlWriter& w) {
            w.WriteElementStart("a", "");
            w.WriteAttribute("b", "", row.value, ItemType_string);
            w.WriteElementValue(row.value, ItemType_string, false);
            w.WriteElementEnd();
        };
        EXPECT_EQ(XmlOf(body, false, row.eol),
                  std::string("<a b=\"") + row.attribute + "\">" + row.text + "</a>");
    }
    EXPECT_EQ(XmlOf(Script(std::string("(a 'a\0<b')", 10))), "<a>a</a>");
}

TEST(XmlTextWriter, PutsPrefixesInScope) {
    struct Row {
        char const* what;
        Script script;
        char const* xml;
    };
    Row const rows[] = {
        {"a prefix is made where it is needed, and again for a sibling", "(r (u1|a) (u2|b) (u1|c))",
         R"(<r><AA:a xmlns:AA="u1"/><AA:b xmlns:AA="u2"/><AA:c xmlns:AA="u1"/></r>)"},
        {"it holds for descendants", "(u1|r (u1|a (u2|b)) (u3|c))",
         R"(<AA:r xmlns:AA="u1"><AA:a><AB:b xmlns:AB="u2"/></AA:a><AB:c xmlns:AB="u3"/></AA:r>)"},
        {"an attribute's prefix holds for children, too", "(r @u1|x=1 @u1|y=2 (u1|a))",
         R"(<r xmlns:AA="u1" AA:x="1" AA:y="2"><AA:a/></r>)"},
        {"the root declares what was known before it, once, in the order of the URIs",
         "!p=u2 !q=u1 !x=http://www.w3.org/XML/1998/namespace#more *d (u3|r (d|a) (u2|b) (c))",
         R"(<AA:r xmlns:AA="u3" xmlns="d" xmlns:q="u1" xmlns:p="u2"><a/><p:b/><c/></AA:r>)"},
        {"an attribute takes a prefix in the default namespace, too", "*d (d|r @d|x=1)",
         R"(<r xmlns="d" xmlns:AA="d" AA:x="1"/>)"},
        {"the XML namespace needs no declaration", "(r @http://www.w3.org/XML/1998/namespace|lang=en)",
         R"(<r xml:lang="en"/>)"},
        {"aliases that are taken are passed over", "!AA=u1 !AC=u2 (r @u3|x= @u4|y=)",
         R"(<r xmlns:AA="u1" xmlns:AC="u2" xmlns:AB="u3" AB:x="" xmlns:AD="u4" AD:y=""/>)"},
        {"an alias that was replaced before the root is free again; an empty one counts as none",
         "!AA=u1 !p=u1 !=u2 (u2|r (u1|a))", R"(<AA:r xmlns:AA="u2" xmlns:p="u1"><p:a/></AA:r>)"},
        {"aliases and default namespace of an element end with it; the end tag is as the start tag",
         "!p=u1 (u1|r (u1|a !q=u1 !AA=u2 *u3 (u1|b) (u2|c) (u3|d) (u4|e)) (u1|f) (u3|g))",
         R"(<p:r xmlns:p="u1"><p:a><q:b/><AA:c/><d/><AB:e xmlns:AB="u4"/></p:a><p:f/>)"
         R"(<AA:g xmlns:AA="u3"/></p:r>)"},
        {"the last of two aliases for a namespace holds, inside an element, too",
         "(r (u1|a) (b !p=u2 !q=u2 (u2|c)))", R"(<r><AA:a xmlns:AA="u1"/><b><q:c/></b></r>)"},
        {"xsi:type and xsi:nil", "(r ^u1|T (a %))",
         R"(<r xmlns:AA="u1"  xmlns:AB="http://www.w3.org/2001/XMLSchema-instance" AB:type="AA:T">)"
         R"(<a AB:nil="true"/></r>)"},
        {"the type has no prefix in no namespace and in the default one",
         "!xsi=http://www.w3.org/2001/XMLSchema-instance !p=u1 *d (d|r ^T ^d|T ^u1|T)",
         R"(<r xmlns="d" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:p="u1")"
         R"( xsi:type="T" xsi:type="T" xsi:type="p:T"/>)"}};
    for (Row const& row : rows)
        EXPECT_EQ(XmlOf(row.script), row.xml) << row.what;
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
    char const* const kLateAttribute = "Attributes must be added before elements";
    struct Row {
        char const* script;
        char const* message;
    };
    for (Row const& row : {Row{"(a", "An Element has not been closed."}, Row{"(a 'x' @b=", kLateAttribute},
                           Row{"(a 'x' ^b", kLateAttribute}, Row{"(a 'x' %", kLateAttribute},
                           Row{"@b=", kLateAttribute}, Row{"^b", kLateAttribute}, Row{"%", kLateAttribute},
                           Row{"''", "A value must be written inside an element."},
                           Row{")", "There is no open element to be closed."}})
        EXPECT_EQ(MessageOf<CZvException>([&] { XmlOf(Script(row.script)); }), row.message) << row.script;
    CTextStream sink(XmlEncoding_None);
    CXmlTextWriter writer(&sink);
    EXPECT_EQ(MessageOf<CZvException>([&] { writer.SetEOLType(static_cast<EOLType>(2)); }),
              "Invalid EOL type.");
    EXPECT_EQ(writer.GetEOLType(), EOLType_LF);
    writer.WriteElementStart("a", "");
    EXPECT_EQ(MessageOf<CZvException>([&] { writer.WriteDirective("x"); }),
              "Headed directives must appear before an Element has been added.");
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
