// The reader of plain XML against the parser.
#include "tests/support/BothReaders.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace ZvXmlLib16 {
namespace {

using both_readers::ByLoad;
using both_readers::ByPlainReader;

// Each is read without the parser.
std::string const kPlain[] = {
    "<a/>",
    "\xEF\xBB\xBF<?xml version='1.0' encoding=\"utf-8\" standalone='yes' ?>\n<!-- c -->\n<?p x?>"
    "<a\n\tb = 'c'\r\n>text</a >\n<!---->\r\n<?p?>",
    "<a>\n  <b c='1' d=\"2\">x</b>\n  <b c='3' d=\"4\">y</b>\n  <bc c='5'/>\n  <b/>\n</a>",
    "<a>]] ]&lt;&gt;&amp;&apos;&quot;&#65;&#x42;&#xe9;&#x20AC;&#x1F600;&#000010;&#13;&#9;</a>",
    "<a b='&lt;&gt;&amp;&apos;&quot;&#9;&#10;&#13;&#32; \t x \r\n y \n\r z \r' c=\"'\" d='\"' e=''/>",
    "<a>one\r\ntwo\rthree\n\r\n\r</a>",
    "<a>x<![CDATA[<b>&amp;\r\n]]]><!-- - -->y<?p ?q?"
    "?>z<![CDATA[]]><![CDATA[1]]></a>",
    "<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD</a>",
    "<a b='\xC3\xA9\t\xE2\x82\xAC'/>",
    "<a xmlns='u' xmlns:p='v' p:b='1' b='2' xml:lang='en'><p:c xmlns:p='u' "
    "xmlns=''><p:d/><d/></p:c><p:c/><d/>"
    "</a>",
    "<p:a xmlns:p='u' xmlns:q='u'><q:a p:b='' b=''/><p:a xmlns:p='w' p:b=''/><q:a/><xml:c/></p:a>",
    "<a><b>text</b>behind<b>\n</b>\n<b> </b></a>",
    "<a-1._ b-1._='x'><xmlns>1</xmlns><xmlnsx xmlnsy='1'/></a-1._>",
};

// Each needs the parser, which reads some and refuses others.
std::string const kNotPlain[] = {
    "<!DOCTYPE a [<!ENTITY e 'x'><!ATTLIST a b CDATA 'c'>]><a>&e;</a>",
    "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>",
    "<?xml version='1.1'?><a/>",
    "<?xml version='1.0' standalone='maybe'?><a/>",
    "<?xml?><a/>",
    " <?xml version='1.0'?><a/>",
    "<\xC3\xA9/>",
    "<a\xC3\xA9/>",
    "<a><?\xC3\xA9 x?></a>",
    "<a \xC3\xA9='1'/>",
    "<a b='1' b='2'/>",
    "<a xmlns:p='u' xmlns:q='u' p:b='1' q:b='2'/>",
    "<a xmlns:p='u' xmlns:p='u'/>",
    "<a xmlns='u' xmlns='u'/>",
    "<p:a/>",
    "<a p:b='1'/>",
    "<a><b xmlns:p='u'/><p:b/></a>",
    "<a xmlns:p=''/>",
    "<a xmlns:xml='u'/>",
    "<a xmlns:xml='http://www.w3.org/XML/1998/namespace'/>",
    "<a xmlns:xmlns='u'/>",
    "<a xmlns:p='http://www.w3.org/XML/1998/namespace'/>",
    "<a xmlns='http://www.w3.org/2000/xmlns/'/>",
    "<a xmlns='u|v'/>",
    "<a xmlns='u&amp;v'/>",
    "<a xmlns='\xC3\xA9'/>",
    "<xmlns:a/>",
    "<a:b:c xmlns:a='u'/>",
    "<:a/>",
    "<a:/>",
    "<a:1 xmlns:a='u'/>",
    "<1a/>",
    "<a>]]></a>",
    "<a>\x01</a>",
    "<a b='\x01'/>",
    "<a b='<'/>",
    std::string("<a>\0</a>", 8),
    "<a>\xC0\x80</a>",
    "<a>\xED\xA0\x80</a>",
    "<a>\xEF\xBF\xBF</a>",
    "<a b='\xEF\xBF\xBE'/>",
    "<a>\xF4\x90\x80\x80</a>",
    "<a>&#0;</a>",
    "<a>&#x1F;</a>",
    "<a>&#xD800;</a>",
    "<a>&#xFFFE;</a>",
    "<a>&#x110000;</a>",
    "<a>&#99999999999999999999;</a>",
    "<a>&#X41;</a>",
    "<a>&#;</a>",
    "<a>&e;</a>",
    "<a>&lt</a>",
    "<a b='&e;'/>",
    "<a><!-- -- --></a>",
    "<a><!-- \xC3 --></a>",
    "<a><!-- \x01 --></a>",
    "<a><!-- ---></a>",
    "<a><?xml x?></a>",
    "<a><?XmL x?></a>",
    "<a><?p:q x?></a>",
    "<a><? p?></a>",
    "<a><?p?x?></a>",
    "<a><?p \x02?></a>",
    "<a><![CDATA[\x01]]></a>",
    "<a><![cdata[]]></a>",
    "<a><b></a></b>",
    "<a></a >x",
    "<a/><b/>",
    "x<a/>",
    "<a/>&#32;",
    "<a/ >",
    "<a b='1'c='2'/>",
    "<a b=1/>",
    "<a b/>",
    "< a/>",
    "<a></ a>",
    "<a><ab></a></ab></a>",
    "\xFF\xFE<\0a\0/\0>\0",
};

// Those that are read as the parser reads them, and those that are left to it.
void ExpectEqual(std::string const& xml) {
    bool const isStrict = xml.size() % 2 == 0; // one or the other, which takes half the time
    std::optional<std::string> const plain = ByPlainReader(xml, isStrict);
    if (plain) {
        EXPECT_EQ(*plain, ByLoad(xml, isStrict, true)) << xml;
    }
}

TEST(PlainXml, MakesTheTreeThatTheParserMakes) {
    for (std::string const& xml : kPlain) {
        for (bool const isStrict : {false, true})
            EXPECT_EQ(ByPlainReader(xml, isStrict), ByLoad(xml, isStrict, true)) << xml;
    }
}

TEST(PlainXml, LeavesToTheParserWhatItDoesNotKnow) {
    for (std::string const& xml : kNotPlain) {
        for (bool const isStrict : {false, true}) {
            EXPECT_EQ(ByPlainReader(xml, isStrict), std::nullopt) << xml;
            EXPECT_EQ(ByLoad(xml, isStrict, false), ByLoad(xml, isStrict, true)) << xml;
        }
    }
}

TEST(PlainXml, AgreesWithTheParserOnEachMutant) {
    static constexpr char kBytes[] = "<>&;'\"/=:!?-[]#x \t\r\n\x01\x80\xC3\xEF|";
    for (std::string const& xml : kPlain) {
        for (std::size_t i = 0; i < xml.size(); ++i) {
            ExpectEqual(xml.substr(0, i));
            ExpectEqual(std::string(xml).erase(i, 1));
            ExpectEqual(std::string(xml).insert(i, 1, xml[i]));
            for (char const byte : std::string_view(kBytes, sizeof kBytes)) {
                ExpectEqual(std::string(xml).insert(i, 1, byte));
                ExpectEqual(std::string(xml).replace(i, 1, 1, byte));
            }
        }
    }
}

// Runs are looked at 16 bytes at a time, and names 8.
TEST(PlainXml, AgreesWithTheParserWhateverTheLengths) {
    for (std::size_t length = 0; length < 40; ++length) {
        std::string const run(length, 'x');
        for (char const* const end : {"", "\r", "&amp;", "\xC3\xA9", "]", "]]>", "\x01", "\t", "'", "\""}) {
            ExpectEqual("<a>" + run + end + "</a>");
            ExpectEqual("<a b='" + run + end + "' c=\"" + run + end + "\"/>");
            ExpectEqual("<a><!--" + run + end + "--><![CDATA[" + run + end + "]]></a>");
        }
        ExpectEqual("<x" + run + "><y" + run + "/><x" + run + "y/><x" + run + "/></x" + run + ">");
        ExpectEqual("<x" + run + "></x" + run + "y>");
        ExpectEqual("<x" + run + "y></x" + run + ">");
    }
}

TEST(PlainXml, AgreesWithTheParserOnManyAndDeep) {
    std::string attributes;
    std::string declarations;
    std::string open;
    std::string close;
    for (int i = 0; i < 100; ++i) {
        std::string const n = std::to_string(i);
        ExpectEqual("<a" + attributes + "/>");
        ExpectEqual("<a" + declarations + attributes + "/>");
        ExpectEqual(open + "text" + close);
        attributes += " b" + n + "='" + n + "'";
        declarations += " xmlns:p" + n + "='u" + n + "'";
        open += "<p" + n + ":a xmlns:p" + n + "='u" + n + "'>";
        close.insert(0, "</p" + n + ":a>");
    }
    std::string deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "<a>";
    CXmlDocument document;
    EXPECT_FALSE(PlainXmlReader::Fill(document, deep));
    for (int i = 0; i < 100'000; ++i)
        deep += "</a>";
    EXPECT_TRUE(PlainXmlReader::Fill(document, deep));
}

TEST(PlainXml, ReadsTheExamples) {
    for (char const* const name : {"cap-australia.xml", "cap-tsunami.xml", "citygml-lod2-buildings.gml",
                                   "iso20022-pain001-03.xml", "kml-samples.kml", "ubl-invoice.xml"}) {
        std::ifstream file(std::string(ZV_EXAMPLE_DATA_DIR "/") + name, std::ios::binary);
        std::string const xml{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        for (bool const isStrict : {false, true})
            EXPECT_EQ(ByPlainReader(xml, isStrict), ByLoad(xml, isStrict, true)) << name;
    }
}

TEST(PlainXml, IsForPlainContextsAlone) {
    struct Row {
        char const* option;
        char const* xml;
        void (*set)(CSerializationContext& ctx);
    };
    static Row const kRows[] = {
        {"positions", "<a/>", [](CSerializationContext& ctx) { ctx.SetKeepPositions(true); }},
        {"no namespaces", "<a/>",
         [](CSerializationContext& ctx) { ctx.SetSchemaType(SchemaType_NoNamespaces); }},
        {"marks", "<a><![CDATA[]]></a>", [](CSerializationContext& ctx) { ctx.SetStripCDATA(false); }},
    };
    for (Row const& row : kRows) {
        CSerializationContext ctx;
        row.set(ctx);
        CXmlDocument document(ctx);
        EXPECT_FALSE(PlainXmlReader::Fill(document, row.xml)) << row.option;
        EXPECT_EQ(document.GetDocumentElement(), nullptr);
    }
}

// What was read in vain is nowhere counted.
TEST(PlainXml, CountsWhatTheParserCounts) {
    for (std::string const& xml : {kPlain[2], kNotPlain[0], std::string("<a b='1'><c/></b>")}) {
        auto const count = [&xml](bool byParser) {
            CInstanceMonitor::Cleanup();
            ByLoad(xml, false, byParser);
            return CInstanceMonitor::DumpState();
        };
        EXPECT_EQ(count(false), count(true)) << xml;
    }
}

} // namespace
} // namespace ZvXmlLib16
