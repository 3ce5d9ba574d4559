// Every form of an index and of a length at both sides of its boundaries, out and back in.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/fastinfoset/OctetInput.h"
#include "zvxmllib/fastinfoset/OctetOutput.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

std::string Written(void (OctetOutput::*write)(unsigned, std::uint32_t), unsigned current,
                    std::uint32_t value) {
    CBinaryStream sink;
    OctetOutput out(sink);
    (out.*write)(current, value);
    return TextOf(sink.GetData());
}

struct IntegerForm {
    void (OctetOutput::*write)(unsigned, std::uint32_t);
    std::uint32_t (OctetInput::*read)(std::uint8_t);
    unsigned current; // bits in front, all set
};

TEST(WrittenForms, Integers) {
    IntegerForm const bit2{&OctetOutput::WriteIntegerBit2, &OctetInput::ReadInteger2, 0x80};
    IntegerForm const bit3{&OctetOutput::WriteIntegerBit3, &OctetInput::ReadInteger3, 0xC0};
    IntegerForm const bit4{&OctetOutput::WriteIntegerBit4, &OctetInput::ReadInteger4, 0xE0};
    struct Row {
        IntegerForm const& form;
        std::uint32_t value;
        char const* octets;
    };
    for (Row const& row : {Row{bit2, 1, "80"},
                           Row{bit2, 64, "BF"},
                           Row{bit2, 65, "C0 00"},
                           Row{bit2, 8256, "DF FF"},
                           Row{bit2, 8257, "E0 00 00"},
                           Row{bit2, 1048576, "EF DF BF"},
                           Row{bit3, 1, "C0"},
                           Row{bit3, 32, "DF"},
                           Row{bit3, 33, "E0 00"},
                           Row{bit3, 2080, "E7 FF"},
                           Row{bit3, 2081, "E8 00 00"},
                           Row{bit3, 526368, "EF FF FF"},
                           Row{bit3, 526369, "F0 00 00 00"},
                           Row{bit3, 1048576, "F0 07 F7 DF"},
                           Row{bit4, 1, "E0"},
                           Row{bit4, 16, "EF"},
                           Row{bit4, 17, "F0 00"},
                           Row{bit4, 1040, "F3 FF"},
                           Row{bit4, 1041, "F4 00 00"},
                           Row{bit4, 263184, "F7 FF FF"},
                           Row{bit4, 263185, "F8 00 00 00"},
                           Row{bit4, 1048576, "F8 0B FB EF"}}) {
        std::string const octets = Written(row.form.write, row.form.current, row.value);
        EXPECT_EQ(Hex(octets), row.octets) << row.value;
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ((in.*row.form.read)(in.ReadOctet()), row.value) << row.octets;
        EXPECT_EQ(in.GetLeft(), 0U);
    }
}

