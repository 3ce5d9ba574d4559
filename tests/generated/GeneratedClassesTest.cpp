// Generated classes at work. Their schemas are examples/data/cap-1.2.xsd and shop.xsd beside this file.
#include "../../examples/cap_alert/CapAlert.h"
#include "alert.h"
#include "shop.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace ZvXmlLib16;
using testing::HasSubstr;

namespace {

std::string const kShopStart = R"(<shop xmlns="urn:shop" best="true">)";
std::string const kShirt =
    R"(<shirt id="s1"><name>Blue &amp; wide</name><price>19.90</price><size>2XL</size></shirt>)";
std::string const kBook =
    R"(<book id="b1" scores="1.5 2"><name>XML</name><pages>12</pages><tag>dry</tag><pages>13</pages></book>)";

template <class Call>
std::string FailureOf(Call call) {
    try {
        call();
        return "none";
    } catch (CZvException const& e) {
        return e.GetFullMessage();
    }
}

// The twin written by hand and the generated classes write the same bytes.
TEST(GeneratedClasses, WriteWhatClassesWrittenByHandWrite) {
    for (char const* const name : {"cap-australia.xml", "cap-tsunami.xml"}) {
        CSerializationContext ctx;
        ctx.SetStrict(true);
        ctx.SetDefaultNamespaceURI(cap::kNamespace);
        CSmartPtr<cap::CAlert> const byHand(new cap::CAlert);
        byHand->FromXmlFile((std::string(ZV_EXAMPLE_DATA_DIR) + "/" + name).c_str(), ctx);
        std::string const xml = byHand->ToXml(false, false, EOLType_LF, ctx);
        EXPECT_EQ(alerts::WriteAlertXml(*alerts::ReadAlertXml(xml), ctx), xml);
        std::string const json = byHand->ToJson(false, EOLType_LF, ctx);
        EXPECT_EQ(alerts::WriteAlertJson(*alerts::ReadAlertJson(json), ctx), json);
    }
}

TEST(GeneratedClasses, GoThroughAllFormatsUnchanged) {
    std::string const xml =
        kShopStart + kShirt + kBook +
        R"(<best xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:type="Book" id="b2">)"
        R"(<name/></best><weight unit="kg">0.5</weight><x xmlns="urn:x"><y z="1"/></x></shop>)";
    auto const shop = shop::ReadShopXml(xml);
    std::string const written = shop::WriteShopXml(*shop);
    auto const bytes = shop::WriteShopFastInfoset(*shop);
    EXPECT_EQ(shop::WriteShopXml(*shop::ReadShopXml(written)), written);
    // JSON has no place for the order of a repeated choice.
    EXPECT_EQ(FailureOf([&] { shop::WriteShopJson(*shop); }),
              "JSON can not express the Element [pages] in this place.");
    dynamic_cast<shop::CBook&>(shop->GetArticle()[1]).GetTag().clear();
    EXPECT_EQ(shop::WriteShopXml(*shop::ReadShopJson(shop::WriteShopJson(*shop))), shop::WriteShopXml(*shop));
    EXPECT_EQ(shop::WriteShopXml(*shop::ReadShop(bytes.GetData(), bytes.GetLength())), written);
    EXPECT_THAT(written, HasSubstr(kShirt));
    EXPECT_THAT(written, HasSubstr(kBook)); // the order of a repeated choice, too
}

TEST(GeneratedClasses, GiveTypedValues) {
    auto const shop = shop::ReadShopXml(kShopStart + kShirt + kBook + "</shop>");
    EXPECT_TRUE(shop->GetBestAttribute());
    EXPECT_FALSE(shop->IsBestValid());
    ASSERT_EQ(shop->GetArticle().size(), 2U);
    auto& shirt = dynamic_cast<shop::CShirt&>(shop->GetArticle()[0]);
    EXPECT_EQ(shirt.GetName(), "Blue & wide");
    EXPECT_EQ(shirt.GetPrice(), CDecimal("19.9"));
    EXPECT_EQ(shirt.GetSize(), shop::Size::V2XL);
    EXPECT_EQ(shirt.GetTax(), 19); // the default of an attribute
    EXPECT_FALSE(shirt.IsTaxValid());
    auto& book = dynamic_cast<shop::CBook&>(shop->GetArticle()[1]);
    EXPECT_EQ(book.GetScores(), (std::vector<float>{1.5F, 2}));
    std::vector<int> pages;
    for (int const page : book.GetPages())
        pages.push_back(page);
    EXPECT_EQ(pages, (std::vector<int>{12, 13}));
}

TEST(GeneratedClasses, PutWhatIsSetWhereTheSchemaWantsIt) {
    CSmartPtr<shop::CShop> const shop(new shop::CShop);
    shop->SetNamespaceElement("n");
    shop->GetWeight().SetValue(0.1);
    CSmartPtr<shop::CShirt> const shirt(new shop::CShirt);
    shirt->SetWashedNil();
    shirt->SetSize(shop::Size::Empty);
    shirt->SetName("x");
    shirt->SetId("i");
    shop->GetArticle().Add(shirt);
    EXPECT_EQ(FailureOf([&] { shop::WriteShopXml(*shop); }),
              "The element [article] is abstract.\nPath: /shop/article");
    shop->GetArticle().clear();
    CSmartPtr<shop::CShirt> const other = shop::NewShirt();
    other->SetSize(shop::Size::AB_2);
    other->SetName("x");
    EXPECT_EQ(FailureOf([&] {
                  shop->GetArticle().Add(other);
                  shop::WriteShopXml(*shop);
              }),
              "The attribute [id] is missing.\nPath: /shop/shirt");
    other->SetId("i");
    other->SetWashedNil();
    EXPECT_EQ(shop::WriteShopXml(*shop),
              R"(<shop xmlns="urn:shop"><shirt id="i"><name>x</name><size>aB</size>)"
              R"(<washed xmlns:AA="http://www.w3.org/2001/XMLSchema-instance" AA:nil="true"/></shirt>)"
              R"(<weight>0.1</weight><namespace>n</namespace></shop>)");
    EXPECT_TRUE(other->IsWashedNil());
}

TEST(GeneratedClasses, RefuseWhatTheSchemaDoesNotAllow) {
    struct Case {
        std::string content;
        char const* message;
    } const cases[] = {
        {"", "An element is missing; expected is [article]"},
        {R"(<shirt id="1"><name/><size>small</size></shirt>)", "[1]"},
        {R"(<shirt id="i"><name/><price>1.234</price><size>small</size></shirt>)", "[1.234]"},
        {R"(<shirt id="i"><name/></shirt>)", "expected is [price] or [size]"},
        {R"(<article id="i"><name/></article>)", "The element [article] is abstract."},
        {R"(<book id="i"><name/></book><book id="i"><name/></book>)", "The ID [i] stands twice"},
        {R"(<book id="i"><name/></book><best id="j"><name/></best>)", "is abstract."},
        {R"(<book id="i"><name/></book><weight unit="g">1</weight>)", "fixed value [kg]"},
    };
    for (Case const& test : cases)
        EXPECT_THAT(FailureOf([&] { shop::ReadShopXml(kShopStart + test.content + "</shop>"); }),
                    HasSubstr(test.message));
    EXPECT_THAT(FailureOf([] { shop::ReadShopXml("<other/>"); }),
                HasSubstr("The root element is [other], not [shop]."));
    auto const shop = shop::ReadShopXml(kShopStart + kShirt + "</shop>");
    EXPECT_THAT(FailureOf([&] { shop->GetArticle()[0].SetPrice(CDecimal("-1")); }),
                HasSubstr("minInclusive"));
    EXPECT_THAT(FailureOf([&] { shop->GetArticle()[1]; }),
                HasSubstr("There are not so many elements [article]."));
    EXPECT_THAT(FailureOf([&] { shop->SetBest(nullptr); }), HasSubstr("needs an object"));
}

// JSON has no order, and other programs write no namespaces.
TEST(GeneratedClasses, ReadJsonOfOtherPrograms) {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_NoNamespaces);
    auto const shop = shop::ReadShopJson(
        R"({"shop": {"namespace": "n", "shirt": [{"size": "small", "name": "x", "@id": "i", "price": 1.50}]}})",
        ctx);
    EXPECT_EQ(
        shop::WriteShopXml(*shop),
        R"(<shop xmlns="urn:shop"><shirt id="i"><name>x</name><price>1.50</price><size>small</size></shirt>)"
        R"(<namespace>n</namespace></shop>)");
}

