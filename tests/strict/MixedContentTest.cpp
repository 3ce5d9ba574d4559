// Text between the children of untyped elements.
#include "tests/strict/Twice.h"
#include "zvxmllib/collections/Element.h"

#include <gtest/gtest.h>

#include <random>

using namespace entries;

namespace {

CSmartPtr<CElement> ElementOf(std::string const& xml, CSerializationContext const& ctx) {
    CSmartPtr<CElement> const element(new CElement("x"));
    CSerializationContext const strict = Strict();
    // In the usual way the object is a member of the root.
    static_cast<CXmlObjectBase&>(*element).FromXml(
        ctx.GetStrict() ? xml.c_str() : ("<w>" + xml + "</w>").c_str(), ctx);
    return element;
}

std::string TextOf(CElement& element, CSerializationContext const& ctx) {
    return element.ToXml(false, false, EOLType_LF, ctx);
}

CSmartPtr<CElement> ThroughFastInfoset(CElement& element) {
    CSmartPtr<CElement> const again(new CElement("x"));
    again->FromXmlStream(element.ToFastInfosetStream(FInfoDecl_None, Strict(), CompressionType_None),
                         Strict());
    return again;
}

TEST(MixedContent, KeepsThePlaceOfItsTextInStrict) {
    for (auto const& [xml, usual] : {
             std::pair("<p>Press <b>OK</b> now.</p>", "<p><b>OK</b>Press  now.</p>"),
             std::pair("<p>\n  <b/>\n  <b/>\n</p>", "<p><b/><b/>\n  \n  \n</p>"),
             std::pair("<p><b/>behind</p>", "<p><b/>behind</p>"),
             std::pair("<p>a<b>c<d/>e</b><b/>f<b/></p>", "<p><b><d/>ce</b><b/><b/>af</p>"),
             std::pair("<p>&lt;&amp;<b/>\xC3\xA4\xE2\x82\xAC<c/>\xF0\x9F\x98\x80</p>",
                       "<p><b/><c/>&lt;&amp;\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80</p>"),
         }) {
        CSmartPtr<CElement> const element = ElementOf(xml, Strict());
        EXPECT_EQ(TextOf(*element, Strict()), xml);
        EXPECT_EQ(element->ToXml(false, true, EOLType_LF, Strict()), std::string(xml) + "\n")
            << "not indented";
        EXPECT_EQ(TextOf(*element, {}), usual);
        EXPECT_EQ(TextOf(*ElementOf(xml, {}), Strict()), usual) << "read without places";
        EXPECT_EQ(TextOf(*ThroughFastInfoset(*element), Strict()), xml);
        EXPECT_EQ(TextOf(*element->Clone(), Strict()), xml);
        CSmartPtr<CElement> const assigned(new CElement("y"));
        *assigned = *element;
        EXPECT_EQ(TextOf(*assigned, Strict()), xml);
        static_cast<CXmlObjectBase&>(*assigned).FromXml("<p>a<c/></p>", Strict());
        EXPECT_EQ(TextOf(*assigned, Strict()), "<p>a<c/></p>") << "reading replaces the places";
    }
}

TEST(MixedContent, IsBuiltAndChanged) {
    CSmartPtr<CElement> const p(new CElement("p"));
    p->SetText("Press ");
    p->AddText("");
    CElementCol& children = *p->GetChildElements();
    EXPECT_EQ(p->GetTextPlaces().size(), 0U);
    p->AddText("the ");
    CSmartPtr<CElement> const b = children.Add("b", "");
    b->SetText("button");
    p->AddText(" now");
    children.Add("br", "");
    EXPECT_EQ(p->GetText(), "Press the  now");
    EXPECT_EQ(TextOf(*p, Strict()), "<p>Press the <b>button</b> now<br/></p>");
    children.AddBefore(b, new CElement("a"));
    EXPECT_EQ(TextOf(*p, Strict()), "<p>Press the <a/> now<b>button</b><br/></p>")
        << "so many children ahead";
    children.Clear();
    EXPECT_EQ(TextOf(*p, Strict()), "<p>Press the  now</p>");
    children.Add("c", "");
    p->SetText("end");
    EXPECT_EQ(TextOf(*p, Strict()), "<p><c/>end</p>");
}

TEST(MixedContent, HasNoPlaceInJsonButForWhiteSpace) {
    CSmartPtr<CElement> const blank = ElementOf("<p>\n <b>\n <i/>\n </b>\n <c/>end</p>", Strict());
    EXPECT_EQ(blank->ToJson(false, EOLType_LF, Strict()),
              R"({"p": {"b": {"i": ""},"c": "","#text": "end"}})");
    CSmartPtr<CElement> const mixed = ElementOf("<p>a<b/></p>", Strict());
    EXPECT_EQ(MessageOf<CZvInvalidStateException>([&] { mixed->ToJson(false, EOLType_LF, Strict()); }),
              "The place of the text in [p] can not be expressed in JSON.");
}

// Elements, texts and white space as they come.
std::string RandomElement(std::minstd_rand& random, unsigned depth) {
    std::string xml = "<e>";
    for (auto parts = random() % 5; parts != 0; --parts) {
        char const* const texts[] = {" ", "\n", "a", "bc", "&amp;", "\xC3\xA4"};
        if (random() % 2 == 0 && depth != 0)
            xml += RandomElement(random, depth - 1);
        else
            xml += texts[random() % std::size(texts)];
    }
    return xml == "<e>" ? "<e/>" : xml + "</e>";
}

TEST(MixedContent, ComesBackWhateverItIs) {
    std::minstd_rand random(7); // NOLINT: the same documents each time
    for (int i = 0; i < 500; ++i) {
        std::string const xml = RandomElement(random, 4);
        CSmartPtr<CElement> const element = ElementOf(xml, Strict());
        ASSERT_EQ(TextOf(*element, Strict()), xml);
        ASSERT_EQ(TextOf(*ThroughFastInfoset(*element), Strict()), xml);
    }
}

} // namespace
