// The seam to the library of regular expressions: compile, match, release. One source for each library.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {

// A compiled expression. Any number of threads may match with one at once.
struct CompiledRegex;

struct ReleaseRegex {
    void operator()(CompiledRegex* regex) const noexcept;
};
using RegexPtr = std::unique_ptr<CompiledRegex, ReleaseRegex>;

// `expression` is UTF-8, ends at a NUL and matches from the start of a subject only. Null, with the library's
// words in `error`, for an expression that it does not take.
RegexPtr CompileRegex(std::string const& expression, std::string& error);

// True if the first match takes the whole subject. With `isValidUtf8` the library need not look at that; a
// subject that is no UTF-8 never matches. A match that takes too much, by the limits below, is none.
bool MatchesWhole(CompiledRegex const& regex, std::string_view subject, bool isValidUtf8);

// What bounds a match. The libraries first match by going back and trying the other way. That takes steps;
// one may look at the whole subject, so a long one has fewer. Where they do not suffice, the libraries match
// in a second way, which follows all ways at once, character by character. There what grows is the number of
// ways, each of which may be compared with each other one.
unsigned long MostSteps(std::size_t length) noexcept;
std::size_t MostWays(std::size_t length) noexcept;
constexpr std::size_t kMostMatchMemory = std::size_t{8} << 20; // bytes, for going back in one match

// False for what the second way cannot do, or not in bounds: references, recursion, conditions, possessive
// quantifiers. No pattern of XML Schema has them.
bool IsMatchedAllWays(std::string_view expression) noexcept;

// Before a line feed at its end, a subject has a second place where `$` matches, and it depends on the way
// which of them the first match takes.
bool HasOneEnd(std::string_view subject) noexcept;

// What the libraries want for the second way: so many words of `int` for each way, and two sets of them.
constexpr std::size_t WordsOfWays(std::size_t ways) noexcept {
    return 2 + 2 * 3 * ways;
}

} // namespace ZvXmlLib16::detail
