// XML text as it is laid down: tags, prefixes and their scope, escaping, line ends and indent.
#include "zvxmllib/writers/XmlTextWriter.h"
#include "tests/support/MessageOf.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/foundation/TextStream.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

constexpr char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";
constexpr char kXml[] = "http://www.w3.org/XML/1998/namespace";

void Value(CXmlWriter& w, std::string const& name, std::string const& text, bool isDefault = false) {
    w.WriteElementStart(name, "");
    w.WriteElementValue(text, ItemType_string, isDefault);
    w.WriteElementEnd();
}

TEST(XmlTextWriter, LaysElementsOut) {
    struct Row {
        char const* what;
        WrittenObject::Body body;
        char const* compact;
        char const* formatted;
    };
    Row const rows[] = {
        {"nothing", [](CXmlWriter&) {}, "", ""},
        {"an empty element",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             w.WriteElementEnd();
         },
         "<a/>", "<a/>\n"},
        {"a default value is left out", [](CXmlWriter& w) { Value(w, "a", "x", true); }, "<a/>", "<a/>\n"},
        {"an empty value leaves the start tag open for attributes",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             w.WriteElementValue("", ItemType_string, false);
             w.WriteAttribute("b", "", "c", ItemType_string);
             w.WriteElementEnd();
         },
         "<a b=\"c\"/>", "<a b=\"c\"/>\n"},
        {"children and texts",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Value(w, "b", "1");
             w.WriteElementStart("c", "");
             Value(w, "d", "2");
             Value(w, "d", "3");
             w.WriteElementEnd();
             w.WriteElementStart("e", "");
             w.WriteElementEnd();
             w.WriteElementEnd();
         },
         "<a><b>1</b><c><d>2</d><d>3</d></c><e/></a>",
         "<a>\n\t<b>1</b>\n\t<c>\n\t\t<d>2</d>\n\t\t<d>3</d>\n\t</c>\n\t<e/>\n</a>\n"},
        {"a text behind children",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Value(w, "b", "1");
             w.WriteElementValue("x", ItemType_string, false);
             w.WriteElementEnd();
         },
         "<a><b>1</b>x</a>", "<a>\n\t<b>1</b>\nx</a>\n"},
        {"a comment leaves the start tag open",
         [](CXmlWriter& w) {
             w.WriteComment("<1>\n2");
             w.WriteElementStart("a", "");
             w.WriteComment("x");
             w.WriteElementEnd();
         },
         "<!--&lt;1&gt;\n2-->\n<a<!--x-->\n/>", "<!--&lt;1&gt;\n2-->\n<a<!--x-->\n/>\n"},
        {"instructions and an inline schema",
         [](CXmlWriter& w) {
             w.WriteProcessingInstruction("<?p q?>");
             w.WriteElementStart("a", "");
             w.WriteAttribute("b", "", "c", ItemType_string);
             w.WriteInlineSchema("<&>");
             w.WriteElementEnd();
         },
         "<?p q?>\n\n<a b=\"c\" \n<&>\n/>", "<?p q?>\n\n<a b=\"c\" \n<&>\n/>\n"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(XmlOf(row.body), row.compact) << row.what;
        EXPECT_EQ(XmlOf(row.body, true), row.formatted) << row.what;
    }
}

