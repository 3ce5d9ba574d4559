// JSON text into an untyped object and into a bound one. What is read straight is what is read by way of the
// XML text, failures included, and what is read in full is written as JSON and read again equal.
#include "DocumentTree.h"
#include "examples/purchase_order/PurchaseOrder.h"

namespace {

// Replaces the reading of XML, so that it gets it.
template <class Object>
class ByXml final : public Object {
public:
    using Object::FromXmlStream;
    void FromXmlStream(CBinaryData const& data, CSerializationContext const& ctx) override {
        Object::FromXmlStream(data, ctx);
    }
};

// What is read as XML, or the failure.
template <class Object>
std::string ReadJson(std::string const& json, CSerializationContext const& ctx) {
    try {
        CSmartPtr<Object> const object(new Object);
        object->FromJson(json.c_str(), ctx);
        return object->ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
}

template <class Object>
void TryBothWays(std::string const& json, JsonRoundTrip mode, char const* rootName, bool allowComments) {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("urn:example:purchase-order");
    ctx.GetJsonContext().SetSupportRoundtrip(mode);
    ctx.GetJsonContext().SetRootElementName(rootName);
    ctx.GetJsonContext().GetAllowComments(allowComments);
    Require(ReadJson<Object>(json, ctx) == ReadJson<ByXml<Object>>(json, ctx));
    ctx.SetStrict(true);
    Require(ReadJson<Object>(json, ctx) == ReadJson<ByXml<Object>>(json, ctx));
}

void TryAgain(std::string const& json) {
    std::optional<WholeDocument> const document = Attempt([&] { return FromJsonText(json); });
    if (!document)
        return;
    DocumentTraits const traits(**document);
    if (!traits.FitsJson())
        return;
    WholeDocument const again = FromJsonText((*document)->ToJson(true, EOLType_CRLF, traits.Context()));
    Require(TreeOf(*again, Kept::ByJson) == TreeOf(**document, Kept::ByJson));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const json(TextOf(data, size));
    // One or the other, so that a run takes half the time; texts change their length often.
    if (size % 2 == 0) {
        TryBothWays<CWholeDocument>(json, JsonRoundTrip_Full, "", true);
        TryAgain(json);
    } else {
        TryBothWays<purchase_order::COrder>(json, JsonRoundTrip_None, "order", false);
    }
    return 0;
}
