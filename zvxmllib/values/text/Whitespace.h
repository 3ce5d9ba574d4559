// The whiteSpace facet (XML Schema Part 2, 4.3.6).
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// Static functions, for any thread.
class ZV_API CWhitespaceUtils {
public:
    // What becomes of white space in a text that is read.
    enum WhitespaceRule : std::int32_t {
        WhitespaceRule_None = 0,
        WhitespaceRule_Preserve = 1, // line ends become line feeds
        WhitespaceRule_Replace = 2,  // each white space character becomes a blank
        WhitespaceRule_Collapse = 3, // as replace, runs become one blank, both ends are trimmed
    };

    CWhitespaceUtils() = delete;

    // If anything was changed, the result ends at the first NUL.
    static std::string Preserve(std::string const& text);
    static std::string Preserve(char const* text, int length);
    static std::string Replace(std::string const& text);
    static std::string Collapse(std::string const& text);
    // Throws CZvException for a rule out of range.
    static std::string ApplyRule(WhitespaceRule rule, std::string const& text);
    // Blank, tab, carriage return, line feed.
    static constexpr bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
};

} // namespace ZvXmlLib16
