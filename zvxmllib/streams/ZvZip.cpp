// CZvZip, gzip and zlib on byte buffers.
#include "zvxmllib/streams/ZvZip.h"

#include "zvxmllib/streams/DecompressionLimit.h"
#include "zvxmllib/streams/Failures.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <algorithm>
#include <cstddef>
#include <limits>
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
constexpr int kAnyWindow = kZlibWindow + 32;  // the header decides
constexpr std::uint32_t kPiece = 0x10000;

CInstanceMonitor::Registration zipRegistration("CZvZip");

// A z_stream with the operation that ends it.
class Stream {
public:
    explicit Stream(int (*end)(z_streamp)) noexcept : m_end(end) {}
    Stream(Stream const&) = delete;
    Stream& operator=(Stream const&) = delete;
    ~Stream() { m_end(&m_stream); } // harmless if the start failed

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

bool IsGzip(unsigned char const* data, std::size_t length) noexcept {
    return length >= 3 && data[0] == 0x1F && data[1] == 0x8B && data[2] == Z_DEFLATED;
}

// Streams that stand one behind the other.
class Inflation {
public:
    Inflation(unsigned char const* data, std::uint32_t length)
        : m_piece(new unsigned char[kPiece]), m_stream(&inflateEnd) {
        m_stream->next_in = data;
        m_stream->avail_in = length;
        m_state = inflateInit2(m_stream.Get(), kAnyWindow);
        CheckStart(m_state);
    }

    // Hands the content of one stream to `take` in pieces. Z_STREAM_END at its end, Z_OK as soon as `take`
    // wants no more, otherwise what is wrong: Z_BUF_ERROR where the stream is cut.
    template <class Take>
    int ReadStream(Take take) {
        while (m_state == Z_OK) {
            m_stream->next_out = m_piece.get();
            m_stream->avail_out = kPiece;
            m_state = inflate(m_stream.Get(), Z_NO_FLUSH);
            CheckStart(m_state);
            if (m_state != Z_OK && m_state != Z_STREAM_END)
                break;
            if (!take(m_piece.get(), kPiece - m_stream->avail_out))
                return Z_OK;
        }
        return m_state;
    }

    unsigned char const* GetNext() noexcept { return m_stream->next_in; }
    std::uint32_t GetLeft() noexcept { return m_stream->avail_in; }
    void Restart() { m_state = inflateReset(m_stream.Get()); }

private:
    std::unique_ptr<unsigned char[]> m_piece;
    Stream m_stream;
    int m_state;
};

// One complete stream; what follows is not looked at. False for what is no such stream.
template <class Take>
bool Inflate(unsigned char const* data, std::uint32_t length, Take take) {
    if (!HasHeader(data, length))
        return false;
    int const state = Inflation(data, length).ReadStream(take);
    return state == Z_STREAM_END || state == Z_OK;
}

// All of the data: the members of a gzip file (RFC 1952, 2.2), or one zlib stream.
template <class Take>
bool InflateWhole(unsigned char const* data, std::uint32_t length, Take take) {
    constexpr unsigned char kUsualZlib = 0x78; // deflate, 32 KiB
    if (!HasHeader(data, length))
        return false;
    bool const isGzip = IsGzip(data, length);
    Inflation inflation(data, length);
    for (;;) {
        int const state = inflation.ReadStream(take);
        if (state != Z_STREAM_END && !isGzip && data[0] != kUsualZlib)
            return false; // another format, by its first octets alone
        if (state != Z_STREAM_END)
            FailDecompress(state == Z_BUF_ERROR ? Z_BUF_ERROR : Z_DATA_ERROR);
        if (inflation.GetLeft() == 0)
            return true;
        if (!isGzip || !IsGzip(inflation.GetNext(), inflation.GetLeft()))
            FailDecompress(Z_DATA_ERROR);
        inflation.Restart();
    }
}

} // namespace

CZvZip::CZvZip() : CInstanceMonitor(zipRegistration) {}

CZvZip::~CZvZip() = default;

void CZvZip::Compress(unsigned char*& data, std::uint32_t& length, CompressionType type, bool strict) {
    if (type != CompressionType_GZip && type != CompressionType_ZLib)
        return;
    Stream stream(&deflateEnd);
    CheckStart(deflateInit2(stream.Get(), kLevel, Z_DEFLATED,
                            type == CompressionType_GZip ? kGzipWindow : kZlibWindow, kMemoryLevel,
                            Z_DEFAULT_STRATEGY));
    // Data that does not shrink is refused, unless strict, so the output needs no more than the size of the
    // input.
    std::uint64_t const bound = strict ? std::uint64_t{deflateBound(stream.Get(), length)} : length;
    std::uint32_t const room =
        static_cast<std::uint32_t>(std::min(bound, std::uint64_t{std::numeric_limits<std::uint32_t>::max()}));
    std::unique_ptr<unsigned char[]> output(new unsigned char[room]);
    stream->next_in = data;
    stream->avail_in = length;
    stream->next_out = output.get();
    stream->avail_out = room;
    deflate(stream.Get(), Z_NO_FLUSH);
    int const result = deflate(stream.Get(), Z_FINISH);
    if (result != Z_STREAM_END)
        FailCompress(result == Z_BUF_ERROR ? Z_OK : result); // both mean that the output is full
    delete[] data;
    data = output.release();
    length = static_cast<std::uint32_t>(stream->total_out);
}

void CZvZip::Compress(CBinaryData& data, CompressionType type, bool strict) {
    std::uint32_t length = data.GetLength();
    if (length == 0)
        return;
    unsigned char* bytes = data.ReleaseData();
    try {
        Compress(bytes, length, type, strict);
    } catch (...) {
        delete[] bytes;
        throw;
    }
    data = CBinaryData(bytes, length, true);
}

bool CZvZip::IsCompressed(unsigned char const* data, std::uint32_t length) noexcept {
    return HasHeader(data, length);
}

void CZvZip::Decompress(unsigned char*& data, std::uint32_t& length) {
    CBinaryData result;
    if (!TryDecompress(data, length, result))
        return;
    delete[] data;
    length = result.GetLength();
    data = result.ReleaseData();
}

bool CZvZip::TryDecompress(unsigned char const* data, std::uint32_t length, CBinaryData& result,
                           bool strict) {
    CBinaryData content;
    std::uint64_t const limit = GetDecompressionLimit();
    std::uint64_t room = 0; // never more than the limit
    auto const take = [&](unsigned char const* piece, std::uint32_t made) {
        if (made > limit - content.GetLength())
            FailDecompressionLimit(limit);
        std::uint64_t const needed = std::uint64_t{content.GetLength()} + made;
        if (needed > room) {
            room = std::min(2 * needed, limit);
            content.Reserve(static_cast<std::uint32_t>(room));
        }
        content.Append(piece, made);
        return true;
    };
    bool const isStream = strict ? InflateWhole(data, length, take) : Inflate(data, length, take);
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
