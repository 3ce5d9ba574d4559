// FormatString, DebugTrace and assertions.
#include "zvxmllib/foundation/FormatString.h"
#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/foundation/DebugTrace.h"

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
