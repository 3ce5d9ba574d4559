// A program with classes that were made when it was built.
#include "orders.h"

int main() {
    auto const order = orders::NewOrder();
    orders::CItem& item = order->GetItem().Add();
    item.SetPrice("4.20");
    item.SetName("Tea");
    return orders::WriteOrderXml(*order) ==
                   "<order xmlns=\"urn:orders\"><item><name>Tea</name><price>4.2</price></item></order>"
               ? 0
               : 1;
}
