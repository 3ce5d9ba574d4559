// A file handle that closes itself: open, size, read, write, and the system's error number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace ZvXmlLib16::platform {

// What happens to an existing file.
enum class FileMode {
    kOverwrite, // emptied at once
    kReplace    // kept until the new one is complete
};

// Operations return false on failure and keep the system's error number in Error(). Short transfers and
// interruptions by signals are continued. Not copyable.
class File {
public:
    File() noexcept = default;
    File(File const&) = delete;
    File& operator=(File const&) = delete;
    ~File(); // closes, without a report

    // A null name counts as empty. Opening a directory fails.
    bool OpenForReading(char const* name) noexcept;
    // Creates the file or empties an existing one.
    bool Create(char const* name) noexcept;
    // Creates a temporary file beside the one of this name, which Commit renames to it. Symbolic links are
    // followed; the permissions of an existing file are kept, and its owner where the system allows it.
    // Anything but a regular file is written directly.
    bool CreateReplacement(char const* name);
    bool Create(char const* name, FileMode mode) {
        return mode == FileMode::kReplace ? CreateReplacement(name) : Create(name);
    }

    // The size in bytes at this moment; 0 for pipes and files whose size the system does not know.
    bool GetSize(std::uint64_t& size) noexcept;
    // Reads until `length` bytes or the end of the file; `count` is the number of bytes read.
    bool Read(void* data, std::size_t length, std::size_t& count) noexcept;
    bool Write(void const* data, std::size_t length) noexcept;
    // The same at an offset in bytes. A file without offsets (a pipe) continues where it is.
    bool ReadAt(std::uint64_t offset, void* data, std::size_t length, std::size_t& count) noexcept;
    bool WriteAt(std::uint64_t offset, void const* data, std::size_t length, std::size_t& count) noexcept;
    // After writing, the result includes all delayed writes. An uncommitted replacement is removed.
    bool Close() noexcept;
    // Closes the file. A replacement reaches the disk before it takes the file's name.
    bool Commit() noexcept;

    int Error() const noexcept { return m_error; }
    // The error number for a file that is too large to be held.
    static int TooLargeError() noexcept;

private:
    bool Fail() noexcept;
    bool OpenBeside(std::string const& target);
    bool Discard() noexcept;
    bool KeepPermissions(std::string const& target) noexcept;
    template <class Move>
    bool Transfer(std::size_t length, std::size_t& count, Move move) noexcept;

    int m_handle = -1;
    int m_error = 0;
    std::string m_target;    // of a replacement, else empty
    std::string m_temporary; // likewise
};

} // namespace ZvXmlLib16::platform
