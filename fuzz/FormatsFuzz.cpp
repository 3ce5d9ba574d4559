// XML text to an object, by Fast Infoset to an object, by JSON to an object: equal trees, but for what JSON
// loses. The same for a bound class.
#include "DocumentTree.h"
#include "examples/purchase_order/PurchaseOrder.h"

namespace {

void TryUntyped(std::string const& xml) {
    std::optional<WholeDocument> const document = Attempt([&] { return FromXmlText(xml); });
    if (!document)
        return;
    DocumentTraits const traits(**document);
    if (traits.HasRawParts())
        return;
    WholeDocument const fromInfoset = FromOctets((*document)->ToFastInfosetStream(
        FInfoDecl_None, CSerializationContext::GetDefaultContext(), CompressionType_None));
    Require(TreeOf(*fromInfoset, Kept::All) == TreeOf(**document, Kept::All));
    if (!traits.FitsJson())
        return;
    WholeDocument const fromJson = FromJsonText(fromInfoset->ToJson(false, EOLType_LF, traits.Context()));
    Require(TreeOf(*fromJson, Kept::ByJson) == TreeOf(*fromInfoset, Kept::ByJson));
}

using Order = CSmartPtr<purchase_order::COrder>;

std::string XmlOf(Order const& order, CSerializationContext const& ctx) {
    return TextAsKept(order->ToXml(false, false, EOLType_LF, ctx), Kept::ByJson);
}

void TryTyped(std::string const& xml) {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("urn:example:purchase-order");
    Order const order(new purchase_order::COrder);
    std::optional<std::string> const written = Attempt([&] {
        order->FromXml(xml.c_str(), ctx);
        return XmlOf(order, ctx); // refuses values that offend their facets
    });
    if (!written || written->find("<![CDATA[") != std::string::npos)
        return;
    Order const fromInfoset(new purchase_order::COrder);
    fromInfoset->FromXmlStream(order->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None), ctx);
    Require(XmlOf(fromInfoset, ctx) == *written);
    Order const fromJson(new purchase_order::COrder);
    fromJson->FromJson(fromInfoset->ToJson(false, EOLType_LF, ctx).c_str(), ctx);
    Require(XmlOf(fromJson, ctx) == *written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const xml(TextOf(data, size));
    TryUntyped(xml);
    TryTyped(xml);
    return 0;
}
