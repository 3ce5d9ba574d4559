// The samples of the guide that use classes of a schema, order.xsd: one function for each page.
#include "order.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

using namespace ZvXmlLib16;

namespace {

void Heading(char const* title) {
    std::cout << "== " << title << '\n';
}

CDecimal Total(shop::COrder const& order) {
    CDecimal total;
    for (shop::CItem const& item : order.GetItem())
        total += item.GetPrice() * item.GetQuantity();
    return total;
}

void FiveMinutes(std::string const& file) {
    Heading("five minutes");
    CSmartPtr<shop::COrder> const order = shop::ReadOrder(file);
    std::cout << order->GetCustomer() << " ordered on " << order->GetDate().ToString() << ":\n";
    for (shop::CItem const& item : order->GetItem())
        std::cout << "  " << item.GetQuantity() << " x " << item.GetName() << " at "
                  << item.GetPrice().ToString(2) << '\n';
}

void Reading(std::string const& file) {
    Heading("reading");
    CSmartPtr<shop::COrder> const order = shop::ReadOrder(file);
    if (!order->IsNoteValid())
        std::cout << "no note, and its text is \"" << order->GetNote() << "\"\n";
    if (order->GetStatus() == shop::Status::Draft)
        std::cout << (order->IsStatusValid() ? "a draft\n" : "a draft, by default\n");
    std::cout << order->GetItem().size() << " items, the second is " << order->GetItem()[1].GetName()
              << ", total " << Total(*order).ToString(2) << '\n';
}

void Changing(std::string const& file) {
    Heading("changing");
    CSmartPtr<shop::COrder> const order = shop::ReadOrder(file);
    order->SetStatus(shop::Status::Sent);
    order->SetNote("Ring twice");
    shop::CItem& item = order->GetItem().Add(); // behind the last item, ahead of the note
    item.SetSku("bun");
    item.SetName("Bun");
    item.SetQuantity(12);
    item.SetPrice(CDecimal("0.85"));
    order->RemoveDate();

    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.SetIndentChars("  ");
    std::cout << order->ToXml(false, true, EOLType_LF, ctx) << '\n';
}

void Making() {
    Heading("making");
    CSmartPtr<shop::COrder> const order = shop::NewOrder();
    order->SetNumber(8);
    order->SetCustomer("Brown");
    shop::CItem& item = order->GetItem().Add();
    item.SetSku("tea-01");
    item.SetName("Tea");
    item.SetQuantity(1);
    item.SetPrice(CDecimal("4.2"));

    shop::WriteOrder(*order, "order-8.xml");     // XML text
    shop::WriteOrder(*order, "order-8.json.gz"); // JSON in gzip form
    shop::WriteOrder(*order, "order-8.fi");      // Fast Infoset
    std::cout << shop::ReadOrder("order-8.json.gz")->GetItem()[0].GetName() << '\n';

    for (char const* const file : {"order-8.xml", "order-8.json.gz", "order-8.fi"})
        std::remove(file);
}

template <class Action>
void ShowRefusal(Action action) {
    try {
        action();
        std::cout << "taken\n";
    } catch (CZvException const& failure) {
        std::cout << failure.GetFullMessage() << '\n';
    }
}

void Validating(std::string const& file) {
    Heading("validating");
    CSmartPtr<shop::COrder> const order = shop::ReadOrder(file);
    shop::CItem& item = order->GetItem()[0];
    // A setter tests its value.
    ShowRefusal([&] { item.SetQuantity(2000); });
    ShowRefusal([&] { item.SetSku("TEA"); });
    // Writing tests what no setter can know: what is missing.
    item.RemovePrice();
    ShowRefusal([&] { shop::WriteOrderXml(*order); });
    // Reading tests everything.
    ShowRefusal([] { shop::ReadOrderXml("<order xmlns='urn:example:order' number='9'/>"); });
    ShowRefusal([] { shop::ReadOrderXml("<invoice/>"); });
}

void FirstFailure(std::string const& file) {
    Heading("first failure");
    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.SetKeepPositions(true);
    try {
        shop::ReadOrder(file, ctx);
    } catch (CZvException const& failure) {
        std::cout << failure.GetLine() << ':' << failure.GetColumn() << ": " << failure.GetPath() << '\n'
                  << failure.GetFullMessage() << '\n';
    }
}

void AllFailures(std::string const& file) {
    Heading("all failures");
    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.SetKeepPositions(true);
    ctx.SetFailureLimit(100);
    try {
        shop::ReadOrder(file, ctx);
    } catch (CZvException const&) {
        for (CReadFailure const& failure : ctx.GetFailures())
            std::cout << failure.line << ':' << failure.column << ": " << failure.path << '\n';
    }
}

void Json(std::string const& file) {
    Heading("json");
    CSmartPtr<shop::COrder> const order = shop::ReadOrder(file);
    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.GetJsonContext().SetSupportRoundtrip(JsonRoundTrip_NoNamespaces);
    std::cout << shop::WriteOrderJson(*order, ctx) << '\n';
    // In any order, as other programs write it.
    CSmartPtr<shop::COrder> const other = shop::ReadOrderJson(
        R"({"order": {"item": [{"price": 3, "quantity": 1, "name": "Cup", "@sku": "cup-12"}],
                      "customer": "White", "@number": 9}})",
        ctx);
    std::cout << shop::WriteOrderXml(*other) << '\n';
}

