// The numbers of X.891 Annex C and the packings of restricted alphabets, on their way in.
#include "Octets.h"

#include "tests/support/MessageOf.h"
#include "zvxmllib/fastinfoset/OctetInput.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

struct Number {
    char const* octets;
    std::uint64_t value;
};

// The octets, with the bits in front of the number set to `ahead`, give the value and nothing is left.
template <class Read>
void ExpectNumbers(std::initializer_list<Number> numbers, std::uint8_t ahead, Read read) {
    for (Number const& number : numbers) {
        std::string octets = Octets(number.octets);
        octets[0] = static_cast<char>(octets[0] | ahead);
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        std::uint8_t const first = in.ReadOctet();
        EXPECT_EQ((in.*read)(first), number.value) << number.octets;
        EXPECT_EQ(in.GetLeft(), 0u) << number.octets;
    }
}

TEST(OctetInput, ReadsIntegersOfEachFormWhereverTheyBegin) {
    ExpectNumbers(
        {{"00", 1}, {"3F", 64}, {"40 00", 65}, {"5F FF", 8256}, {"60 00 00", 8257}, {"6F DF BF", 1048576}},
        0x80, &OctetInput::ReadInteger2);
    ExpectNumbers({{"00", 1},
                   {"1F", 32},
                   {"20 00", 33},
                   {"27 FF", 2080},
                   {"28 00 00", 2081},
                   {"2F FF FF", 526368},
                   {"30 00 00 00", 526369},
                   {"30 07 F7 DF", 1048576}},
                  0xC0, &OctetInput::ReadInteger3);
    ExpectNumbers({{"00", 1},
                   {"0F", 16},
                   {"10 00", 17},
                   {"13 FF", 1040},
                   {"14 00 00", 1041},
                   {"17 FF FF", 263184},
                   {"18 00 00 00", 263185},
                   {"18 0B FB EF", 1048576}},
                  0xE0, &OctetInput::ReadInteger4);
}

TEST(OctetInput, ReadsLengthsOfEachFormWithoutLosingBits) {
    ExpectNumbers({{"00", 1},
                   {"3F", 64},
                   {"40 00", 65},
                   {"40 FF", 320},
                   {"60 00 00 00 00", 321},
                   {"60 FF FF FF FF", 0xFFFFFFFFULL + 321}},
                  0x80, &OctetInput::ReadLength2);
    ExpectNumbers({{"00", 1},
                   {"07", 8},
                   {"08 00", 9},
                   {"08 FF", 264},
                   {"0C 00 00 00 00", 265},
                   {"0C FF FF FF FF", 0xFFFFFFFFULL + 265}},
                  0xF0, &OctetInput::ReadLength5);
    ExpectNumbers({{"00", 1},
                   {"01", 2},
                   {"02 00", 3},
                   {"02 FF", 258},
                   {"03 00 00 00 00", 259},
                   {"03 FF FF FF FF", 0xFFFFFFFFULL + 259}},
                  0xFC, &OctetInput::ReadLength7);
    for (Number const& number :
         {Number{"00", 1}, Number{"7F", 128}, Number{"80 00 00", 129}, Number{"8F FF FF", 1048704}}) {
        std::string const octets = Octets(number.octets);
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ(in.ReadSequenceLength(), number.value) << number.octets;
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
    for (Row const& row : {
             Row{digits, "12 3F", "123"},
             Row{digits, "C5 EE", ".5  "},
             Row{digits, "1F 23", "1"},              // what stands behind the end is none of it
             Row{"ab", "11 1F", "ababab"},           // two bits: 00 01 00 01, 00 01 11
             Row{"abcd", "05 3F", "abcd"},           // three bits: 000 001 010 011, 111
             Row{"0123456789ABCDEF", "0A 7F", "19"}, // five bits: 00001 01001, 11111
             Row{bytes, "41 42 FE", std::string("AB") + '\xFE'},
             Row{wide, "00 00 3F", "ww"}, // nine bits: two characters, then filled up
             Row{wide, "00 7F FF", "w"},
         }) {
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
    for (Row const& row : {
             Row{"0123456789-+.e ", "F1",
                 "Failed to parse FastInfoset. Character [15] is beyond the Restricted Alphabet [7]."},
             Row{"0123456789", "1A",
                 "Failed to parse FastInfoset. Character [10] is beyond the Restricted Alphabet [7]."},
             Row{std::string(200, 'x'), "FF",
                 "Failed to parse FastInfoset. Character [255] is beyond the Restricted Alphabet [7]."},
             Row{"", "00", kSize},
             Row{"x", "00", kSize},
             Row{std::string((1U << 20U) + 1, 'x'), "00", kSize},
         }) {
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      std::string text;
                      AppendRestrictedText(row.alphabet, 7, Octets(row.octets), text);
                  }),
                  row.message);
    }
}

} // namespace
} // namespace ZvXmlLib16
