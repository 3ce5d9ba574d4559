// Conversions between UTF-8, UTF-16 and the local character encoding, which all text at the interface is in,
// and the two process-wide settings that control them.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Sets the code page of local text: 65001 is UTF-8, 0 and 3 (the default) the encoding of the user's locale,
// 20127, 28591 and 1250 to 1258 the pages with these numbers. Set it before the library is used.
ZV_API void SetLocalCharEncoding(unsigned int codePage);

// With true, local text and UTF-8 are exchanged unchanged. False at first; set it before the library is used.
ZV_API void ASCIIOnly(bool asciiOnly);

// The present setting.
ZV_API bool IsASCIIOnly() noexcept;

// True if local text is treated as UTF-8: by the ASCII-only switch, or because the local encoding is UTF-8.
// Ask once for a document, not for each text.
ZV_API bool IsLocalTextUtf8() noexcept;

// NUL-terminated UTF-16. Empty data for empty input and for an unpaired surrogate.
ZV_API CBinaryData Utf16ToUtf8(char16_t const* text);

// UTF-8 to local text. Malformed input becomes U+FFFD, characters that the local encoding lacks '?'. Cut at a
// NUL unless ASCII-only is set. The wide work buffer, which may be null, saves an allocation if a code page
// is converted and the buffer holds one unit more than the text has bytes. The local buffer is not used.
ZV_API std::string Utf8ToLocal(char const* utf8, std::size_t length, char16_t* wideBuffer,
                               std::size_t wideCapacity, char* localBuffer, std::size_t localCapacity);
ZV_API std::string Utf8ToLocal(char const* utf8, std::size_t length);
ZV_API std::string Utf8ToLocal(char const* utf8);

// As an XML declaration names the encoding of local text (XML, 4.3.3). Empty for UTF-8.
std::string GetLocalEncodingName();

// The first character of UTF-8, which is well-formed, that local text cannot hold; 0 if it holds them all.
// With ASCII-only that is the first above 127.
char32_t FindCharacterNotLocal(std::string_view utf8);

// Respects the ASCII-only switch.
ZV_API CBinaryData LocalToUtf8(char const* text);
// UTF-16 little-endian without mark and terminator. Ignores the ASCII-only switch.
ZV_API CBinaryData LocalToUtf16(char const* text);
// `count` units. Ignores the ASCII-only switch.
ZV_API std::string Utf16ToLocal(char16_t const* text, std::size_t count);

} // namespace ZvXmlLib16
