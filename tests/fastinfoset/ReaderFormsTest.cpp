// Lengths of X.891 Annex C and the packings of restricted alphabets, on their way in.
#include "Octets.h"

#include "tests/support/MessageOf.h"
#include "zvxmllib/fastinfoset/OctetInput.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

// What the writer never makes, or nobody waits for.
TEST(OctetInput, ReadsTheGreatestLengthsWithoutLosingBits) {
    struct Row {
        std::uint64_t (OctetInput::*read)(std::uint8_t);
        char const* octets; // with the bits ahead of the length set
        std::uint64_t length;
    };
    for (Row const& row : {Row{&OctetInput::ReadLength2, "E0 FF FF FF FF", 0xFFFFFFFFULL + 321},
                           Row{&OctetInput::ReadLength5, "FC FF FF FF FF", 0xFFFFFFFFULL + 265},
                           Row{&OctetInput::ReadLength7, "FF FF FF FF FF", 0xFFFFFFFFULL + 259}}) {
        std::string const octets = Octets(row.octets);
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ((in.*row.read)(in.ReadOctet()), row.length) << row.octets;
    }
    for (auto const& [notation, length] : {std::pair("00", 1U), std::pair("7F", 128U),
                                           std::pair("80 00 00", 129U), std::pair("8F FF FF", 1048704U)}) {
        std::string const octets = Octets(notation);
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ(in.ReadSequenceLength(), length) << notation;
        EXPECT_EQ(in.GetLeft(), 0U);
    }
}

TEST(RestrictedAlphabet, IsReadInAsManyBitsAsItNeedsAndOneValueMore) {
    std::string const digits = "0123456789-+.e ";
    std::string bytes; // places 0 to 254
    for (int c = 0; c < 255; ++c)
        bytes += static_cast<char>(c);
    std::string const wide(300, 'w');
    struct Row {
        std::string alphabet;
        char const* octets;
        std::string text;
    };
    for (Row const& row : {Row{digits, "12 3F", "123"}, Row{digits, "C5 EE", ".5  "},
                           Row{digits, "1F 23", "1"},              // what stands behind the end is none of it
                           Row{"ab", "11 1F", "ababab"},           // two bits: 00 01 00 01, 00 01 11
                           Row{"abcd", "05 3F", "abcd"},           // three bits: 000 001 010 011, 111
                           Row{"0123456789ABCDEF", "0A 7F", "19"}, // five bits: 00001 01001, 11111
                           Row{bytes, "41 42 FE", std::string("AB") + '\xFE'},
                           Row{wide, "00 00 3F", "ww"}, // nine bits: two characters, then filled up
                           Row{wide, "00 7F FF", "w"}}) {
        std::string text;
        AppendRestrictedText(row.alphabet, 1, Octets(row.octets), text);
        EXPECT_EQ(text, row.text) << row.octets;
    }
}

TEST(RestrictedAlphabet, RefusesPlacesBeyondItAndImpossibleSizes) {
    struct Row {
        std::string alphabet;
        char const* octets;
        char const* message;
    };
    constexpr char const* kSize =
        "Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Alphabet "
        "must contain between 2 and 2^20 characters.";
    for (Row const& row :
         {Row{"0123456789", "1A",
              "Failed to parse FastInfoset. Character [10] is beyond the Restricted Alphabet [7]."},
          Row{std::string(200, 'x'), "FF",
              "Failed to parse FastInfoset. Character [255] is beyond the Restricted Alphabet [7]."},
          Row{"", "00", kSize}, Row{"x", "00", kSize}, Row{std::string((1U << 20U) + 1, 'x'), "00", kSize}}) {
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      std::string text;
                      AppendRestrictedText(row.alphabet, 7, Octets(row.octets), text);
                  }),
                  row.message);
    }
}

} // namespace
} // namespace ZvXmlLib16
