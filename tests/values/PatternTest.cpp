// Patterns: their translation, what matches, and what must not run away. Built once with each library.
#include "zvxmllib/values/facets/Pattern.h"

#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include <gmock/gmock.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

using namespace ZvXmlLib16;

namespace {

std::string Check(char const* pattern, std::string const& value) {
    CPrimitiveRestrictions facets;
    facets.pattern = pattern;
    return MessageOf<CZvException>([&] { CheckPrimitive("n", value, facets); });
}

TEST(Pattern, MatchesTheWholeValue) {
    LocalEncoding const encoding(65001);
    for (auto const& row : Vectors("patterns.txt", "whole values: pattern, value, whether it matches"))
        EXPECT_EQ(MatchesPattern(row[0], row[1]), row[2] == "true") << row[0] << " [" << row[1] << "]";
}

TEST(Pattern, ThatDoesNotCompileTellsExpressionNameAndValue) {
    EXPECT_THAT(Check("(a", "x"),
                testing::MatchesRegex("Invalid Regular Expression: \\^\\(\\(a\\)\\$ Error: '.+'\n"
                                      "Invalid Value for n \\[x\\]\\."));
    EXPECT_THAT(MessageOf<CZvException>([] { MatchesPattern(R"(\p{IsLatinExtended-B})", "x"); }),
                testing::StartsWith(R"(Invalid Regular Expression: ^([\600-\1117])$ Error: ')"));
    EXPECT_EQ(Check("a", "b"), "Invalid Value for n [b].");
}

TEST(Pattern, IsLocalTextAsTheValueIs) {
    LocalEncoding const encoding(1252);
    EXPECT_EQ(Check("\xE4+", "\xE4\xE4"), "nothing was thrown");
    EXPECT_EQ(Check("..", "\xE4\xE4"), "nothing was thrown");
    EXPECT_EQ(Check("\xE4", "\xF6"), "Invalid Value for n [\xF6].");
    EXPECT_EQ(Check("a*", ""), "nothing was thrown"); // an empty value has no bytes to convert
    CPrimitiveRestrictions facets;
    facets.pattern = "\xC3\xA4"; // two characters here, one in UTF-8
    EXPECT_TRUE(MatchesPattern(facets, "\xC3\xA4"));
    EXPECT_FALSE(MatchesPattern(facets, "\xE4"));
    ASCIIOnly(true); // bytes that are no UTF-8 match nothing
    EXPECT_FALSE(MatchesPattern(".", "\xE4"));
    ASCIIOnly(false);
}

TEST(Pattern, IsTranslatedByReplacementInOrder) {
    // A pattern that does not compile shows what became of it.
    struct Row {
        char const* pattern;
        char const* expression;
    };
    for (Row const& row : {Row{R"((\\i\i\I\c\C)", R"(^((\\i([^\W\d]|:)([\W\d])(\w|\.|-|:)([^\w\.\-\:]))$)"},
                           Row{R"((\\\\i\\\i)", R"(^((\\\\i\\([^\W\d]|:))$)"},
                           Row{R"((\p{IsBasicLatin}\p{IsLatin-1Supplement}\p{IsLatinExtended-A})",
                               R"(^(([\000-\177][\200-\377][\400-\577])$)"},
                           Row{R"(\p{IsLatinExtended-B})", R"(^([\600-\1117])$)"},
                           Row{R"(([\i]()", R"(^(([([^\W\d]|:)]()$)"}, // within a class like anywhere
                           Row{"(\x01", R"(^((\\)$)"}})
        EXPECT_THAT(Check(row.pattern, "x"), testing::StartsWith("Invalid Regular Expression: " +
                                                                 std::string(row.expression) + " Error: '"))
            << row.pattern;
    std::string escapes;
    for (int i = 0; i < 100'000; ++i)
        escapes += R"(\i)";
    EXPECT_THROW(MatchesPattern(escapes, "a"), CZvException); // larger than a library takes
}

TEST(Pattern, OfFacetsIsSeenWhenItChanges) {
    CPrimitiveRestrictions facets;
    auto const matches = [&facets](char const* pattern, std::string const& value) {
        facets.pattern = pattern;
        return MatchesPattern(facets, value);
    };
    EXPECT_TRUE(matches("a+", "aa"));
    EXPECT_FALSE(matches("b+", "aa"));
    EXPECT_TRUE(matches("a+", "aa"));
    CPrimitiveRestrictions copy(facets);
    copy.pattern = "c";
    EXPECT_TRUE(MatchesPattern(copy, "c"));
    facets = copy;
    EXPECT_FALSE(MatchesPattern(facets, "aa"));
    facets.pattern = std::string("c\0(", 3);
    EXPECT_TRUE(MatchesPattern(facets, "c")); // a pattern ends at a NUL
    // The facets of a number keep its bounds; a pattern beside them is compiled all the same.
    CPrimitiveRestrictions both("x", -1, -1, "1", "", "", "", -1, -1, -1);
    CheckPrimitive("n", 1, both);
    EXPECT_TRUE(MatchesPattern(both, "x"));
    EXPECT_THROW(CheckPrimitive("n", 0, both), CZvException);
}

TEST(Pattern, GoesBackWithinLimits) {
    std::string const as = std::string(40, 'a') + '!'; // exponential for those who try all ways
    for (char const* const pattern : {"(a+)+[bc]", "(a|a)*[bc]", "(a|aa)+[bc]", "(a*)*[bc]", "(a?){40}[bc]",
                                      "((a?){1,50}){1,50}[bc]", R"((a+)+[bc]|(b)\2)"})
        EXPECT_FALSE(MatchesPattern(pattern, as)) << pattern;
    struct Row {
        char const* pattern;
        char const* ending;
        bool matches;
    };
    for (std::size_t const length : {10'000U, 1'000'000U}) {
        std::string text;
        while (text.size() < length)
            text += "ab";
        for (Row const& row :
             std::vector<Row>{{"[ab]*", "", true},
                              {"(a|b)*", "", true}, // needs memory for each character to go back
                              {"((a|b)(a|b))*", "", true},
                              {"([ab]{4})*", "", true},
                              {"(a|b)*", "!", false},
                              {"[ab]*[ab]*[cd]", "!", false}, // needs the square of the length
                              {".*.*.*[cd]", "!", false},
                              {"[ab]*[ab]*[cd]", "d", true},
                              {"([ab]*)*[cd]", "!", false},
                              {R"((\w+ ?)*[.])", "!", false}})
            EXPECT_EQ(MatchesPattern(row.pattern, text + row.ending), row.matches)
                << row.pattern << " " << length;
    }
    std::string const nested(100'000, '(');
    EXPECT_THROW(MatchesPattern(nested + std::string(100'000, ')'), "a"), CZvException);
}

TEST(Pattern, BeyondAllLimitsIsNoMatch) {
    std::string const text(1'000'000, 'a');
    EXPECT_FALSE(MatchesPattern(R"((a|(b))*\2?)", text)); // a reference: there is no second way
    EXPECT_FALSE(MatchesPattern("(a|b|\n)*", text + '\n'));
    EXPECT_TRUE(MatchesPattern("(a|b|\n)*", "aba\n"));
}

TEST(Pattern, ManyPatternsOnManyThreads) {
    CPrimitiveRestrictions facets;
    facets.pattern = R"([0-9]{1,3}|x+)";
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&wrong, &facets, thread] {
            for (int i = 0; i < 2000; ++i) {
                int const number = (i * 7 + thread) % 400; // more than are kept
                std::string const digits = std::to_string(number);
                std::string const xs(static_cast<std::size_t>(number), 'x');
                if (!MatchesPattern("x{" + digits + "}", xs) || MatchesPattern("x{" + digits + "}", "y") ||
                    !MatchesPattern(facets, digits) || MatchesPattern(facets, digits + "x"))
                    ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

#ifdef ZV_TEST_PCRE2
TEST(Pattern, IsThatOfTheOtherLibrary) {
    // One library takes what the other refuses: the test is linked with the one that it names.
    EXPECT_TRUE(MatchesPattern(R"(\N{U+41})", "A"));
}
#endif

} // namespace
