// Conversions between local text, UTF-8 and UTF-16, by code page.
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using namespace ZvXmlLib16;

namespace {

TEST(Encoder, ConvertsBothWaysByCodePage) {
    struct Row {
        unsigned int codePage;
        std::string local;
        std::string utf8;
    };
    for (Row const& row :
         {Row{65001, "a\xC3\xA4\xF0\x9F\x98\x80", "a\xC3\xA4\xF0\x9F\x98\x80"},
          Row{20127, "plain\x7F", "plain\x7F"}, Row{858, "\xD5", "\xE2\x82\xAC"},
          Row{28591, "\x80\xE4\xFF", "\xC2\x80\xC3\xA4\xC3\xBF"}, Row{1250, "\xBE", "\xC4\xBE"},
          Row{1251, "\xC4\xE0", "\xD0\x94\xD0\xB0"}, Row{1252, "\x80 \xE4", "\xE2\x82\xAC \xC3\xA4"},
          Row{1253, "\xE1", "\xCE\xB1"}, Row{1255, "\xE0\xE1", "\xD7\x90\xD7\x91"},
          Row{1257, "\xE0", "\xC4\x85"},
          Row{1258, "a\xDE", "\xC3\xA3"}, // a letter that takes its accent from the byte behind it
          Row{932, "\x93\xFA", "\xE6\x97\xA5"}, Row{54936, "\x94\x39\xFC\x36", "\xF0\x9F\x98\x80"}}) {
        LocalEncoding const encoding(row.codePage);
        EXPECT_EQ(Utf8ToLocal(row.utf8.c_str()), row.local) << row.codePage;
        EXPECT_EQ(TextOf(LocalToUtf8(row.local.c_str())), row.utf8) << row.codePage;
    }
}

TEST(Encoder, ReplacesWhatCannotBeExpressed) {
    struct Row {
        unsigned int codePage;
        char const* utf8;
        char const* local;
    };
    for (Row const& row :
         {Row{20127, "a\xC3\xA4z", "a?z"}, Row{28591, "\xE2\x82\xAC", "?"},
          Row{28591, "a\xF0\x9F\x98\x80z", "a?z"}, Row{1252, "a\xE6\x97\xA5\xF0\x9F\x98\x80z", "a??z"},
          Row{932, "\xE6\x97\xA5\xF0\x9F\x98\x80\xE6\x97\xA5", "\x93\xFA?\x93\xFA"},
          Row{1252, "a\xFFz", "a?z"}, Row{65001, "a\xFFz", "a\xEF\xBF\xBDz"}}) {
        LocalEncoding const encoding(row.codePage);
        EXPECT_EQ(Utf8ToLocal(row.utf8), row.local) << row.codePage << ' ' << row.utf8;
    }
}

TEST(Encoder, ReplacesMalformedLocalText) {
    struct Row {
        unsigned int codePage;
        char const* local;
        char const* utf8;
    };
    for (Row const& row : {Row{20127, "a\xE4z", "a\xEF\xBF\xBDz"}, Row{1252, "a\x81z", "a\xEF\xBF\xBDz"},
                           Row{932, "a\x81", "a\xEF\xBF\xBD"},
                           Row{932, "\x93\xFA\xFD\xFDz", "\xE6\x97\xA5\xEF\xBF\xBD\xEF\xBF\xBDz"},
                           Row{65001, "\xE2\x82z", "\xEF\xBF\xBDz"}}) {
        LocalEncoding const encoding(row.codePage);
        EXPECT_EQ(TextOf(LocalToUtf8(row.local)), row.utf8) << row.codePage << ' ' << row.local;
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
