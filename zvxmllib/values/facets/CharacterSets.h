// Sets of characters that have a name in the regular expressions of XML Schema.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {

// Code points, both ends included.
struct CharacterRange {
    std::uint32_t first;
    std::uint32_t last;
};
// In order, apart from each other.
using CharacterSet = std::vector<CharacterRange>;

// No text has it. The blocks of surrogates have nothing else.
constexpr std::uint32_t kNoCharacter = 0xFFFF;

// A block of Unicode, by its name without blanks: "BasicLatin". Empty for a name that no block has.
CharacterSet BlockOf(std::string_view name);

} // namespace ZvXmlLib16::detail
