// A file whose transfers run beside the caller: one in flight, at a 64-bit offset, with its completion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace ZvXmlLib16::platform {

// A transfer is started, runs on a thread of the file's own, and is waited for; where no thread can be had it
// runs at once, with the same effect. At most one is in flight: start none before Wait, nor while closed. The
// caller's memory must last until then. Operations answer false on failure and keep the system's error number
// in Error(). Files without offsets (pipes) are read and written in sequence. Not copyable; used by one
// thread.
class OverlappedFile {
public:
    OverlappedFile();
    OverlappedFile(OverlappedFile const&) = delete;
    OverlappedFile& operator=(OverlappedFile const&) = delete;
    ~OverlappedFile(); // as Close

    // A null name is an empty one. A directory is a failure to open.
    bool OpenForReading(char const* name);
    // Creates the file or empties an existing one.
    bool Create(char const* name);
    bool IsOpen() const noexcept { return m_worker != nullptr; }

    // Reads until `length` bytes or the end of the file.
    void StartRead(void* data, std::size_t length, std::uint64_t offset);
    void StartWrite(void const* data, std::size_t length, std::uint64_t offset);
    // Waits for the transfer in flight; `count` is what it moved, 0 if there is none.
    bool Wait(std::size_t& count);

    // Waits for the transfer in flight, whose outcome is dropped, and closes. False if the system reports a
    // delayed failure.
    bool Close() noexcept;

    int Error() const noexcept { return m_error; }

private:
    class Worker;

    bool Open(char const* name, bool reading);

    std::unique_ptr<Worker> m_worker; // null while closed
    int m_error = 0;
};

} // namespace ZvXmlLib16::platform
