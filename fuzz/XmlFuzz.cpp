// XML text into an untyped object and out again. What was written once is read back and written the same.
#include "zvxmllib/ZvXmlLib.h"

#include <cstdlib>
#include <optional>
#include <string>

using namespace ZvXmlLib16;

namespace {

std::optional<std::string> Rewrite(std::string const& xml) {
    try {
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromXml(xml.c_str());
        return element->ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
    } catch (CZvException const&) {
        return std::nullopt;
    }
}

// Passed on raw by design, so the outcome may be anything.
bool HasRawParts(std::string const& xml) {
    return xml.find("<![CDATA[") != std::string::npos || xml.find("xmlns") != std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    std::optional<std::string> const written = Rewrite(std::string(reinterpret_cast<char const*>(data), size));
    if (!written || HasRawParts(*written))
        return 0;
    // A tab in an attribute becomes a blank in the first round.
    std::optional<std::string> const second = Rewrite(*written);
    if (!second || Rewrite(*second) != second)
        std::abort();
    return 0;
}
