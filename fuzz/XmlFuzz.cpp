// XML text into an untyped object and out again: what was written is read as an equal tree, but for what the
// text loses. The input is also read as octets, whose encoding is theirs to tell, into a bound object.
#include "DocumentTree.h"
#include "examples/purchase_order/PurchaseOrder.h"

namespace {

void TryUntyped(std::string const& xml) {
    std::optional<WholeDocument> const document = Attempt([&] { return FromXmlText(xml); });
    if (!document)
        return;
    DocumentTraits const traits(**document);
    if (!traits.FitsXml())
        return;
    WholeDocument const again = FromXmlText((*document)->ToXml(false, false, EOLType_LF, traits.Context()));
    Require(TreeOf(*again, Kept::ByXml) == TreeOf(**document, Kept::ByXml));
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
    TryUntyped(xml);
    return 0;
}
