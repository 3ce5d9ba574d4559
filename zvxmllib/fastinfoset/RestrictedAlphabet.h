// Text in a restricted alphabet, whose characters are written as their positions in it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// The alphabets that every document has, numbered from 1: for numbers, and for dates and times.
inline constexpr std::array<std::string_view, 2> kRestrictedAlphabets = {"0123456789-+.e ",
                                                                         "0123456789-:TZ "};

// An alphabet has one byte for each character.
inline constexpr std::size_t kSmallestAlphabet = 2;
inline constexpr std::size_t kLargestAlphabet = std::size_t{1} << 20U;

// The bits of one character: one value more than the alphabet needs, since all ones end the text.
constexpr unsigned BitsOfAlphabet(std::size_t characters) noexcept {
    unsigned bits = 2;
    while ((std::size_t{1} << bits) <= characters)
        ++bits;
    return bits;
}

// Appends the text. `index` is the number of the alphabet, for messages. Throws CZvException for an alphabet
// of impossible size and for a place beyond it.
void AppendRestrictedText(std::string_view alphabet, std::uint32_t index, std::string_view octets,
                          std::string& text);

// Appends the octets of the text. Throws CZvException for an alphabet of impossible size or of other than
// four or eight bits, and for a character that is not in it.
void AppendRestrictedAlphabetString(std::string_view alphabet, std::string_view text, std::string& octets);

} // namespace ZvXmlLib16