void FastInfoset(std::string const& file) {
    Heading("fast infoset");
    CSmartPtr<shop::COrder> const order = shop::ReadOrder(file);
    CBinaryData const bytes = shop::WriteOrderFastInfoset(*order);
    std::cout << shop::WriteOrderXml(*order).size() << " bytes of XML text, " << bytes.GetLength()
              << " of Fast Infoset\n";
    CSmartPtr<shop::COrder> const copy = shop::ReadOrder(bytes.GetData(), bytes.GetLength());
    std::cout << copy->GetCustomer() << '\n';
}

void WriteMany(char const* file, int orders) {
    std::ofstream out(file);
    out << "<orders xmlns='urn:example:order'>\n";
    for (int number = 1; number <= orders; ++number)
        out << "<order number='" << number << "'><customer>Green</customer><item sku='tea'><name>Tea</name>"
            << "<quantity>" << 1 + number % 3 << "</quantity><price>4.20</price></item></order>\n";
    out << "</orders>\n";
}

CDecimal s_sum;

// Makes a typed object of each order, and takes the order out of the tree.
bool AddOrder(CXmlElement* element) {
    if (element->GetLocalName() != "order")
        return false;
    CSmartPtr<shop::COrder> const order = shop::NewOrder();
    order->FromXmlElement(element, element->GetDocument()->GetContext());
    s_sum += Total(*order);
    return true;
}

void ManyOrders() {
    Heading("many orders");
    WriteMany("orders.xml", 1000);
    CSerializationContext ctx;
    ctx.SetStrict(true);
    CXmlDocument document(AddOrder, ctx);
    document.Load("orders.xml");
    std::remove("orders.xml");
    std::cout << "all orders together: " << s_sum.ToString(2) << '\n';
}

void Threads(std::string const& file) {
    Heading("threads");
    CSerializationContext settings; // what all threads begin with
    settings.SetStrict(true);
    std::vector<CDecimal> totals(4);
    std::vector<std::thread> threads;
    for (CDecimal& total : totals)
        threads.emplace_back([&file, &settings, &total] {
            CSerializationContext const ctx(settings); // one for each thread
            total = Total(*shop::ReadOrder(file, ctx));
        });
    for (std::thread& thread : threads)
        thread.join();
    std::cout << totals[0].ToString(2) << " in every thread: " << std::boolalpha
              << (totals == std::vector<CDecimal>(4, totals[0])) << '\n';
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Usage: " << argv[0] << " ORDER WRONG-ORDER\n";
        return 2;
    }
    try {
        SetLocalCharEncoding(65001); // texts of this program are UTF-8
        FiveMinutes(argv[1]);
        Reading(argv[1]);
        Changing(argv[1]);
        Making();
        Validating(argv[1]);
        FirstFailure(argv[2]);
        AllFailures(argv[2]);
        Json(argv[1]);
        FastInfoset(argv[1]);
        ManyOrders();
        Threads(argv[1]);
        return 0;
    } catch (CZvException const& failure) {
        std::cerr << failure.GetFullMessage() << '\n';
        return 1;
    }
}