TEST(GeneratedClasses, TellWhereAValueOfJsonIsWrong) {
    struct Case {
        bool isStrict;
        std::string between;
        char const* place;
    };
    // A comment is not plain: its text has no places.
    for (Case const& row : {Case{false, " ", "3:33"}, Case{true, " ", "3:33"}, Case{false, "/**/", "0:0"}}) {
        CSerializationContext ctx;
        ctx.SetStrict(row.isStrict);
        ctx.SetKeepPositions(true);
        ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_NoNamespaces);
        std::string const json = " {\"shop\": {\n\"namespace\": \"n\",\n \"shirt\":" + row.between +
                                 "[{\"@id\": \"i\", \"size\": \"huge\", \"name\": \"x\", \"price\": 1.50}]}}";
        try {
            shop::ReadShopJson(json, ctx);
            ADD_FAILURE() << json;
        } catch (CZvException const& failure) {
            EXPECT_THAT(failure.GetFullMessage(), HasSubstr("[huge]"));
            EXPECT_EQ(std::to_string(failure.GetLine()) + ':' + std::to_string(failure.GetColumn()),
                      row.place)
                << json;
        }
    }
}

TEST(GeneratedClasses, KeepTextsAndChildrenOfMixedContentInOrder) {
    std::string const start = R"(<note xmlns="urn:shop">)";
    std::string const xml = start + "a <b>bold</b> and <i>slanted</i> word</note>";
    auto const note = shop::ReadNoteXml(xml);
    EXPECT_EQ(shop::WriteNoteXml(*note), xml);
    EXPECT_EQ(shop::WriteNoteXml(*shop::ReadNote(shop::WriteNoteFastInfoset(*note).GetData(),
                                                 shop::WriteNoteFastInfoset(*note).GetLength())),
              xml);
    std::string order;
    for (auto const& piece : note->ContentPieces())
        order += "[" + (piece.node == nullptr ? std::string(piece.text) : piece.node->text.Get()) + "]";
    EXPECT_EQ(order, "[a ][bold][ and ][slanted][ word]");
    EXPECT_EQ(FailureOf([&] { shop::WriteNoteJson(*note); }),
              "The place of the text in [note] can not be expressed in JSON.");
    note->GetI().clear();
    EXPECT_EQ(shop::WriteNoteXml(*note), start + "a <b>bold</b> and  word</note>");
    note->SetText("All ");
    note->GetI().Add("new");
    note->AddMixedText(", ");
    note->GetB().Add("really");
    EXPECT_EQ(shop::WriteNoteXml(*note), start + "<b>bold</b><i>new</i>All , <b>really</b></note>");
    EXPECT_EQ(FailureOf([] { shop::NewShirt()->AddMixedText("x"); }),
              "The element [shirt] has no mixed content.");
}

