// Reading a document from a file or from standard input.
#include "Input.h"

#include "Errors.h"
#include "Progress.h"

#include <zvxmllib/ZvXmlLibInternal.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <string_view>
#include <system_error>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

using FileHandle = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

std::unique_ptr<CXmlDocument> MakeDocument(std::string const& file, std::uintmax_t size,
                                           CSerializationContext const& ctx, Progress& progress) {
    if (!progress.IsShownFor(size))
        return std::make_unique<CXmlDocument>(ctx);
    progress.StartReading(InputName(file));
    return std::make_unique<CXmlDocument>(&Progress::CountElement, ctx);
}

std::string_view View(CBinaryData const& bytes) {
    return {reinterpret_cast<char const*>(bytes.GetData()), bytes.GetLength()};
}

// The first bytes of a file, none of one that cannot be opened or is no file: reading it will tell.
std::string FirstBytes(std::string const& file) {
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(file, unknown))
        return std::string();
    FileHandle const stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    std::string bytes(4096, '\0');
    bytes.resize(stream == nullptr ? 0 : std::fread(bytes.data(), 1, bytes.size(), stream.get()));
    return bytes;
}

// What the text begins with, behind a byte order mark and white space; a NUL if there is nothing.
char FirstSignificant(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.substr(0, kMark.size()) == kMark)
        text.remove_prefix(kMark.size());
    std::size_t const at = text.find_first_not_of(" \t\r\n");
    return at == std::string_view::npos ? '\0' : text[at];
}

bool MayBeJson(std::string_view text, CSerializationContext const& ctx) {
    char const first = FirstSignificant(text);
    if (first == '\0')
        return false;
    constexpr std::string_view kStarts = "{[\"/"; // of an object, an array, a string, a comment
    if (kStarts.find(first) != std::string_view::npos)
        return true;
    constexpr std::string_view kScalarStarts = "-0123456789tfn";
    return kScalarStarts.find(first) != std::string_view::npos &&
           !ctx.GetJsonContext().GetRootElementName().empty();
}

bool MayBeCompressed(std::string_view bytes) {
    return bytes.substr(0, 2) == "\x1F\x8B" || (!bytes.empty() && (bytes[0] & 0x0F) == 8);
}

CBinaryData ReadAll(std::FILE* stream, std::string const& name) {
    constexpr std::size_t kPiece = std::size_t{1} << 18U;
    CBinaryData bytes;
    auto const piece = std::make_unique<unsigned char[]>(kPiece);
    std::size_t count = 0;
    while ((count = std::fread(piece.get(), 1, kPiece, stream)) != 0) {
        if (count > std::numeric_limits<std::uint32_t>::max() - bytes.GetLength())
            throw FileError(name, "a document must be smaller than 4 GiB");
        bytes.Append(piece.get(), static_cast<std::uint32_t>(count));
    }
    if (std::ferror(stream) != 0)
        throw FileError(name, std::strerror(errno));
    return bytes;
}

} // namespace

std::string InputName(std::string const& file) {
    return file == kStandardStream ? "standard input" : file;
}

CBinaryData ReadBytes(std::string const& file) {
    if (file == kStandardStream)
        return ReadAll(stdin, InputName(file));
    FileHandle const stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (stream == nullptr)
        throw FileError(file, std::strerror(errno));
    return ReadAll(stream.get(), file);
}

bool IsJson(CBinaryData const& content, CSerializationContext const& ctx) {
    return MayBeJson(View(content), ctx);
}

std::unique_ptr<CXmlDocument> ReadDocument(std::string const& file, CSerializationContext const& ctx,
                                           Progress& progress) {
    std::string const start = file == kStandardStream ? std::string() : FirstBytes(file);
    if (file == kStandardStream || MayBeJson(start, ctx) || MayBeCompressed(start))
        return ReadDocument(file, ReadBytes(file), ctx, progress);
    std::error_code unknown; // of pipes, for instance
    std::uintmax_t const size = std::filesystem::file_size(file, unknown);
    std::unique_ptr<CXmlDocument> document = MakeDocument(file, unknown ? 0 : size, ctx, progress);
    try {
        document->Load(file.c_str());
    } catch (CZvException const& e) {
        throw FileError(file, e.GetFullMessage());
    }
    return document;
}

std::unique_ptr<CXmlDocument> ReadDocument(std::string const& file, CBinaryData const& bytes,
                                           CSerializationContext const& ctx, Progress& progress) {
    std::unique_ptr<CXmlDocument> document = MakeDocument(file, bytes.GetLength(), ctx, progress);
    try {
        CBinaryData content = bytes;
        CZvZip::TryDecompress(bytes.GetData(), bytes.GetLength(), content);
        if (IsJson(content, ctx))
            content = CXmlDocument(ctx).LoadJsonStream(content.GetData(), content.GetLength());
        document->LoadXmlStream(content.GetData(), content.GetLength());
    } catch (CZvException const& e) {
        throw FileError(InputName(file), e.GetFullMessage());
    }
    return document;
}

} // namespace zvxml