TEST(XmlTextWriter, EscapesTextAndAttributes) {
    struct Row {
        char const* value;
        char const* text;
        char const* attribute;
        EOLType eol;
    };
    Row const rows[] = {
        {"plain", "plain", "plain", EOLType_LF},
        {"<&>\"'\t", "&lt;&amp;&gt;\"'\t", "&lt;&amp;&gt;&quot;'\t", EOLType_LF},
        {"a\nb", "a\nb", "a&#xA;b", EOLType_LF},
        {"a\nb\n", "a\r\nb\r\n", "a&#xA;b&#xA;", EOLType_CRLF},
        {"a\r\nb\r", "a\nb", "a&#xA;b", EOLType_LF},
        {"&", "&amp;", "&amp;", EOLType_LF},
        {"]]>", "]]&gt;", "]]&gt;", EOLType_LF},
        {"\xC3\xA4<\xE2\x82\xAC", "\xC3\xA4&lt;\xE2\x82\xAC", "\xC3\xA4&lt;\xE2\x82\xAC", EOLType_LF},
        {"<![CDATA[<&>\n]]>", "<![CDATA[<&>\n]]>", "&lt;![CDATA[&lt;&amp;&gt;&#xA;]]&gt;", EOLType_CRLF},
        {" <![CDATA[<]]>", " &lt;![CDATA[&lt;]]&gt;", " &lt;![CDATA[&lt;]]&gt;", EOLType_LF},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(XmlOf([&](CXmlWriter& w) { Value(w, "a", row.value); }, false, row.eol),
                  std::string("<a>") + row.text + "</a>")
            << row.value;
        EXPECT_EQ(XmlOf(
                      [&](CXmlWriter& w) {
                          w.WriteElementStart("a", "");
                          w.WriteAttribute("b", "", row.value, ItemType_string);
                          w.WriteElementEnd();
                      },
                      false, row.eol),
                  std::string("<a b=\"") + row.attribute + "\"/>")
            << row.value;
    }
    std::string const withNul("a\0<b", 4);
    EXPECT_EQ(XmlOf([&](CXmlWriter& w) { Value(w, "a", withNul); }), "<a>a</a>");
}

