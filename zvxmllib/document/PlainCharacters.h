// The characters of plain XML text: where a run of plain ones ends, references, and which are allowed.
#pragma once

#include "zvxmllib/foundation/ByteSearch.h"

#include <cstddef>
#include <string_view>

namespace ZvXmlLib16 {

// The first character of a text that is markup, or has to be looked at. `end` if there is none.
inline char const* FindPlainTextEnd(char const* at, char const* end) noexcept {
    return detail::PlainBytes<detail::kBreaks, '<', '&', ']'>::FindEnd(at, end);
}
// The same of the value of an attribute, which ends at the quote.
inline char const* FindPlainValueEnd(char const* at, char const* end, char quote) noexcept {
    return quote == '"' ? detail::PlainBytes<0, '"', '<', '&'>::FindEnd(at, end)
                        : detail::PlainBytes<0, '\'', '<', '&'>::FindEnd(at, end);
}

inline char const* SkipBeyondAscii(char const* at, char const* end) noexcept {
    while (at != end && static_cast<unsigned char>(*at) >= 0x80)
        ++at;
    return at;
}

// Behind one white space character, or the two that end a line.
inline char const* PassBreak(char const* at, char const* end) noexcept {
    bool const isReturn = *at++ == '\r';
    return isReturn && at != end && *at == '\n' ? at + 1 : at;
}

struct PlainReference {
    char const* end = nullptr; // null for one that is not known
    char text[4] = {};         // what it stands for, UTF-8
    std::size_t length = 0;
};
// Behind "&": lt, gt, amp, quot, apos, or the number of a character that XML allows.
PlainReference ReadPlainReference(char const* at, char const* end) noexcept;

// Whether the text is well-formed UTF-8 of characters that XML 1.0 allows.
bool AreXmlCharacters(std::string_view text) noexcept;

// Whether a namespace declaration is one about which the parser has no opinion.
bool IsPlainDeclaration(std::string_view prefix, std::string_view uri) noexcept;

} // namespace ZvXmlLib16
