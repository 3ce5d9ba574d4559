#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"

#include "zvxmllib/fastinfoset/Failures.h"

namespace ZvXmlLib16 {

namespace {

unsigned PlaceOf(char character, std::string_view alphabet) {
    std::size_t const place = alphabet.find(character);
    if (place == std::string_view::npos)
        FailWrittenCharacter();
    return static_cast<unsigned>(place);
}

} // namespace

void AppendRestrictedText(std::string_view alphabet, std::uint32_t index, std::string_view octets,
                          std::string& text) {
    if (alphabet.size() < kSmallestAlphabet || alphabet.size() > kLargestAlphabet)
        FailReadAlphabetSize();
    unsigned const bits = BitsOfAlphabet(alphabet.size());
    std::uint32_t const ones = (std::uint32_t{1} << bits) - 1;
    std::uint64_t window = 0; // its lowest `available` bits are still to be read
    unsigned available = 0;
    bool isFirstOfOctet = true;
    for (char const c : octets) {
        window = window << 8 | static_cast<unsigned char>(c);
        available += 8;
        for (isFirstOfOctet = true; available >= bits; isFirstOfOctet = false) {
            available -= bits;
            std::uint32_t const place = static_cast<std::uint32_t>(window >> available) & ones;
            // Octets that are filled up are so at their end only; a place of eight bits fills nothing up.
            bool const mayEnd = bits != 8 && (bits != 4 || !isFirstOfOctet);
            if (place == ones && mayEnd)
                return;
            if (place >= alphabet.size())
                FailPlaceInAlphabet(place, index);
            text += alphabet[place];
        }
    }
}

void AppendRestrictedAlphabetString(std::string_view alphabet, std::string_view text, std::string& octets) {
    if (alphabet.size() < kSmallestAlphabet || alphabet.size() > kLargestAlphabet)
        FailWrittenAlphabetSize();
    switch (BitsOfAlphabet(alphabet.size())) {
    case 8:
        for (char const c : text)
            octets += static_cast<char>(PlaceOf(c, alphabet));
        return;
    case 4:
        // Half an octet that is left over is filled with ones.
        for (std::size_t i = 0; i < text.size(); i += 2) {
            unsigned const low = i + 1 == text.size() ? 0xFU : PlaceOf(text[i + 1], alphabet);
            octets += static_cast<char>(PlaceOf(text[i], alphabet) << 4 | low);
        }
        return;
    default:
        FailWrittenAlphabetBits();
    }
}

} // namespace ZvXmlLib16
