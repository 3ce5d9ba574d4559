// A document into an untyped object, changed, and out again.
#include <iostream>
#include <zvxmllib/ZvXmlLib.h>
using namespace ZvXmlLib16;

int main() {
    SetGeneratorVersion(16, 1);  // the version that this program was written for
    SetLocalCharEncoding(65001); // its texts are UTF-8
    CSmartPtr<CElement> order = new CElement("");
    order->FromXml("<order number='7'><item price='4.20'>Tea</item></order>");
    order->GetChildElements()->Add("item", "")->SetText("Milk & honey");
    std::cout << order->ToXml(false, true, EOLType_LF, CSerializationContext::GetDefaultContext());
}
