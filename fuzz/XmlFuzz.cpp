// XML text into an untyped object and out again. What was written once is read back and written the same. The
// input is also read as octets, whose encoding is theirs to tell, into a bound object.
#include "WholeDocument.h"
#include "examples/purchase_order/PurchaseOrder.h"

namespace {

std::optional<std::string> Rewrite(std::string const& xml) {
    return Attempt([&] {
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromXml(xml.c_str());
        return element->ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
    });
}

// Passed on raw by design, so the outcome may be anything.
bool HasRawParts(std::string const& xml) {
    return xml.find("<![CDATA[") != std::string::npos || xml.find("xmlns") != std::string::npos;
}

void TryTyped(CBinaryData const& octets) {
    CSerializationContext const& ctx = CSerializationContext::GetDefaultContext();
    Attempt([&] {
        CSmartPtr<purchase_order::COrder> const order(new purchase_order::COrder);
        order->FromXmlStream(octets, ctx);
        return order->ToXmlStream(true, true, XmlEncoding_UTF16, EOLType_CRLF, ctx, CompressionType_None);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const xml(TextOf(data, size));
    TryTyped(OctetsOf(xml));
    std::optional<std::string> const written = Rewrite(xml);
    if (!written || HasRawParts(*written))
        return 0;
    // A tab in an attribute becomes a blank in the first round.
    std::optional<std::string> const second = Rewrite(*written);
    Require(second && Rewrite(*second) == second);
    return 0;
}
