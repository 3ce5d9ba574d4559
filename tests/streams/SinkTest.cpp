// Byte sinks, files, and the bytes of a text sink.
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/TextStream.h"

#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

using namespace ZvXmlLib16;

namespace {

std::string Encode(std::string const& local, XmlEncoding encoding) {
    CTextStream stream(encoding);
    stream.Open();
    stream.Append(local);
    return TextOf(stream.GetEncodedData());
}

TEST(EncodedText, HasTheBytesOfItsEncodingWithoutMark) {
    LocalEncoding const encoding(1252);
    EXPECT_EQ(Encode("<\xE4>", XmlEncoding_UTF8), "<\xC3\xA4>");
    EXPECT_EQ(Encode("<\x80>", XmlEncoding_UTF16), std::string("<\0\xAC\x20>\0", 6));
    EXPECT_EQ(Encode("<\x80>", XmlEncoding_UTF16NoDeclaration), std::string("<\0\xAC\x20>\0", 6));
    EXPECT_EQ(Encode("", XmlEncoding_UTF8), "");
    EXPECT_EQ(Encode("", XmlEncoding_UTF16), "");
    ASCIIOnly(true);
    EXPECT_EQ(Encode("<\xE4>", XmlEncoding_UTF8), "<\xE4>");
}

TEST(EncodedText, KeepsCharactersThatTwoBlocksShare) {
    LocalEncoding const encoding(65001);
    EXPECT_EQ(Encode("", XmlEncoding_UTF8), "");
    std::string expected16;
    for (std::size_t front : {4092U, 4093U, 4094U, 4095U}) {
        CTextStream utf8(XmlEncoding_UTF8);
        CTextStream utf16(XmlEncoding_UTF16);
        for (CTextStream* stream : {&utf8, &utf16}) {
            stream->Append(std::string(front, 'x'));
            for (char const octet : {'\xF0', '\x9F', '\x98', '\x80', '!'})
                stream->Append(octet);
        }
        EXPECT_EQ(TextOf(utf8.GetEncodedData()), std::string(front, 'x') + "\xF0\x9F\x98\x80!") << front;
        std::string const units = TextOf(utf16.GetEncodedData());
        EXPECT_EQ(units.size(), 2 * front + 6) << front;
        EXPECT_EQ(units.substr(2 * front), std::string("\x3D\xD8\x00\xDE!\0", 6)) << front;
    }
}

TEST(EncodedText, ReplacesWhatIsNoUtf8AndEndsAtANul) {
    LocalEncoding const encoding(65001);
    EXPECT_EQ(Encode("a\xC3z", XmlEncoding_UTF8), "a\xEF\xBF\xBDz");
    CTextStream stream(XmlEncoding_UTF8);
    stream.Append("a\0b", 3);
    EXPECT_EQ(TextOf(stream.GetEncodedData()), "a");
    EXPECT_EQ(stream.GetLength(), 0U); // it is moved out
    stream.Append("a\0b", 3);
    ASCIIOnly(true);
    EXPECT_EQ(Encode("a\xC3z", XmlEncoding_UTF8), "a\xC3z");
    EXPECT_EQ(TextOf(stream.GetEncodedData()), "a");
}

// The stream writes on behind the bytes that a handle shows, without touching them.
TEST(BinaryStream, LeavesHandlesOnItsBytesAlone) {
    CBinaryData given;
    given.Append(std::string("0"));
    CBinaryStream stream(given);
    std::string expected = "0";
    std::vector<std::pair<CBinaryData, std::string>> handles;
    for (std::uint32_t const length : {1U, 0U, 5000U, 8192U, 3U}) {
        handles.emplace_back(stream.GetData(), expected);
        stream.Append('x');
        stream.Append(reinterpret_cast<unsigned char const*>(std::string(length, 'y').c_str()), length);
        expected += 'x' + std::string(length, 'y');
    }
    stream.Append(stream.GetData());
    EXPECT_EQ(TextOf(stream.GetData()), expected + expected);
    for (auto const& [data, text] : handles)
        EXPECT_EQ(TextOf(data), text);
    EXPECT_EQ(TextOf(given), "0");
}

class FileBinaryStreamTest : public testing::Test {
protected:
    void TearDown() override {
        std::remove(m_name.c_str());
        ::rmdir(m_directory.c_str());
    }

    std::string Write(XmlEncoding encoding, CBinaryData const& data) const {
        CFileBinaryStream(m_name.c_str(), encoding, data).WriteToFile();
        std::ostringstream content;
        content << std::ifstream(m_name, std::ios::binary).rdbuf();
        return content.str();
    }

    std::string const m_name = testing::TempDir() + "zvxmllib_sink_" + std::to_string(::getpid());
    std::string const m_directory = m_name + ".d";
};

TEST_F(FileBinaryStreamTest, WritesAMarkForThe16BitEncodingsOnly) {
    CBinaryData const data("<a/>");
    EXPECT_EQ(Write(XmlEncoding_UTF16, data), "\xFF\xFE<a/>");
    EXPECT_EQ(Write(XmlEncoding_UTF16NoDeclaration, CBinaryData()), "\xFF\xFE");
    EXPECT_EQ(Write(XmlEncoding_UTF8, data), "<a/>");
    EXPECT_EQ(Write(XmlEncoding_None, CBinaryData("x")), "x") << "an existing file is overwritten";
    EXPECT_EQ(Write(XmlEncoding_None, CBinaryData()), "");
}

TEST_F(FileBinaryStreamTest, ReportsTheErrorNumberOfTheSystem) {
    struct Row {
        char const* name;
        char const* message;
    };
    for (Row const& row : {
             Row{"/no/such/file", "Failed to write data to the file [/no/such/file] error [0x00000002]"},
             Row{"/tmp", "Failed to write data to the file [/tmp] error [0x00000015]"},
             Row{nullptr, "Failed to write data to the file [] error [0x00000002]"},
             Row{"/dev/full", "Failed to write data to the file [/dev/full] error [0x0000001C]"},
         }) {
        CFileBinaryStream stream(row.name, XmlEncoding_UTF8);
        stream.Append(CBinaryData("data"));
        EXPECT_EQ(MessageOf<CZvException>([&] { stream.WriteToFile(); }), row.message);
    }
    CFileBinaryStream const markAlone("/dev/full", XmlEncoding_UTF16);
    EXPECT_EQ(MessageOf<CZvException>([&] { CFileBinaryStream(markAlone).WriteToFile(); }),
              "Failed to write data to the file [/dev/full] error [0x0000001C]");
}

TEST_F(FileBinaryStreamTest, ReportsAMissingPermission) {
    ASSERT_EQ(::mkdir(m_directory.c_str(), 0555), 0);
    std::string const name = m_directory + "/file";
    auto const writeAsOrdinaryUser = [&] {
        bool const isOrdinary =
            ::geteuid() != 0 || ::setuid(65534) == 0; // permissions do not bind the superuser
        std::string const message =
            MessageOf<CZvException>([&] { CFileBinaryStream(name.c_str(), XmlEncoding_None).WriteToFile(); });
        std::fprintf(stderr, "%s", message.c_str());
        std::_Exit(isOrdinary ? 0 : 1);
    };
    EXPECT_EXIT(writeAsOrdinaryUser(), testing::ExitedWithCode(0),
                testing::Matcher<std::string const&>("Failed to write data to the file [" + name +
                                                     "] error [0x0000000D]"));
}

} // namespace
