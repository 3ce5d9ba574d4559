// CBinaryData, the byte buffer: a handle on a shared block with copy-on-write.
#include "zvxmllib/values/binary/BinaryData.h"

#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/binary/Base64.h"
#include "zvxmllib/values/binary/Base64Text.h"
#include "zvxmllib/values/binary/CheckedSize.h"
#include "zvxmllib/values/binary/HexText.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace ZvXmlLib16 {

namespace {

constexpr std::uint32_t kSmallestRoom = 8192;
constexpr char kHexDigits[] = "0123456789ABCDEF";

std::uint32_t TextLength(char const* text) {
    return text != nullptr ? detail::CheckedLength(std::strlen(text)) : 0;
}

unsigned char const* TextBytes(char const* text) {
    return reinterpret_cast<unsigned char const*>(text);
}

std::uint32_t Doubled(std::uint32_t length) {
    constexpr std::uint32_t kGreatest = std::numeric_limits<std::uint32_t>::max();
    return length > kGreatest / 2 ? kGreatest : length * 2;
}

std::string& WriteHex(unsigned char const* bytes, std::uint32_t length, std::string& text) {
    if (bytes == nullptr)
        length = 0;
    text.resize(detail::CheckedSize(std::uint64_t{length} * 2));
    char* out = text.data();
    for (std::uint32_t i = 0; i < length; ++i) {
        *out++ = kHexDigits[bytes[i] >> 4];
        *out++ = kHexDigits[bytes[i] & 0xF];
    }
    return text;
}

} // namespace

// The bytes that handles share. Only their sole owner changes them.
class CBinaryDataBuffer {
public:
    // Adopts an array of this length.
    CBinaryDataBuffer(std::unique_ptr<unsigned char[]> data, std::uint32_t length) noexcept
        : m_lpData(std::move(data)), m_dwLen(length), m_dwBufferLen(length) {}

    // Copies.
    CBinaryDataBuffer(unsigned char const* bytes, std::uint32_t length)
        : CBinaryDataBuffer(bytes, length, std::max(Doubled(length), kSmallestRoom)) {}

    CBinaryDataBuffer(unsigned char const* bytes, std::uint32_t length, std::uint32_t room)
        : m_lpData(new unsigned char[room]), m_dwLen(length), m_dwBufferLen(room) {
        if (length > 0)
            std::memcpy(m_lpData.get(), bytes, length);
    }

    unsigned char* Data() const noexcept { return m_dwLen > 0 ? m_lpData.get() : nullptr; }
    std::uint32_t Length() const noexcept { return m_dwLen; }

    void AddHolder() noexcept { m_refCount.fetch_add(1, std::memory_order_relaxed); }
    bool IsShared() const noexcept { return m_refCount.load(std::memory_order_acquire) > 1; }

