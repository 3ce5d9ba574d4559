// The regular expressions of XML Schema Part 2, appendix F.
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

bool Matches(std::string const& pattern, std::string const& value) {
    return MatchesPattern(pattern, value, ZvXmlLib16::detail::FacetRules::kXmlSchema);
}

TEST(SchemaPattern, MatchesAsTheStandardSays) {
    LocalEncoding const encoding(65001);
    struct Row {
        char const* pattern;
        std::vector<char const*> matches;
        std::vector<char const*> fails;
    };
    for (Row const& row : std::vector<Row>{
             {"", {""}, {"a"}},
             {"a|ab", {"a", "ab"}, {"abc", "", "b"}},
             {"a||b", {"a", "b", ""}, {"ab"}},
             {"(a(b|c)){2}d?", {"abac", "abacd"}, {"ab", "abacdd"}},
             {"x{0}y{2,}z{1,03}", {"yyz", "yyyzzz"}, {"xyyz", "yz", "yyzzzz"}},
             {"^a$", {"^a$"}, {"a"}},
             {"a", {"a"}, {"a\n", "\na"}},
             {"a.b",
              {"a.b", "a b",
               "a\xE2\x82\xAC"
               "b"},
              {"a\nb", "a\rb", "ab"}},
             {R"(\.\\\?\*\+\(\)\{\}\-\[\]\^\|)", {R"(.\?*+(){}-[]^|)"}, {"a"}},
             {R"(\d+)", {"12", "\xD9\xA3"}, {"a"}}, // Arabic-Indic three
             {R"(\w+)", {"a1", "\xC3\xA9", "+"}, {"-", "."}},
             {R"(\W)", {"-", ".", " "}, {"a", "+"}},
             {R"(\s\S)", {" a", "\ta"}, {"aa", "  ", "\va"}},
             {R"(\i\c*)", {"a:b-c.d", "_x", "\xC3\xA9"}, {"1a", "-a"}},
             {R"([\I]\C)", {"1!"}, {"a!", "1a"}},
             {R"(\p{Lu}\P{Lu})", {"Aa"}, {"aa", "AA"}},
             {R"([\p{Sc}]+)", {"\xE2\x82\xAC$"}, {"a"}},
             {R"(\p{IsGreek}\P{IsGreek})",
              {"\xCE\xB1"
               "a"},
              {"\xCE\xB1\xCE\xB1", "aa"}},
             {R"(\p{IsHangulJamoExtended-B}|\P{IsHangulJamoExtended-B})", {"\xED\x9E\xB0", "a"}, {"ab"}},
             {"[a-z-[aeiou]]+", {"bcd"}, {"bad"}},
             {"[^a-c-[x-z-[y]]]", {"d", "y"}, {"a", "x"}},
             {R"([\w-[\d_]]*)", {"ab"}, {"a1"}},
             {"[-a]+[a-]+[^-]", {"-a-b"}, {"---"}},
             {"[a-c--[b]]+", {"a-c"}, {"b"}},
             {"[.*+?(){}|$^,]+", {".*+?(){}|$^,"}, {"a"}},
             {R"([\n-\r\]])", {"]", "\r", "\n"}, {"a", " "}},
             {"[^^]", {"a"}, {"^"}},
             {"[&&a]", {"&"}, {"b"}},
             {"[\\[:alpha:]+", {"[:ahlp"}, {"b"}},
         }) {
        for (char const* const value : row.matches)
            EXPECT_TRUE(Matches(row.pattern, value)) << row.pattern << " against " << value;
        for (char const* const value : row.fails)
            EXPECT_FALSE(Matches(row.pattern, value)) << row.pattern << " against " << value;
    }
}

TEST(SchemaPattern, RefusesWhatIsNoExpression) {
    for (char const* const pattern : {"*a",
                                      "a**",
                                      "a+?",
                                      "a{2}{3}",
                                      "a{",
                                      "a{,3}",
                                      "a{3,2}",
                                      "a{x}",
                                      "a}",
                                      "(a",
                                      "a)",
                                      "(?i)a",
                                      "(?:a)",
                                      "[a",
                                      "[]",
                                      "[^]",
                                      "[a]]",
                                      "[]a]",
                                      "[[a]",
                                      "[a-]b]",
                                      "[z-a]",
                                      "[a-c-e]",
                                      R"([a-\d])",
                                      R"([\d-a])",
                                      "[[a]]",
                                      "[a-[b]c]",
                                      "[-[a]]",
                                      R"(\b)",
                                      R"(\$)",
                                      R"(\1)",
                                      R"(\)",
                                      R"([\)",
                                      R"(\p)",
                                      R"(\p{})",
                                      R"(\p{Xx})",
                                      R"(\p{Cs})",
                                      R"(\p{IsNone})",
                                      R"(\p{IsHighSurrogates})",
                                      R"(\p{L)",
                                      "a\xFF"})
        EXPECT_THAT(MessageOf<CZvException>([&] { Matches(pattern, "a"); }),
                    testing::StartsWith(std::string("Invalid Regular Expression: ") + pattern + " Error: '"))
            << pattern;
    EXPECT_THROW(Matches(std::string(100'000, '('), "a"), CZvException);
    EXPECT_THROW(Matches("a{9999999}", "a"), CZvException); // beyond what the library counts
}

// Ways without number: what goes back gives up, and the other way answers.
TEST(SchemaPattern, ABoundedMatchStillAnswers) {
    EXPECT_FALSE(Matches("([a\\-]+)+[b+]", std::string(200, 'a')));
    EXPECT_TRUE(Matches("([a\\-]+)+", std::string(200, 'a')));
}

} // namespace
