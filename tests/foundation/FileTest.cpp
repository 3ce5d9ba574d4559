// Files of the operating system, and the error box.
#include "zvxmllib/platform/File.h"
#include "zvxmllib/platform/ErrorBox.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ZvXmlLib16;

namespace {

std::string ReadAll(platform::File& file, std::size_t length) {
    std::string text(length, '\0');
    std::size_t count = 0;
    EXPECT_TRUE(file.Read(text.data(), length, count));
    text.resize(count);
    return text;
}

class FileTest : public testing::Test {
protected:
    void TearDown() override { std::remove(m_name.c_str()); }

    std::string const m_name = testing::TempDir() + "zvxmllib_file_" + std::to_string(::getpid());
};

TEST_F(FileTest, WritesAndReadsBack) {
    for (char const* text : {"first, the longer text", "second"}) { // the file is emptied in between
        platform::File file;
        ASSERT_TRUE(file.Create(m_name.c_str()));
        EXPECT_TRUE(file.Write(text, std::string(text).size()));
        EXPECT_TRUE(file.Close());
        EXPECT_TRUE(file.Close()) << "nothing is left to be closed";
        std::uint64_t size = 0;
        ASSERT_TRUE(file.OpenForReading(m_name.c_str()));
        EXPECT_TRUE(file.GetSize(size));
        EXPECT_EQ(size, std::string(text).size());
        EXPECT_EQ(ReadAll(file, 3), std::string(text).substr(0, 3));
        EXPECT_EQ(ReadAll(file, 100), std::string(text).substr(3));
        EXPECT_EQ(ReadAll(file, 100), "");
    }
}

TEST_F(FileTest, TellsWhyItCannotOpen) {
    platform::File file;
    for (char const* name : {static_cast<char const*>(nullptr), "", "/no/such/file"}) {
        EXPECT_FALSE(file.OpenForReading(name));
        EXPECT_EQ(file.Error(), ENOENT);
        EXPECT_FALSE(file.Create(name));
        EXPECT_EQ(file.Error(), ENOENT);
    }
    EXPECT_FALSE(file.OpenForReading("/"));
    EXPECT_EQ(file.Error(), EISDIR);
    EXPECT_FALSE(file.Create("/tmp"));
    EXPECT_EQ(file.Error(), EISDIR);
}

TEST_F(FileTest, ReadsWhatComesInPieces) {
    ASSERT_EQ(::mkfifo(m_name.c_str(), 0600), 0);
    int const writer = ::open(m_name.c_str(), O_RDWR); // so that neither end waits for the other
    platform::File file;
    ASSERT_TRUE(file.OpenForReading(m_name.c_str()));
    std::uint64_t size = 1;
    EXPECT_TRUE(file.GetSize(size));
    EXPECT_EQ(size, 0U);
    ASSERT_EQ(::write(writer, "ab", 2), 2);
    EXPECT_EQ(ReadAll(file, 1), "a");
    ASSERT_EQ(::write(writer, "cd", 2), 2);
    ::close(writer);
    EXPECT_EQ(ReadAll(file, 100), "bcd");
}

TEST_F(FileTest, ReportsAFullDisk) {
    platform::File file;
    ASSERT_TRUE(file.Create("/dev/full"));
    EXPECT_FALSE(file.Write("x", 1));
    EXPECT_EQ(file.Error(), ENOSPC);
}

TEST(ErrorBoxTest, WritesOneLineToStandardError) {
    testing::internal::CaptureStderr();
    platform::ShowErrorBox("Title", "first\nsecond");
    platform::ShowErrorBox(nullptr, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Title: first second\n: \n");
}

} // namespace
