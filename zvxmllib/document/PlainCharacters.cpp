#include "zvxmllib/document/PlainCharacters.h"

#include "zvxmllib/document/NameTable.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/foundation/XmlNamespaces.h"

#include <algorithm>
#include <cstdint>

namespace ZvXmlLib16 {

namespace {

constexpr bool IsXmlCharacter(std::uint32_t c) noexcept {
    if (c < 0x20)
        return c == '\t' || c == '\n' || c == '\r';
    return c < 0xD800 || (c >= 0xE000 && c < 0xFFFE) || (c >= 0x10000 && c < 0x110000);
}

void Encode(std::uint32_t c, PlainReference& reference) noexcept {
    auto const add = [&reference](std::uint32_t byte) {
        reference.text[reference.length++] = static_cast<char>(static_cast<unsigned char>(byte));
    };
    if (c < 0x80) {
        add(c);
        return;
    }
    if (c < 0x800) {
        add(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            add(0xE0 | c >> 12);
        } else {
            add(0xF0 | c >> 18);
            add(0x80 | (c >> 12 & 0x3F));
        }
        add(0x80 | (c >> 6 & 0x3F));
    }
    add(0x80 | (c & 0x3F));
}

int DigitOf(char c, bool isHexadecimal) noexcept {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (isHexadecimal && c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return isHexadecimal && c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// Behind "&#".
PlainReference ReadNumber(char const* at, char const* end) noexcept {
    PlainReference reference;
    bool const isHexadecimal = at != end && *at == 'x';
    if (isHexadecimal)
        ++at;
    char const* const digits = at;
    std::uint32_t number = 0;
    for (int digit = 0; at != end && (digit = DigitOf(*at, isHexadecimal)) >= 0 && number < 0x110000; ++at)
        number = number * (isHexadecimal ? 16 : 10) + static_cast<std::uint32_t>(digit);
    if (at == digits || at == end || *at != ';' || !IsXmlCharacter(number))
        return reference;
    Encode(number, reference);
    reference.end = at + 1;
    return reference;
}

} // namespace

PlainReference ReadPlainReference(char const* at, char const* end) noexcept {
    struct Entity {
        std::string_view name;
        char character;
    };
    static constexpr Entity kEntities[] = {
        {"lt;", '<'}, {"gt;", '>'}, {"amp;", '&'}, {"quot;", '"'}, {"apos;", '\''}};
    if (at != end && *at == '#')
        return ReadNumber(at + 1, end);
    std::string_view const rest(at, static_cast<std::size_t>(end - at));
    PlainReference reference;
    for (Entity const& entity : kEntities) {
        if (rest.substr(0, entity.name.size()) == entity.name) {
            reference.text[reference.length++] = entity.character;
            reference.end = at + entity.name.size();
            break;
        }
    }
    return reference;
}

bool AreXmlCharacters(std::string_view text) noexcept {
    char const* const end = text.data() + text.size();
    bool isAscii = true;
    for (char const* at = text.data(); (at = detail::PlainBytes<detail::kBreaks>::FindEnd(at, end)) != end;) {
        if (*at == '\r') {
            ++at;
        } else {
            if (static_cast<unsigned char>(*at) < 0x80)
                return false;
            isAscii = false;
            at = SkipBeyondAscii(at, end);
        }
    }
    // U+FFFE and U+FFFF are no characters of XML.
    return isAscii || (IsValidUtf8(text) && text.find("\xEF\xBF\xBE") == std::string_view::npos &&
                       text.find("\xEF\xBF\xBF") == std::string_view::npos);
}

// It refuses the two namespaces of XML itself, and the characters with which it joins names.
bool IsPlainDeclaration(std::string_view prefix, std::string_view uri) noexcept {
    return prefix != "xml" && prefix != "xmlns" && uri != kXmlNamespace && uri != kXmlnsNamespace &&
           uri.find(detail::kNamespaceSeparator) == std::string_view::npos;
}

} // namespace ZvXmlLib16
