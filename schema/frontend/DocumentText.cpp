#include "schema/frontend/DocumentText.h"

#include "zvxmllib/foundation/Utf16.h"

#include <cstddef>
#include <string_view>

namespace ZvXmlLib16::schema {

namespace {

using namespace std::string_view_literals;

bool BeginsWith(std::string const& bytes, std::string_view start) noexcept {
    return bytes.compare(0, start.size(), start) == 0;
}

std::u16string UnitsOf(std::string const& bytes, bool isBigEndian) {
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        auto const first = static_cast<unsigned char>(bytes[i]);
        auto const second = static_cast<unsigned char>(bytes[i + 1]);
        units += static_cast<char16_t>(isBigEndian ? first << 8U | second : second << 8U | first);
    }
    return units;
}

void BlankEncoding(std::string& text) {
    std::size_t const start = BeginsWith(text, "\xEF\xBB\xBF") ? 3 : 0;
    std::size_t const end = text.find("?>");
    if (text.compare(start, 5, "<?xml") != 0 || end == std::string::npos)
        return;
    std::size_t const name = text.find("encoding", start);
    std::size_t const open = name < end ? text.find_first_of("'\"", name) : end;
    std::size_t const close = open < end ? text.find(text[open], open + 1) : end;
    if (close < end)
        text.replace(name, close + 1 - name, close + 1 - name, ' ');
}

} // namespace

std::optional<std::string> ReadableText(std::string bytes) {
    if (BeginsWith(bytes, "\0\0\0<"sv) || BeginsWith(bytes, "<\0\0\0"sv) ||
        BeginsWith(bytes, "\xFF\xFE\0\0"sv) || BeginsWith(bytes, "\0\0\xFE\xFF"sv) ||
        BeginsWith(bytes, "\x4C\x6F\xA7\x94"sv))
        return std::nullopt;
    bool const isBigEndian = BeginsWith(bytes, "\xFE\xFF"sv) || BeginsWith(bytes, "\0<"sv);
    if (!isBigEndian && !BeginsWith(bytes, "\xFF\xFE"sv) && !BeginsWith(bytes, "<\0"sv))
        return bytes;
    std::u16string const units = UnitsOf(bytes, isBigEndian);
    if (bytes.size() % 2 != 0 || FindHalfSurrogate(units) != units.size())
        return bytes;
    std::string text = ConvertUtf16ToUtf8(std::u16string_view(units));
    BlankEncoding(text);
    return text;
}

} // namespace ZvXmlLib16::schema
