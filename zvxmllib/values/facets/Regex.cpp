// What bounds the matching of regular expressions, with either library.
#include "zvxmllib/values/facets/Regex.h"

#include <algorithm>
#include <cmath>

namespace ZvXmlLib16::detail {

namespace {

// In all, in characters looked at: some seconds at worst, on any machine.
constexpr std::size_t kMostWork = 1'000'000'000;

} // namespace

unsigned long MostSteps(std::size_t length) noexcept {
    constexpr std::size_t kFewest = 16;
    constexpr std::size_t kMost = 2'000'000;
    return std::clamp(kMostWork / (length + 1), kFewest, kMost);
}

std::size_t MostWays(std::size_t length) noexcept {
    constexpr std::size_t kFewest = 8;
    constexpr std::size_t kMost = 500;
    double const ways = std::sqrt(static_cast<double>(kMostWork) / static_cast<double>(length + 1));
    return std::clamp(static_cast<std::size_t>(ways), kFewest, kMost);
}

// Refuses too much rather than too little: the signs may stand in a class, or behind a backslash.
bool IsMatchedAllWays(std::string_view expression) noexcept {
    for (char const* const sign : {"(?", "(*", "\\g", "\\k", "\\K", "*+", "++", "?+", "}+"}) {
        if (expression.find(sign) != std::string_view::npos)
            return false;
    }
    return true;
}

bool HasOneEnd(std::string_view subject) noexcept {
    return subject.empty() || subject.back() != '\n';
}

} // namespace ZvXmlLib16::detail
