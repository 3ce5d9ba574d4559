// Numbered code pages to and from UTF-16.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::platform {

// Code page numbers with a meaning of their own.
inline constexpr std::uint32_t kDefaultCodePage = 0; // the encoding of the user's locale
inline constexpr std::uint32_t kThreadCodePage = 3;  // the same here
inline constexpr std::uint32_t kUtf8CodePage = 65001;

// The page that a number stands for: 0, 3 and unknown numbers give the page of the user's locale, which is
// UTF-8 where the locale names US-ASCII or an unknown encoding. Thread-safe; ask once, not for each text. The
// bytes 0 to 127 of all pages are ASCII, so pure ASCII needs no conversion.
std::uint32_t ResolveCodePage(std::uint32_t codePage) noexcept;

// The name of a resolved page at IANA, where it has one.
std::string GetCodePageName(std::uint32_t codePage);

// The conversions take a resolved page, but not UTF-8, which the library converts itself.

// Malformed input becomes U+FFFD, one for each character.
std::u16string CodePageToUtf16(std::uint32_t codePage, std::string_view text);

// Characters that the page lacks, and unpaired surrogates, each become '?'.
std::string Utf16ToCodePage(std::uint32_t codePage, std::u16string_view text);

// Where the first of these characters stands; the length of the text if there is none.
std::size_t FindNotInCodePage(std::uint32_t codePage, std::u16string_view text);

} // namespace ZvXmlLib16::platform
