// CBinaryData, the byte buffer: a handle on a shared block with copy-on-write.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

class CBinaryDataBuffer;

// The value of hexBinary and base64Binary (XML Schema Part 2, 3.2.15 and 3.2.16), the result of writing
// to a stream and the input of reading from one. Several threads may hold handles on one block; one handle
// belongs to one thread. Lengths are in bytes; a length beyond 32 bits throws std::bad_alloc.
class ZV_API CBinaryData {
public:
    CBinaryData() noexcept = default;
    CBinaryData(CBinaryData const& other) noexcept;
    CBinaryData(CBinaryData&& other) noexcept;
    // With `takeOwnership` this object owns the data, allocated by new unsigned char[], even if the
    // constructor throws; otherwise the data is copied.
    CBinaryData(unsigned char* const data, std::uint32_t length, bool takeOwnership);
    // Copies up to the NUL; null counts as empty.
    CBinaryData(char const* text);
    virtual ~CBinaryData();

    CBinaryData& operator=(CBinaryData const& other) noexcept;
    CBinaryData& operator=(CBinaryData&& other) noexcept;

    // Makes it empty.
    void Clear() noexcept;
    // Null when empty. Valid until this handle changes.
    unsigned char const* GetData() const noexcept;
    std::uint32_t GetLength() const noexcept;
    // Moves the bytes out as an array that the caller frees by delete[]; null when empty. The data is empty
    // afterwards.
    unsigned char* ReleaseData();

    // Add bytes at the end.
    void Append(unsigned char byte);
    void Append(char byte);
    void Append(unsigned char const* bytes, std::uint32_t length);
    // Up to the first NUL.
    void Append(char const* text);
    void Append(std::string const& text);
    void Append(CBinaryData const& data);
    // Makes room for `length` bytes in all, so that appending up to it allocates nothing.
    void Reserve(std::uint32_t length);
    // To build bytes in place: the first gives `room` bytes after the data, at least `least`, valid until the
    // data is used in another way; the second adds as many of them to the data.
    unsigned char* BeginAppend(std::uint32_t least, std::uint32_t& room);
    void EndAppend(std::uint32_t length) noexcept;

    // Replace the content by a copy of these bytes, or of the text up to its NUL; null counts as empty.
    void SetBuffer(unsigned char const* bytes, std::uint32_t length);
    void SetBuffer(char const* text);

    // RFC 4648 section 4, on one line. Reading skips white space and '=', and any other character outside
    // the alphabet makes the data empty.
    std::string GetAsBase64() const;
    void SetAsBase64(char const* text);
    // Two upper-case digits per byte. Reading throws CZvException for an odd length or a bad digit, and then
    // leaves the data empty.
    std::string GetAsHexString() const;
    void SetAsHexString(char const* text);
    static std::string GetAsHexString(unsigned char const* bytes, std::uint32_t length);
    // The same texts, stored in `text`, whose memory is reused. They return `text`.
    std::string& PrintBase64(std::string& text) const;
    std::string& PrintHex(std::string& text) const;

    // By length and bytes.
    bool operator==(CBinaryData const& other) const noexcept;
    bool operator!=(CBinaryData const& other) const noexcept;

    // Throw CZvException for an index out of range. The second form makes the block private first.
    unsigned char const& operator[](std::uint32_t index) const;
    unsigned char& operator[](std::uint32_t index);

protected:
    // Stores a new array owned by the caller, null for an empty text, and returns its length.
    static std::uint32_t ConvertToHexData(char const* text, unsigned char** data);

private:
    void MakePrivate();
    void Swap(CBinaryData& other) noexcept;

    CBinaryDataBuffer* m_buffer = nullptr; // of length zero only until the first Append
};

} // namespace ZvXmlLib16
