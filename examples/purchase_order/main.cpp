// Fills a purchase order, writes it, reads it back, changes it, and shows the messages for wrong documents.
#include "PurchaseOrder.h"

#include <iostream>

using namespace ZvXmlLib16;
using namespace purchase_order;

namespace {

void AddItem(COrder& order, char const* sku, char const* name, int quantity, char const* price) {
    CSmartPtr<CItem> const item = order.GetItems()->Add();
    item->SetSku(sku);
    item->SetName(name);
    item->SetQuantity(quantity);
    item->SetPrice(CDecimal(price));
}

CDecimal Total(COrder const& order) {
    CDecimal total;
    for (int i = 0; i < order.GetItems()->GetCount(); ++i) {
        CSmartPtr<CItem> const item = order.GetItems()->Item(i);
        total += item->GetPrice() * CDecimal(item->GetQuantity());
    }
    return total;
}

void ShowFailure(char const* xml, CSerializationContext const& ctx) {
    CSmartPtr<COrder> const order(new COrder);
    try {
        order->FromXml(xml, ctx);
        std::cout << "read without a complaint\n";
    } catch (CZvException const& failure) {
        std::cout << failure.GetFullMessage() << "\n\n";
    }
}

void Run() {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("urn:example:purchase-order");
    ctx.SetIndentChars("  ");

    CSmartPtr<COrder> const order(new COrder);
    order->SetNumber(7);
    order->SetCustomer("Gr\xC3\xBCn & S\xC3\xB6hne");
    order->SetDate(CDateTime(2026, 11, 23));
    AddItem(*order, "tea-01", "Tea, green", 2, "4.2");
    AddItem(*order, "cup-12", "Cup", 6, "3");
    order->GetDeliveries()->Add(CDateTime(2026, 11, 27));
    order->GetDeliveries()->Add(CDateTime(2026, 11, 30));
    std::string const xml = order->ToXml(true, true, EOLType_LF, ctx);
    std::cout << xml << '\n';

    CSmartPtr<COrder> const copy(new COrder);
    copy->FromXml(xml.c_str(), ctx);
    copy->SetStatus(Status_sent);
    copy->SetNote("By train");
    std::cout << "order " << copy->GetNumber() << " of " << copy->GetCustomer() << ", total "
              << Total(*copy).ToString(2) << ":\n"
              << copy->ToXml(false, false, EOLType_LF, ctx) << "\n\n";

    // Facets are tested when an order is written, and by a collection when a value is added.
    copy->GetItems()->Item(0)->SetPrice(CDecimal("0.333"));
    try {
        copy->ToXml(false, false, EOLType_LF, ctx);
    } catch (CZvException const& failure) {
        std::cout << failure.GetFullMessage() << "\n\n";
    }
    try {
        copy->GetDeliveries()->Add(CDateTime(1999, 12, 31));
    } catch (CZvException const& failure) {
        std::cout << failure.GetFullMessage() << "\n\n";
    }

    ShowFailure("<order number='7' date='2026' xmlns='urn:example:purchase-order'/>", ctx);
    ShowFailure("<order number='7' xmlns='urn:example:purchase-order'><customer>A</customer>"
                "<item sku='a'><name>Tea</name><quantity>two</quantity><price>1</price></item></order>",
                ctx);
    ShowFailure("<order number='7' xmlns='urn:example:purchase-order'><customer>A</customer></order>", ctx);
    ShowFailure("<order number='7' xmlns='urn:example:purchase-order'><item sku='a'/></order>", ctx);
}

} // namespace

int main() {
    SetGeneratorVersion(16, 1);
    SetLocalCharEncoding(65001);
    Run();
    COrder::CleanUp();
    CItem::CleanUp();
}
