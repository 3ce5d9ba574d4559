// Small documents that say long names again and again by their indices. A program of its own, since it looks
// at the most memory that its process ever held.
#include "Octets.h"

#include "benchmarks/MemoryInUse.h"
#include "tests/support/MessageOf.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

std::string Repeated(std::size_t count, std::string (*item)(std::size_t number)) {
    std::string items;
    for (std::size_t i = 0; i < count; ++i)
        items += item(i);
    return items;
}

std::string LongString(std::size_t length) {
    return Octets("60") + BigEndian(length - 321, 4) + std::string(length, 'n');
}

// Names of three letters.
std::string Distinct(std::size_t number) {
    return Octets("02") + static_cast<char>('a' + number / 676 % 26) +
           static_cast<char>('a' + number / 26 % 26) + static_cast<char>('a' + number % 26);
}

TEST(FastInfosetReader, SharesTheTextsOfNamesThatDocumentsRepeatByIndex) {
    constexpr std::size_t kMost = std::size_t{100} << 20U;
    struct Row {
        char const* what;
        std::string content;
    };
    for (Row const& row :
         {Row{"a URI for each of many prefixes",
              Octets("38 CD") + LongString(100'000) +
                  Repeated(17'000, [](std::size_t i) { return Octets("CF") + Distinct(i) + Octets("81"); }) +
                  Octets("F0 3C 00 'a' FF")},
          Row{"a local name in many namespaces",
              Octets("3C") + LongString(65'000) +
                  Repeated(11'000,
                           [](std::size_t i) { return Octets("3D") + Distinct(i) + Octets("80 F0"); }) +
                  Octets("FF")},
          Row{"many local names in one namespace",
              Octets("3D") + LongString(65'000) + Octets("00 'a'") +
                  Repeated(11'000,
                           [](std::size_t i) { return Octets("3D 81") + Distinct(i) + Octets("F0"); }) +
                  Octets("FF")},
          // Compared as text, these would take minutes.
          Row{"literal names of indices alone",
              Octets("3D") + LongString(1'000'000) + LongString(1'000'000) +
                  Repeated(200'000, [](std::size_t) { return Octets("3D 81 80 F0"); }) + Octets("FF")}}) {
        std::size_t const before = bench::PeakMemory();
        CXmlDocument document;
        Load(document, Document(row.content));
        EXPECT_LT(bench::PeakMemory() - before, kMost) << row.what;
    }
}

// A prefix is looked for as text.
TEST(FastInfosetReader, BoundsThePrefixesThatIndicesStandFor) {
    auto const loading = [](std::size_t count) {
        std::string octets = Octets("38 CE") + LongString(100'000);
        for (std::size_t i = 0; i < count; ++i)
            octets += Octets("CF 81 80");
        CXmlDocument document;
        return MessageOf<CZvException>([&] { Load(document, Document(octets + Octets("F0 3C 00 'a' FF"))); });
    };
    EXPECT_EQ(loading(2'000), "nothing was thrown");
    EXPECT_EQ(loading(3'000), "Failed to parse FastInfoset. Too much text from indices.");
}

} // namespace
} // namespace ZvXmlLib16
