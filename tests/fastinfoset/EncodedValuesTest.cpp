// Values under the encoding algorithms.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
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
    for (auto const& row : Vectors("fastinfoset.txt", "values: algorithm, text, octets, text again")) {
        auto const algorithm = static_cast<std::uint32_t>(std::stoul(row[0]));
        CFastInfosetBinaryData data;
        data.SetAsEncodedString(algorithm, row[1].c_str());
        EXPECT_EQ(Hex(TextOf(data)), Hex(row[2])) << algorithm << ' ' << row[1];
        EXPECT_EQ(data.GetAsString(algorithm), row[3]) << algorithm << ' ' << row[1];
    }
    LocalEncoding const latin1(28591);
    CFastInfosetBinaryData text;
    text.SetAsEncodedString(10, "a\xE9");
    EXPECT_EQ(Hex(TextOf(text)), "61 C3 A9");
    text.SetAsEncodedString(10, nullptr);
    EXPECT_EQ(text.GetLength(), 0U);
}

TEST(EncodedValues, ReadLists) {
    for (auto const& row : Vectors("fastinfoset.txt", "lists: algorithm, octets, text"))
        EXPECT_EQ(DataOf(row[1]).GetAsString(static_cast<std::uint32_t>(std::stoul(row[0]))), row[2])
            << Hex(row[1]);
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
