// The seam to the library of regular expressions: compile, match, release. One source for each library.
#pragma once

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

// `expression` is UTF-8 and matches from the start of a subject only. Null, with the library's words in
// `error`, for an expression that it does not take.
RegexPtr CompileRegex(std::string const& expression, std::string& error);

// True if the first match takes the whole subject. With `isValidUtf8` the library need not look at that; a
// subject that is no UTF-8 never matches. A match that takes too many steps or too much memory is none.
bool MatchesWhole(CompiledRegex const& regex, std::string_view subject, bool isValidUtf8);

// What bounds a match. Steps are those of backtracking; ordinary patterns take a few for each character.
constexpr unsigned long kMostMatchSteps = 2'000'000;
constexpr std::size_t kMostMatchMemory = std::size_t{8} << 20; // bytes, for the backtracking of one match

} // namespace ZvXmlLib16::detail
