// JsonInput, JSON text on its way to the parser.
#pragma once

#include "zvxmllib/values/binary/BinaryData.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Holds local text, or UTF-8 for strict reading, and any conversion made for it. Texts and bytes used
// unchanged are borrowed and must outlive this object.
class JsonInput {
public:
    // UTF-8, with or without a byte order mark, in gzip or zlib form too. Throw CZvException; strict, also
    // for a compressed stream that is cut or damaged.
    static JsonInput OfFile(char const* fileName, bool strict);
    static JsonInput OfBytes(unsigned char const* data, std::size_t length, bool strict);
    // Local and wide text. They throw CZvException for an empty one.
    static JsonInput OfText(char const* text, bool strict);
    static JsonInput OfText(wchar_t const* text, bool strict);
    static JsonInput OfText(char16_t const* text, bool strict);

    // True if the bytes begin like an object, an array, a string or a comment. Of compressed bytes the first
    // 64 KiB of the content are tested.
    static bool IsJson(unsigned char const* data, std::size_t length);

    std::string_view GetText() const noexcept { return m_isMade ? std::string_view(m_made) : m_text; }

private:
    JsonInput() = default;
    void TakeUtf8(unsigned char const* data, std::size_t length, bool strict);

    std::unique_ptr<unsigned char[]> m_file;
    CBinaryData m_decompressed;
    std::string_view m_text; // borrowed, or m_made
    std::string m_made;      // converted
    bool m_isMade = false;
};

} // namespace ZvXmlLib16
