// Every operation on a file fails once, in each of the ways it can: an exception reaches the caller, nothing
// is lost, and the same call succeeds afterwards.
#include "Scenarios.h"

#include "tests/support/TemporaryFile.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/FileTextStream.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <pthread.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

enum class Fault {
    kError,     // the operation fails
    kShort,     // it moves less than asked for, and the rest can follow
    kInterrupt, // a signal interrupts it
    kNoSpace    // the disk is full
};

std::atomic<long> successesLeft{-1}; // transfers run on other threads too
Fault fault = Fault::kError;

bool IsFaulty() noexcept {
    return successesLeft.load() >= 0 && successesLeft.fetch_sub(1) == 0;
}

// What the library goes on from by itself.
bool MustSucceed() noexcept {
    return fault == Fault::kShort || fault == Fault::kInterrupt;
}

int FailWith(int error) noexcept {
    errno = error;
    return -1;
}

// The error of a fault that is not a short transfer.
int Error() noexcept {
    return fault == Fault::kInterrupt ? EINTR : fault == Fault::kNoSpace ? ENOSPC : EIO;
}

template <class Move>
ssize_t Transfer(std::size_t length, Move move) {
    if (!IsFaulty())
        return move(length);
    return fault == Fault::kShort ? move((length + 1) / 2) : FailWith(Error());
}

} // namespace

// The linker directs the library's calls of these to the wrappers, and gives the names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

int __real_open(char const* name, int flags, ...);
int __real_fstat(int handle, struct stat* status);
ssize_t __real_read(int handle, void* data, std::size_t length);
ssize_t __real_write(int handle, void const* data, std::size_t length);
ssize_t __real_pread(int handle, void* data, std::size_t length, off_t offset);
ssize_t __real_pwrite(int handle, void const* data, std::size_t length, off_t offset);
int __real_close(int handle);
int __real_fsync(int handle);
int __real_rename(char const* from, char const* to);

