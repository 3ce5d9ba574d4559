// Bytes through the recognition of compressed data, and compressed and back.
#include "zvxmllib/ZvXmlLibInternal.h"

#include <cstdlib>

using namespace ZvXmlLib16;

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    CBinaryData result;
    CZvZip::TryDecompress(data, static_cast<std::uint32_t>(size), result);
    CBinaryData plain;
    plain.SetBuffer(data, static_cast<std::uint32_t>(size));
    CBinaryData packed = plain;
    try {
        CZvZip::Compress(packed, CompressionType_GZip);
    } catch (CZvException const&) {
        return 0; // it does not shrink
    }
    if (size != 0 && (!CZvZip::TryDecompress(packed.GetData(), packed.GetLength(), result) || result != plain))
        std::abort();
    return 0;
}
