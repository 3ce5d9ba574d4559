// The bytes of an input, in pieces, without the compression around them.
#include "ByteInput.h"

#include "../Errors.h"
#include "../Input.h"
#include "../Progress.h"

#include <zlib.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>

namespace zvxml {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 18U;
constexpr std::size_t kStart = 4096;
constexpr int kGzipOrZlib = 15 + 32; // the usual window; the kind is recognised

Wrapper WrapperOf(std::string_view start) {
    if (start.size() < 2)
        return Wrapper::kNone;
    unsigned const first = static_cast<unsigned char>(start[0]);
    unsigned const second = static_cast<unsigned char>(start[1]);
    if (first == 0x1F && second == 0x8B)
        return Wrapper::kGzip;
    return first == 0x78 && (first << 8 | second) % 31 == 0 ? Wrapper::kZlib : Wrapper::kNone;
}

} // namespace

// The state of the compressed stream.
struct ByteInput::Inflater {
    z_stream stream{};
    std::vector<char> content = std::vector<char>(kPiece);
    bool isOpen = false;
    bool hasEnded = false; // a member, or the stream

    Inflater() {
        if (inflateInit2(&stream, kGzipOrZlib) != Z_OK)
            throw std::bad_alloc();
    }
    Inflater(Inflater const&) = delete;
    Inflater& operator=(Inflater const&) = delete;
    ~Inflater() { inflateEnd(&stream); }
};

ByteInput::ByteInput(std::string const& file, Progress& progress)
    : m_name(InputName(file)), m_progress(progress), m_file(nullptr, &std::fclose), m_raw(kPiece) {
    Open(file);
    m_wrapper = WrapperOf({m_raw.data(), ReadRaw()});
    if (m_wrapper != Wrapper::kNone)
        m_inflater = std::make_unique<Inflater>();
    Rewind();
    m_start = Read().substr(0, kStart);
    Rewind();
    if (m_progress.IsShownFor(m_size))
        m_progress.StartReading(m_name, m_size);
}

ByteInput::~ByteInput() = default;

void ByteInput::Fail(std::string const& message) const {
    throw FileError(m_name, message);
}

void ByteInput::FinishProgress() noexcept {
    m_progress.Finish();
}

void ByteInput::Open(std::string const& file) {
    bool const isStandard = file == kStandardStream;
    std::error_code unknown;
    if (!isStandard) {
        m_file.reset(std::fopen(file.c_str(), "rb"));
        if (m_file == nullptr)
            Fail(std::strerror(errno));
        if (std::filesystem::is_directory(file, unknown))
            Fail(std::strerror(EISDIR));
        if (std::filesystem::is_regular_file(file, unknown)) {
            m_size = std::filesystem::file_size(file, unknown);
            return;
        }
    }
    Spool();
}

void ByteInput::Spool() {
    std::FILE* const from = m_file == nullptr ? stdin : m_file.get();
    FileHandle spool(std::tmpfile(), &std::fclose);
    if (spool == nullptr)
        Fail(std::string("a temporary file: ") + std::strerror(errno));
    for (std::size_t count = 0; (count = std::fread(m_raw.data(), 1, kPiece, from)) != 0; m_size += count) {
        if (std::fwrite(m_raw.data(), 1, count, spool.get()) != count)
            Fail(std::string("a temporary file: ") + std::strerror(errno));
    }
    if (std::ferror(from) != 0)
        Fail(std::strerror(errno));
    m_file = std::move(spool);
    std::rewind(m_file.get());
}

void ByteInput::Rewind() {
    std::rewind(m_file.get());
    m_done = 0;
    if (m_inflater == nullptr)
        return;
    inflateReset(&m_inflater->stream);
    m_inflater->stream.avail_in = 0;
    m_inflater->hasEnded = false;
}

std::size_t ByteInput::ReadRaw() {
    std::size_t const count = std::fread(m_raw.data(), 1, kPiece, m_file.get());
    if (count == 0 && std::ferror(m_file.get()) != 0)
        Fail(std::strerror(errno));
    m_done += count;
    m_progress.Tick(m_done);
    return count;
}

std::string_view ByteInput::Read() {
    return m_inflater == nullptr ? std::string_view(m_raw.data(), ReadRaw()) : ReadInflated();
}

std::string_view ByteInput::ReadInflated() {
    z_stream& stream = m_inflater->stream;
    char const* const kind = m_wrapper == Wrapper::kGzip ? "gzip" : "zlib";
    stream.next_out = reinterpret_cast<Bytef*>(m_inflater->content.data());
    stream.avail_out = static_cast<uInt>(kPiece);
    while (stream.avail_out == kPiece) {
        if (stream.avail_in == 0) {
            stream.next_in = reinterpret_cast<Bytef*>(m_raw.data());
            stream.avail_in = static_cast<uInt>(ReadRaw());
            if (stream.avail_in == 0) {
                if (!m_inflater->hasEnded)
                    Fail(std::string("damaged ") + kind + ": it ends too early");
                return {};
            }
        }
        if (m_inflater->hasEnded) {
            if (m_wrapper == Wrapper::kZlib)
                Fail("damaged zlib: there is something behind its end");
            inflateReset(&stream); // the next member
            m_inflater->hasEnded = false;
        }
        int const status = inflate(&stream, Z_NO_FLUSH);
        m_inflater->hasEnded = status == Z_STREAM_END;
        if (status == Z_MEM_ERROR)
            throw std::bad_alloc();
        if (status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR)
            Fail(std::string("damaged ") + kind);
    }
    return {m_inflater->content.data(), kPiece - stream.avail_out};
}

} // namespace zvxml
