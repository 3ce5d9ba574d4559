// CZvZip: both directions, and what is no complete stream.
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/streams/DecompressionLimit.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include "tests/support/Bytes.h"
#include "tests/support/MessageOf.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace ZvXmlLib16;

namespace {

std::string Compressed(std::string const& text, CompressionType type) {
    CBinaryData data = DataOf(text);
    CZvZip::Compress(data, type);
    return TextOf(data);
}

// A raw buffer after Decompress; `changed` tells whether it was replaced.
std::string Decompressed(std::string const& bytes, bool& changed) {
    auto length = static_cast<std::uint32_t>(bytes.size());
    auto* data = new unsigned char[length];
    std::copy(bytes.begin(), bytes.end(), data);
    unsigned char const* const before = data;
    CZvZip::Decompress(data, length);
    changed = data != before;
    std::string result = length > 0 ? std::string(reinterpret_cast<char const*>(data), length) : "";
    delete[] data;
    return result;
}

std::string Decompressed(std::string const& bytes) {
    bool changed = false;
    std::string result = Decompressed(bytes, changed);
    return changed ? result : "left alone";
}

std::string Repetitive(std::size_t length) {
    std::string text;
    for (int i = 0; text.size() < length; ++i)
        text += "<item number=\"" + std::to_string(i % 100) + "\"/>";
    text.resize(length);
    return text;
}

constexpr CompressionType kTypes[] = {CompressionType_GZip, CompressionType_ZLib};

TEST(ZvZip, ReturnsWhatItHasCompressed) {
    for (CompressionType type : kTypes) {
        for (std::size_t length : {200U, 65535U, 65536U, 65537U, 2U * 65536U, 3000000U}) {
            std::string const text = Repetitive(length);
            std::string const packed = Compressed(text, type);
            EXPECT_LT(packed.size(), text.size());
            EXPECT_EQ(packed.substr(0, 1), type == CompressionType_GZip ? "\x1F" : "\x78");
            EXPECT_TRUE(Decompressed(packed) == text) << length;
        }
    }
}

TEST(ZvZip, RefusesDataThatDoesNotShrink) {
    std::mt19937 random(1);
    std::string noise;
    for (int i = 0; i < 100000; ++i)
        noise.push_back(static_cast<char>(random()));
    for (CompressionType type : kTypes) {
        for (std::size_t length : {1U, 2U, 5U, 10U, 18U, 20000U, 100000U}) {
            CBinaryData data = DataOf(noise.substr(0, length));
            EXPECT_EQ(MessageOf<CZvException>([&] { CZvZip::Compress(data, type); }),
                      "Failed to compress data. [Error Code: 0]")
                << length;
            EXPECT_EQ(data.GetLength(), 0U);
        }
    }
}

TEST(ZvZip, LeavesTheRawBufferAloneAfterAFailure) {
    auto* data = new unsigned char[3]{'a', 'b', 'c'};
    unsigned char const* const before = data;
    std::uint32_t length = 3;
    EXPECT_THROW(CZvZip::Compress(data, length, CompressionType_GZip), CZvException);
    EXPECT_NO_THROW(CZvZip::Compress(data, length, CompressionType_None));
    EXPECT_NO_THROW(CZvZip::Compress(data, length, static_cast<CompressionType>(7)));
    EXPECT_EQ(data, before);
    EXPECT_EQ(length, 3U);
    delete[] data;
}

TEST(ZvZip, LeavesEmptyDataAlone) {
    CBinaryData empty;
    EXPECT_NO_THROW(CZvZip::Compress(empty, CompressionType_GZip));
    EXPECT_EQ(empty.GetLength(), 0U);
    unsigned char* none = nullptr;
    std::uint32_t length = 0;
    CZvZip::Decompress(none, length);
    EXPECT_EQ(length, 0U);
}

TEST(ZvZip, LeavesAloneWhatIsNoCompleteStream) {
    std::string const gzip = Compressed(Repetitive(5000), CompressionType_GZip);
    std::string const zlib = Compressed(Repetitive(5000), CompressionType_ZLib);
    std::string damaged = gzip;
    damaged[gzip.size() / 2] = static_cast<char>(damaged[gzip.size() / 2] ^ 0x55);
    std::string badCheck = zlib;
    badCheck.back() = static_cast<char>(badCheck.back() ^ 1);
    for (std::string const& bytes :
         {std::string("<a/>"), std::string("\xE0\x00\x00\x01", 4), std::string("x"), std::string("\x1F\x8B"),
          std::string("x^2 begins like a zlib stream"),
          std::string("\x78\xBB\x00\x00\x00\x01", 6), // a dictionary
          std::string("\x1F\x8B\x07 another method"), damaged, badCheck}) {
        EXPECT_EQ(Decompressed(bytes), "left alone") << bytes.substr(0, 20);
    }
    for (std::string const& stream : {gzip, zlib}) {
        for (std::size_t length = 0; length < stream.size(); ++length)
            ASSERT_EQ(Decompressed(stream.substr(0, length)), "left alone") << length;
    }
}

TEST(ZvZip, IgnoresWhatFollowsTheStream) {
    std::string const first = Compressed(Repetitive(500), CompressionType_GZip);
    std::string const second = Compressed(Repetitive(300), CompressionType_GZip);
    EXPECT_EQ(Decompressed(first + "trailing"), Repetitive(500));
    EXPECT_EQ(Decompressed(first + second), Repetitive(500));
}

TEST(ZvZip, AcceptsAStreamOfNothing) {
    std::string const emptyGzip("\x1F\x8B\x08\0\0\0\0\0\0\x03\x03\0\0\0\0\0\0\0\0\0", 20);
    std::string const emptyZlib("\x78\x01\x03\0\0\0\0\x01", 8);
    EXPECT_EQ(Decompressed(emptyGzip), "");
    EXPECT_EQ(Decompressed(emptyZlib), "");
}

TEST(ZvZip, TriesOnBorrowedBytes) {
    CBinaryData result("old");
    CBinaryData const plain("<a/>");
    EXPECT_FALSE(CZvZip::TryDecompress(plain.GetData(), plain.GetLength(), result));
    EXPECT_EQ(TextOf(result), "old");
    CBinaryData const packed = DataOf(Compressed(Repetitive(500), CompressionType_ZLib));
    EXPECT_FALSE(CZvZip::TryDecompress(packed.GetData(), packed.GetLength() - 1, result));
    EXPECT_EQ(TextOf(result), "old");
    EXPECT_TRUE(CZvZip::TryDecompress(packed.GetData(), packed.GetLength(), result));
    EXPECT_EQ(TextOf(result), Repetitive(500));
}

TEST(ZvZip, RefusesContentBeyondTheLimitOfTheProcess) {
    for (std::size_t const length : {1000U, 65536U, 200000U}) {
        std::string const packed = Compressed(std::string(length, 'x'), CompressionType_GZip);
        SetDecompressionLimit(length);
        CBinaryData whole;
        CBinaryData const stream = DataOf(packed);
        EXPECT_TRUE(CZvZip::TryDecompress(stream.GetData(), stream.GetLength(), whole));
        EXPECT_EQ(whole.GetLength(), length);
        std::uint32_t room = 0;
        whole.BeginAppend(0, room);
        EXPECT_EQ(room, 0U) << "memory beyond the limit";
        SetDecompressionLimit(length - 1);
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      CBinaryData result;
                      CBinaryData const data = DataOf(packed);
                      CZvZip::TryDecompress(data.GetData(), data.GetLength(), result);
                  }),
                  "Failed to decompress data. The result is larger than the limit of " +
                      std::to_string(length - 1) + " bytes");
        SetDecompressionLimit(~std::uint64_t{0});
        EXPECT_EQ(GetDecompressionLimit(), 0xFFFFFFFFU);
        EXPECT_EQ(Decompressed(packed).size(), length);
    }
}

} // namespace
