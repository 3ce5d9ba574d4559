// A file that takes the place of another one when it is complete.
#include "zvxmllib/platform/File.h"

#include <atomic>
#include <cerrno>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ZvXmlLib16::platform {

namespace {

constexpr int kMostLinks = 40;             // what the system follows
constexpr int kMostTries = 100;            // names of temporary files that others have taken
constexpr mode_t kPermissionsOfNew = 0666; // less the user's mask
constexpr mode_t kAllPermissions = 07777;
constexpr mode_t kPermissionsOfUsers = 0777; // without set-id bits, for the owner may differ

std::string FolderOf(std::string const& name) {
    std::size_t const slash = name.rfind('/');
    return slash == std::string::npos ? std::string() : name.substr(0, slash + 1);
}

// Where the symbolic links of `name` lead, whether or not a file is there. False for a failure or a cycle.
bool FollowLinks(std::string& name) {
    for (int links = 0; links <= kMostLinks; ++links) {
        struct stat status;
        if (::lstat(name.c_str(), &status) != 0)
            return errno == ENOENT;
        if (!S_ISLNK(status.st_mode))
            return true;
        std::string place(static_cast<std::size_t>(status.st_size) + 1, '\0');
        ssize_t const length = ::readlink(name.c_str(), place.data(), place.size());
        if (length < 0)
            return false;
        place.resize(static_cast<std::size_t>(length));
        name = place.substr(0, 1) == "/" ? place : FolderOf(name) + place;
    }
    errno = ELOOP;
    return false;
}

// Flushes the directory entry of a renamed file. A file system that cannot do so is not an error.
void FlushFolder(std::string const& name) noexcept {
    std::size_t const slash = name.rfind('/');
    char folder[4096] = ".";
    if (slash != std::string::npos && slash + 2 <= sizeof folder)
        folder[name.copy(folder, slash + 1)] = '\0';
    int const handle = ::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
}

} // namespace

bool File::CreateReplacement(char const* name) {
    Close();
    std::string target = name != nullptr ? name : "";
    struct stat status;
    bool const exists = ::stat(target.c_str(), &status) == 0;
    if (target.empty() || (exists && !S_ISREG(status.st_mode)))
        return Create(target.c_str()); // by its own name: the link of a pipe, as /dev/stdout, leads to none
    if (!FollowLinks(target))
        return Fail();
    if (exists && ::access(target.c_str(), W_OK) != 0)
        return Fail();
    m_target = std::move(target);
    return OpenBeside(m_target) && (!exists || KeepPermissions(m_target));
}

// The name begins with a dot and does not contain the target's, which may already have the greatest length.
bool File::OpenBeside(std::string const& target) {
    static std::atomic<unsigned int> number{0};
    std::string const folder = FolderOf(target);
    for (int tries = 0; tries < kMostTries; ++tries) {
        m_temporary = folder + ".zvxml-" + std::to_string(::getpid()) + '-' + std::to_string(++number);
        m_handle = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY,
                          kPermissionsOfNew);
        if (m_handle >= 0)
            return true;
        if (errno != EEXIST && errno != EINTR)
            break;
    }
    m_temporary.clear();
    return Fail();
}

// Removes the replacement and keeps the error that has just happened.
bool File::Discard() noexcept {
    int const error = errno;
    Close();
    m_error = error;
    return false;
}

// The owner first: a change of the owner may take permissions away.
bool File::KeepPermissions(std::string const& target) noexcept {
    struct stat old;
    struct stat own;
    if (::stat(target.c_str(), &old) != 0 || ::fstat(m_handle, &own) != 0)
        return Discard();
    bool const isOwners = (own.st_uid == old.st_uid && own.st_gid == old.st_gid) ||
                          ::fchown(m_handle, old.st_uid, old.st_gid) == 0;
    mode_t const kept = old.st_mode & (isOwners ? kAllPermissions : kPermissionsOfUsers);
    return ::fchmod(m_handle, kept) == 0 || Discard();
}

bool File::Commit() noexcept {
    if (m_handle < 0 || m_temporary.empty())
        return Close();
    while (::fsync(m_handle) != 0) {
        if (errno != EINTR)
            return Discard();
    }
    if ((::close(std::exchange(m_handle, -1)) != 0 && errno != EINTR) ||
        ::rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        Fail();
        ::unlink(m_temporary.c_str());
        m_temporary.clear();
        return false;
    }
    m_temporary.clear();
    FlushFolder(m_target);
    return true;
}

} // namespace ZvXmlLib16::platform
