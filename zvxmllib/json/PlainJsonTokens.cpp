#include "zvxmllib/json/PlainJsonTokens.h"

#include "zvxmllib/document/PlainCharacters.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

constexpr int kNoHexDigit = -1;

int HexDigitOf(char c) noexcept {
    if (detail::IsDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : kNoHexDigit;
}

} // namespace

// What is neither null nor a container.
char const* PlainJsonTokens::ReadText(char const* at, Text& text) {
    if (*at == '"')
        return ReadString(at + 1, text);
    char const* const end = *at == 't'   ? ReadWord(at, "true")
                            : *at == 'f' ? ReadWord(at, "false")
                                         : ReadNumber(at);
    if (end != nullptr)
        text.value = std::string_view(at, static_cast<std::size_t>(end - at));
    return end;
}

char const* PlainJsonTokens::ReadString(char const* at, Text& text) {
    char const* const end = detail::PlainBytes<0, '"', '\\'>::FindEnd(at, m_end);
    if (!Holds(end, '"'))
        return ReadMixedString(at, end, text);
    text.value = std::string_view(at, static_cast<std::size_t>(end - at));
    return end + 1;
}

// A line feed is dropped wherever it stands; strict JSON has none. Other control characters are left to the
// parser.
char const* PlainJsonTokens::ReadMixedString(char const* begin, char const* at, Text& text) {
    char const* from = begin;
    m_made.clear();
    for (;; at = detail::PlainBytes<0, '"', '\\'>::FindEnd(at, m_end)) {
        if (at == m_end)
            return nullptr;
        if (static_cast<unsigned char>(*at) >= 0x80) {
            at = SkipBeyondAscii(at, m_end);
            continue;
        }
        if (from != at) {
            AppendCharacters();
            if (*at != '"' || from != begin)
                m_made.append(from, at);
        }
        if (*at == '"')
            break;
        if (*at == '\\')
            at = ReadEscape(at + 1);
        else
            at = *at == '\n' && !m_isStrict ? at + 1 : nullptr;
        if (at == nullptr)
            return nullptr;
        text.isMade = true;
        from = at;
    }
    AppendCharacters();
    text.value = text.isMade ? std::string_view(m_made)
                             : std::string_view(begin, static_cast<std::size_t>(at - begin));
    // XML that is not strict has no carriage returns. A text of these alone is more than none to its writer.
    if (text.isMade && !m_isStrict && text.value.find('\r') != std::string_view::npos) {
        m_made.erase(std::remove(m_made.begin(), m_made.end(), '\r'), m_made.end());
        text.value = m_made;
    }
    bool const isPlain = AreXmlCharacters(text.value) && !(text.isMade && m_made.empty());
    return isPlain ? at + 1 : nullptr;
}

// Behind the backslash.
char const* PlainJsonTokens::ReadEscape(char const* at) {
    if (at == m_end)
        return nullptr;
    if (*at == 'u')
        return ReadCharacterCode(at + 1);
    AppendCharacters();
    switch (*at) {
    case '"':
    case '\\':
    case '/':
        m_made += *at;
        break;
    case 'n':
        m_made += '\n';
        break;
    case 'r':
        m_made += '\r';
        break;
    case 't':
        m_made += '\t';
        break;
    default:
        return nullptr;
    }
    return at + 1;
}

char const* PlainJsonTokens::ReadCharacterCode(char const* at) {
    unsigned code = 0;
    for (int i = 0; i != 4; ++i, ++at) {
        int const digit = at == m_end ? kNoHexDigit : HexDigitOf(*at);
        if (digit == kNoHexDigit)
            return nullptr;
        code = code * 16 + static_cast<unsigned>(digit);
    }
    m_characters += static_cast<char16_t>(code);
    return at;
}

// Collected, since a character beyond U+FFFF takes two escapes. Half of one becomes a NUL, which is not
// plain.
void PlainJsonTokens::AppendCharacters() {
    if (m_characters.empty())
        return;
    if (FindHalfSurrogate(m_characters) != m_characters.size())
        m_made += '\0';
    else
        m_made += ConvertUtf16ToUtf8(m_characters);
    m_characters.clear();
}

// What follows is not part of it; whether it may follow is the caller's question.
char const* PlainJsonTokens::ReadNumber(char const* at) const noexcept {
    auto const skipDigits = [this](char const* from) {
        return std::find_if_not(from, m_end, detail::IsDigit);
    };
    auto const isDigit = [this](char const* place) { return place != m_end && detail::IsDigit(*place); };
    if (*at == '-')
        ++at;
    if (!isDigit(at))
        return nullptr;
    at = *at == '0' ? at + 1 : skipDigits(at);
    if (Holds(at, '.')) {
        if (!isDigit(++at))
            return nullptr;
        at = skipDigits(at);
    }
    if (Holds(at, 'e') || Holds(at, 'E')) {
        ++at;
        if (Holds(at, '+') || Holds(at, '-'))
            ++at;
        if (!isDigit(at))
            return nullptr;
        at = skipDigits(at);
    }
    return at;
}

} // namespace ZvXmlLib16
