// The grammar of JSON (RFC 8259), read in pieces.
#include "JsonReader.h"

#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/writers/XmlNames.h"

#include <cstdio>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr std::size_t kMostLevels = 20000;
constexpr std::string_view kMark = "\xEF\xBB\xBF";

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

bool TakeDigits(std::string_view& text) noexcept {
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count]))
        ++count;
    text.remove_prefix(count);
    return count != 0;
}

bool TakeOneOf(std::string_view& text, std::string_view choice) noexcept {
    if (text.empty() || choice.find(text[0]) == std::string_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

// RFC 8259, section 6.
bool IsNumber(std::string_view text) noexcept {
    TakeOneOf(text, "-");
    if (!TakeOneOf(text, "0") && !TakeDigits(text))
        return false;
    if (TakeOneOf(text, ".") && !TakeDigits(text))
        return false;
    if (TakeOneOf(text, "eE")) {
        TakeOneOf(text, "+-");
        if (!TakeDigits(text))
            return false;
    }
    return text.empty();
}

bool IsPlainAscii(std::string_view text) noexcept {
    for (char const c : text) {
        if (static_cast<signed char>(c) < 0x20)
            return false;
    }
    return true;
}

} // namespace

JsonReader::JsonReader(ByteInput& input, JsonReceiver& receiver) : m_input(input), m_receiver(receiver) {}

void JsonReader::Fail(std::string const& message) {
    Note();
    throw DocumentError(message, m_place);
}

void JsonReader::Note() {
    m_place = {m_line, m_before + m_at - m_lineStart + 1};
}

bool JsonReader::ReadPiece() {
    m_before += m_piece.size();
    m_piece = m_input.Read();
    m_at = 0;
    return !m_piece.empty();
}

int JsonReader::PeekBehindSpace() {
    for (;; ++m_at) {
        int const c = Peek();
        if (c == '\n') {
            ++m_line;
            m_lineStart = m_before + m_at + 1;
        } else if (c != ' ' && c != '\t' && c != '\r') {
            return c;
        }
    }
}

void JsonReader::Expect(char c, char const* what) {
    if (PeekBehindSpace() != static_cast<unsigned char>(c))
        Fail(std::string(Peek() == kEnd ? "the text ends where there must be " : "there must be ") + what);
    ++m_at;
}

void JsonReader::Read() {
    m_input.Rewind();
    if (Peek() == static_cast<unsigned char>(kMark[0]) && m_piece.substr(0, kMark.size()) == kMark)
        m_at = kMark.size();
    ReadValue();
    while (!m_isObject.empty()) {
        char const end = m_isObject.back() ? '}' : ']';
        int const next = PeekBehindSpace();
        if (next == end) {
            EndLevel();
            continue;
        }
        if (m_hasItems)
            Expect(',', m_isObject.back() ? "a comma or '}'" : "a comma or ']'");
        if (m_isObject.back())
            ReadName();
        ReadValue();
    }
    if (PeekBehindSpace() != kEnd)
        Fail("there is something behind the value");
}

void JsonReader::EndLevel() {
    ++m_at;
    bool const isObject = m_isObject.back();
    m_isObject.pop_back();
    m_hasItems = true;
    isObject ? m_receiver.EndObject() : m_receiver.EndArray();
}

void JsonReader::ReadName() {
    if (PeekBehindSpace() != '"')
        Fail("there must be a name in quotation marks");
    Note();
    Place const place = m_place;
    ReadString();
    Expect(':', "a colon");
    m_place = place;
    m_receiver.OnName(m_token);
}

void JsonReader::ReadValue() {
    int const first = PeekBehindSpace();
    Note();
    if (first == '{' || first == '[') {
        if (m_isObject.size() == kMostLevels)
            Fail("objects and arrays nest more than 20000 deep");
        ++m_at;
        m_isObject.push_back(first == '{');
        m_hasItems = false;
        return first == '{' ? m_receiver.StartObject() : m_receiver.StartArray();
    }
    if (first == '"') {
        Place const place = m_place;
        ReadString();
        m_place = place;
        m_receiver.OnText(m_token);
    } else {
        ReadBare();
    }
    m_hasItems = true;
}

// Leaves the characters in m_token.
void JsonReader::ReadString() {
    ++m_at;
    m_token.clear();
    for (;;) {
        if (Peek() == kEnd)
            Fail("the text ends in a string");
        std::size_t end = m_at;
        while (end < m_piece.size() && m_piece[end] != '"' && m_piece[end] != '\\' &&
               static_cast<unsigned char>(m_piece[end]) >= 0x20)
            ++end;
        m_token.append(m_piece, m_at, end - m_at);
        m_at = end;
        int const next = Peek();
        if (next == '"')
            break;
        if (next == '\\')
            ReadEscape();
        else if (next != kEnd && next < 0x20)
            Fail("a control character must be escaped in a string");
    }
    ++m_at;
    if (IsPlainAscii(m_token))
        return;
    XmlTextFault const fault = FindXmlTextFault(m_token);
    if (fault.kind == XmlTextFault::kMalformed)
        Fail("the string is not UTF-8");
    if (fault.kind == XmlTextFault::kCharacter) {
        char code[16];
        std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(fault.character));
        Fail("XML has no character " + std::string(code));
    }
}

