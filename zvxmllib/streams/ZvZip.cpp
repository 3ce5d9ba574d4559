// CZvZip, gzip and zlib on byte buffers.
#include "zvxmllib/streams/ZvZip.h"

#include "zvxmllib/streams/DecompressionLimit.h"
#include "zvxmllib/streams/Failures.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <algorithm>
#include <memory>
#include <new>

#define ZLIB_CONST // zlib does not write to its input
#include <zlib.h>

namespace ZvXmlLib16 {

namespace {

constexpr int kLevel = Z_BEST_SPEED;
constexpr int kMemoryLevel = 8;
constexpr int kZlibWindow = 15;               // 32 KiB, wrapped as zlib
constexpr int kGzipWindow = kZlibWindow + 16; // the same, wrapped as gzip
constexpr int kAnyWindow = kZlibWindow + 32;  // told by the header
constexpr std::uint32_t kPiece = 0x10000;

CInstanceMonitor::Registration zipRegistration("CZvZip");

// A z_stream with the operation that ends it.
class Stream {
public:
    explicit Stream(int (*end)(z_streamp)) noexcept : m_end(end) {}
    Stream(Stream const&) = delete;
    Stream& operator=(Stream const&) = delete;
    ~Stream() { m_end(&m_stream); } // harmless where the start has failed

    z_stream* operator->() noexcept { return &m_stream; }
    z_stream* Get() noexcept { return &m_stream; }

private:
    z_stream m_stream{};
    int (*m_end)(z_streamp);
};

void CheckStart(int result) {
    if (result == Z_MEM_ERROR)
        throw std::bad_alloc();
}

// True if the first octets are those of a gzip header (RFC 1952, 2.3.1) or a zlib header (RFC 1950, 2.2).
bool HasHeader(unsigned char const* data, std::uint32_t length) noexcept {
    if (length < 2)
        return false;
    unsigned const first = data[0];
    unsigned const second = data[1];
    bool const isGzip = first == 0x1F && second == 0x8B;
    bool const isZlib = (first & 0x0F) == Z_DEFLATED && (first >> 4) <= 7 && (first << 8 | second) % 31 == 0;
    return isGzip || isZlib;
}

// Hands the content of one complete stream to `take` in pieces. True at the end of the stream, and as soon as
// `take` wants no more; false for what is no such stream.
template <class Take>
bool Inflate(unsigned char const* data, std::uint32_t length, Take take) {
    if (!HasHeader(data, length))
        return false;
    std::unique_ptr<unsigned char[]> const piece(new unsigned char[kPiece]);
    Stream stream(&inflateEnd);
    stream->next_in = data;
    stream->avail_in = length;
    int state = inflateInit2(stream.Get(), kAnyWindow);
    CheckStart(state);
    while (state == Z_OK) {
        stream->next_out = piece.get();
        stream->avail_out = kPiece;
        state = inflate(stream.Get(), Z_NO_FLUSH);
        CheckStart(state);
        if (state != Z_OK && state != Z_STREAM_END)
            return false;
        if (!take(piece.get(), kPiece - stream->avail_out))
            return true;
    }
    return true;
}

} // namespace

CZvZip::CZvZip() : CInstanceMonitor(zipRegistration) {}

CZvZip::~CZvZip() = default;

void CZvZip::Compress(unsigned char*& data, std::uint32_t& length, CompressionType type) {
    if (type != CompressionType_GZip && type != CompressionType_ZLib)
        return;
    // Data that does not shrink is refused, so the output needs no more than the size of the input.
    std::unique_ptr<unsigned char[]> output(new unsigned char[length]);
    Stream stream(&deflateEnd);
    CheckStart(deflateInit2(stream.Get(), kLevel, Z_DEFLATED,
                            type == CompressionType_GZip ? kGzipWindow : kZlibWindow, kMemoryLevel,
                            Z_DEFAULT_STRATEGY));
    stream->next_in = data;
    stream->avail_in = length;
    stream->next_out = output.get();
    stream->avail_out = length;
    deflate(stream.Get(), Z_NO_FLUSH);
    int const result = deflate(stream.Get(), Z_FINISH);
    if (result != Z_STREAM_END)
        FailCompress(result == Z_BUF_ERROR ? Z_OK : result); // both mean that the output is full
    delete[] data;
    data = output.release();
    length = static_cast<std::uint32_t>(stream->total_out);
}

void CZvZip::Compress(CBinaryData& data, CompressionType type) {
    std::uint32_t length = data.GetLength();
    if (length == 0)
        return;
    unsigned char* bytes = data.ReleaseData();
    try {
        Compress(bytes, length, type);
    } catch (...) {
        delete[] bytes;
        throw;
    }
    data = CBinaryData(bytes, length, true);
}

void CZvZip::Decompress(unsigned char*& data, std::uint32_t& length) {
    CBinaryData result;
    if (!TryDecompress(data, length, result))
        return;
    delete[] data;
    length = result.GetLength();
    data = result.ReleaseData();
}

bool CZvZip::TryDecompress(unsigned char const* data, std::uint32_t length, CBinaryData& result) {
    CBinaryData content;
    std::uint64_t const limit = GetDecompressionLimit();
    std::uint64_t room = 0; // never more than the limit
    bool const isStream = Inflate(data, length, [&](unsigned char const* piece, std::uint32_t made) {
        if (made > limit - content.GetLength())
            FailDecompressionLimit(limit);
        std::uint64_t const needed = std::uint64_t{content.GetLength()} + made;
        if (needed > room) {
            room = std::min(2 * needed, limit);
            content.Reserve(static_cast<std::uint32_t>(room));
        }
        content.Append(piece, made);
        return true;
    });
    if (isStream)
        result = content;
    return isStream;
}

bool CZvZip::TryDecompressStart(unsigned char const* data, std::uint32_t length, CBinaryData& result) {
    return Inflate(data, length, [&](unsigned char const* piece, std::uint32_t made) {
        CBinaryData content;
        content.Append(piece, made);
        result = content;
        return false;
    });
}

} // namespace ZvXmlLib16