TEST(XmlTextWriter, PutsPrefixesInScope) {
    struct Row {
        char const* what;
        WrittenObject::Body body;
        char const* xml;
    };
    auto const child = [](CXmlWriter& w, char const* name, char const* ns) {
        w.WriteElementStart(name, ns);
        w.WriteElementEnd();
    };
    Row const rows[] = {
        {"a prefix is made where it is needed, and again for a sibling",
         [&](CXmlWriter& w) {
             w.WriteElementStart("r", "");
             child(w, "a", "u1");
             child(w, "b", "u2");
             child(w, "c", "u1");
             w.WriteElementEnd();
         },
         R"(<r><AA:a xmlns:AA="u1"/><AA:b xmlns:AA="u2"/><AA:c xmlns:AA="u1"/></r>)"},
        {"it holds for descendants",
         [&](CXmlWriter& w) {
             w.WriteElementStart("r", "u1");
             w.WriteElementStart("a", "u1");
             child(w, "b", "u2");
             w.WriteElementEnd();
             child(w, "c", "u3");
             w.WriteElementEnd();
         },
         R"(<AA:r xmlns:AA="u1"><AA:a><AB:b xmlns:AB="u2"/></AA:a><AB:c xmlns:AB="u3"/></AA:r>)"},
        {"an attribute's prefix holds for children, too",
         [&](CXmlWriter& w) {
             w.WriteElementStart("r", "");
             w.WriteAttribute("x", "u1", "1", ItemType_string);
             w.WriteAttribute("y", "u1", "2", ItemType_string);
             child(w, "a", "u1");
             w.WriteElementEnd();
         },
         R"(<r xmlns:AA="u1" AA:x="1" AA:y="2"><AA:a/></r>)"},
        {"the root declares what was known before it, once, in the order of the URIs",
         [&](CXmlWriter& w) {
             w.AddNamespaceAlias("p", "u2");
             w.AddNamespaceAlias("q", "u1");
             w.AddNamespaceAlias("x", std::string(kXml) + "#more");
             w.SetDefaultNamespace("d");
             w.WriteElementStart("r", "u3");
             child(w, "a", "d");
             child(w, "b", "u2");
             child(w, "c", "");
             w.WriteElementEnd();
         },
         R"(<AA:r xmlns:AA="u3" xmlns="d" xmlns:q="u1" xmlns:p="u2"><a/><p:b/><c/></AA:r>)"},
        {"an attribute takes a prefix in the default namespace, too",
         [&](CXmlWriter& w) {
             w.SetDefaultNamespace("d");
             w.WriteElementStart("r", "d");
             w.WriteAttribute("x", "d", "1", ItemType_string);
             w.WriteElementEnd();
         },
         R"(<r xmlns="d" xmlns:AA="d" AA:x="1"/>)"},
        {"the XML namespace needs no declaration",
         [&](CXmlWriter& w) {
             w.WriteElementStart("r", "");
             w.WriteAttribute("lang", kXml, "en", ItemType_string);
             w.WriteElementEnd();
         },
         R"(<r xml:lang="en"/>)"},
        {"aliases that are taken are passed over",
         [&](CXmlWriter& w) {
             w.AddNamespaceAlias("AA", "u1");
             w.AddNamespaceAlias("AC", "u2");
             w.WriteElementStart("r", "");
             w.WriteAttribute("x", "u3", "", ItemType_string);
             w.WriteAttribute("y", "u4", "", ItemType_string);
             w.WriteElementEnd();
         },
         R"(<r xmlns:AA="u1" xmlns:AC="u2" xmlns:AB="u3" AB:x="" xmlns:AD="u4" AD:y=""/>)"},
        {"an alias that was replaced before the root is free again; an empty one counts as none",
         [&](CXmlWriter& w) {
             w.AddNamespaceAlias("AA", "u1");
             w.AddNamespaceAlias("p", "u1");
             w.AddNamespaceAlias("", "u2");
             w.WriteElementStart("r", "u2");
             child(w, "a", "u1");
             w.WriteElementEnd();
         },
         R"(<AA:r xmlns:AA="u2" xmlns:p="u1"><p:a/></AA:r>)"},
        {"aliases and default namespace of an element end with it; the end tag is as the start tag",
         [&](CXmlWriter& w) {
             w.AddNamespaceAlias("p", "u1");
             w.WriteElementStart("r", "u1");
             w.WriteElementStart("a", "u1");
             w.AddNamespaceAlias("q", "u1");
             w.AddNamespaceAlias("AA", "u2");
             w.SetDefaultNamespace("u3");
             child(w, "b", "u1");
             child(w, "c", "u2");
             child(w, "d", "u3");
             child(w, "e", "u4");
             w.WriteElementEnd();
             child(w, "f", "u1");
             child(w, "g", "u3");
             w.WriteElementEnd();
         },
         R"(<p:r xmlns:p="u1"><p:a><q:b/><AA:c/><d/><AB:e xmlns:AB="u4"/></p:a><p:f/>)"
         R"(<AA:g xmlns:AA="u3"/></p:r>)"},
        {"the last of two aliases for a namespace holds, inside an element, too",
         [&](CXmlWriter& w) {
             w.WriteElementStart("r", "");
             child(w, "a", "u1");
             w.WriteElementStart("b", "");
             w.AddNamespaceAlias("p", "u2");
             w.AddNamespaceAlias("q", "u2");
             child(w, "c", "u2");
             w.WriteElementEnd();
             w.WriteElementEnd();
         },
         R"(<r><AA:a xmlns:AA="u1"/><b><q:c/></b></r>)"},
        {"a default namespace set inside leaves the aliases in force",
         [&](CXmlWriter& w) {
             w.AddNamespaceAlias("p", "u1");
             w.WriteElementStart("r", "u1");
             w.SetDefaultNamespace("u2");
             child(w, "a", "u1");
             child(w, "b", "u2");
             w.WriteElementEnd();
         },
         R"(<p:r xmlns:p="u1"><p:a/><b/></p:r>)"},
        {"xsi:type and xsi:nil",
         [&](CXmlWriter& w) {
             w.WriteElementStart("r", "");
             w.WriteTypeAttribute("u1", "T", ItemType_string);
             w.WriteElementStart("a", "");
             w.WriteNilAttribute();
             w.WriteElementEnd();
             w.WriteElementEnd();
         },
         R"(<r xmlns:AA="u1"  xmlns:AB="http://www.w3.org/2001/XMLSchema-instance" AB:type="AA:T">)"
         R"(<a AB:nil="true"/></r>)"},
        {"the type has no prefix in no namespace and in the default one",
         [&](CXmlWriter& w) {
             w.AddNamespaceAlias("xsi", kXsi);
             w.AddNamespaceAlias("p", "u1");
             w.SetDefaultNamespace("d");
             w.WriteElementStart("r", "d");
             w.WriteTypeAttribute("", "T", ItemType_string);
             w.WriteTypeAttribute("d", "T", ItemType_string);
             w.WriteTypeAttribute("u1", "T", ItemType_string);
             w.WriteElementEnd();
         },
         R"(<r xmlns="d" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:p="u1")"
         R"( xsi:type="T" xsi:type="T" xsi:type="p:T"/>)"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(XmlOf(row.body), row.xml) << row.what;
}

TEST(XmlTextWriter, GoesOnWithThreeLettersBehindZZ) {
    std::string const xml = XmlOf([](CXmlWriter& w) {
        w.AddNamespaceAlias("AAB", "given");
        w.WriteElementStart("r", "");
        for (int i = 0; i < 679; ++i)
            w.WriteAttribute("x", "u" + std::to_string(i), "", ItemType_string);
        w.WriteElementEnd();
    });
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
    Value(writer, "b", "x", true);
    writer.BeginChild();
    writer.WriteRawLine("<raw>");
    writer.WriteElementEnd();
    writer.Close();
    EXPECT_STREQ(sink.GetText(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!DOCTYPE a>\r\n<a>\r\n"
                                 "  <b>x</b>\r\n<raw>\r\n</a>\r\n");
}

TEST(XmlTextWriter, ReportsMisuse) {
    struct Row {
        std::function<void(CXmlTextWriter&)> operation;
        char const* message;
    };
    auto const open = [](CXmlTextWriter& w) { w.WriteElementStart("a", ""); };
    auto const openWithText = [&](CXmlTextWriter& w) {
        open(w);
        w.WriteElementValue("x", ItemType_string, false);
    };
    char const* const kLateAttribute = "Attributes must be added before elements";
    Row const rows[] = {
        {[&](CXmlTextWriter& w) { open(w), w.Close(); }, "An Element has not been closed."},
        {[&](CXmlTextWriter& w) { openWithText(w), w.WriteAttribute("b", "", "", ItemType_string); },
         kLateAttribute},
        {[&](CXmlTextWriter& w) { openWithText(w), w.WriteTypeAttribute("", "b", ItemType_string); },
         kLateAttribute},
        {[&](CXmlTextWriter& w) { openWithText(w), w.WriteNilAttribute(); }, kLateAttribute},
        {[&](CXmlTextWriter& w) { w.WriteAttribute("b", "", "", ItemType_string); }, kLateAttribute},
        {[&](CXmlTextWriter& w) { w.WriteTypeAttribute("", "b", ItemType_string); }, kLateAttribute},
        {[&](CXmlTextWriter& w) { w.WriteNilAttribute(); }, kLateAttribute},
        {[&](CXmlTextWriter& w) { w.WriteElementValue("", ItemType_string, false); },
         "A value must be written inside an element."},
        {[&](CXmlTextWriter& w) { w.WriteElementEnd(); }, "There is no open element to be closed."},
        {[&](CXmlTextWriter& w) { open(w), w.WriteDirective("x"); },
         "Headed directives must appear before an Element has been added."},
        {[&](CXmlTextWriter& w) { w.SetEOLType(static_cast<EOLType>(2)); }, "Invalid EOL type."},
    };
    for (Row const& row : rows) {
        CTextStream sink(XmlEncoding_None);
        CXmlTextWriter writer(&sink);
        EXPECT_EQ(MessageOf<CZvException>([&] { row.operation(writer); }), row.message);
        EXPECT_EQ(writer.GetEOLType(), EOLType_LF);
    }
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
