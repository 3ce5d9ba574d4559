// Octets through the recognition of compressed data, and compressed and back.
#include "WholeDocument.h"
#include "zvxmllib/ZvXmlLibInternal.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    CBinaryData result;
    CZvZip::TryDecompress(data, static_cast<std::uint32_t>(size), result);
    CBinaryData const plain = OctetsOf(TextOf(data, size));
    CBinaryData packed = plain;
    try {
        CZvZip::Compress(packed, CompressionType_GZip);
    } catch (CZvException const&) {
        return 0; // it does not shrink
    }
    Require(size == 0 ||
            (CZvZip::TryDecompress(packed.GetData(), packed.GetLength(), result) && result == plain));
    return 0;
}