    // Drops one reference.
    static void Release(CBinaryDataBuffer* buffer) noexcept {
        if (buffer != nullptr && buffer->m_refCount.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete buffer;
    }

    // Drops the only reference, but keeps the array. The test fails only if one handle is misused by two
    // threads.
    static unsigned char* ReleaseArray(CBinaryDataBuffer* buffer) {
        std::uint32_t const m_refCount = buffer->m_refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
        ZV_ASSERT(m_refCount == 0);
        if (m_refCount > 0)
            FailReleaseSharedData(m_refCount);
        std::unique_ptr<CBinaryDataBuffer> const last(buffer);
        return last->m_lpData.release();
    }

    // `bytes` may lie in this block.
    void Append(unsigned char const* bytes, std::uint32_t length) {
        ZV_ASSERT(m_refCount == 1);
        if (IsShared())
            FailAppendToSharedData(m_refCount);
        std::uint32_t const newLength = detail::CheckedLength(std::uint64_t{m_dwLen} + length);
        std::unique_ptr<unsigned char[]> old;
        if (newLength > m_dwBufferLen)
            old = MoveTo(Doubled(newLength));
        std::memcpy(m_lpData.get() + m_dwLen, bytes, length);
        m_dwLen = newLength;
    }

    unsigned char* BeginAppend(std::uint32_t least, std::uint32_t& room) {
        std::uint32_t const needed = detail::CheckedLength(std::uint64_t{m_dwLen} + least);
        if (needed > m_dwBufferLen)
            MoveTo(Doubled(needed));
        room = m_dwBufferLen - m_dwLen;
        return m_lpData.get() + m_dwLen;
    }
    void EndAppend(std::uint32_t length) noexcept { m_dwLen += length; }

    void Reserve(std::uint32_t room) {
        if (room > m_dwBufferLen)
            MoveTo(room);
    }

private:
    // Returns the old array.
    std::unique_ptr<unsigned char[]> MoveTo(std::uint32_t room) {
        std::unique_ptr<unsigned char[]> larger(new unsigned char[room]);
        std::memcpy(larger.get(), m_lpData.get(), m_dwLen);
        m_lpData.swap(larger);
        m_dwBufferLen = room;
        return larger;
    }

    std::unique_ptr<unsigned char[]> m_lpData;
    std::uint32_t m_dwLen;
    std::uint32_t m_dwBufferLen;
    std::atomic<std::uint32_t> m_refCount{1};
};

CBinaryData::CBinaryData(CBinaryData const& other) noexcept : m_buffer(other.m_buffer) {
    if (m_buffer != nullptr)
        m_buffer->AddHolder();
}

CBinaryData::CBinaryData(CBinaryData&& other) noexcept : m_buffer(std::exchange(other.m_buffer, nullptr)) {}

CBinaryData::CBinaryData(unsigned char* const data, std::uint32_t length, bool takeOwnership) {
    std::unique_ptr<unsigned char[]> owned(takeOwnership ? data : nullptr);
    if (length == 0)
        return;
    m_buffer =
        takeOwnership ? new CBinaryDataBuffer(std::move(owned), length) : new CBinaryDataBuffer(data, length);
}

CBinaryData::CBinaryData(char const* text) {
    Append(text);
}

CBinaryData::~CBinaryData() {
    Clear();
}

CBinaryData& CBinaryData::operator=(CBinaryData const& other) noexcept {
    CBinaryData(other).Swap(*this);
    return *this;
}

CBinaryData& CBinaryData::operator=(CBinaryData&& other) noexcept {
    CBinaryData(std::move(other)).Swap(*this);
    return *this;
}

void CBinaryData::Swap(CBinaryData& other) noexcept {
    std::swap(m_buffer, other.m_buffer);
}

void CBinaryData::Clear() noexcept {
    CBinaryDataBuffer::Release(std::exchange(m_buffer, nullptr));
}

unsigned char const* CBinaryData::GetData() const noexcept {
    return m_buffer != nullptr ? m_buffer->Data() : nullptr;
}

std::uint32_t CBinaryData::GetLength() const noexcept {
    return m_buffer != nullptr ? m_buffer->Length() : 0;
}

void CBinaryData::MakePrivate() {
    if (m_buffer->IsShared()) {
        auto* const copy = new CBinaryDataBuffer(m_buffer->Data(), m_buffer->Length());
        CBinaryDataBuffer::Release(std::exchange(m_buffer, copy));
    }
}

unsigned char* CBinaryData::ReleaseData() {
    if (GetLength() == 0) {
        Clear();
        return nullptr;
    }
    MakePrivate();
    return CBinaryDataBuffer::ReleaseArray(std::exchange(m_buffer, nullptr));
}

void CBinaryData::Append(unsigned char byte) {
    Append(&byte, 1);
}

void CBinaryData::Append(char byte) {
    Append(static_cast<unsigned char>(byte));
}

void CBinaryData::Append(unsigned char const* bytes, std::uint32_t length) {
    if (length == 0)
        return;
    if (m_buffer == nullptr) {
        m_buffer = new CBinaryDataBuffer(bytes, length);
        return;
    }
    if (m_buffer->IsShared()) {
        CBinaryData const old(*this); // the bytes may be in the released block
        MakePrivate();
        m_buffer->Append(bytes, length);
    } else {
        m_buffer->Append(bytes, length);
    }
}

void CBinaryData::Append(char const* text) {
    Append(TextBytes(text), TextLength(text));
}

void CBinaryData::Append(std::string const& text) {
    Append(text.c_str());
}

void CBinaryData::Append(CBinaryData const& data) {
    Append(data.GetData(), data.GetLength());
}

void CBinaryData::Reserve(std::uint32_t length) {
    if (m_buffer == nullptr) {
        if (length > 0)
            m_buffer = new CBinaryDataBuffer(nullptr, 0, length);
        return;
    }
    MakePrivate();
    m_buffer->Reserve(length);
}

unsigned char* CBinaryData::BeginAppend(std::uint32_t least, std::uint32_t& room) {
    if (m_buffer == nullptr)
        m_buffer = new CBinaryDataBuffer(nullptr, 0, std::max(least, kSmallestRoom));
    MakePrivate();
    return m_buffer->BeginAppend(least, room);
}

void CBinaryData::EndAppend(std::uint32_t length) noexcept {
    m_buffer->EndAppend(length);
}

// Takes the new bytes before it drops the old ones, which may contain them.
void CBinaryData::SetBuffer(unsigned char const* bytes, std::uint32_t length) {
    CBinaryData copy;
    copy.Append(bytes, length);
    Swap(copy);
}

void CBinaryData::SetBuffer(char const* text) {
    SetBuffer(TextBytes(text), TextLength(text));
}

std::string CBinaryData::GetAsBase64() const {
    std::string text;
    PrintBase64(text);
    return text;
}

std::string& CBinaryData::PrintBase64(std::string& text) const {
    text.clear();
    return GetLength() > 0 ? CBase64().Encode(GetData(), GetLength(), text) : text;
}

void CBinaryData::SetAsBase64(char const* text) {
    Clear();
    std::uint32_t const textLength = TextLength(text);
    if (textLength == 0)
        return;
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[detail::RoomForBase64(textLength)]);
    std::uint32_t const length = detail::DecodeBase64(std::string_view(text, textLength), bytes.get());
    CBinaryData(bytes.release(), length, true).Swap(*this);
}

