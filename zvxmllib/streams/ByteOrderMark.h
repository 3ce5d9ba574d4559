// The mark at the start of files of 16-bit text. Header only.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"

namespace ZvXmlLib16 {

inline constexpr unsigned char kByteOrderMark[] = {0xFF, 0xFE}; // U+FEFF, low byte first

inline bool HasByteOrderMark(XmlEncoding encoding) noexcept {
    return encoding == XmlEncoding_UTF16 || encoding == XmlEncoding_UTF16NoDeclaration;
}

} // namespace ZvXmlLib16
