// FormatString, DebugTrace and assertions.
#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/FormatString.h"

#include <gmock/gmock.h>

#include <cfloat>
#include <climits>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

TEST(FormatString, ReturnsTextOfAnyLengthWhole) {
    for (std::size_t length : {0U, 1U, 510U, 511U, 512U, 513U, 100000U}) {
        std::string const text(length, 'x');
        EXPECT_EQ(FormatString("%s", text.c_str()), text);
        EXPECT_EQ(FormatString("<%s|%d>", text.c_str(), 7), "<" + text + "|7>");
    }
}

TEST(FormatString, PrintsAsTheRuntimeDoes) {
    char const* const volatile null = nullptr; // else the compiler sees it
    struct Row {
        std::string printed;
        std::string expected;
    };
    for (Row const& row : {
             Row{FormatString("100%% of %s", "it"), "100% of it"},
             Row{FormatString("[%s]", null), "[(null)]"},
             Row{FormatString("[%5d|%-5d|%05d|%+d]", 42, 42, 42, 42), "[   42|42   |00042|+42]"},
             Row{FormatString("[%*d|%.*s]", 4, 7, 2, "abc"), "[   7|ab]"},
             Row{FormatString("%#x %08X %o", 255U, 13U, 8U), "0xff 0000000D 10"},
             Row{FormatString("%lld %llu", LLONG_MIN, ULLONG_MAX),
                 "-9223372036854775808 18446744073709551615"},
             Row{FormatString("%c%c", 'a', 'b'), "ab"},
             Row{FormatString("%.7g %.16g", 0.1, 0.1), "0.1 0.1"},
             Row{FormatString("%.3f", -2.5), "-2.500"},
         })
        EXPECT_EQ(row.printed, row.expected);
    EXPECT_EQ(FormatString("%.400f", DBL_MAX).size(), 309U + 1U + 400U);
}

std::vector<std::string> traced;
void Collect(char const* text) {
    traced.emplace_back(text);
}

// The pieces in which a text of this length arrives at the sink.
std::vector<std::size_t> PiecesOf(std::size_t length) {
    DebugTraceSink const before = SetDebugTraceSink(&Collect);
    traced.clear();
    std::string const text(length, 't');
    DebugTrace("%s", text.c_str());
    SetDebugTraceSink(before);
    std::vector<std::size_t> sizes;
    for (std::string const& piece : traced) {
        EXPECT_EQ(piece, std::string(piece.size(), 't'));
        sizes.push_back(piece.size());
    }
    return sizes;
}

TEST(DebugTrace, HandsThePiecesToTheSink) {
    using testing::ElementsAre;
    EXPECT_THAT(PiecesOf(0), ElementsAre());
    EXPECT_THAT(PiecesOf(1), ElementsAre(1));
    EXPECT_THAT(PiecesOf(128), ElementsAre(128));
    EXPECT_THAT(PiecesOf(300), ElementsAre(128, 128, 44));
}

TEST(DebugTrace, CutsTextBeyondItsBuffer) {
    std::size_t total = 0;
    for (std::size_t const size : PiecesOf(50000))
        total += size;
    EXPECT_EQ(total, 32767U);
}

TEST(DebugTrace, IsSilentWithoutASink) {
    DebugTraceSink const before = SetDebugTraceSink(&Collect);
    traced.clear();
    EXPECT_TRUE(IsDebugTraceEnabled());
    EXPECT_EQ(SetDebugTraceSink(nullptr), &Collect);
    EXPECT_FALSE(IsDebugTraceEnabled());
    DebugTrace("nobody hears %d", 1);
    EXPECT_TRUE(traced.empty());
    SetDebugTraceSink(before);
}

TEST(AssertionDeathTest, WritesItsTextAndAborts) {
    EXPECT_EXIT(detail::FailAssertion("a == b", "File.cpp", 12), testing::KilledBySignal(SIGABRT),
                "File.cpp:12: assertion failed: a == b");
}

} // namespace