void JsonReader::ReadEscape() {
    constexpr std::string_view kEscapes = "\"\\/bfnrt";
    constexpr std::string_view kCharacters = "\"\\/\b\f\n\r\t";
    ++m_at;
    int const c = Take();
    std::size_t const known = c == kEnd ? std::string_view::npos : kEscapes.find(static_cast<char>(c));
    if (known != std::string_view::npos) {
        m_token += kCharacters[known];
        return;
    }
    if (c != 'u')
        Fail("there is no such escape");
    std::u16string units(1, static_cast<char16_t>(ReadUnit()));
    bool const isFirstHalf = units[0] >= 0xD800 && units[0] < 0xDC00;
    if (isFirstHalf && Take() == '\\' && Take() == 'u')
        units += static_cast<char16_t>(ReadUnit());
    if (FindHalfSurrogate(units) != units.size())
        Fail("half of a surrogate pair is no character");
    m_token += ConvertUtf16ToUtf8(units);
}

unsigned JsonReader::ReadUnit() {
    unsigned unit = 0;
    for (int digits = 4; digits != 0; --digits) {
        int const c = Take();
        constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
        std::size_t const digit = c == kEnd ? std::string_view::npos : kDigits.find(static_cast<char>(c));
        if (digit == std::string_view::npos)
            Fail("\\u must have four hexadecimal digits");
        unit = unit << 4U | static_cast<unsigned>(digit < 16 ? digit : digit - 6);
    }
    return unit;
}

// A number or a word.
void JsonReader::ReadBare() {
    constexpr std::size_t kLongestShown = 40;
    Place const place = m_place;
    m_token.clear();
    for (int c = Peek(); c != kEnd; ++m_at, c = Peek()) {
        char const letter = static_cast<char>(c);
        bool const isOfToken = IsDigit(letter) || (letter >= 'a' && letter <= 'z') || letter == 'E' ||
                               letter == '+' || letter == '-' || letter == '.';
        if (!isOfToken)
            break;
        m_token += letter;
    }
    m_place = place;
    if (m_token == "null")
        return m_receiver.OnNull();
    if (m_token == "true" || m_token == "false" || IsNumber(m_token))
        return m_receiver.OnText(m_token);
    if (m_token.empty() && Peek() == kEnd)
        throw DocumentError("the text ends where there must be a value", place);
    if (m_token.empty())
        throw DocumentError("there must be a value", place);
    throw DocumentError("'" + m_token.substr(0, kLongestShown) + "' is no value of JSON", place);
}

} // namespace zvxml
