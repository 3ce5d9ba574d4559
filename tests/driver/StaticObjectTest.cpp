// A bound object of static storage that is made and used before the statics of other sources are.
#include "examples/purchase_order/PurchaseOrder.h"

#include <gtest/gtest.h>

using namespace ZvXmlLib16;
using namespace purchase_order;

namespace {

struct EarlyOrder {
    EarlyOrder() {
        SetGeneratorVersion(16, 1);
        order = new COrder;
        CSerializationContext const& ctx = CSerializationContext::GetDefaultContext();
        order->SetNumber(7);
        order->SetCustomer("a");
        order->SetDate(CDateTime(2026, 11, 23));
        CSmartPtr<CItem> const item = order->GetItems()->Add();
        item->SetSku("tea-01");
        item->SetName("Tea");
        item->SetQuantity(2);
        item->SetPrice(CDecimal("4.2"));
        xml = order->ToXml(false, false, EOLType_LF, ctx);
        json = order->ToJson(false, EOLType_LF, ctx);
        order->FromXml(xml.c_str(), ctx);
        order->FromJson(json.c_str(), ctx);
        try {
            order->FromXml("<wrong", ctx);
        } catch (CZvException const& caught) {
            failure = caught.GetFullMessage();
        }
    }

    CSmartPtr<COrder> order;
    std::string xml;
    std::string json;
    std::string failure;
};
__attribute__((init_priority(101))) EarlyOrder early;

TEST(StaticObject, IsBoundBeforeDynamicInitialisation) {
    CSmartPtr<COrder> const late(new COrder);
    CSerializationContext const& ctx = CSerializationContext::GetDefaultContext();
    late->FromXml(early.xml.c_str(), ctx);
    EXPECT_EQ(late->ToXml(false, false, EOLType_LF, ctx), early.xml);
    EXPECT_EQ(late->ToJson(false, EOLType_LF, ctx), early.json);
    EXPECT_EQ(late->GetItems()->Item(0)->GetPrice().ToString(), "4.2");
    EXPECT_NE(early.failure, "");
    early.order = nullptr; // nothing is alive when the program is done
}

} // namespace
