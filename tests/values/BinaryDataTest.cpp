// CBinaryData: sharing, growth and text forms.
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Base64.h"

#include "tests/support/Bytes.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;

namespace {

TEST(BinaryData, SharesItsBlockUntilAHandleIsWrittenTo) {
    using Change = void (*)(CBinaryData&);
    for (Change change : {Change([](CBinaryData& data) { data.Append(static_cast<unsigned char>('x')); }),
                          Change([](CBinaryData& data) { data.Append('x'); }),
                          Change([](CBinaryData& data) { data.Append(data); }),
                          Change([](CBinaryData& data) { data[1] = 'x'; }),
                          Change([](CBinaryData& data) { delete[] data.ReleaseData(); }),
                          Change([](CBinaryData& data) { data.SetBuffer("x"); }),
                          Change([](CBinaryData& data) { data.Reserve(100); }),
                          Change([](CBinaryData& data) { data.Reserve(100000); })}) {
        CBinaryData const original("abc");
        CBinaryData copy;
        copy = original;
        EXPECT_EQ(copy.GetData(), original.GetData());
        change(copy);
        EXPECT_EQ(TextOf(original), "abc");
        EXPECT_NE(copy.GetData(), original.GetData());
    }
}

TEST(BinaryData, AppendsInEachForm) {
    CBinaryData data("ab\0cd");
    unsigned char const bytes[] = {'f', 0, 'g'};
    data.Append('c');
    data.Append(static_cast<unsigned char>('d'));
    data.Append("e\0x");
    data.Append(bytes, 3);
    data.Append(std::string("h\0x", 3));
    data.Append(CBinaryData("i"));
    data.Append(CBinaryData());
    data.Append(bytes, 0);
    data.Append("");
    EXPECT_EQ(TextOf(data), std::string("abcdef\0ghi", 10));
    EXPECT_EQ(CBinaryData("").GetData(), nullptr);
    EXPECT_EQ(CBinaryData(static_cast<char const*>(nullptr)).GetLength(), 0U);
}

TEST(BinaryData, AppendsAndTakesPartsOfItself) {
    CBinaryData data("abc");
    for (int i = 0; i < 13; ++i) // beyond the room of the first block
        data.Append(data);
    ASSERT_EQ(data.GetLength(), 3U << 13);
    EXPECT_EQ(TextOf(data).substr(3 * 8191), "abc");
    CBinaryData const shared(data);
    data.Append(data.GetData() + 1, 2);
    EXPECT_EQ(TextOf(data).substr(data.GetLength() - 5), "abcbc");
    data.SetBuffer(data.GetData() + 1, 2);
    EXPECT_EQ(TextOf(data), "bc");
    CBinaryData& same = data;
    data = same;
    EXPECT_EQ(TextOf(data), "bc");
}

// A new block has room for twice its length, at least 8192 bytes; the array moves when that is used up.
TEST(BinaryData, MovesOnlyWhenItsRoomIsUsedUp) {
    struct Row {
        std::uint32_t length;
        std::uint32_t room;
    };
    for (Row const& row : {Row{10, 8192}, Row{4096, 8192}, Row{5000, 10000}}) {
        std::vector<unsigned char> const bytes(row.room, 'x');
        CBinaryData data;
        data.SetBuffer(bytes.data(), row.length);
        unsigned char const* const start = data.GetData();
        data.Append(bytes.data(), row.room - row.length);
        EXPECT_EQ(data.GetData(), start) << row.length;
        data.Append('y');
        EXPECT_NE(data.GetData(), start) << row.length;
        EXPECT_EQ(TextOf(data), std::string(row.room, 'x') + 'y');
    }
}

TEST(BinaryData, KeepsItsPlaceInReservedRoom) {
    CBinaryData data;
    data.Reserve(100000);
    EXPECT_EQ(data.GetData(), nullptr);
    EXPECT_EQ(data, CBinaryData());
    EXPECT_EQ(CBinaryData(data).ReleaseData(), nullptr);
    data.Append('a');
    unsigned char const* const start = data.GetData();
    data.Append(std::vector<unsigned char>(99999, 'x').data(), 99999);
    EXPECT_EQ(data.GetData(), start);
    EXPECT_EQ(data.GetLength(), 100000U);
}

TEST(BinaryData, AdoptsAndReleasesArraysWithoutCopying) {
    auto* const array = new unsigned char[3]{'a', 'b', 'c'};
    CBinaryData data(array, 3, true);
    EXPECT_EQ(data.GetData(), array);
    CBinaryData const copied(array, 2, false);
    EXPECT_EQ(TextOf(copied), "ab");
    EXPECT_NE(copied.GetData(), array);
    EXPECT_EQ(CBinaryData(new unsigned char[1], 0, true).GetLength(), 0U);
    std::unique_ptr<unsigned char[]> const released(data.ReleaseData());
    EXPECT_EQ(released.get(), array);
    EXPECT_EQ(data.GetLength(), 0U);
    EXPECT_EQ(data.ReleaseData(), nullptr);
}

TEST(BinaryData, ComparesByContent) {
    EXPECT_EQ(CBinaryData(), CBinaryData(""));
    EXPECT_EQ(CBinaryData("ab"), CBinaryData("ab"));
    EXPECT_NE(CBinaryData("ab"), CBinaryData("ac"));
    EXPECT_NE(CBinaryData("ab"), "abc"); // a text is data where data is wanted
    EXPECT_NE(CBinaryData(), CBinaryData("a"));
}

TEST(BinaryData, RefusesAnIndexOutOfRange) {
    CBinaryData data("abc");
    CBinaryData const empty;
    EXPECT_EQ(data[2], 'c');
    EXPECT_EQ(std::as_const(data)[2], 'c');
    EXPECT_EQ(MessageOf<CZvException>([&] { data[3] = 0; }), "Index Out of range [3]");
    EXPECT_EQ(MessageOf<CZvException>([&] { static_cast<void>(empty[0]); }), "Index Out of range [0]");
}

TEST(BinaryData, RefusesALengthBeyond32Bits) {
    CBinaryData data("a");
    EXPECT_THROW(data.Append(data.GetData(), 0xFFFFFFFFU), std::bad_alloc);
    EXPECT_EQ(TextOf(data), "a");
}

TEST(Base64, WritesOnePaddedLine) {
    for (auto const& row : Vectors("conversions.txt", "base64: octets, text")) {
        EXPECT_EQ(CBinaryData(row[0].c_str()).GetAsBase64(), row[1]);
        CBinaryData read("old");
        read.SetAsBase64(row[1].c_str());
        EXPECT_EQ(TextOf(read), row[0]);
    }
}

TEST(Base64, ReadsLeniently) {
    for (auto const& row : Vectors("conversions.txt", "lenient base64")) {
        CBinaryData data("old");
        data.SetAsBase64(row[0].c_str());
        EXPECT_EQ(TextOf(data), row[1]) << row[0];
    }
}

TEST(Base64, ReturnsEveryLengthOfBytes) {
    std::mt19937 random(7);
    CBinaryData data;
    for (int length = 0; length < 200; ++length) {
        CBinaryData read;
        std::string const text = data.GetAsBase64();
        EXPECT_EQ(text.size(), data.GetLength() == 0 ? 0 : (data.GetLength() + 2) / 3 * 4);
        read.SetAsBase64(text.c_str());
        EXPECT_EQ(read, data) << length;
        data.Append(static_cast<unsigned char>(random()));
    }
}

TEST(Hex, WritesAndReadsPairsOfDigits) {
    CBinaryData data;
    data.SetAsHexString("0aFF009d");
    EXPECT_EQ(TextOf(data), std::string("\x0A\xFF\x00\x9D", 4));
    EXPECT_EQ(data.GetAsHexString(), "0AFF009D");
    data.SetAsHexString("");
    EXPECT_EQ(data.GetLength(), 0U);
    EXPECT_EQ(data.GetAsHexString(), "");
    EXPECT_EQ(CBinaryData::GetAsHexString(nullptr, 5), "");
}

TEST(Hex, RefusesWhatIsNoPairOfDigits) {
    for (auto const& row : Vectors("conversions.txt", "no hexadecimal")) {
        CBinaryData data("old");
        EXPECT_EQ(MessageOf<CZvException>([&] { data.SetAsHexString(row[0].c_str()); }), row[1]);
        EXPECT_EQ(data.GetLength(), 0U);
    }
}

} // namespace
