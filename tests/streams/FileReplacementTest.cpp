// Files that are replaced when the new one is complete, through both sinks.
#include "tests/support/MessageOf.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/FileTextStream.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace ZvXmlLib16;
using platform::FileMode;
namespace fs = std::filesystem;

enum Sink { kBytes, kText };

class FileReplacement : public testing::TestWithParam<Sink> {
protected:
    FileReplacement()
        : m_folder(fs::temp_directory_path() / ("zvxmllib_replace_" + std::to_string(::getpid()))) {
        fs::create_directory(m_folder);
    }
    ~FileReplacement() override { fs::remove_all(m_folder); }

    std::string Path(char const* name) const { return m_folder / name; }
    void Make(char const* name, char const* content) const { std::ofstream(Path(name)) << content; }
    std::string Content(char const* name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    std::ptrdiff_t Files() const {
        return std::distance(fs::directory_iterator(m_folder), fs::directory_iterator());
    }
    void Write(std::string const& path) const {
        if (GetParam() == kBytes) {
            CFileBinaryStream(path.c_str(), XmlEncoding_UTF8, CBinaryData("new"))
                .WriteToFile(FileMode::kReplace);
            return;
        }
        CFileTextStream stream(path.c_str(), XmlEncoding_UTF8, true, FileMode::kReplace);
        stream.Open();
        stream.Append("new");
        stream.Close();
    }

    fs::path m_folder;
};

INSTANTIATE_TEST_SUITE_P(BySink, FileReplacement, testing::Values(kBytes, kText));

TEST_P(FileReplacement, KeepsThePermissionsAndLeavesNoOtherFile) {
    Make("old", "the old content");
    ::chmod(Path("old").c_str(), 0640);
    Write(Path("old"));
    struct stat status;
    ASSERT_EQ(::stat(Path("old").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(Content("old"), "new");

    mode_t const mask = ::umask(027);
    Write(Path("fresh"));
    ::umask(mask);
    ASSERT_EQ(::stat(Path("fresh").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_EQ(Files(), 2);
}

TEST_P(FileReplacement, FollowsLinksAndWritesDevicesDirectly) {
    Make("target", "the old content");
    fs::create_symlink("target", Path("link"));
    fs::create_symlink(Path("link"), Path("link to it"));
    fs::create_symlink("absent", Path("dangling"));
    Write(Path("link to it"));
    Write(Path("dangling"));
    EXPECT_TRUE(fs::is_symlink(Path("link")) && fs::is_symlink(Path("link to it")));
    EXPECT_EQ(Content("target"), "new");
    EXPECT_EQ(Content("absent"), "new");
    EXPECT_EQ(Files(), 5);
    EXPECT_NO_THROW(Write("/dev/null"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_P(FileReplacement, ReportsTheErrorNumberOfTheSystem) {
    fs::create_symlink("circle", Path("circle"));
    struct Row {
        std::string path;
        char const* error;
    };
    for (Row const& row : {Row{Path("no folder/file"), "0x00000002"}, Row{m_folder, "0x00000015"},
                           Row{Path("circle"), "0x00000028"}, Row{"", "0x00000002"}}) {
        EXPECT_EQ(MessageOf<CZvException>([&] { Write(row.path); }),
                  "Failed to write data to the file [" + row.path + "] error [" + row.error + "]");
    }
}

TEST(FileTextStreamReplacement, LeavesTheOldFileUntilItIsClosed) {
    std::string const path = fs::temp_directory_path() / ("zvxmllib_kept_" + std::to_string(::getpid()));
    std::ofstream(path) << "the old content";
    {
        CFileTextStream stream(path.c_str(), XmlEncoding_UTF8, true, FileMode::kReplace);
        stream.Open();
        stream.Append("half");
        stream.Flush();
    }
    EXPECT_EQ(fs::file_size(path), 15U);
    fs::remove(path);
}

} // namespace
