// A Fast Infoset document into an untyped object and out again. What was written once is read back and
// written the same.
#include "WholeDocument.h"

namespace {

std::optional<CBinaryData> Rewrite(CBinaryData const& octets) {
    return Attempt([&] {
        return FromOctets(octets)->ToFastInfosetStream(
            FInfoDecl_None, CSerializationContext::GetDefaultContext(), CompressionType_None);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    constexpr std::string_view kMagic("\xE0\x00\x00\x01", 4);
    std::string octets(TextOf(data, size));
    if (octets.compare(0, kMagic.size(), kMagic) != 0)
        octets.insert(0, kMagic);
    std::optional<CBinaryData> const written = Rewrite(OctetsOf(octets));
    if (!written)
        return 0;
    std::optional<CBinaryData> const second = Rewrite(*written);
    Require(second && Rewrite(*second) == second);
    return 0;
}
