// Text or octets to a file or standard output, in pieces, through compression and another encoding.
#include "ByteOutput.h"

#include "../Errors.h"
#include "../Input.h"

#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/platform/File.h"

#include <zlib.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr int kZlibWindow = 15;
constexpr int kGzipWindow = 15 + 16;
constexpr int kMemoryLevel = 8;

} // namespace

struct ByteOutput::Parts {
    std::string name;
    std::uint64_t* count = nullptr;                                               // instead of a file
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> spool{nullptr, &std::fclose}; // ahead of it
    bool isStandard = false;
    bool hasUtf16 = false;
    bool hasCrlf = false;
    bool isCompressed = false;
    platform::File file;
    z_stream stream{};
    std::vector<unsigned char> compressed;
    std::string held; // the beginning of a character that the next piece ends
    std::string lines;
    std::vector<unsigned char> units;

    Parts() = default;
    Parts(Parts const&) = delete;
    Parts& operator=(Parts const&) = delete;
    ~Parts() {
        if (isCompressed)
            deflateEnd(&stream);
    }

    void OpenCompression(CompressionType type);
    void Spool();
    void CopySpool();
    void Take(std::string_view piece, bool isLast);
    void TakeUnits(std::string_view utf8);
    void Compress(unsigned char const* data, std::size_t length, bool isLast);
    void Write(unsigned char const* data, std::size_t length);
    [[noreturn]] void Fail(int error) const { throw FileError(name, std::strerror(error)); }
};

void ByteOutput::Parts::OpenCompression(CompressionType type) {
    if (type == CompressionType_None)
        return;
    int const window = type == CompressionType_GZip ? kGzipWindow : kZlibWindow;
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, window, kMemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
    isCompressed = true;
    compressed.resize(kRoom);
}

void ByteOutput::Parts::Take(std::string_view piece, bool isLast) {
    if (hasCrlf) {
        lines.clear();
        for (std::size_t end = 0; (end = piece.find('\n')) != std::string_view::npos;) {
            lines.append(piece.substr(0, end)).append("\r\n");
            piece.remove_prefix(end + 1);
        }
        lines.append(piece);
        piece = lines;
    }
    if (hasUtf16)
        TakeUnits(piece);
    else
        Compress(reinterpret_cast<unsigned char const*>(piece.data()), piece.size(), false);
    if (isLast)
        Compress(nullptr, 0, true);
}

// A character may be divided between two pieces.
void ByteOutput::Parts::TakeUnits(std::string_view utf8) {
    held.append(utf8);
    std::size_t whole = held.size();
    while (whole != 0 && (static_cast<unsigned char>(held[whole - 1]) & 0xC0U) == 0x80U)
        --whole;
    unsigned const lead = whole == 0 ? 0 : static_cast<unsigned char>(held[whole - 1]);
    std::size_t const length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    whole = whole != 0 && held.size() - (whole - 1) < length ? whole - 1 : held.size();
    std::string_view const text(held.data(), whole);
    units.resize(2 * CountUtf16Units(text));
    ConvertUtf8ToUtf16Bytes(text, units.data());
    Compress(units.data(), units.size(), false);
    held.erase(0, whole);
}

void ByteOutput::Parts::Compress(unsigned char const* data, std::size_t length, bool isLast) {
    if (!isCompressed)
        return Write(data, length);
    stream.next_in = const_cast<Bytef*>(data);
    stream.avail_in = static_cast<uInt>(length);
    do {
        stream.next_out = compressed.data();
        stream.avail_out = static_cast<uInt>(compressed.size());
        deflate(&stream, isLast ? Z_FINISH : Z_NO_FLUSH);
        Write(compressed.data(), compressed.size() - stream.avail_out);
    } while (stream.avail_out == 0);
}

void ByteOutput::Parts::Write(unsigned char const* data, std::size_t length) {
    if (length == 0)
        return;
    if (count != nullptr) {
        *count += length;
    } else if (spool != nullptr) {
        if (std::fwrite(data, 1, length, spool.get()) != length)
            Fail(errno);
    } else if (!isStandard) {
        if (!file.Write(data, length))
            Fail(file.Error());
    } else if (std::fwrite(data, 1, length, stdout) != length) {
        Fail(errno);
    }
}

void ByteOutput::Parts::Spool() {
    spool.reset(std::tmpfile());
    if (spool == nullptr)
        Fail(errno);
}

void ByteOutput::Parts::CopySpool() {
    auto const from = std::move(spool);
    std::rewind(from.get());
    std::vector<unsigned char> piece(kRoom);
    for (std::size_t length = 0; (length = std::fread(piece.data(), 1, piece.size(), from.get())) != 0;)
        Write(piece.data(), length);
    if (std::ferror(from.get()) != 0)
        Fail(errno);
}

ByteOutput::ByteOutput(std::string const& file, WriteOptions const& options, bool isText, bool mayBeGivenUp)
    : m_room(new char[kRoom]), m_parts(std::make_unique<Parts>()) {
    Parts& parts = *m_parts;
    parts.isStandard = file == kStandardStream;
    parts.name = parts.isStandard ? "standard output" : file;
    std::error_code unknown;
    bool const isDirect = parts.isStandard || (std::filesystem::exists(file, unknown) &&
                                               !std::filesystem::is_regular_file(file, unknown));
    if (mayBeGivenUp && isDirect)
        parts.Spool();
    if (!parts.isStandard && !parts.file.CreateReplacement(file.c_str()))
        parts.Fail(parts.file.Error());
    Open(options, isText);
}

ByteOutput::ByteOutput(std::uint64_t& count, WriteOptions const& options, bool isText)
    : m_room(new char[kRoom]), m_parts(std::make_unique<Parts>()) {
    m_parts->count = &count;
    Open(options, isText);
}

void ByteOutput::Open(WriteOptions const& options, bool isText) {
    m_parts->hasUtf16 = isText && options.encoding == XmlEncoding_UTF16;
    m_parts->hasCrlf = isText && options.eol == EOLType_CRLF;
    m_parts->OpenCompression(options.compression);
}

ByteOutput::~ByteOutput() = default;

void ByteOutput::AppendLarge(std::string_view text) {
    Flush();
    for (; text.size() > kRoom; text.remove_prefix(kRoom))
        m_parts->Take(text.substr(0, kRoom), false);
    Append(text);
}

void ByteOutput::Flush() {
    m_parts->Take({m_room.get(), m_used}, false);
    m_used = 0;
}

void ByteOutput::Commit() {
    m_parts->Take({m_room.get(), m_used}, true);
    m_used = 0;
    if (m_parts->count != nullptr)
        return;
    if (m_parts->spool != nullptr)
        m_parts->CopySpool();
    if (m_parts->isStandard) {
        if (std::fflush(stdout) != 0)
            m_parts->Fail(errno);
    } else if (!m_parts->file.Commit()) {
        m_parts->Fail(m_parts->file.Error());
    }
}

} // namespace zvxml
