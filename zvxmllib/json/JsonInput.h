// JsonInput, JSON text on its way to the parser.
#pragma once

#include "zvxmllib/values/binary/BinaryData.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Holds local text, and what had to be made for it. Texts and bytes that are taken as they are stay the
// caller's, and outlive this.
class JsonInput {
public:
    // UTF-8, with or without a byte order mark, in gzip or zlib form too. Throw CZvException; strict, also
    // for a compressed stream that is cut or damaged.
    static JsonInput OfFile(char const* fileName, bool strict);
    static JsonInput OfBytes(unsigned char const* data, std::size_t length, bool strict);
    // Local text, and wide. Throw CZvException for an empty one.
    static JsonInput OfText(char const* text);
    static JsonInput OfText(wchar_t const* text);
    static JsonInput OfText(char16_t const* text);

    // True if the bytes begin as an object, an array, a string or a comment; of compressed ones, the first
    // 64 KiB of their content.
    static bool IsJson(unsigned char const* data, std::size_t length);

    std::string_view GetText() const noexcept { return m_isMade ? std::string_view(m_made) : m_text; }

private:
    JsonInput() = default;
    void TakeUtf8(unsigned char const* data, std::size_t length, bool strict);

    std::unique_ptr<unsigned char[]> m_file;
    CBinaryData m_decompressed;
    std::string_view m_text; // where it lies
    std::string m_made;      // converted
    bool m_isMade = false;
};

} // namespace ZvXmlLib16