// Qualified names keep what they mean, also those in no namespace.
TEST(GeneratedClasses, KeepThePrefixesOfNames) {
    auto const read = shop::ReadNamesXml(
        "<s:names xmlns:s='urn:shop' xmlns:p='urn:p' of='p:a'><s:name>bare</s:name></s:names>");
    EXPECT_EQ(read->PrefixUri("p"), "urn:p");
    EXPECT_EQ(shop::WriteNamesXml(*read),
              "<AA:names xmlns:AA=\"urn:shop\" xmlns:p=\"urn:p\" of=\"p:a\"><AA:name>"
              "bare</AA:name></AA:names>");
    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.SetDefaultNamespaceURI("urn:shop");
    EXPECT_THAT(FailureOf([&] { shop::WriteNamesXml(*read, ctx); }),
                HasSubstr("a name without a namespace, which a default namespace would change"));

    auto const names = shop::NewNames();
    names->SetOf("k:a");
    names->GetName().Add("k:b");
    EXPECT_EQ(FailureOf([&] { shop::WriteNamesXml(*names); }),
              "The value [k:a] has the prefix [k], which is not declared.\nPath: /names");
    for (auto const& [prefix, uri] :
         {std::pair<std::string, std::string>{"k", ""}, {"a b", "urn:k"}, {"xml", "urn:k"}})
        EXPECT_EQ(FailureOf([&names, &p = prefix, &u = uri] { names->DeclarePrefix(p, u); }),
                  "The prefix [" + prefix + "] cannot stand for [" + uri + "].");
    names->DeclarePrefix("k", "urn:old");
    names->DeclarePrefix("k", "urn:k");
    std::string const xml = "<names xmlns=\"urn:shop\" xmlns:k=\"urn:k\" of=\"k:a\"><name>k:b</name></names>";
    EXPECT_EQ(shop::WriteNamesXml(*names), xml);
    auto const copy = shop::ReadNamesJson(shop::WriteNamesJson(*names));
    EXPECT_EQ(copy->PrefixUri("k"), "urn:k");
}

} // namespace