int __wrap_open(char const* name, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return IsFaulty() && fault != Fault::kShort ? FailWith(Error()) : __real_open(name, flags, mode);
}
int __wrap_fstat(int handle, struct stat* status) {
    return IsFaulty() && !MustSucceed() ? FailWith(EIO) : __real_fstat(handle, status);
}
ssize_t __wrap_read(int handle, void* data, std::size_t length) {
    return Transfer(length, [=](std::size_t part) { return __real_read(handle, data, part); });
}
ssize_t __wrap_write(int handle, void const* data, std::size_t length) {
    return Transfer(length, [=](std::size_t part) { return __real_write(handle, data, part); });
}
ssize_t __wrap_pread(int handle, void* data, std::size_t length, off_t offset) {
    return Transfer(length, [=](std::size_t part) { return __real_pread(handle, data, part, offset); });
}
ssize_t __wrap_pwrite(int handle, void const* data, std::size_t length, off_t offset) {
    return Transfer(length, [=](std::size_t part) { return __real_pwrite(handle, data, part, offset); });
}
int __wrap_close(int handle) {
    bool const isFaulty = IsFaulty() && fault != Fault::kShort;
    int const result = __real_close(handle);
    return isFaulty ? FailWith(Error()) : result;
}
int __wrap_fsync(int handle) {
    return IsFaulty() && fault != Fault::kShort ? FailWith(Error()) : __real_fsync(handle);
}
int __wrap_rename(char const* from, char const* to) {
    return IsFaulty() && !MustSucceed() ? FailWith(Error()) : __real_rename(from, to);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

namespace {

void FailEachOperation(Scenario const& scenario) {
    std::string const expected = scenario.run();
    long faults = 0;
    long failures = 0;
    for (bool reached = true; reached; ++faults) {
        std::string result;
        successesLeft = faults;
        try {
            result = scenario.run();
        } catch (ZvXmlLib16::CZvException const& failure) {
            ++failures;
            EXPECT_FALSE(MustSucceed()) << "operation " << faults << ": " << failure.GetFullMessage();
        }
        reached = successesLeft.exchange(-1) < 0;
        EXPECT_TRUE(result.empty() || result == expected) << "operation " << faults;
        ASSERT_EQ(scenario.run(), expected) << "behind the fault of operation " << faults;
    }
    EXPECT_GE(faults, 8);
    EXPECT_GE(failures, MustSucceed() ? 0 : 6);
}

TEST(FileFault, ReachesTheCallerOrIsGoneOnFrom) {
    for (Scenario const& scenario : FileScenarios()) {
        for (Fault const kind : {Fault::kError, Fault::kShort, Fault::kInterrupt, Fault::kNoSpace}) {
            SCOPED_TRACE(std::string(scenario.name) + ", fault " + std::to_string(static_cast<int>(kind)));
            fault = kind;
            FailEachOperation(scenario);
        }
    }
}

TEST(FileFault, LeavesTheOldFileWhereItWasToBeReplaced) {
    namespace fs = std::filesystem;
    using ZvXmlLib16::platform::FileMode;
    fs::path const folder = fs::temp_directory_path() / ("zvxmllib_faults_" + std::to_string(::getpid()));
    fs::create_directory(folder);
    std::string const path = folder / "file";
    auto const writeBytes = [&path] {
        ZvXmlLib16::CFileBinaryStream(path.c_str(), ZvXmlLib16::XmlEncoding_UTF8,
                                      ZvXmlLib16::CBinaryData("new"))
            .WriteToFile(FileMode::kReplace);
    };
    auto const writeText = [&path] {
        ZvXmlLib16::CFileTextStream stream(path.c_str(), ZvXmlLib16::XmlEncoding_UTF8, true,
                                           FileMode::kReplace);
        stream.Open();
        stream.Append("new");
        stream.Close();
    };
    std::ofstream(path) << "old";
    for (Fault const kind : {Fault::kError, Fault::kShort, Fault::kInterrupt, Fault::kNoSpace}) {
        fault = kind;
        for (auto const& write : {std::function<void()>(writeBytes), std::function<void()>(writeText)}) {
            bool reached = true;
            for (long faults = 0; reached; ++faults) {
                bool failed = false;
                successesLeft = faults;
                try {
                    write();
                } catch (ZvXmlLib16::CZvException const&) {
                    failed = true;
                }
                reached = successesLeft.exchange(-1) < 0;
                EXPECT_FALSE(failed && MustSucceed()) << "operation " << faults;
                EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
                std::string content;
                std::getline(std::ifstream(path), content);
                EXPECT_EQ(content, failed ? "old" : "new") << "operation " << faults;
                std::ofstream(path) << "old";
            }
        }
    }
    fs::remove_all(folder);
}

TEST(FileFault, InALaterChunkIsToldWithoutTheNameOfTheFile) {
    TemporaryFile const file("<r>" + std::string(300'000, 'x') + "</r>");
    std::vector<std::string> messages;
    fault = Fault::kError;
    ZvXmlLib16::AsyncFromXmlFile(true);
    for (long number = 0; number < 4; ++number) {
        successesLeft = number;
        try {
            ZvXmlLib16::CXmlDocument().Load(file.Path());
        } catch (ZvXmlLib16::CZvException const& failure) {
            messages.push_back(failure.GetFullMessage());
        }
        successesLeft = -1;
    }
    ZvXmlLib16::AsyncFromXmlFile(false);
    EXPECT_THAT(messages, testing::Contains("Failed to read the contents of the file. Error [0x00000005]"));
}

TEST(FileFault, OfTheThreadLeavesTheTransfersToTheCaller) {
    pthread_attr_t before;
    pthread_attr_t impossible;
    ASSERT_EQ(::pthread_getattr_default_np(&before), 0);
    ASSERT_EQ(::pthread_getattr_default_np(&impossible), 0);
    ASSERT_EQ(::pthread_attr_setstacksize(&impossible, std::size_t{1} << 47U), 0);
    for (Scenario const& scenario : FileScenarios()) {
        std::string const expected = scenario.run();
        ASSERT_EQ(::pthread_setattr_default_np(&impossible), 0);
        EXPECT_THROW(std::thread([] {}).join(), std::system_error);
        std::string const result = scenario.run();
        ASSERT_EQ(::pthread_setattr_default_np(&before), 0);
        EXPECT_EQ(result, expected) << scenario.name;
    }
}

} // namespace
