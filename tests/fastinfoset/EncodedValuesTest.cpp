// Values under the encoding algorithms.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/fastinfoset/FastInfosetBinaryData.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

CFastInfosetBinaryData DataOf(std::string const& octets) {
    std::string copy = octets;
    return CFastInfosetBinaryData(reinterpret_cast<unsigned char*>(copy.data()),
                                  static_cast<std::uint32_t>(copy.size()), false);
}

TEST(EncodedValues, GoOutAndComeBack) {
    struct Row {
        std::uint32_t algorithm;
        char const* text;
        std::string octets;
        char const* back;
    };
    for (Row const& row :
         {Row{1, "0aFF", {"\x0A\xFF", 2}, "0AFF"},
          Row{1, "", "", ""},
          Row{2, "YWJj", "abc", "YWJj"},
          Row{2, " Y W I = ", "ab", "YWI="},
          Row{2, "Y*", "", ""},
          Row{3, "-2", "\xFF\xFE", "-2"},
          Row{3, "+0032767", "\x7F\xFF", "32767"},
          Row{3, "-32768", {"\x80\x00", 2}, "-32768"},
          Row{4, "-2147483648", {"\x80\x00\x00\x00", 4}, "-2147483648"},
          Row{4, "66051", {"\x00\x01\x02\x03", 4}, "66051"},
          Row{5, "9223372036854775807", "\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "9223372036854775807"},
          Row{5, "-2", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE", "-2"},
          Row{6, "true", "\x38", "true"},
          Row{6, "1", "\x38", "true"},
          Row{6, "FALSE", "\x30", "false"},
          Row{7, "1", {"\x3F\x80\x00\x00", 4}, "1"},
          Row{7, "-INF", {"\xFF\x80\x00\x00", 4}, "-INF"},
          Row{7, "0.1", "\x3D\xCC\xCC\xCD", "0.1"},
          Row{8, "-2.5", {"\xC0\x04\x00\x00\x00\x00\x00\x00", 8}, "-2.5"},
          Row{8, "INF", {"\x7F\xF0\x00\x00\x00\x00\x00\x00", 8}, "INF"},
          Row{9,
              "00112233445566778899aabbccddeeff",
              {"\x00\x11\x22\x33\x44\x55\x66\x77\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF", 16},
              "00112233445566778899AABBCCDDEEFF"}}) {
        CFastInfosetBinaryData data;
        data.SetAsEncodedString(row.algorithm, row.text);
        EXPECT_EQ(Hex(TextOf(data)), Hex(row.octets)) << row.algorithm << ' ' << row.text;
        EXPECT_EQ(data.GetAsString(row.algorithm), row.back) << row.algorithm << ' ' << row.text;
    }
    LocalEncoding const latin1(28591);
    CFastInfosetBinaryData text;
    text.SetAsEncodedString(10, "a\xE9");
    EXPECT_EQ(Hex(TextOf(text)), "61 C3 A9");
    text.SetAsEncodedString(10, nullptr);
    EXPECT_EQ(text.GetLength(), 0U);
}

TEST(EncodedValues, ReadLists) {
    struct Row {
        std::uint32_t algorithm;
        std::string octets;
        char const* text;
    };
    for (Row const& row :
         {Row{3, {"\x00\x01\xFF\xFE", 4}, "1 -2"},
          Row{4, {"\x00\x00\x00\x01\xFF\xFF\xFF\xFE\x00\x00\x00\x03", 12}, "1 -2 3"},
          Row{5, {"\x00\x00\x00\x00\x00\x00\x00\x01\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE", 16}, "1 -2"},
          Row{6, "\x1F", "true true true"}, Row{6, "\x40", ""}, Row{6, "\xF0", ""}, // more than there are
          Row{6, "\x75\x80", "false true false true true"},
          Row{6, {"\x0F\x00", 2}, "true true true true false false false false false false false false"},
          Row{7, {"\x3F\x80\x00\x00\x40\x00\x00\x00", 8}, "1 2"},
          Row{8, {"\x3F\xF0\x00\x00\x00\x00\x00\x00\x7F\xF8\x00\x00\x00\x00\x00\x00", 16}, "1 NaN"},
          Row{9, std::string(16, '\x0A') + std::string(16, '\xFF'),
              "0A0A0A0A0A0A0A0A0A0A0A0A0A0A0A0A FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF"}})
        EXPECT_EQ(DataOf(row.octets).GetAsString(row.algorithm), row.text) << Hex(row.octets);
}

TEST(EncodedValues, TellWhatIsNoValue) {
    struct Row {
        std::uint32_t algorithm;
        std::size_t octets;
        char const* message;
    };
    for (Row const& row :
         {Row{3, 3, "Invalid value for SHORT byte encoding."},
          Row{4, 5, "Invalid value for INT byte encoding."},
          Row{5, 9, "Invalid value for LONG byte encoding."},
          Row{7, 2, "Invalid value for FLOAT byte encoding."},
          Row{8, 4, "Invalid value for DOUBLE byte encoding."},
          Row{9, 15, "Invalid value for UUID byte encoding."}, Row{0, 1, "Unknown byte encoding."},
          Row{10, 1, "Unknown byte encoding."}, Row{11, 1, "Unknown byte encoding."}}) {
        EXPECT_EQ(MessageOf<CZvException>(
                      [&] { DataOf(std::string(row.octets, '\0')).GetAsString(row.algorithm); }),
                  row.message);
        EXPECT_EQ(CFastInfosetBinaryData().GetAsString(row.algorithm), "");
    }
    for (std::uint32_t const algorithm : {0U, 11U})
        EXPECT_EQ(MessageOf<CZvException>([&] { DataOf("x").SetAsEncodedString(algorithm, "x"); }),
                  "Unknown byte encoding.");
    CFastInfosetBinaryData data = DataOf("x");
    EXPECT_EQ(MessageOf<CZvException>([&] { data.SetAsEncodedString(1, "0aF"); }),
              "Invalid length in hex string");
    EXPECT_EQ(MessageOf<CZvException>([&] { data.SetAsEncodedString(9, "0g"); }),
              "Invalid char in hex string [g]");
    EXPECT_EQ(data.GetLength(), 0U);
}

} // namespace
} // namespace ZvXmlLib16
