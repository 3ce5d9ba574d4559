// CZvZip, gzip and zlib on byte buffers.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <cstdint>

namespace ZvXmlLib16 {

// Static operations without state. A raw buffer is an array allocated by new unsigned char[], owned by
// the caller; on success it is freed and replaced.
class CZvZip : public CInstanceMonitor {
public:
    CZvZip();
    ~CZvZip() override;

    // At the fastest level. Throws CZvException if the result does not fit into the size of the input, and
    // the buffer is unchanged then; a strict result may be larger than the input. Another type than the two
    // compressed ones leaves the buffer alone.
    static void Compress(unsigned char*& data, std::uint32_t& length, CompressionType type,
                         bool strict = false);
    // The same; empty data stays empty, and after a failure the data is empty.
    static void Compress(CBinaryData& data, CompressionType type, bool strict = false);

    // Whether the bytes begin as such a stream does. XML text never does.
    static bool IsCompressed(unsigned char const* data, std::uint32_t length) noexcept;

    // Replaces one complete gzip (RFC 1952) or zlib (RFC 1950) stream by its content; anything after it is
    // ignored. Other data is left unchanged. Throws CZvException for content beyond the limit of the process.
    static void Decompress(unsigned char*& data, std::uint32_t& length);

    // The same on borrowed bytes: returns true and stores the content in `result` if they are such a stream;
    // otherwise `result` is unchanged. Cheap on data that is not compressed. Strict: all members of a gzip
    // file are joined, and what begins as gzip, or as zlib with its usual window, throws CZvException where
    // it is cut, damaged or has something behind.
    static bool TryDecompress(unsigned char const* data, std::uint32_t length, CBinaryData& result,
                              bool strict = false);
    // The same for the first 64 KiB of the content; the rest is not examined.
    static bool TryDecompressStart(unsigned char const* data, std::uint32_t length, CBinaryData& result);
};

} // namespace ZvXmlLib16
