// A file handle that closes itself.
#include "zvxmllib/platform/File.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ZvXmlLib16::platform {

namespace {

constexpr std::size_t kGreatestTransfer = std::size_t{1} << 30; // a system call transfers less than 2 GiB
constexpr mode_t kPermissions = 0666;                           // less the user's mask

int Open(char const* name, int flags) noexcept {
    for (;;) {
        int const handle = ::open(name != nullptr ? name : "", flags | O_CLOEXEC | O_NOCTTY, kPermissions);
        if (handle >= 0 || errno != EINTR)
            return handle;
    }
}

// A write that moves nothing would be retried forever.
ssize_t Progress(ssize_t written) noexcept {
    if (written != 0)
        return written;
    errno = EIO;
    return -1;
}

} // namespace

File::~File() {
    Close();
}

bool File::Fail() noexcept {
    m_error = errno;
    return false;
}

bool File::OpenForReading(char const* name) noexcept {
    Close();
    m_handle = Open(name, O_RDONLY);
    if (m_handle < 0)
        return Fail();
    // The system opens a directory for reading; only the first read fails.
    struct stat status;
    int const error = ::fstat(m_handle, &status) != 0 ? errno : S_ISDIR(status.st_mode) ? EISDIR : 0;
    if (error == 0)
        return true;
    Close();
    m_error = error;
    return false;
}

bool File::Create(char const* name) noexcept {
    Close();
    m_handle = Open(name, O_WRONLY | O_CREAT | O_TRUNC);
    return m_handle >= 0 || Fail();
}

// Calls `move(done, rest)` until `length` bytes have been moved or none are left to move.
template <class Move>
bool File::Transfer(std::size_t length, std::size_t& count, Move move) noexcept {
    count = 0;
    while (count < length) {
        ssize_t const moved = move(count, std::min(length - count, kGreatestTransfer));
        if (moved == 0)
            break;
        if (moved > 0)
            count += static_cast<std::size_t>(moved);
        else if (errno != EINTR)
            return Fail();
    }
    return true;
}

bool File::GetSize(std::uint64_t& size) noexcept {
    struct stat status;
    if (::fstat(m_handle, &status) != 0)
        return Fail();
    size = S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
    return true;
}

bool File::Read(void* data, std::size_t length, std::size_t& count) noexcept {
    return Transfer(length, count, [&](std::size_t done, std::size_t rest) {
        return ::read(m_handle, static_cast<char*>(data) + done, rest);
    });
}

bool File::Write(void const* data, std::size_t length) noexcept {
    std::size_t written = 0;
    return Transfer(length, written, [&](std::size_t done, std::size_t rest) {
        return Progress(::write(m_handle, static_cast<char const*>(data) + done, rest));
    });
}

bool File::ReadAt(std::uint64_t offset, void* data, std::size_t length, std::size_t& count) noexcept {
    bool const isDone = Transfer(length, count, [&](std::size_t done, std::size_t rest) {
        return ::pread(m_handle, static_cast<char*>(data) + done, rest, static_cast<off_t>(offset + done));
    });
    return isDone || (m_error == ESPIPE && Read(data, length, count));
}

bool File::WriteAt(std::uint64_t offset, void const* data, std::size_t length, std::size_t& count) noexcept {
    bool const isDone = Transfer(length, count, [&](std::size_t done, std::size_t rest) {
        return Progress(::pwrite(m_handle, static_cast<char const*>(data) + done, rest,
                                 static_cast<off_t>(offset + done)));
    });
    if (isDone || m_error != ESPIPE || !Write(data, length))
        return isDone;
    count = length;
    return true;
}

// An interrupted close has still closed the handle.
bool File::Close() noexcept {
    if (m_handle < 0)
        return true;
    bool const isClosed = ::close(std::exchange(m_handle, -1)) == 0 || errno == EINTR || Fail();
    if (!m_temporary.empty()) {
        ::unlink(m_temporary.c_str());
        m_temporary.clear();
    }
    return isClosed;
}

int File::TooLargeError() noexcept {
    return EFBIG;
}

} // namespace ZvXmlLib16::platform
