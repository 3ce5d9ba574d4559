// Decodes base64 from any piece of text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZvXmlLib16::detail {

// At least the number of bytes in this many characters.
constexpr std::size_t RoomForBase64(std::size_t characters) {
    return (characters / 4 + 1) * 3;
}

// Like CBase64::Decode, up to the end of the text or a NUL.
std::uint32_t DecodeBase64(std::string_view text, unsigned char* out);

} // namespace ZvXmlLib16::detail
