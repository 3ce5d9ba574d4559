// XML text by the usual rules and by the strict ones.
#include "tests/strict/Twice.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/Script.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/writers/StrictWriter.h"
#include "zvxmllib/xml/ExactXmlWriter.h"

#include <gmock/gmock.h>

#include <functional>

using namespace entries;

namespace {

std::string XmlOf(CElement& element, CSerializationContext const& ctx) {
    try {
        return element.ToXml(false, false, EOLType_LF, ctx);
    } catch (CZvException const& failure) {
        return failure.GetMessage();
    }
}

CSmartPtr<CElement> Named(char const* name, char const* text = "") {
    CSmartPtr<CElement> const element(new CElement(name));
    element->SetText(text);
    return element;
}

CSmartPtr<CElement> With(char const* attribute, char const* value, char const* ns = "") {
    CSmartPtr<CElement> const element(new CElement("a"));
    element->GetAttributes()->Add(attribute, value, ns);
    return element;
}

TEST(StrictXml, WritesNoMarkupThatIsNotMeant) {
    CSmartPtr<CElement> const uri(new CElement(""));
    uri->FromXml("<a xmlns='urn:&quot; evil=&quot;1'/>");
    CSmartPtr<CElement> const twins = With("k", "1");
    twins->GetAttributes()->Add("k", "2");
    struct Row {
        CSmartPtr<CElement> element;
        std::string usual;
        std::string strict;
    };
    for (Row const& row : {
             Row{Named("a", "<![CDATA[x]]></a><evil/><a>"), "<a><![CDATA[x]]></a><evil/><a></a>",
                 "<a>&lt;![CDATA[x]]&gt;&lt;/a&gt;&lt;evil/&gt;&lt;a&gt;</a>"},
             Row{uri, R"(<AA:a xmlns:AA="urn:" evil="1"/>)", R"(<AA:a xmlns:AA="urn:&quot; evil=&quot;1"/>)"},
             Row{Named("a/><b"), "<a/><b/>", "Invalid Element Name [a/><b]."},
             Row{Named(""), "</>", "Invalid Element Name []."},
             Row{Named("p:a"), "<p:a/>", "Invalid Element Name [p:a]."},
             Row{With("b=\"1\" c", "2"), R"(<a b="1" c="2"/>)", "Invalid Attribute Name [b=\"1\" c]."},
             Row{With("xmlns", "urn:x"), R"(<a xmlns="urn:x"/>)", "Invalid Attribute Name [xmlns]."},
             Row{twins, R"(<a k="1" k="2"/>)", "The Attribute [k] is already written."},
             Row{Named("a", "x\x01y"), "<a>x\x01y</a>",
                 "The character [U+0001] of [a] can not be expressed in XML."},
             Row{Named("a", "\xFF"), "<a>\xFF</a>", "The text of [a] is not valid in the local encoding."},
             Row{Named("a", "x\ry"), "<a>xy</a>", "<a>x&#xD;y</a>"},
             Row{With("b", "1\t2\r3\n4"), "<a b=\"1\t23&#xA;4\"/>", R"(<a b="1&#x9;2&#xD;3&#xA;4"/>)"},
         }) {
        EXPECT_EQ(XmlOf(*row.element, CSerializationContext()), row.usual);
        EXPECT_EQ(XmlOf(*row.element, Strict()), row.strict);
    }
    CSerializationContext sections = Strict();
    sections.SetStripCDATA(false);
    for (auto const& [text, xml] : {
             std::pair("<![CDATA[<b>]]>]]><c/>", "<![CDATA[<b>]]>]]&gt;&lt;c/&gt;"),
             std::pair("<x><![CDATA[<b>]]>&<![CDATA[]]>", "&lt;x&gt;<![CDATA[<b>]]>&amp;<![CDATA[]]>"),
             std::pair("<![CDATA[<b>\r]]>", "&lt;![CDATA[&lt;b&gt;&#xD;]]&gt;"),
             std::pair("<![CDATA[<b>", "&lt;![CDATA[&lt;b&gt;"),
         })
        EXPECT_EQ(XmlOf(*Named("a", text), sections), "<a>" + std::string(xml) + "</a>");
}

// What the calls of a writer give, or the failure.
using Calls = std::function<void(CXmlTextWriter&)>;

std::string WrittenBy(CXmlTextWriter& writer, CTextStream& sink, Calls const& calls) {
    try {
        writer.Begin(false, EOLType_LF, Strict());
        calls(writer);
        writer.Close();
        return sink.GetText();
    } catch (CZvException const& failure) {
        return failure.GetMessage();
    }
}

std::string Written(Calls const& calls) {
    CTextStream sink(XmlEncoding_UTF8);
    StrictWriter<CExactXmlWriter> writer(true, &sink, false);
    return WrittenBy(writer, sink, calls);
}

std::string WrittenUsually(Calls const& calls) {
    CTextStream sink(XmlEncoding_UTF8);
    CXmlTextWriter writer(&sink);
    return WrittenBy(writer, sink, calls);
}

TEST(StrictXml, KeepsEveryElementInItsNamespace) {
    EXPECT_EQ(Written([](CXmlTextWriter& writer) {
                  writer.SetDefaultNamespace("urn:d");
                  writer.WriteElementStart("r", "urn:d");
                  writer.WriteElementStart("n", "");
                  writer.WriteElementStart("m", "urn:d");
                  writer.WriteElementEnd();
                  writer.WriteElementEnd();
                  writer.WriteElementEnd();
              }),
              R"(<r xmlns="urn:d"><n xmlns=""><AA:m xmlns:AA="urn:d"/></n></r>)");
    EXPECT_EQ(Written([](CXmlTextWriter& writer) {
                  writer.SetDefaultNamespace("urn:d");
                  writer.WriteElementStart("r", "");
                  writer.WriteElementStart("n", "urn:d");
                  writer.WriteElementEnd();
                  writer.WriteElementEnd();
              }),
              R"(<r><AA:n xmlns:AA="urn:d"/></r>)");
    EXPECT_EQ(Written([](CXmlTextWriter& writer) {
                  writer.WriteElementStart("r", "urn:d");
                  writer.DeclareOnNextElement("", "urn:e");
                  writer.WriteElementStart("n", "");
                  writer.WriteElementEnd();
                  writer.WriteElementEnd();
              }),
              R"(<AA:r xmlns:AA="urn:d"><n/></AA:r>)");
    EXPECT_EQ(
        Written([](CXmlTextWriter& writer) {
            writer.SetDefaultNamespace("urn:d");
            writer.AddNamespaceAlias("p", "urn:given");
            writer.AddNamespaceAlias("q", "urn:too");
            writer.DeclareOnNextElement("p", "urn:kept");
            writer.DeclareOnNextElement("", "urn:e");
            writer.WriteElementStart("r", "urn:d");
            writer.WriteAttribute("k", "urn:given", "", ItemType_string);
            writer.WriteElementEnd();
        }),
        R"(<AA:r xmlns:AA="urn:d" xmlns:q="urn:too" xmlns:p="urn:kept" xmlns="urn:e" xmlns:AB="urn:given" )"
        R"(AB:k=""/>)");
}

TEST(StrictXml, RefusesCallsThatMakeNoDocument) {
    auto const instruction = [](char const* text) {
        return [=](CXmlTextWriter& writer) {
            writer.WriteProcessingInstruction(text);
            Script("(a)")(writer);
        };
    };
    struct Row {
        Calls calls;
        char const* usual;
        char const* strict;
    };
    for (Row const& row : {
             Row{Script("!1p=urn:x (a)"), R"(<a xmlns:1p="urn:x"/>)", "Invalid Namespace alias [1p]."},
             Row{Script("!xmlns=urn:x (a)"), R"(<a xmlns:xmlns="urn:x"/>)",
                 "Invalid Namespace alias [xmlns]."},
             Row{Script("!xml=urn:x (a)"), R"(<a xmlns:xml="urn:x"/>)", "Invalid Namespace alias [xml]."},
             Row{Script("!p= (a)"), R"(<a xmlns:p=""/>)", "Invalid Namespace alias [p]."},
             Row{Script("!p=urn:x !p=urn:y (a)"), R"(<a xmlns:p="urn:x" xmlns:p="urn:y"/>)",
                 "The Namespace alias [p] stands for [urn:x] and for [urn:y]."},
             Row{Script("!p=http://www.w3.org/2000/xmlns/ (a @http://www.w3.org/2000/xmlns/|k=)"),
                 R"(<a xmlns:p="http://www.w3.org/2000/xmlns/" p:k=""/>)",
                 "Invalid Namespace [http://www.w3.org/2000/xmlns/]."},
             Row{Script("!p=\xFF (a ^\xFF|t)"),
                 "<a xmlns:p=\"\xFF\" xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" "
                 "AA:type=\"p:t\"/>",
                 "The text of [p] is not valid in the local encoding."},
             Row{instruction("<?xml version='1.0'?>"), "<?xml version='1.0'?>\n\n<a/>",
                 "Invalid Processing Instruction [<?xml version='1.0'?>]."},
             Row{instruction("<?a b?><evil/>"), "<?a b?><evil/>\n\n<a/>",
                 "Invalid Processing Instruction [<?a b?><evil/>]."},
             Row{[](CXmlTextWriter& writer) {
                     writer.WriteComment("x--y");
                     Script("(a)")(writer);
                 },
                 "<!--x--y-->\n<a/>", "Invalid Comment [x--y]."},
             Row{Script("(a $)"), "<a \n<s/>\n/>",
                 "The inline schema can not be written inside a start tag."},
             Row{Script(""), "", "The document has no root element."},
             Row{Script("(a) (b)"), "<a/><b/>", "The document has a root element, [b] is a second one."},
             Row{[](CXmlTextWriter& writer) {
                     writer.WriteElementStart("a", "");
                     writer.WriteComment("x & y");
                     Script("?)")(writer);
                 },
                 "<a<!--x &amp; y-->\n<?p?>\n\n/>", "<a><!--x & y--><?p?></a>"},
         }) {
        EXPECT_EQ(WrittenUsually(row.calls), row.usual) << row.strict;
        EXPECT_EQ(Written(row.calls), row.strict) << row.usual;
    }
    EXPECT_EQ(Written(Script("(a ^\xFF|t)")), "The text of [t] is not valid in the local encoding.");
}

TEST(StrictXml, KeepsWhatIsCalledInTextFormats) {
    struct Row {
        char const* calls;
        std::string xml;
        std::string json;
    };
    constexpr char kTwoMeanings[] = "The Namespace alias [p] stands for [u] and for [v].";
    constexpr char kNoPrefix[] = "The Namespace alias [] stands for [u] and for [].";
    for (Row const& row : {
             Row{"(a % 'x')",
                 R"(<a xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:nil="true">x</a>)",
                 R"({"a": {"@xmlns:AA": "http://www.w3.org/2001/XMLSchema-instance","@AA:nil": "true",)"
                 R"("#text": "x"}})"},
             Row{"(a *u (b))", "<a><b/></a>", R"({"a": {"b": {}}})"},
             Row{"!p=u (u|a !p=v)", kTwoMeanings, kTwoMeanings},
             Row{"!p=u (u|a !p=u)", R"(<p:a xmlns:p="u"/>)", R"({"p:a": {"@xmlns:p": "u"}})"},
             Row{"*u (u|a ^t)", kNoPrefix, kNoPrefix},
             Row{"!p=http://www.w3.org/XML/1998/namespace/of/another (a)",
                 R"(<a xmlns:p="http://www.w3.org/XML/1998/namespace/of/another"/>)",
                 R"({"a": {"@xmlns:p": "http://www.w3.org/XML/1998/namespace/of/another"}})"},
             Row{"!=http://www.w3.org/XML/1998/namespace (http://www.w3.org/XML/1998/namespace|a)",
                 "<xml:a/>", R"({"xml:a": {}})"},
             Row{"(a #1E400)", "<a>1E400</a>", R"({"a": "1E400"})"},
         }) {
        CSmartPtr<WrittenObject> const object(new WrittenObject(Script(row.calls)));
        auto const outcome = [](std::function<std::string()> const& write) {
            try {
                return write();
            } catch (CZvException const& failure) {
                return failure.GetMessage();
            }
        };
        EXPECT_EQ(outcome([&] { return object->ToXml(false, false, EOLType_LF, Strict()); }), row.xml)
            << row.calls;
        EXPECT_EQ(outcome([&] { return object->ToJson(false, EOLType_LF, Strict()); }), row.json)
            << row.calls;
    }
    auto const declared = [](CXmlTextWriter& writer) {
        for (char const* const ns : {"u", "v"})
            writer.DeclareOnNextElement("p", ns);
        writer.WriteElementStart("a", "");
    };
    EXPECT_EQ(Written(declared), kTwoMeanings);
}

TEST(StrictXml, NamesTheEncodingOfLocalText) {
    struct Row {
        unsigned codePage;
        char const* text;
        char const* name;
    };
    for (Row const& row : {
             Row{65001, "\xC3\xA4", ""},
             Row{28591, "\xE4", " encoding=\"ISO-8859-1\""},
             Row{1252, "\x80", " encoding=\"windows-1252\""},
             Row{850, "\x84", " encoding=\"IBM850\""},
             Row{20866, "\xC1", " encoding=\"KOI8-R\""},
         }) {
        LocalEncoding const local(row.codePage);
        CSmartPtr<CElement> const element = Named("a", row.text);
        std::string const rest = "?>\n<a>" + std::string(row.text) + "</a>";
        EXPECT_EQ(element->ToXml(true, false, EOLType_LF, CSerializationContext()),
                  "<?xml version=\"1.0\"" + rest);
        std::string const xml = element->ToXml(true, false, EOLType_LF, Strict());
        EXPECT_EQ(xml, "<?xml version=\"1.0\"" + (row.name + rest));
        CSmartPtr<CElement> const again(new CElement(""));
        static_cast<CXmlObjectBase&>(*again).FromXml(xml.c_str(), Strict());
        EXPECT_EQ(again->GetText(), row.text);
    }
    LocalEncoding const local(1252);
    CSmartPtr<CElement> const element(new CElement(""));
    EXPECT_THROW(static_cast<CXmlObjectBase&>(*element).FromXml(
                     "<?xml version='1.0' encoding='windows-1251'?><a/>", Strict()),
                 CZvException);
}

TEST(StrictXml, AddsNothingToMixedContent) {
    CSmartPtr<CElement> const element(new CElement("r"));
    CSmartPtr<CElement> const mixed = element->GetChildElements()->Add("p", "");
    mixed->SetText("Press.");
    mixed->GetChildElements()->Add("b", "")->GetChildElements()->Add("i", "");
    element->GetChildElements()->Add("q", "");
    auto const written = [&](CXmlObjectBase& object, CSerializationContext const& ctx) {
        return object.ToXml(false, true, EOLType_LF, ctx);
    };
    EXPECT_EQ(written(*element, CSerializationContext()),
              "<r>\n\t<p>\n\t\t<b>\n\t\t\t<i/>\n\t\t</b>\nPress.\t</p>\n\t<q/>\n</r>\n");
    EXPECT_EQ(written(*element, Strict()), "<r>\n\t<p><b><i/></b>Press.</p>\n\t<q/>\n</r>\n");
    Model model;
    model.elements = {Prim<CElementInfoSeqPrimOpt>("n", 0)};
    model.contentIndex = 1;
    model.contentType = ItemType_string;
    model.Finish();
    CSmartPtr<Probe> const text(new Probe(model));
    text->FromXml("<order><n>1</n>two</order>", Strict());
    EXPECT_EQ(written(*text, Strict()), "<order><n>1</n>two</order>\n");
    OrderOf other({Prim<CElementInfoSeqPrimOpt>("n", 0)});
    CSmartPtr<Probe> const plain(new Probe(other));
    plain->FromXml("<order><n>1</n></order>", Strict());
    EXPECT_EQ(written(*plain, Strict()), "<order>\n\t<n>1</n>\n</order>\n");
}

TEST(StrictXml, HasOneRootInEveryFormat) {
    using Format = void (*)(CElementCol & roots, CSerializationContext const& ctx);
    for (Format const format :
         {Format([](CElementCol&r, auto const&ctx) { r.ToXml(false, false, EOLType_LF, ctx); }),
          Format([](CElementCol&r, auto const&ctx) { r.ToJson(false, EOLType_LF, ctx); }),
          Format([](CElementCol&r, auto const&ctx) {
              r.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
          })}) {
        CSmartPtr<CElementCol> const roots(new CElementCol("", "##any", "", 0, -1));
        auto const message = [&] {
            return MessageOf<CZvInvalidStateException>([&] { format(*roots, Strict()); });
        };
        EXPECT_EQ(message(), "The document has no root element.");
        roots->Add("a", "");
        EXPECT_EQ(message(), "nothing was thrown");
        roots->Add("b", "");
        EXPECT_EQ(message(), "The document has a root element, [b] is a second one.");
    }
}

TEST(StrictXml, HasAdditionalRootAttributesOnce) {
    Model model;
    model.attributes = {Attribute("k", 0, true)};
    model.Finish();
    for (bool const strict : {false, true}) {
        CSmartPtr<Probe> const probe(new Probe(model));
        probe->properties[0].SetI4(1);
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        ctx.GetAdditionalRootAttributes()->Add("k", "2");
        std::string outcome;
        try {
            outcome = Write(*probe, ctx);
        } catch (CZvException const& failure) {
            outcome = failure.GetFullMessage();
        }
        EXPECT_THAT(outcome, testing::HasSubstr(strict ? "The Attribute [k] is already written."
                                                       : R"(<order k="2" k="1"/>)"));
    }
}

// A name that would be markup, on its way from an untyped element into a class.
TEST(StrictXml, MakesNoElementsOfATextOnTheWayIntoAClass) {
    auto const text = [](char const* name, int index) {
        return new CElementInfoSeqPrimOpt(name, "", index, false, ItemType_string, nullptr,
                                          CWhitespaceUtils::WhitespaceRule_Preserve, CPrimitiveRestrictions(),
                                          nullptr);
    };
    OrderOf model({text("name", 0), text("role", 1)});
    CSmartPtr<CElement> const source(new CElement("order"));
    std::string const trick = "<![CDATA[x]]></name><role>admin</role><name>";
    source->GetChildElements()->Add("name", "")->SetText(trick.c_str());
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXmlElement(source, Strict());
    EXPECT_EQ(probe->properties[0].GetString(), trick);
    EXPECT_FALSE(probe->properties[1].IsValid());
}

TEST(StrictXml, LeavesTheOldFileWhereWritingFails) {
    for (bool const overlapped : {false, true}) {
        AsyncToXmlFile(overlapped);
        TemporaryFile const file("old");
        CSmartPtr<CElement> const element = Named("a b");
        EXPECT_THROW(element->ToXmlFile(file.Path(), true, false, XmlEncoding_UTF8, EOLType_LF, Strict(),
                                        CompressionType_None),
                     CZvException);
        EXPECT_EQ(file.Content(), "old");
        CSmartPtr<CElement> const good = Named("a");
        good->ToXmlFile(file.Path(), false, false, XmlEncoding_UTF8, EOLType_LF, Strict(),
                        CompressionType_None);
        EXPECT_EQ(file.Content(), "<a/>");
        AsyncToXmlFile(false);
    }
}

} // namespace
