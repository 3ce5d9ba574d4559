// The library's own conversions between UTF-8 and UTF-16.
#include "zvxmllib/foundation/Utf16.h"

#include <gtest/gtest.h>

#include <string>

using namespace ZvXmlLib16;

namespace {

std::size_t Count(std::u16string const& text) {
    return ConvertUtf16ToUtf8(text.data(), text.size(), nullptr, 0);
}

std::string Convert(std::u16string const& text, std::size_t capacity) {
    std::string output(capacity, '#');
    output.resize(ConvertUtf16ToUtf8(text.data(), text.size(), output.data(), capacity));
    return output;
}

// The smallest and the greatest code point of each length.
constexpr char16_t kEdges16[] = u"\u0001\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
constexpr char kEdges8[] = "\x01\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
                           "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";

TEST(Utf16, ConvertsEveryLengthBothWays) {
    std::string const utf8 = kEdges8;
    EXPECT_EQ(Count(kEdges16), utf8.size());
    EXPECT_EQ(Convert(kEdges16, utf8.size()), utf8);
    EXPECT_EQ(ConvertUtf16ToUtf8(std::u16string_view(kEdges16)), utf8);
    EXPECT_EQ(ConvertUtf8ToUtf16(utf8), kEdges16);
    EXPECT_EQ(CountUtf16Units(utf8), std::u16string(kEdges16).size());
    EXPECT_TRUE(IsValidUtf8(utf8));
}

TEST(Utf16, StopsBeforeASequenceThatDoesNotFit) {
    EXPECT_EQ(Convert(u"a\u00E4\u20AC", 6), "a\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(Convert(u"a\u00E4\u20AC", 5), "a\xC3\xA4");
    EXPECT_EQ(Convert(u"a\u00E4\u20AC", 2), "a");
    EXPECT_EQ(Convert(u"\U0001F600", 3), "");
}

TEST(Utf16, EndsAtAnUnpairedSurrogate) {
    char16_t const high = 0xD83D;
    char16_t const low = 0xDE00;
    for (std::u16string const& text :
         {std::u16string{'a', low}, std::u16string{'a', high}, std::u16string{'a', high, 'b'},
          std::u16string{'a', high, high, low}, std::u16string{'a', low, high}}) {
        EXPECT_EQ(Count(text), 0U);
        EXPECT_EQ(Convert(text, 32), "a");
    }
    EXPECT_EQ(ConvertUtf16ToUtf8(std::u16string_view(u"a\xDE00"
                                                     u"b\xD83D")),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

TEST(Utf16, ReplacesEachMalformedSequence) {
    struct Row {
        std::string utf8;
        std::u16string units;
    };
    std::string const plain = "0123456789abcdef";    // so that sequences lie behind runs of plain octets, too
    for (Row const& row : {Row{"\x80", u"\uFFFD"},   // without a lead
                           Row{"a\xC3", u"a\uFFFD"}, // cut off
                           Row{"\xE2\x82", u"\uFFFD"},                 // cut off behind two octets
                           Row{"\xE2\x82z", u"\uFFFDz"},               // interrupted
                           Row{"\xF0\x9F\x98!", u"\uFFFD!"},           // interrupted behind three octets
                           Row{"\xC0\xAF", u"\uFFFD\uFFFD"},           // overlong
                           Row{"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"}, // overlong
                           Row{"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"}, // a surrogate
                           Row{"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // above U+10FFFF
                           Row{"\xFF\xFE", u"\uFFFD\uFFFD"}}) {
        for (std::string const& front : {std::string(), plain, plain + "xyz", "\xC3\xA4" + plain}) {
            std::string const text = front + row.utf8;
            std::u16string const expected = ConvertUtf8ToUtf16(front) + row.units;
            EXPECT_FALSE(IsValidUtf8(text)) << text;
            EXPECT_EQ(ConvertUtf8ToUtf16(text), expected) << text;
            EXPECT_EQ(CountUtf16Units(text), expected.size()) << text;
            EXPECT_EQ(RepairUtf8(text), ConvertUtf16ToUtf8(std::u16string_view(expected))) << text;
        }
    }
}

TEST(Utf16, FindsAnOctetBeyondAsciiAnywhere) {
    for (std::size_t length = 0; length < 40; ++length) {
        std::string text(length, 'a');
        EXPECT_TRUE(IsAscii(text) && IsValidUtf8(text)) << length;
        for (char& c : text) {
            c = '\x80';
            EXPECT_FALSE(IsAscii(text) || IsValidUtf8(text)) << length;
            c = 'a';
        }
    }
}

TEST(Utf16, TakesWideCharactersAsUnits) {
    wchar_t const text[] = {L'a', 0xFFFF, 0xD800, 0x10000, 0x10FFFF, 0x110000, static_cast<wchar_t>(-1), 0};
    EXPECT_EQ(UnitsFromWide(text),
              (std::u16string{'a', 0xFFFF, 0xD800, 0xD800, 0xDC00, 0xDBFF, 0xDFFF, 0xFFFD, 0xFFFD}));
}

} // namespace
