// The declarations of prefixes in untyped content.
#include "tests/strict/Twice.h"
#include "zvxmllib/collections/Element.h"

#include <gtest/gtest.h>

using namespace entries;

namespace {

using Read = void (*)(CElement& element, CElement& source, CSerializationContext const& ctx);

// Each reads what the source writes in this format.
constexpr Read kFormats[] = {
    [](CElement& element, CElement& source, CSerializationContext const& ctx) {
        CBinaryData const data =
            source.ToXmlStream(true, false, XmlEncoding_UTF16, EOLType_LF, ctx, CompressionType_None);
        element.FromXmlStream(data, ctx);
    },
    [](CElement& element, CElement& source, CSerializationContext const& ctx) {
        element.FromJson(source.ToJson(false, EOLType_LF, ctx).c_str(), ctx);
    },
    [](CElement& element, CElement& source, CSerializationContext const& ctx) {
        element.FromXmlStream(source.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None), ctx);
    },
};

std::string XmlOf(CElement& element, CSerializationContext const& ctx) {
    return element.ToXml(false, false, EOLType_LF, ctx);
}

CSmartPtr<CElement> ReadFrom(std::string const& xml, CSerializationContext const& ctx) {
    CSmartPtr<CElement> const element(new CElement(""));
    static_cast<CXmlObjectBase&>(*element).FromXml(xml.c_str(), ctx);
    return element;
}

TEST(StrictDeclarations, StayInEveryFormat) {
    for (char const* xml : {
             R"(<a xmlns="urn:d" xmlns:p="urn:p" xmlns:i="http://www.w3.org/2001/XMLSchema-instance">)"
             R"(<b i:type="p:T"/></a>)",
             R"(<p:a xmlns:p="urn:1"><p:b xmlns:p="urn:2"><c xmlns:q="urn:1">p:x q:y</c></p:b><p:d/></p:a>)",
             R"(<AA:a xmlns:AA="urn:1"><AA:b xmlns:AA="urn:2" xmlns:x="urn:1" x:k="AA:v"/><AA:c/></AA:a>)",
             R"(<a xmlns="urn:d"><b xmlns="" xmlns:p="urn:p">p:x</b><c xmlns="urn:e">x</c></a>)",
             R"(<a xmlns="urn:d"><p:b xmlns="" xmlns:p="urn:d"><c/></p:b></a>)",
             R"(<a xmlns:p="urn:1" xmlns:q="urn:1" k="p:x q:y"/>)",
         }) {
        CSmartPtr<CElement> const element = ReadFrom(xml, Strict());
        EXPECT_EQ(XmlOf(*element, Strict()), xml);
        EXPECT_EQ(XmlOf(*element->Clone(), Strict()), xml);
        for (Read const& read : kFormats) {
            CSmartPtr<CElement> const again(new CElement(""));
            read(*again, *element, Strict());
            EXPECT_EQ(XmlOf(*again, Strict()), xml) << "format " << &read - kFormats;
        }
        CSerializationContext const usual;
        EXPECT_EQ(XmlOf(*element, usual), XmlOf(*ReadFrom("<w>" + std::string(xml) + "</w>", usual), usual));
    }
}

