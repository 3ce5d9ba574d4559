// The JSON reading of the document: JSON text to the bytes of an XML document.
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Encoder.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/values/BinaryData.h"

namespace ZvXmlLib16 {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// What is not a complete compressed stream is no failure: it goes on as it is. `room` keeps the rest.
std::string_view Utf8TextOf(unsigned char const* data, std::size_t length, CBinaryData& room) {
    if (CZvZip::TryDecompress(data, static_cast<std::uint32_t>(length), room)) {
        data = room.GetData();
        length = room.GetLength();
    }
    std::string_view text(reinterpret_cast<char const*>(data), length);
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        text.remove_prefix(kByteOrderMark.size());
    return text;
}

// The text as it lies where nothing has to be converted, otherwise in `room`.
std::string_view LocalTextOf(std::string_view utf8, std::string& room) {
    if (IsLocalTextUtf8() &&
        (IsASCIIOnly() || (IsValidUtf8(utf8) && utf8.find('\0') == std::string_view::npos)))
        return utf8;
    return room = Utf8ToLocal(utf8.data(), utf8.size());
}

} // namespace

CBinaryData CXmlDocument::LoadJsonFile(char const* fileName) {
    Cleanup();
    std::size_t length = 0;
    std::unique_ptr<unsigned char[]> const data = ReadFile(fileName == nullptr ? "" : fileName, length);
    return ParseJson(data.get(), length);
}

CBinaryData CXmlDocument::LoadJson(char const* text) {
    Cleanup();
    if (text == nullptr || *text == '\0')
        FailEmptyJsonText();
    return ParseJsonText(text);
}

CBinaryData CXmlDocument::LoadJson(wchar_t const* text) {
    return LoadJson(text == nullptr ? u"" : UnitsFromWide(text).c_str());
}

CBinaryData CXmlDocument::LoadJson(char16_t const* text) {
    return LoadJson(text == nullptr ? ""
                                    : Utf16ToLocal(text, std::char_traits<char16_t>::length(text)).c_str());
}

CBinaryData CXmlDocument::LoadJsonStream(unsigned char const* data, std::uint32_t length) {
    Cleanup();
    if (data == nullptr || length == 0)
        FailEmptyJsonStream();
    return ParseJson(data, length);
}

bool CXmlDocument::IsJson(unsigned char const* data, std::uint32_t length) {
    if (data == nullptr)
        return false;
    CBinaryData room;
    std::string_view const text = Utf8TextOf(data, length, room);
    std::size_t const first = text.find_first_not_of(kWhiteSpace);
    return first != std::string_view::npos &&
           std::string_view("{[\"/").find(text[first]) != std::string_view::npos;
}

CBinaryData CXmlDocument::ParseJson(unsigned char const* data, std::size_t length) {
    CBinaryData decompressed;
    std::string local;
    return ParseJsonText(LocalTextOf(Utf8TextOf(data, length, decompressed), local));
}

CBinaryData CXmlDocument::ParseJsonText(std::string_view text) {
    return CJsonTextReader::ConvertToXml(text, *m_pContext);
}

} // namespace ZvXmlLib16
