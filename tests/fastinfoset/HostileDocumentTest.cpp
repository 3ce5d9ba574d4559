// Documents that are damaged, cut, or made to do harm: an exception of the library, soon and in little
// memory.
#include "Octets.h"

#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

constexpr char const* kEnd = "Failed to parse FastInfoset. Unexpected End of File.";
constexpr char const* kOptionalIndex = "Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 "
                                       "type  on the second bit of an octet.";

std::string FailureOf(std::string const& octets) {
    return MessageOf<CZvException>([&] { Tree(octets); });
}

// Something of everything that the reader knows.
std::string Sample() {
    return Octets("E0 00 00 01 7F 00 00 'u' 00 'd' 12 90 00 'x' 00 00 'p' 00 00 'l' 00 00 'v'"
                  "C1 00 'n' 00 'i' F0 D0 00 'e' 00 's' 80 F0 04 'UTF-8' 00 02 '1.0'"
                  "E1 00 't' 00 'd' C6 00 's' F0 E2 41 'no'"
                  "78 CF 00 'p' 00 'u' CD 81 F0 3F 81 81 03 'root' 7B 81 81 01 'at' 42 'one' 78 80 80 F0"
                  "92 00 'two' A0 3C 00 'b' 95 20 AC 00 88 00 12 F0 40 00 FF FF F0"
                  "3D 81 00 'c' 8C 0E 01 00 00 00 07 C8 00 'e' 8C 06 01 'abcd' FF");
}
constexpr char const* kSampleTree = "0 {u}root\nA {u}at=one\nA {}root=one\nT twotwo\n1 {}b\nT \xE2\x82\xAC\n"
                                    "2 {u}root\nT 12\n2 {u}root\nA {u}at=\n1 {u}c\nT 7YWJjZA==\n";

TEST(FastInfosetReader, TellsWhatIsWrongWithADocument) {
    for (auto const& row : Vectors("fastinfoset.txt", "what is wrong with a document"))
        EXPECT_EQ(FailureOf(Document(Octets(row[0].c_str()))), "Failed to parse FastInfoset. " + row[1])
            << row[0];
    for (char const* item : {"C0", "C4", "CC", "E0", "E3", "FE"})
        EXPECT_EQ(FailureOf(Document(Octets("3C 00 'a'") + Octets(item))),
                  "Failed to parse FastInfoset. Invalid Encoding of Element type.")
            << item;
    EXPECT_EQ(FailureOf(Document(Octets("3C 00 'a' 8C 09 00 00 8C 08 00"))),
              "Invalid value for SHORT byte encoding.");
    for (char const* algorithm : {"3C 00 'a' 8C 28 00", "7C 00 'a' 78 00 'x' 3F F0 00"})
        EXPECT_EQ(FailureOf(Document(Octets(algorithm))), "Unknown byte encoding.") << algorithm;
}

TEST(FastInfosetReader, EndsAtEachPlaceWhereADocumentIsCut) {
    std::string const sample = Sample();
    EXPECT_EQ(Tree(sample), kSampleTree);
    for (std::size_t length = 5; length < sample.size(); ++length)
        EXPECT_THAT(FailureOf(sample.substr(0, length)), testing::AnyOf(kEnd, kOptionalIndex)) << length;
}

TEST(FastInfosetReader, LivesThroughEachChangeOfOneOctet) {
    std::string const sample = Sample();
    int failures = 0;
    for (std::size_t at = 0; at < sample.size(); ++at) {
        for (int change = 1; change < 256; ++change) {
            std::string damaged = sample;
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            std::string const failure = FailureOf(damaged);
            EXPECT_THAT(failure, testing::Not(testing::StartsWith("another class"))) << at << ' ' << change;
            failures += failure != "nothing was thrown";
        }
    }
    EXPECT_GT(failures, 1000);
}

// Each count and each length that a header can claim, in 30 octets.
TEST(FastInfosetReader, BelievesNoCountThatTheInputDoesNotHold) {
    for (char const* header :
         {"40 8F FF FF 00 'u' 60 FF FF FF FF", "20 10 00 60 FF FF FF FF", "20 0F E0 8F FF FF 00 'a'",
          "20 00 1F 8F FF FF 00 'a'", "20 00 03 8F FF FF 03 00 00 00", "10 C3 60 FF FF FF FE",
          "08 D1 60 FF FF FF FE", "04 60 FF FF FF FF 'U'", "01 0C FF FF FF FF '1'"})
        EXPECT_EQ(FailureOf(Octets("E0 00 00 01") + Octets(header)), kEnd) << header;
}

TEST(FastInfosetReader, ReadsAnyDepthWithoutAStack) {
    constexpr std::size_t kLevels = 100'000;
    std::string const start = Document(Octets("3C 00 'a'") + std::string(kLevels - 1, '\0'));
    CXmlDocument document;
    Load(document, start + std::string(kLevels / 2, '\xFF'));
    std::size_t levels = 0;
    for (CXmlElement const* e = document.GetDocumentElement(); e != nullptr; e = e->GetFirstElement())
        ++levels;
    EXPECT_EQ(levels, kLevels);
    EXPECT_EQ(FailureOf(start), kEnd);
}

// One octet can stand for any text: what can be said that way is bounded, and generously.
TEST(FastInfosetReader, BoundsTheTextThatIndicesStandFor) {
    constexpr char const* kTooMuch = "Failed to parse FastInfoset. Too much text from indices.";
    auto const loading = [](std::string const& content) {
        CXmlDocument document;
        return MessageOf<CZvException>([&] { Load(document, Document(content)); });
    };
    auto const chunk = [](std::size_t length) {
        return Octets("3C 00 'a' 93") + BigEndian(length - 259, 4) + std::string(length, 't');
    };
    // A small document may still say 256 MiB, a larger one 1024 times its octets.
    constexpr std::size_t kSmall = 4096;
    constexpr std::size_t kMost = (std::size_t{256} << 20U) / kSmall;
    EXPECT_EQ(loading(chunk(kSmall) + std::string(kMost, '\xA0') + '\xF0'), "nothing was thrown");
    EXPECT_EQ(loading(chunk(kSmall) + std::string(kMost + 1, '\xA0') + '\xF0'), kTooMuch);
    constexpr std::size_t kLarge = 512 * 1024;
    EXPECT_EQ(loading(chunk(kLarge) + std::string(1024, '\xA0') + '\xF0'), "nothing was thrown");
    EXPECT_EQ(loading(chunk(kLarge) + std::string(1100, '\xA0') + '\xF0'), kTooMuch);
    std::string values =
        Octets("7C 00 'a' 78 00 'x' 4C") + BigEndian(kLarge - 265, 4) + std::string(kLarge, 't');
    for (int i = 0; i < 1100; ++i)
        values += Octets("00 80");
    EXPECT_EQ(loading(values + Octets("F0 F0")), kTooMuch);
}

TEST(FastInfosetReader, LeavesADocumentThatCanBeLoadedAgain) {
    CXmlDocument document;
    EXPECT_EQ(MessageOf<CZvException>([&] { Load(document, Document(Octets("3C 00 'a' 3C 00 'b' F0 C0"))); }),
              "Failed to parse FastInfoset. Invalid Encoding of Element type.");
    EXPECT_EQ(TreeText(document), "0 {}a\n1 {}b\n");
    Load(document, Document(Octets("3C 00 'c' FF")));
    EXPECT_EQ(TreeText(document), "0 {}c\n");
}

} // namespace
} // namespace ZvXmlLib16
