// Matches the patterns that are too large for the library of regular expressions.
#pragma once

#include "zvxmllib/values/facets/Regex.h"

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::grammar {

// A machine of states with all repetitions unrolled, which follows all ways at once. The library tests single
// characters. Any number of threads may match.
class PatternMachine {
public:
    // `expression` is what TranslateSchemaPattern makes, or several of those as alternatives in parentheses.
    // Null if it has too many states.
    static std::unique_ptr<PatternMachine> Make(std::string_view expression);

    // Whether the whole text matches. A text that takes too much time does not.
    bool Matches(std::string_view text) const;

private:
    friend class PatternMachineMaker;

    struct CharacterSet {
        std::bitset<128> ascii;
        detail::RegexPtr regex; // of one character
    };
    // Takes a character of the set, and goes on at `next`; without a set, at `next` and `other`.
    struct State {
        std::uint32_t set;
        std::uint32_t next;
        std::uint32_t other;
    };

    std::vector<CharacterSet> m_sets;
    std::vector<State> m_states; // the first is the end
    std::uint32_t m_start = 0;
};

} // namespace ZvXmlLib16::grammar