// Of those above untyped content, the ones that it needs: for its texts, values and types.
TEST(StrictDeclarations, ComeFromAboveWhereTextsNeedThem) {
    OrderOf model({new CElementInfoSeqUntpdOpt("AnyElement", "", 0, "##any", "")});
    std::string const i = R"( xmlns:i="http://www.w3.org/2001/XMLSchema-instance")";
    auto const inOrder = [&](std::string const& declarations, std::string const& content) {
        return "<order" + declarations + ">" + content + "</order>";
    };
    std::string const all = R"( xmlns:p="urn:p" xmlns:q="urn:q" xmlns:unused="urn:x")" + i;
    struct Row {
        char const* content;
        char const* usual;
        char const* strict;
    };
    for (Row const& row : {
             Row{"<b>p:v</b>", "<b>p:v</b>", R"(<b xmlns:p="urn:p">p:v</b>)"},
             Row{"<b k='//q:x[p:y=1]'/>", R"(<b k="//q:x[p:y=1]"/>)",
                 R"(<b xmlns:q="urn:q" xmlns:p="urn:p" k="//q:x[p:y=1]"/>)"},
             Row{"<b>http://q :q q: zz:p</b>", "<b>http://q :q q: zz:p</b>", "<b>http://q :q q: zz:p</b>"},
             Row{"<b xmlns:q='urn:mine'><c>q:v</c></b>", "<b><c>q:v</c></b>",
                 R"(<b xmlns:q="urn:mine"><c>q:v</c></b>)"},
         })
        ExpectTwice(model, {{inOrder(all, row.content), inOrder("", row.usual), inOrder("", row.strict)}});
    std::string const typed =
        R"(<b xmlns="urn:d" xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:type="T"/>)";
    EXPECT_EQ(Outcome(model, inOrder(i, "<b i:type='T' xmlns='urn:d'/>").c_str(), Strict()),
              inOrder("", typed));
}

TEST(StrictDeclarations, HideWhatHasTheirPrefix) {
    CSmartPtr<CElement> const outer(new CElement("a", "urn:1"));
    outer->DeclarePrefix("p", "urn:0");
    outer->DeclarePrefix("p", "urn:1");
    CSmartPtr<CElement> const inner = outer->GetChildElements()->Add("b", "urn:1");
    inner->DeclarePrefix("p", "urn:2");
    EXPECT_EQ(XmlOf(*outer, Strict()),
              R"(<p:a xmlns:p="urn:1"><AA:b xmlns:AA="urn:1" xmlns:p="urn:2"/></p:a>)");
    // A default namespace cannot be that of content in an element of none.
    CSmartPtr<CElement> const moved = ReadFrom("<a xmlns='urn:d'/>", Strict());
    moved->SetNamespace("");
    EXPECT_EQ(XmlOf(*moved, Strict()), "<a/>");
    for (auto const& [prefix, uri] :
         {std::pair("xmlns", "urn:x"), std::pair("p", ""), std::pair("1", "urn:x")}) {
        CSmartPtr<CElement> const wrong(new CElement("a"));
        wrong->DeclarePrefix(prefix, uri);
        EXPECT_THROW(XmlOf(*wrong, Strict()), CZvInvalidParamException) << prefix;
    }
}

// The writer would make up AA for another namespace.
TEST(StrictDeclarations, StayWithAttributesThatAWildcardTakes) {
    Model model;
    model.attributes = {Attribute("a", 1, true),
                        new CAttributeInfoAny("any", "", 0, true, "##any", "", nullptr)};
    model.init = [](Probe& probe) {
        probe.properties[0].SetXmlCollection(new CAttributeCol("", "##any", ""));
    };
    model.Finish();
    ExpectTwice(model, {
                           {R"(<order xmlns:p="urn:p" k="p:v"/>)", R"(<order k="p:v"/>)", ""},
                           {R"(<order xmlns:p="urn:p" xmlns:q="urn:q" p:k="v" a="5"/>)",
                            R"(<order a="5" xmlns:AA="urn:p" AA:k="v"/>)",
                            R"(<order a="5" xmlns:AA="urn:p" AA:k="v"/>)"},
                           {R"(<order xmlns:AA="urn:1" xmlns:p="urn:2" p:k="AA:v"/>)",
                            R"(<order xmlns:AA="urn:2" AA:k="AA:v"/>)",
                            R"(<order xmlns:AA="urn:1" xmlns:AB="urn:2" AB:k="AA:v"/>)"},
                           {R"(<order k="zz:v http://x"/>)", "", ""},
                       });
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml(R"(<order xmlns:p="urn:p" k="p:v"/>)", Strict());
    std::string const& xml = probe->ToXml(false, false, EOLType_LF, Strict());
    CSmartPtr<Probe> const again(new Probe(model));
    again->FromXmlStream(probe->ToFastInfosetStream(FInfoDecl_None, Strict(), CompressionType_None),
                         Strict());
    EXPECT_EQ(again->ToXml(false, false, EOLType_LF, Strict()), xml);
    CSmartPtr<CXmlObjectBase> const held = probe->properties[0].GetXmlObject();
    auto& attributes = dynamic_cast<CAttributeCol&>(*held);
    attributes.DeclarePrefix("p", "urn:other");
    CSmartPtr<Probe> const copied(new Probe(model));
    copied->properties[0].SetXmlCollection(attributes.Clone());
    EXPECT_EQ(copied->ToXml(false, false, EOLType_LF, Strict()), R"(<order xmlns:p="urn:other" k="p:v"/>)");
}

} // namespace
