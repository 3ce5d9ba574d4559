// JSON text into an untyped object. What is read straight is what is read by way of the XML text.
#include "zvxmllib/ZvXmlLib.h"

#include <cstdlib>
#include <optional>
#include <string>

using namespace ZvXmlLib16;

namespace {

// None for what is refused.
template <class Read>
std::optional<std::string> Rewrite(Read read) {
    try {
        CSmartPtr<CElement> const element(new CElement(""));
        read(*element);
        return element->ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
    } catch (CZvException const&) {
        return std::nullopt;
    }
}

void Try(std::string const& json, JsonRoundTrip mode, char const* rootName) {
    CSerializationContext ctx;
    ctx.GetJsonContext().SetSupportRoundtrip(mode);
    ctx.GetJsonContext().SetRootElementName(rootName);
    std::optional<std::string> const straight =
        Rewrite([&](CElement& element) { element.FromJson(json.c_str(), ctx); });
    std::optional<std::string> const byXml = Rewrite([&](CElement& element) {
        CBinaryData const xml = CXmlDocument(ctx).LoadJson(json.c_str());
        element.FromXmlStream(xml, ctx);
    });
    if (straight != byXml)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    std::string const json(reinterpret_cast<char const*>(data), size);
    Try(json, JsonRoundTrip_Full, "");
    Try(json, JsonRoundTrip_None, "");
    Try(json, JsonRoundTrip_Full, "r");
    return 0;
}
