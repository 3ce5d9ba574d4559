// A Fast Infoset document into an untyped object and out again: what was written is read as an equal tree,
// and written the same once more.
#include "DocumentTree.h"

namespace {

CBinaryData Written(WholeDocument const& document) {
    return document->ToFastInfosetStream(FInfoDecl_None, CSerializationContext::GetDefaultContext(),
                                         CompressionType_None);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    constexpr std::string_view kMagic("\xE0\x00\x00\x01", 4);
    std::string octets(TextOf(data, size));
    if (octets.compare(0, kMagic.size(), kMagic) != 0)
        octets.insert(0, kMagic);
    std::optional<WholeDocument> const document = Attempt([&] { return FromOctets(OctetsOf(octets)); });
    if (!document)
        return 0;
    std::optional<CBinaryData> const written = Attempt([&] { return Written(*document); });
    if (!written)
        return 0;
    WholeDocument const again = FromOctets(*written);
    std::string const tree = TreeOf(**document, Kept::All);
    if (tree.find('\0') != std::string::npos)
        return 0; // texts are written up to a NUL
    Require(TreeOf(*again, Kept::All) == tree);
    Require(Written(again) == *written);
    return 0;
}