std::string CBinaryData::GetAsHexString() const {
    return GetAsHexString(GetData(), GetLength());
}

std::string CBinaryData::GetAsHexString(unsigned char const* bytes, std::uint32_t length) {
    std::string text;
    WriteHex(bytes, length, text);
    return text;
}

std::string& CBinaryData::PrintHex(std::string& text) const {
    return WriteHex(GetData(), GetLength(), text);
}

void CBinaryData::SetAsHexString(char const* text) {
    Clear();
    unsigned char* bytes = nullptr;
    std::uint32_t const length = ConvertToHexData(text, &bytes);
    CBinaryData(bytes, length, true).Swap(*this);
}

std::uint32_t CBinaryData::ConvertToHexData(char const* text, unsigned char** data) {
    *data = nullptr;
    std::size_t const digits = text != nullptr ? std::strlen(text) : 0;
    if (digits % 2 != 0)
        FailHexLength();
    if (digits == 0)
        return 0;
    std::uint32_t const length = detail::CheckedLength(digits / 2);
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[length]);
    detail::BytesFromHex(text, digits, bytes.get());
    *data = bytes.release();
    return length;
}

bool CBinaryData::operator==(CBinaryData const& other) const noexcept {
    std::uint32_t const length = GetLength();
    return length == other.GetLength() && (length == 0 || m_buffer == other.m_buffer ||
                                           std::memcmp(GetData(), other.GetData(), length) == 0);
}

bool CBinaryData::operator!=(CBinaryData const& other) const noexcept {
    return !(*this == other);
}

unsigned char const& CBinaryData::operator[](std::uint32_t index) const {
    if (index >= GetLength())
        FailDataIndex(index);
    return m_buffer->Data()[index];
}

unsigned char& CBinaryData::operator[](std::uint32_t index) {
    if (index >= GetLength())
        FailDataIndex(index);
    MakePrivate();
    return m_buffer->Data()[index];
}

} // namespace ZvXmlLib16
