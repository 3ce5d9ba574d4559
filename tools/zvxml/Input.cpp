// Reading a document from a file or from standard input.
#include "Input.h"

#include "Errors.h"
#include "Progress.h"

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

// The system's own words for a file that cannot be read.
void RequireReadable(std::string const& file) {
    FileHandle const stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (stream == nullptr || (std::filesystem::is_directory(file) && (errno = EISDIR) != 0))
        throw FileError(file, std::strerror(errno));
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

// True for input that is read as bytes first. XML text begins with "<"; a pipe gives its bytes only once, so
// they are kept.
bool MayBeJson(std::string const& file) {
    std::error_code unknown;
    std::filesystem::file_status const status = std::filesystem::status(file, unknown);
    if (!std::filesystem::is_regular_file(status))
        return std::filesystem::is_fifo(status);
    FileHandle const stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    unsigned char first = '<';
    return stream != nullptr && std::fread(&first, 1, 1, stream.get()) == 1 && first != '<';
}

// With a name for the root any value is allowed.
bool IsJson(CBinaryData const& bytes, CSerializationContext const& ctx) {
    if (CXmlDocument::IsJson(bytes.GetData(), bytes.GetLength()))
        return true;
    std::string_view const text(reinterpret_cast<char const*>(bytes.GetData()), bytes.GetLength());
    std::size_t const first = text.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && !ctx.GetJsonContext().GetRootElementName().empty() &&
           std::string_view("-0123456789tfn").find(text[first]) != std::string_view::npos;
}

} // namespace

std::string InputName(std::string const& file) {
    return file == kStandardStream ? "standard input" : file;
}

bool CanReadAgain(std::string const& file) {
    std::error_code unknown;
    return file != kStandardStream && std::filesystem::is_regular_file(file, unknown);
}

CBinaryData ReadBytes(std::string const& file) {
    if (file == kStandardStream)
        return ReadAll(stdin, InputName(file));
    FileHandle const stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (stream == nullptr)
        throw FileError(file, std::strerror(errno));
    return ReadAll(stream.get(), file);
}

InputDocument ReadDocument(std::string const& file, CSerializationContext const& ctx, Progress& progress) {
    if (file == kStandardStream || MayBeJson(file))
        return ReadDocument(file, ReadBytes(file), ctx, progress);
    std::error_code unknown; // of pipes, for instance
    RequireReadable(file);
    std::uintmax_t const size = std::filesystem::file_size(file, unknown);
    InputDocument input{MakeDocument(file, unknown ? 0 : size, ctx, progress)};
    try {
        input.document->Load(file.c_str());
    } catch (CZvException const& e) {
        throw FileError(file, e.GetFullMessage(), {e.GetLine(), e.GetColumn()});
    }
    return input;
}

InputDocument ReadDocument(std::string const& file, CBinaryData const& bytes,
                           CSerializationContext const& ctx, Progress& progress) {
    InputDocument input{MakeDocument(file, bytes.GetLength(), ctx, progress)};
    try {
        input.isFromJson = IsJson(bytes, ctx);
        if (input.isFromJson)
            input.document->ReadJsonStream(bytes.GetData(), bytes.GetLength());
        else
            input.document->LoadXmlStream(bytes.GetData(), bytes.GetLength());
    } catch (CZvException const& e) {
        throw FileError(InputName(file), e.GetFullMessage(), {e.GetLine(), e.GetColumn()});
    }
    return input;
}

} // namespace zvxml
