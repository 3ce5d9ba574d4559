// Every form of an index and of a length at both sides of its boundaries, out and back in.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
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
    for (auto const& row : Vectors("fastinfoset.txt", "integers: bit, value, octets")) {
        IntegerForm const& form = row[0] == "2" ? bit2 : row[0] == "3" ? bit3 : bit4;
        auto const value = static_cast<std::uint32_t>(std::stoul(row[1]));
        std::string const octets = Written(form.write, form.current, value);
        EXPECT_EQ(Hex(octets), row[2]) << value;
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ((in.*form.read)(in.ReadOctet()), value) << row[2];
        EXPECT_EQ(in.GetLeft(), 0U);
    }
}

TEST(WrittenForms, LengthsOfOctetStrings) {
    for (auto const& row : Vectors("fastinfoset.txt", "lengths: bit, length, octets")) {
        std::size_t const length = std::stoul(row[1]);
        std::string const text(length, 'x');
        CBinaryStream sink;
        OctetOutput out(sink);
        auto read = &OctetInput::ReadLength2; // the bits in front of a length are all set
        if (row[0] == "2") {
            out.WriteLengthBit2(0x80, length);
            out.WriteOctets(text);
        } else if (row[0] == "5") {
            out.WriteOctetsBit5(0xF0, text);
            read = &OctetInput::ReadLength5;
        } else {
            out.WriteOctetsBit7(0xFC, text);
            read = &OctetInput::ReadLength7;
        }
        std::string const octets = TextOf(sink.GetData());
        ASSERT_GT(octets.size(), length);
        EXPECT_EQ(Hex(octets.substr(0, octets.size() - length)), row[2]) << length;
        EXPECT_EQ(octets.substr(octets.size() - length), text);
        OctetInput in(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
        EXPECT_EQ((in.*read)(in.ReadOctet()), length) << row[2];
        EXPECT_EQ(in.GetLeft(), length);
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
