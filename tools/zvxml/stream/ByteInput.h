// The bytes of an input, in pieces, without the compression around them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct z_stream_s;

namespace zvxml {

class Progress;

enum class Wrapper { kNone, kGzip, kZlib };

// A file or standard input ("-"), read from the beginning any number of times: what is no regular file goes
// to a temporary one when it is read first. gzip, of several members also, and zlib are taken off. Throws
// FileError.
class ByteInput {
public:
    // `progress` is borrowed and outlives this.
    ByteInput(std::string const& file, Progress& progress);
    ByteInput(ByteInput const&) = delete;
    ByteInput& operator=(ByteInput const&) = delete;
    ~ByteInput();

    std::string const& GetName() const noexcept { return m_name; }
    Wrapper GetWrapper() const noexcept { return m_wrapper; }
    // Of the file, as it is.
    std::uint64_t GetSize() const noexcept { return m_size; }

    // The first bytes of the content, at most 4096; the place does not change.
    std::string const& GetStart() const noexcept { return m_start; }
    void Rewind();
    // Ahead of messages.
    void FinishProgress() noexcept;
    // The next piece, empty at the end; valid until the next call.
    std::string_view Read();

private:
    struct Inflater;
    using FileHandle = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    void Open(std::string const& file);
    void Spool();
    std::size_t ReadRaw();
    std::string_view ReadInflated();
    [[noreturn]] void Fail(std::string const& message) const;

    std::string m_name;
    Progress& m_progress;
    FileHandle m_file;
    std::uint64_t m_size = 0;
    std::uint64_t m_done = 0; // of the file
    Wrapper m_wrapper = Wrapper::kNone;
    std::string m_start;
    std::vector<char> m_raw;
    std::unique_ptr<Inflater> m_inflater;
};

} // namespace zvxml
