// A pattern, a line feed, a value. The check ends, what was compiled before gives the same answer, and what
// does not compile is what a plain replacement, one text after the other, has made of the pattern.
#include "Fuzz.h"

#include <algorithm>

namespace {

std::string Replaced(std::string text, std::string_view search, std::string_view replacement) {
    for (std::size_t at; (at = text.find(search)) != std::string::npos;)
        text.replace(at, search.size(), replacement);
    return text;
}

std::string Translated(std::string pattern) {
    pattern = Replaced(pattern, R"(\\)", "\x01");
    pattern = Replaced(pattern, R"(\i)", R"(([^\W\d]|:))");
    pattern = Replaced(pattern, R"(\I)", R"(([\W\d]))");
    pattern = Replaced(pattern, R"(\c)", R"((\w|\.|-|:))");
    pattern = Replaced(pattern, R"(\C)", R"(([^\w\.\-\:]))");
    pattern = Replaced(pattern, R"(\p{IsBasicLatin})", R"([\000-\177])");
    pattern = Replaced(pattern, R"(\p{IsLatin-1Supplement})", R"([\200-\377])");
    pattern = Replaced(pattern, R"(\p{IsLatinExtended-A})", R"([\400-\577])");
    pattern = Replaced(pattern, R"(\p{IsLatinExtended-B})", R"([\600-\1117])");
    return Replaced(pattern, "\x01", R"(\\)");
}

bool IsPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c > 0; });
}

// The message, empty if the value passes.
std::string Check(CPrimitiveRestrictions const& facets, std::string const& value) {
    try {
        CheckPrimitive("n", value, facets);
        return "";
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const input(TextOf(data, size));
    std::size_t const end = input.find('\n');
    CPrimitiveRestrictions facets;
    facets.pattern = input.substr(0, end);
    std::string const value = end == std::string::npos ? "" : input.substr(end + 1);
    std::string const first = Check(facets, value);
    Require(Check(facets, value) == first && Check(CPrimitiveRestrictions(facets), value) == first);
    constexpr std::string_view kInvalid = "Invalid Regular Expression: ^(";
    if (IsPlain(facets.pattern) && first.compare(0, kInvalid.size(), kInvalid) == 0)
        Require(first.compare(kInvalid.size(), Translated(facets.pattern).size(),
                              Translated(facets.pattern)) == 0);
    return 0;
}
