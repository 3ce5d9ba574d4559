// PlainJsonTokens, which reads the names of members to their end, and texts, of plain JSON.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// The tokens of one JSON text, for PlainJsonReader. Each operation that reads begins at `at` and returns
// where its token ends, null if that is not plain.
class PlainJsonTokens {
public:
    struct Text {
        std::string_view value;
        bool isMade = false; // of the next text that is made, or else of the input
    };

    // `end` of the JSON text, which is borrowed.
    PlainJsonTokens(char const* end, bool isStrict) noexcept : m_end(end), m_isStrict(isStrict) {}

    char const* GetEnd() const noexcept { return m_end; }
    // Whether `at` is a place of the text that holds this character.
    bool Holds(char const* at, char c) const noexcept { return at != nullptr && at != m_end && *at == c; }
    char const* SkipSpace(char const* at) const noexcept {
        while (at != m_end && (*at == ' ' || *at == '\n' || *at == '\t' || *at == '\r'))
            ++at;
        return at;
    }
    // From the quote behind a name to the value, which is not the end of the text.
    char const* ReadColon(char const* at) const noexcept {
        if (!Holds(at, '"'))
            return nullptr;
        at = SkipSpace(at + 1);
        if (!Holds(at, ':'))
            return nullptr;
        at = SkipSpace(at + 1);
        return at == m_end ? nullptr : at;
    }
    char const* ReadWord(char const* at, std::string_view word) const noexcept {
        bool const isThere =
            static_cast<std::size_t>(m_end - at) >= word.size() && std::string_view(at, word.size()) == word;
        return isThere ? at + word.size() : nullptr;
    }
    // What is neither null nor a container, as the text of XML: of characters that XML allows.
    char const* ReadText(char const* at, Text& text);

private:
    char const* ReadString(char const* at, Text& text);
    char const* ReadMixedString(char const* begin, char const* at, Text& text);
    char const* ReadEscape(char const* at);
    char const* ReadCharacterCode(char const* at);
    char const* ReadNumber(char const* at) const noexcept;
    void AppendCharacters();

    char const* const m_end;
    bool const m_isStrict;
    std::string m_made;          // a string with escapes, as it is meant
    std::u16string m_characters; // of \u escapes that follow each other
};

} // namespace ZvXmlLib16
