// CStringBuffer and CTextStream.
#include "zvxmllib/streams/StringBuffer.h"
#include "zvxmllib/streams/TextStream.h"

#include <gmock/gmock.h>

#include <new>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

std::vector<std::string> Blocks(CStringBuffer const& buffer) {
    std::vector<std::string> blocks;
    buffer.ForEachBlock([&](std::string_view block) { blocks.emplace_back(block); });
    return blocks;
}

TEST(StringBuffer, FillsBlocksOfOneLessThanTheInitialSize) {
    struct Row {
        std::uint32_t initialSize;
        std::vector<std::string> blocks;
    };
    for (Row const& row : {Row{8, {"abcdefg", "hijklmn", "o"}}, Row{16, {"abcdefghijklmno"}},
                           Row{3, {"ab", "cd", "ef", "gh", "ij", "kl", "mn", "o"}}}) {
        CStringBuffer buffer(row.initialSize);
        buffer.Append("abc");
        buffer.Append('d');
        buffer.Append("");
        buffer.Append(std::string("efghijklmno"));
        EXPECT_EQ(Blocks(buffer), row.blocks);
        EXPECT_STREQ(buffer.GetBuffer(), "abcdefghijklmno");
        EXPECT_EQ(Blocks(buffer).size(), 1U);
        EXPECT_EQ(buffer.GetLength(), 15U);
    }
    for (std::uint32_t initialSize : {0U, 1U, 2U}) {
        CStringBuffer buffer(initialSize);
        buffer.Append("abc");
        EXPECT_EQ(Blocks(buffer).size(), 3U) << initialSize;
        EXPECT_STREQ(buffer.GetBuffer(), "abc") << initialSize;
    }
}

TEST(StringBuffer, KeepsASingleBlockOnReset) {
    CStringBuffer buffer(8);
    buffer.Append("abcdefg");
    char const* const block = buffer.GetBuffer();
    buffer.Reset();
    EXPECT_EQ(buffer.GetLength(), 0U);
    EXPECT_STREQ(buffer.GetBuffer(), "");
    buffer.Append("xy");
    EXPECT_EQ(buffer.GetBuffer(), block);
    EXPECT_STREQ(block, "xy");

    buffer.Append("0123456789");
    buffer.Reset();
    EXPECT_TRUE(Blocks(buffer).empty());
    buffer.Assign("new");
    EXPECT_STREQ(buffer.GetBuffer(), "new");
}

TEST(StringBuffer, HoldsLargeTextInFewBlocks) {
    CStringBuffer buffer;
    std::string expected;
    for (int i = 0; i < 200000; ++i) {
        std::string const word = "word" + std::to_string(i);
        buffer.Append(word);
        expected += word;
    }
    EXPECT_LT(Blocks(buffer).size(), 20U);
    EXPECT_EQ(buffer.GetBuffer(), expected);
}

TEST(StringBuffer, AppendsTextUpToANulAndPiecesWhole) {
    CStringBuffer buffer;
    buffer.Append(std::string("ab\0cd", 5));
    EXPECT_EQ(buffer.GetLength(), 2U);
    buffer.Append("x\0y", 3);
    EXPECT_EQ(std::string(buffer.GetBuffer(), buffer.GetLength()), std::string("abx\0y", 5));
}

TEST(StringBuffer, RefusesTextBeyond32Bits) {
    CStringBuffer buffer;
    buffer.Append("a");
    std::size_t const volatile tooLong = 0xFFFFFFFFU;
    EXPECT_THROW(buffer.Append("b", tooLong), std::bad_alloc);
    EXPECT_STREQ(buffer.GetBuffer(), "a");
}

} // namespace
