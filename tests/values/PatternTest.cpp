// Patterns: their translation, what matches, and what must not run away. Built once with each library.
#include "zvxmllib/values/Pattern.h"

#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/values/CheckPrimitive.h"
#include "zvxmllib/values/PrimitiveRestrictions.h"

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
    struct Row {
        char const* pattern;
        std::string value;
        bool matches;
    };
    for (Row const& row : std::vector<Row>{
             {R"(\d+)", "123", true},
             {R"(\d+)", "123a", false},
             {R"(\d+)", "a123", false},
             {R"(\d+)", "123\n", false},
             {R"(\d+)", "", false},
             {R"(\d+)", std::string("12\0ab", 5), true}, // a value ends at a NUL
             {"", "", true},
             {"a|b", "b", true},
             {"a|ab", "ab", true}, // the end makes it go back and try the other
             {R"(\i\c*)", "a:b-c.d", true},
             {R"(\i\c*)", "_x", true},
             {R"(\i\c*)", "1a", false},
             {R"(\I)", "1", true},
             {R"(\I)", "a", false},
             {R"(\C+)", "!?", true},
             {R"(\C)", "-", false},
             {R"(\\d)", R"(\d)", true}, // two backslashes stand for one that is meant
             {R"(\\d)", "1", false},
             {R"(\\\d)", R"(\1)", true},
             {R"([\c])", ")", true}, // a replacement within a class happens like any other
             {R"(\p{IsBasicLatin}+)", "abc", true},
             {R"(\p{IsBasicLatin}+)", "\xC3\xA9", false},
             {R"(\p{IsLatin-1Supplement}+)", "\xC3\xA9", true},
             {R"(\p{IsLatinExtended-A}+)", "\xC4\x80", true},
             {R"(.)", "\xF0\x9F\x98\x80", true}, // one character, four bytes
             {R"(\w+)", "\xC3\xA9", false},
             {R"((a)(b)(c)(d)(e)(f)(g)(h)\9)", "abcdefghh", true}, // more groups than there is room for
             {R"((a)(b)(c)(d)(e)(f)(g)(h)\9)", "abcdefghg", false},
         })
        EXPECT_EQ(MatchesPattern(row.pattern, row.value), row.matches)
            << row.pattern << " [" << row.value << "]";
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
    ASCIIOnly(true); // bytes that are no UTF-8 match nothing
    EXPECT_FALSE(MatchesPattern(".", "\xE4"));
    ASCIIOnly(false);
}

TEST(Pattern, NeverRunsAway) {
    // Exponential for those who go back and try again.
    std::string const as(40, 'a');
    for (char const* const pattern : {"(a+)+b", "(a|a)*b", "(a|aa)+b", "(a*)*b", "((a?){1,50}){1,50}b"})
        EXPECT_FALSE(MatchesPattern(pattern, as)) << pattern;
    // One frame or more for each character.
    for (std::size_t const length : {10'000U, 1'000'000U}) {
        std::string text;
        while (text.size() < length)
            text += "ab";
        MatchesPattern("(a|b)*", text); // what is beyond a limit is no match
        EXPECT_TRUE(MatchesPattern("[ab]*", text)) << length;
        EXPECT_FALSE(MatchesPattern("([ab]*)*c", text)) << length;
        MatchesPattern("((a|b)(a|b))*", text);
    }
    std::string nested(100'000, '(');
    EXPECT_THROW(MatchesPattern(nested + std::string(100'000, ')'), "a"), CZvException);
}

TEST(Pattern, ManyPatternsOnManyThreads) {
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&wrong, thread] {
            for (int i = 0; i < 2000; ++i) {
                int const number = (i * 7 + thread) % 400; // more than are kept
                std::string const digits = std::to_string(number);
                if (!MatchesPattern("x{" + digits + "}",
                                    std::string(static_cast<std::size_t>(number), 'x')) ||
                    MatchesPattern("x{" + digits + "}", "y"))
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
