#include "zvxmllib/json/JsonInput.h"

#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutMark(unsigned char const* data, std::size_t length) {
    std::string_view text(reinterpret_cast<char const*>(data), length);
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        text.remove_prefix(kByteOrderMark.size());
    return text;
}

// Data that is not a complete compressed stream is passed on unchanged. `room` holds everything else.
std::string_view Utf8Of(unsigned char const* data, std::size_t length, CBinaryData& room, bool strict) {
    if (CZvZip::TryDecompress(data, static_cast<std::uint32_t>(length), room, strict))
        return WithoutMark(room.GetData(), room.GetLength());
    return WithoutMark(data, length);
}

// Throws for a half of a surrogate pair.
std::string Utf8OfWhole(std::u16string_view units) {
    if (std::size_t const half = FindHalfSurrogate(units); half != units.size()) {
        std::u16string_view const before = units.substr(0, half);
        std::size_t const lineFeed = before.rfind(u'\n');
        std::size_t const lineStart = lineFeed == std::u16string_view::npos ? 0 : lineFeed + 1;
        FailInvalidSurrogate({static_cast<std::int32_t>(1 + std::count(before.begin(), before.end(), u'\n')),
                              static_cast<std::int32_t>(half - lineStart + 1), std::string()});
    }
    return ConvertUtf16ToUtf8(units);
}

bool IsLocalAsItIs(std::string_view utf8) {
    return IsLocalTextUtf8() &&
           (IsASCIIOnly() || (IsValidUtf8(utf8) && utf8.find('\0') == std::string_view::npos));
}

} // namespace

JsonInput JsonInput::OfFile(char const* fileName, bool strict) {
    JsonInput input;
    std::size_t length = 0;
    input.m_file = CXmlDocument::ReadFile(fileName == nullptr ? "" : fileName, length, strict);
    input.TakeUtf8(input.m_file.get(), length, strict);
    return input;
}

JsonInput JsonInput::OfBytes(unsigned char const* data, std::size_t length, bool strict) {
    if (data == nullptr || length == 0)
        FailEmptyJsonStream();
    JsonInput input;
    input.TakeUtf8(data, length, strict);
    return input;
}

JsonInput JsonInput::OfText(char const* text, bool strict) {
    if (text == nullptr || *text == '\0')
        FailEmptyJsonText();
    JsonInput input;
    input.m_text = text;
    if (strict && !IsLocalTextUtf8()) {
        CBinaryData const utf8 = LocalToUtf8(text);
        input.m_made.assign(reinterpret_cast<char const*>(utf8.GetData()), utf8.GetLength());
        input.m_isMade = true;
    }
    return input;
}

JsonInput JsonInput::OfText(wchar_t const* text, bool strict) {
    return OfText(text == nullptr ? u"" : UnitsFromWide(text).c_str(), strict);
}

JsonInput JsonInput::OfText(char16_t const* text, bool strict) {
    if (text == nullptr || *text == u'\0')
        FailEmptyJsonText();
    JsonInput input;
    std::size_t const length = std::char_traits<char16_t>::length(text);
    input.m_made = strict ? Utf8OfWhole({text, length}) : Utf16ToLocal(text, length);
    input.m_isMade = true;
    return input;
}

bool JsonInput::IsJson(unsigned char const* data, std::size_t length) {
    CBinaryData start;
    bool const isCompressed = CZvZip::TryDecompressStart(data, static_cast<std::uint32_t>(length), start);
    std::string_view const text =
        isCompressed ? WithoutMark(start.GetData(), start.GetLength()) : WithoutMark(data, length);
    std::size_t const first = text.find_first_not_of(kWhiteSpace);
    return first != std::string_view::npos &&
           std::string_view("{[\"/").find(text[first]) != std::string_view::npos;
}

void JsonInput::TakeUtf8(unsigned char const* data, std::size_t length, bool strict) {
    m_text = Utf8Of(data, length, m_decompressed, strict);
    if (strict || IsLocalAsItIs(m_text))
        return;
    m_made = Utf8ToLocal(m_text.data(), m_text.size());
    m_isMade = true;
}

} // namespace ZvXmlLib16
