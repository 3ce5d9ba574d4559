// A set of classes that builds on one generated before.
#include "members.h"
#include "orders.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using namespace ZvXmlLib16;

template <class Call>
std::string FailureOf(Call call) {
    try {
        call();
        return "none";
    } catch (CZvException const& e) {
        return e.GetMessage();
    }
}

TEST(Extern, ObjectsOfBothSetsGoTogether) {
    auto const order = orders::NewOrder();
    CSmartPtr<common::CAddress> const address(new common::CAddress);
    address->SetStreet("S");
    address->GetGeo().SetKind(common::AddressGeoKind::Near);
    order->SetTo(address);
    order->GetFrom().SetStreet("T"); // by the class of the other set
    order->GetFrom().SetPhone("1");
    CSmartPtr<common::CBox> const box(new common::CBox);
    auto const book = orders::NewBook();
    book->SetName("n");
    box->GetItem().Add(book); // an element that the first set does not know
    order->SetBox(box);
    order->SetColor(orders::OrderColor::Red);
    std::string const xml = orders::WriteOrderXml(*order);
    EXPECT_EQ(
        xml,
        "<AA:order xmlns:AA=\"urn:orders\"><to><street>S</street><geo kind=\"near\"/></to><from><street>T"
        "</street><phone>1</phone></from><AB:box xmlns:AB=\"urn:common\"><AA:book><name>n</name></AA:book>"
        "</AB:box><AB:color xmlns:AB=\"urn:common\">red</AB:color></AA:order>");
    auto const again = orders::ReadOrderXml(xml);
    EXPECT_EQ(orders::WriteOrderXml(*again), xml);
    EXPECT_EQ(dynamic_cast<orders::CBook&>(again->GetBox().GetItem()[0]).GetName(), "n");
    EXPECT_EQ(again->GetTo().GetGeo().GetKind(), common::AddressGeoKind::Near);
}

TEST(Extern, RefusesObjectsOfOtherSchemas) {
    EXPECT_EQ(FailureOf([] {
                  common::ReadBoxXml("<b:box xmlns:b='urn:common'><book xmlns='urn:orders'/></b:box>");
              }),
              "The element [book] is not expected here; expected is [item].\nPath: /b:box/book");
    CSmartPtr<common::CAddress> const address(new common::CAddress);
    EXPECT_EQ(FailureOf([&] { orders::WritePlaceXml(*address); }),
              "The object [] belongs to another schema.");
    auto const order = orders::NewOrder();
    auto const foreign = main_::NewObject();
    EXPECT_EQ(FailureOf([&] {
                  struct Open : orders::COrder {
                      using COrder::AppendObject;
                  };
                  static_cast<Open&>(*order).AppendObject(0, foreign);
              }),
              "The object [object] belongs to another schema.");
}

} // namespace
