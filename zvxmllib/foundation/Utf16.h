// The library's own conversions between UTF-8 and UTF-16, and from the platform's wide characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Converts UTF-16 to UTF-8 and returns the count of octets. With a null `output` it only counts, and returns
// 0 for text with an unpaired surrogate; otherwise an unpaired surrogate ends the conversion. Output stops
// before a sequence that would not fit.
std::size_t ConvertUtf16ToUtf8(char16_t const* input, std::size_t units, char* output, std::size_t capacity);

// The same into a string, where each unpaired surrogate becomes U+FFFD.
std::string ConvertUtf16ToUtf8(std::u16string_view text);

// UTF-8 to UTF-16; each malformed sequence becomes one U+FFFD.
std::u16string ConvertUtf8ToUtf16(std::string_view utf8);
// The same into `output`, which holds at least as many units as the text has bytes. Returns the units.
std::size_t ConvertUtf8ToUtf16(std::string_view utf8, char16_t* output) noexcept;
// The same as bytes, the low one of each unit first; `output` has room for CountUtf16Units units.
void ConvertUtf8ToUtf16Bytes(std::string_view utf8, unsigned char* output) noexcept;
// The number of units that the conversion gives.
std::size_t CountUtf16Units(std::string_view utf8) noexcept;

// The text with each malformed sequence replaced by U+FFFD.
std::string RepairUtf8(std::string_view utf8);

// True if every byte is below 128.
bool IsAscii(std::string_view text) noexcept;

// True if the text is well-formed UTF-8 (RFC 3629): no overlong forms, no surrogates.
bool IsValidUtf8(std::string_view text) noexcept;

// The first half of a surrogate pair that lacks its other half; the length of the text if there is none.
std::size_t FindHalfSurrogate(std::u16string_view units) noexcept;

// Converts 32-bit wide characters to 16-bit units. Values above U+FFFF become surrogate pairs, surrogate
// values pass unchanged, and values above U+10FFFF become U+FFFD.
std::u16string UnitsFromWide(wchar_t const* text);

} // namespace ZvXmlLib16
