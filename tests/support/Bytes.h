// Bytes as text and text as bytes, for tests.
#pragma once

#include "zvxmllib/values/binary/BinaryData.h"

#include <cstdint>
#include <string>

inline std::string TextOf(ZvXmlLib16::CBinaryData const& data) {
    return std::string(data.GetData(), data.GetData() + data.GetLength());
}

inline ZvXmlLib16::CBinaryData DataOf(std::string const& text) {
    ZvXmlLib16::CBinaryData data;
    data.Append(reinterpret_cast<unsigned char const*>(text.data()), static_cast<std::uint32_t>(text.size()));
    return data;
}

// Text of ASCII characters in 16 bits each, low byte first.
inline std::string Utf16(std::string const& ascii) {
    std::string bytes;
    for (char const c : ascii)
        bytes.append(1, c).append(1, '\0');
    return bytes;
}
