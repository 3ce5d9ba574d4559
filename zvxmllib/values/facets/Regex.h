// The interface to the regular expression library: compile, match, release. One source for each library.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {

// A compiled expression. Threads may share it for matching.
struct CompiledRegex;

struct ReleaseRegex {
    ZV_API void operator()(CompiledRegex* regex) const noexcept;
};
using RegexPtr = std::unique_ptr<CompiledRegex, ReleaseRegex>;

// `expression` is UTF-8, ends at a NUL and matches from the start of a subject only. Returns null, with the
// library's message in `error`, for an expression that it refuses.
ZV_API RegexPtr CompileRegex(std::string const& expression, std::string& error);

// True if the first match takes the whole subject. `isValidUtf8` spares the library that test; a subject that
// is not UTF-8 never matches. A match beyond the limits below fails.
ZV_API bool MatchesWhole(CompiledRegex const& regex, std::string_view subject, bool isValidUtf8);

// The limits of a match. The libraries first match by backtracking. One step may read the whole subject, so a
// long subject gets fewer steps. If they are not enough, the libraries use a second algorithm, which follows
// all alternatives at once, character by character. Its cost grows with the number of alternatives, each of
// which may be compared with every other.
unsigned long MostSteps(std::size_t length) noexcept;
std::size_t MostWays(std::size_t length) noexcept;
constexpr std::size_t kMostMatchMemory = std::size_t{8} << 20; // bytes, for backtracking in one match

// False for what the second algorithm cannot do within bounds: references, recursion, conditions, possessive
// quantifiers. No pattern of XML Schema has them.
bool IsMatchedAllWays(std::string_view expression) noexcept;

// In a subject that ends in a line feed, `$` also matches before that line feed, and the two algorithms
// differ in which place they try first.
bool HasOneEnd(std::string_view subject) noexcept;

// The workspace of the second algorithm: this many ints for each alternative, and two sets of them.
constexpr std::size_t WordsOfWays(std::size_t ways) noexcept {
    return 2 + 2 * 3 * ways;
}

} // namespace ZvXmlLib16::detail
