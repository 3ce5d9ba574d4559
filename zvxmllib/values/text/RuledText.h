// A text after its whitespace rule, not copied if the rule changes nothing; and a text followed by a NUL.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {

inline bool IsKnownRule(CWhitespaceUtils::WhitespaceRule rule) noexcept {
    return rule >= CWhitespaceUtils::WhitespaceRule_None && rule <= CWhitespaceUtils::WhitespaceRule_Collapse;
}

// The rule for a value of this type in a strict context: all but texts are collapsed, and what is preserved
// keeps its carriage returns.
constexpr CWhitespaceUtils::WhitespaceRule StrictRule(CWhitespaceUtils::WhitespaceRule rule,
                                                      ItemType type) noexcept {
    if (type != ItemType_string && type != ItemType_char)
        return CWhitespaceUtils::WhitespaceRule_Collapse;
    return rule == CWhitespaceUtils::WhitespaceRule_Preserve ? CWhitespaceUtils::WhitespaceRule_None : rule;
}

// Borrows the given text where it can, so that text must outlive it.
class RuledText {
public:
    // Throws CZvException for a rule out of range.
    RuledText(CWhitespaceUtils::WhitespaceRule rule, std::string_view text) : m_text(text) {
        if (MayChange(rule, text)) {
            m_changed = CWhitespaceUtils::ApplyRule(rule, std::string(text));
            m_text = m_changed;
            m_isChanged = true;
        }
    }
    RuledText(RuledText const&) = delete;
    RuledText& operator=(RuledText const&) = delete;

    std::string_view Get() const noexcept { return m_text; }
    // The string that this object owns, null if it borrows the text.
    std::string* Own() noexcept { return m_isChanged ? &m_changed : nullptr; }

private:
    // False only if the rule does not change the text.
    static bool MayChange(CWhitespaceUtils::WhitespaceRule rule, std::string_view text) {
        switch (rule) {
        case CWhitespaceUtils::WhitespaceRule_None:
            return false;
        case CWhitespaceUtils::WhitespaceRule_Preserve:
            return text.find('\r') != std::string_view::npos;
        case CWhitespaceUtils::WhitespaceRule_Replace:
        case CWhitespaceUtils::WhitespaceRule_Collapse:
            return std::any_of(text.begin(), text.end(), CWhitespaceUtils::IsWhiteSpace);
        }
        return true;
    }

    std::string_view m_text;
    std::string m_changed;
    bool m_isChanged = false;
};

// A text followed by a NUL, for functions that need one; on the heap only if it is long.
class TerminatedText {
public:
    explicit TerminatedText(std::string_view text) {
        if (text.size() >= sizeof m_short) {
            m_long = text;
            return;
        }
        *std::copy(text.begin(), text.end(), m_short) = '\0';
    }
    TerminatedText(TerminatedText const&) = delete;
    TerminatedText& operator=(TerminatedText const&) = delete;

    char const* Get() const noexcept { return m_long.empty() ? m_short : m_long.c_str(); }

private:
    char m_short[64];
    std::string m_long;
};

} // namespace ZvXmlLib16::detail
