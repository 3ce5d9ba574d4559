// Hexadecimal text to bytes. Header only.
#pragma once

#include "zvxmllib/values/Failures.h"

#include <cstddef>

namespace ZvXmlLib16 {
namespace detail {

inline unsigned HexValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<unsigned>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<unsigned>(digit - 'A' + 10);
    if (digit >= 'a' && digit <= 'f')
        return static_cast<unsigned>(digit - 'a' + 10);
    FailHexDigit(digit);
}

// Half as many bytes as there are digits, whose number is even.
inline void BytesFromHex(char const* digits, std::size_t count, unsigned char* bytes) {
    for (char const* const end = digits + count; digits != end; digits += 2) {
        unsigned const high = HexValue(digits[0]);
        *bytes++ = static_cast<unsigned char>(high << 4 | HexValue(digits[1]));
    }
}

} // namespace detail
} // namespace ZvXmlLib16
