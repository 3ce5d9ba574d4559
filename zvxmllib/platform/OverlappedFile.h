// A file whose transfers run beside the caller: one in flight, at a 64-bit offset, with its completion.
#pragma once

#include "zvxmllib/platform/File.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace ZvXmlLib16::platform {

// A transfer is started, runs on a thread of the file's own, and is waited for; if no thread can be started
// it runs at once, with the same effect. At most one is in flight: start none before Wait, nor while closed.
// The caller's memory must last until then. Operations return false on failure and keep the system's error
// number in Error(). Files without offsets (pipes) are read and written in sequence. Not copyable; used by
// one thread.
class OverlappedFile {
public:
    OverlappedFile();
    OverlappedFile(OverlappedFile const&) = delete;
    OverlappedFile& operator=(OverlappedFile const&) = delete;
    ~OverlappedFile(); // as Close

    // A null name counts as empty. Opening a directory fails.
    bool OpenForReading(char const* name);
    bool Create(char const* name, FileMode mode);
    bool IsOpen() const noexcept { return m_worker != nullptr; }

    // Reads until `length` bytes or the end of the file.
    void StartRead(void* data, std::size_t length, std::uint64_t offset);
    void StartWrite(void const* data, std::size_t length, std::uint64_t offset);
    // Waits for the transfer in flight; `count` is the number of bytes it moved, 0 if there is none.
    bool Wait(std::size_t& count);

    // Waits for the transfer in flight, ignores its result, and closes. False if the system reports a delayed
    // failure. A replacement is removed by Close; Commit makes it take its place.
    bool Close() noexcept { return End(&File::Close); }
    bool Commit() noexcept { return End(&File::Commit); }

    int Error() const noexcept { return m_error; }

private:
    class Worker;

    template <class Opening>
    bool Open(Opening const& opening);
    bool End(bool (File::*ending)() noexcept) noexcept;

    std::unique_ptr<Worker> m_worker; // null while closed
    int m_error = 0;
};

} // namespace ZvXmlLib16::platform
