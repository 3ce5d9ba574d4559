// CBase64, the base64 form of bytes (RFC 4648 section 4): one line out, lenient in.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// One conversion at a time; belongs to one thread. No pointer may be null.
class ZV_API CBase64 {
public:
    CBase64() noexcept = default;
    virtual ~CBase64();

    // The text with its padding, empty for no bytes.
    std::string Encode(unsigned char const* lpEncoding, std::uint32_t length);
    // Replaces the content of `text` by the same, reusing its memory. Returns `text`.
    std::string& Encode(unsigned char const* lpEncoding, std::uint32_t length, std::string& text);

    // Decodes up to the NUL into `lpOutput`, which holds at least as many bytes as the text has characters,
    // and returns the count. The low seven bits of each character count; blank, tab, line feed, carriage
    // return and '=' are skipped; any other character outside the alphabet gives 0. Left-over bits are
    // dropped.
    std::uint32_t Decode(char const* szDecoding, unsigned char* lpOutput);
};

} // namespace ZvXmlLib16