TEST(WrittenForms, LengthsOfOctetStrings) {
    auto const bit2 = [](OctetOutput& out, unsigned current, std::string_view octets) {
        out.WriteLengthBit2(current, octets.size());
        out.WriteOctets(octets);
    };
    auto const bit5 = [](OctetOutput& out, unsigned current, std::string_view octets) {
        out.WriteOctetsBit5(current, octets);
    };
    auto const bit7 = [](OctetOutput& out, unsigned current, std::string_view octets) {
        out.WriteOctetsBit7(current, octets);
    };
    struct Row {
        void (*write)(OctetOutput&, unsigned, std::string_view);
        std::uint64_t (OctetInput::*read)(std::uint8_t);
        unsigned current; // bits in front, all set
        std::size_t length;
        char const* octets;
    };
    for (Row const& row : {Row{bit2, &OctetInput::ReadLength2, 0x80, 1, "80"},
                           Row{bit2, &OctetInput::ReadLength2, 0x80, 64, "BF"},
                           Row{bit2, &OctetInput::ReadLength2, 0x80, 65, "C0 00"},
                           Row{bit2, &OctetInput::ReadLength2, 0x80, 320, "C0 FF"},
                           Row{bit2, &OctetInput::ReadLength2, 0x80, 321, "E0 00 00 00 00"},
                           Row{bit2, &OctetInput::ReadLength2, 0x80, 70000, "E0 00 01 10 2F"},
                           Row{bit5, &OctetInput::ReadLength5, 0xF0, 1, "F0"},
                           Row{bit5, &OctetInput::ReadLength5, 0xF0, 8, "F7"},
                           Row{bit5, &OctetInput::ReadLength5, 0xF0, 9, "F8 00"},
                           Row{bit5, &OctetInput::ReadLength5, 0xF0, 264, "F8 FF"},
                           Row{bit5, &OctetInput::ReadLength5, 0xF0, 265, "FC 00 00 00 00"},
                           Row{bit5, &OctetInput::ReadLength5, 0xF0, 70000, "FC 00 01 10 67"},
                           Row{bit7, &OctetInput::ReadLength7, 0xFC, 1, "FC"},
                           Row{bit7, &OctetInput::ReadLength7, 0xFC, 2, "FD"},
                           Row{bit7, &OctetInput::ReadLength7, 0xFC, 3, "FE 00"},
                           Row{bit7, &OctetInput::ReadLength7, 0xFC, 258, "FE FF"},
                           Row{bit7, &OctetInput::ReadLength7, 0xFC, 259, "FF 00 00 00 00"},
                           Row{bit7, &OctetInput::ReadLength7, 0xFC, 70000, "FF 00 01 10 6D"}}) {
        std::string const text(row.length, 'x');
        CBinaryStream sink;
        OctetOutput out(sink);
        row.write(out, row.current, text);
        std::string const octets = TextOf(sink.GetData());
        ASSERT_GT(octets.size(), row.length);
        EXPECT_EQ(Hex(octets.substr(0, octets.size() - row.length)), row.octets) << row.length;
        EXPECT_EQ(octets.substr(octets.size() - row.length), text);
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ((in.*row.read)(in.ReadOctet()), row.length) << row.octets;
        EXPECT_EQ(in.GetLeft(), row.length);
    }
}

TEST(WrittenForms, RestrictedAlphabets) {
    std::string longest;
    for (int i = 0; i < 255; ++i)
        longest += static_cast<char>(i);
    struct Row {
        std::string alphabet;
        std::string text;
        char const* octets;
    };
    for (Row const& row :
         {Row{"01234567", "0", "0F"}, Row{"01234567", "07", "07"}, Row{"0123456789abcde", "e0e", "E0 EF"},
          Row{longest, "A\xFE", "41 FE"}, Row{longest.substr(0, 128), "A", "41"}, Row{"01234567", "", ""}}) {
        std::string octets;
        AppendRestrictedAlphabetString(row.alphabet, row.text, octets);
        EXPECT_EQ(Hex(octets), row.octets);
        std::string text;
        AppendRestrictedText(row.alphabet, 1, octets, text);
        EXPECT_EQ(text, row.text);
    }
    struct Failure {
        std::string alphabet;
        char const* message;
    };
    char const* const size =
        "Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain "
        "between 2 and 2^20 characters.";
    char const* const bits =
        "Failed to write FastInfoset. Unsupported Feature in AppendRestrictedAlphabetString.";
    for (Failure const& row :
         {Failure{"", size}, Failure{"0", size}, Failure{std::string((1 << 20) + 1, '0'), size},
          Failure{"01", bits}, Failure{"0123456", bits}, Failure{"0123456789abcdef", bits},
          Failure{std::string(1 << 20, '0'), bits},
          Failure{"12345678",
                  "Failed to write FastInfoset. Invalid character not found for Restricted Alphabet."}}) {
        std::string octets;
        EXPECT_EQ(MessageOf<CZvException>([&] { AppendRestrictedAlphabetString(row.alphabet, "0", octets); }),
                  row.message)
            << row.alphabet.size();
    }
}

} // namespace
} // namespace ZvXmlLib16
