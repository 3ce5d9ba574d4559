// CTextStream, the text sink.
#include "zvxmllib/streams/TextStream.h"

#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/platform/MemoryBlock.h"
#include "zvxmllib/streams/Failures.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <cstring>
#include <memory>
#include <string_view>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration textStreamRegistration("CTextStream");

// Local text that is UTF-8 goes from the blocks straight into the result. The bytes are tested after copying,
// where no character is split between two blocks. Text ends at a NUL.
CBinaryData JoinUtf8(CStringBuffer& buffer) {
    std::size_t const length = buffer.GetLength();
    if (length == 0)
        return CBinaryData();
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[length + 1]);
    platform::PreferLargePages(bytes.get(), length);
    unsigned char* end = bytes.get();
    buffer.TakeBlocks([&end](std::string_view block) {
        std::memcpy(end, block.data(), block.size());
        end += block.size();
    });
    char* const text = reinterpret_cast<char*>(bytes.get());
    bool const isWhole = std::memchr(text, '\0', length) == nullptr;
    if (!isWhole || (!IsASCIIOnly() && !IsValidUtf8(std::string_view(text, length)))) {
        text[length] = '\0';
        return LocalToUtf8(text);
    }
    return CBinaryData(bytes.release(), static_cast<std::uint32_t>(length), true);
}

} // namespace

CTextStream::CTextStream(XmlEncoding encoding) : CTextStream(textStreamRegistration, encoding) {}

CTextStream::CTextStream(Registration& registration, XmlEncoding encoding)
    : CInstanceMonitor(registration), m_encoding(encoding) {}

CTextStream::~CTextStream() = default;

void CTextStream::Open() {
    m_buffer.Reset();
}

// Nothing to do in memory. They let a writer treat all text sinks alike.
void CTextStream::Close() {}

void CTextStream::Flush() {}

std::string CTextStream::TakeText() {
    std::string text;
    text.reserve(GetLength());
    m_buffer.TakeBlocks([&text](std::string_view block) { text += block; });
    return text;
}

CBinaryData CTextStream::GetEncodedData() {
    CBinaryData data;
    switch (m_encoding) {
    case XmlEncoding_UTF8:
        if (IsLocalTextUtf8())
            return JoinUtf8(m_buffer);
        data = LocalToUtf8(GetText());
        break;
    case XmlEncoding_UTF16:
    case XmlEncoding_UTF16NoDeclaration:
        data = LocalToUtf16(GetText());
        break;
    default:
        FailUnknownEncoding();
    }
    m_buffer.Reset();
    return data;
}

} // namespace ZvXmlLib16
