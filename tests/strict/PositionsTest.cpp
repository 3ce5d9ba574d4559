// Where reading failed.
#include "tests/driver/Reading.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/document/XmlAttribute.h"

using namespace entries;

namespace {

// "line:column" of the failure of an order, or "read".
std::string Where(char const* xml, bool keeps = true, bool strict = false) {
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimOpt>("a", 0), new CElementInfoSeqPrimCol("c", "", 1),
                      Prim<CElementInfoSeqPrimOpt>("z", 2)};
    model.attributes = {Attribute("k", 3, true), Attribute("l", 4, true)};
    model.init = [](Probe& probe) { probe.properties[1].SetXmlCollection(NewCol<Ci4Col>({"c"})); };
    model.Finish();
    CSerializationContext ctx;
    ctx.SetKeepPositions(keeps);
    ctx.SetStrict(strict);
    CSmartPtr<Probe> const probe(new Probe(model));
    try {
        probe->FromXml(xml, ctx);
        return "read";
    } catch (CZvException const& failure) {
        return std::to_string(failure.GetLine()) + ':' + std::to_string(failure.GetColumn());
    }
}

TEST(Positions, TellWhereReadingFailed) {
    struct Row {
        char const* xml;
        char const* where;
    };
    for (Row const& row : {
             Row{"<order>\n <a>x</a></order>", "2:2"},            // a value
             Row{"<order>\n<c>1</c>\n  <c>x</c></order>", "3:3"}, // of a collection
             Row{"<order\n k='1' l = 'x'/>", "2:8"},              // of an attribute
             Row{"<order k='>\n/' l='1'/>", "1:8"},               // a value with what ends tags
             Row{"<order xmlns:k='urn:k'\n\tm='1'/>", "2:2"},     // an attribute that nobody knows
             Row{"<order k='\xC3\xA9\xE2\x82\xAC' l='1'/>", "1:8"},
             Row{"<order l='\xC3\xA9' k='1'/>", "1:8"},
             Row{"\n<order><a>1</a><b/></order>", "2:1"}, // the element of the path
             Row{"<order>\n<a>\n</order>", "3:3"},        // not well-formed
             Row{"<order><a>1</a></order>", "read"},
         })
        EXPECT_EQ(Where(row.xml), row.where) << row.xml;
    EXPECT_EQ(Where("<order>\n <a>x</a></order>", false), "0:0");
    EXPECT_EQ(Where("<order>\n <a>1<b/></a></order>", true, true), "2:2");
    EXPECT_EQ(Where("<!DOCTYPE order [<!ATTLIST order k CDATA 'x'>]>\n<order/>"), "2:1"); // stands nowhere
}

TEST(Positions, OfJsonAreThoseOfTheValues) {
    Model model;
    model.elements = {new CElementInfoSeqPrimOpt("s", "", 2, false, ItemType_string, nullptr,
                                                 CWhitespaceUtils::WhitespaceRule_None,
                                                 CPrimitiveRestrictions(), nullptr),
                      Prim<CElementInfoSeqPrimOpt>("a", 0), new CElementInfoSeqPrimCol("c", "", 1)};
    model.attributes = {Attribute("k", 3, true)};
    model.init = [](Probe& probe) { probe.properties[1].SetXmlCollection(NewCol<Ci4Col>({"c"})); };
    model.Finish();
    struct Row {
        char const* json;
        char const* usual;
        char const* strict;
    };
    for (Row const& row : {
             Row{"{\"order\": {\n  \"a\": \"x\"}}", "2:8", "2:8"},
             Row{"{\"order\": {\"c\": [1,\n 2, \"x\"]}}", "2:5", "2:5"},
             Row{"{\"order\": {\"a\": 1,\n \"c\": \"x\"", "2:9", "2:9"}, // no JSON
             // By way of XML text. The column counts octets.
             Row{"{\"order\": {\"\xC3\xA4\": 1,\n \"a\": \"x\"}}", "0:0", "1:11"},
             Row{"{\"order\": {\"s\": \"\xC3\xA4\xE2\x82\xAC\", \"c\": [1,\"x\"]}}", "1:34", "1:34"},
             Row{"{\"order\": {\"a\": 1,\n\"@k\": 7, \"@m\":\n2}}", "0:0", "3:1"},
             Row{"{\"order\":\n {\"a\": null}}", "2:8", "2:8"},
             Row{"{\"order\": {\"a\": 1,\n\"a\": 1}}", "1:11", "2:4"}, // the name
             Row{"{\"order\": {},\n \"order2\": {}}", "0:0", "2:12"},
             Row{"{\"order\": {\"p:q\":\n1}}", "0:0", "2:1"}, // no prefix
             Row{"\n [{\"p:q\": \"x\"}]", "0:0", "2:2"},
         }) {
        for (bool const strict : {false, true}) {
            CSerializationContext ctx;
            ctx.SetKeepPositions(true);
            ctx.SetStrict(strict);
            CSmartPtr<Probe> const probe(new Probe(model));
            try {
                probe->FromJson(row.json, ctx);
                ADD_FAILURE() << row.json << " strict " << strict;
            } catch (CZvException const& failure) {
                EXPECT_EQ(std::to_string(failure.GetLine()) + ':' + std::to_string(failure.GetColumn()),
                          strict ? row.strict : row.usual)
                    << row.json << " strict " << strict;
            }
        }
    }
}

TEST(Positions, AreThoseOfTheTreeInAnyEncoding) {
    CSerializationContext ctx;
    ctx.SetKeepPositions(true);
    CXmlDocument document(ctx);
    document.LoadXml(u"<r>\n <a p='1'><b/><b q='2'/></a></r>");
    CXmlElement const* const root = document.GetDocumentElement();
    CXmlElement const* const second = root->FindByPath("/r/a/b[2]");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->GetXPath(), "/r/a/b[2]");
    EXPECT_EQ(second->GetLine(), 2u);
    EXPECT_EQ(second->GetColumn(), 15u);
    EXPECT_EQ(second->GetAttributeAt(0)->GetColumn(), 15u); // two octets for a character: where the tag is
    EXPECT_EQ(root->FindByPath("/r/a/b[3]"), nullptr);
    EXPECT_EQ(root->FindByPath("/x"), nullptr);
}

} // namespace
