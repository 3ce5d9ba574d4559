// Conversions between local text, UTF-8 and UTF-16, by code page.
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/Vectors.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using namespace ZvXmlLib16;

namespace {

TEST(Encoder, ConvertsBothWaysByCodePage) {
    for (auto const& row : Vectors("conversions.txt", "code pages: page, local, UTF-8")) {
        LocalEncoding const encoding(static_cast<unsigned>(std::stoul(row[0])));
        EXPECT_EQ(Utf8ToLocal(row[2].c_str()), row[1]) << row[0];
        EXPECT_EQ(TextOf(LocalToUtf8(row[1].c_str())), row[2]) << row[0];
    }
}

TEST(Encoder, ReplacesWhatCannotBeExpressed) {
    for (auto const& row :
         Vectors("conversions.txt", "what a code page can not express: page, UTF-8, local")) {
        LocalEncoding const encoding(static_cast<unsigned>(std::stoul(row[0])));
        EXPECT_EQ(Utf8ToLocal(row[1].c_str()), row[2]) << row[0] << ' ' << row[1];
    }
}

TEST(Encoder, ReplacesMalformedLocalText) {
    for (auto const& row : Vectors("conversions.txt", "malformed local text: page, local, UTF-8")) {
        LocalEncoding const encoding(static_cast<unsigned>(std::stoul(row[0])));
        EXPECT_EQ(TextOf(LocalToUtf8(row[1].c_str())), row[2]) << row[0] << ' ' << row[1];
    }
}

TEST(Encoder, ConvertsLongTextWhole) {
    LocalEncoding const encoding(1252);
    std::string local;
    std::string utf8;
    for (int i = 0; i < 5000; ++i) {
        local += "x\x80";
        utf8 += "x\xE2\x82\xAC";
    }
    EXPECT_EQ(Utf8ToLocal(utf8.c_str(), utf8.size()), local);
    EXPECT_EQ(TextOf(LocalToUtf8(local.c_str())), utf8);
    std::vector<char16_t> wide(utf8.size() + 1);
    EXPECT_EQ(Utf8ToLocal(utf8.c_str(), utf8.size(), wide.data(), wide.size(), nullptr, 0), local);
    EXPECT_EQ(Utf8ToLocal(utf8.c_str(), utf8.size(), wide.data(), 3, nullptr, 0), local);
}

TEST(Encoder, PassesBytesUnchangedWithTheAsciiOnlySwitch) {
    LocalEncoding const encoding(1252, true);
    std::string const bytes("\xE4\xFF\0z", 4);
    EXPECT_TRUE(IsLocalTextUtf8());
    EXPECT_EQ(Utf8ToLocal(bytes.data(), bytes.size()), bytes);
    EXPECT_EQ(TextOf(LocalToUtf8("\xE4")), "\xE4");
    EXPECT_EQ(TextOf(LocalToUtf16("\xE4")), std::string("\xE4\0", 2)) << "UTF-16 is always converted";
    EXPECT_EQ(Utf16ToLocal(u"\u00E4", 1), "\xE4");
}

TEST(Encoder, CutsUtf8AtANul) {
    for (unsigned int codePage : {65001U, 1252U}) {
        LocalEncoding const encoding(codePage);
        EXPECT_EQ(Utf8ToLocal("ab\0cd", 5), "ab");
        EXPECT_EQ(Utf8ToLocal("", 0), "");
        EXPECT_EQ(Utf8ToLocal(nullptr), "");
    }
}

TEST(Encoder, WritesUtf16LowByteFirstWithoutMark) {
    for (unsigned int codePage : {65001U, 1252U}) {
        LocalEncoding const encoding(codePage);
        EXPECT_EQ(TextOf(LocalToUtf16("ab")), std::string("a\0b\0", 4));
        EXPECT_EQ(LocalToUtf16("").GetLength(), 0U);
        EXPECT_EQ(TextOf(LocalToUtf16(Utf8ToLocal("\xE2\x82\xAC").c_str())), "\xAC\x20");
        EXPECT_EQ(Utf16ToLocal(u"a\u20AC", 2), Utf8ToLocal("a\xE2\x82\xAC"));
        EXPECT_EQ(Utf16ToLocal(nullptr, 0), "");
    }
    LocalEncoding const encoding(65001);
    EXPECT_EQ(TextOf(LocalToUtf16("\xF0\x9F\x98\x80")), std::string("\x3D\xD8\x00\xDE", 4))
        << "a surrogate pair";
}

TEST(Encoder, GivesEmptyUtf8ForAnUnpairedSurrogate) {
    EXPECT_EQ(TextOf(Utf16ToUtf8(u"ab")), "ab");
    EXPECT_EQ(TextOf(Utf16ToUtf8(u"a\u20AC")), "a\xE2\x82\xAC");
    EXPECT_EQ(Utf16ToUtf8(u"").GetLength(), 0U);
    EXPECT_EQ(Utf16ToUtf8(u"abc\xDC00").GetLength(), 0U);
}

TEST(Encoder, TakesAnUnknownPageAsTheDefault) {
    LocalEncoding const encoding(0);
    bool const isUtf8 = IsLocalTextUtf8();
    std::string const local = Utf8ToLocal("a\xC3\xA4");
    for (unsigned int unknown : {3U, 12345U, 0xFFFFFFFFU}) {
        SetLocalCharEncoding(unknown);
        EXPECT_EQ(IsLocalTextUtf8(), isUtf8) << unknown;
        EXPECT_EQ(Utf8ToLocal("a\xC3\xA4"), local) << unknown;
    }
}

} // namespace
