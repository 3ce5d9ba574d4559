// The whiteSpace facet (XML Schema Part 2, 4.3.6).
#include "zvxmllib/values/text/Whitespace.h"

#include "zvxmllib/values/Failures.h"

#include <algorithm>
#include <string_view>

namespace ZvXmlLib16 {

namespace {

// A changed text ends at its first NUL.
std::string CutAtNul(std::string text) {
    std::size_t const end = text.find('\0');
    if (end != std::string::npos)
        text.resize(end);
    return text;
}

// The text with each line end, CR LF or CR, replaced by `lineEnd`; other characters pass through `map`.
template <class Map>
std::string ReplaceLineEnds(std::string_view text, char lineEnd, Map map) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r') {
            result.push_back(map(text[i]));
            continue;
        }
        result.push_back(lineEnd);
        if (i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
    }
    return CutAtNul(std::move(result));
}

std::string PreserveView(std::string_view text) {
    if (text.find('\r') == std::string_view::npos)
        return std::string(text);
    return ReplaceLineEnds(text, '\n', [](char c) { return c; });
}

// True if collapsing changes nothing: only single blanks, none at either end.
bool IsCollapsed(std::string_view text) {
    bool afterBlank = true;
    for (char const c : text) {
        if (!CWhitespaceUtils::IsWhiteSpace(c)) {
            afterBlank = false;
        } else {
            if (c != ' ' || afterBlank)
                return false;
            afterBlank = true;
        }
    }
    return text.empty() || !afterBlank;
}

} // namespace

std::string CWhitespaceUtils::Preserve(std::string const& text) {
    return PreserveView(text);
}

std::string CWhitespaceUtils::Preserve(char const* text, int length) {
    return length > 0 ? PreserveView(std::string_view(text, static_cast<std::size_t>(length)))
                      : std::string();
}

std::string CWhitespaceUtils::Replace(std::string const& text) {
    auto const isChanged = [](char c) { return c != ' ' && IsWhiteSpace(c); };
    if (std::none_of(text.begin(), text.end(), isChanged))
        return text;
    return ReplaceLineEnds(text, ' ', [=](char c) { return isChanged(c) ? ' ' : c; });
}

std::string CWhitespaceUtils::Collapse(std::string const& text) {
    if (IsCollapsed(text))
        return text;
    std::string result;
    result.reserve(text.size());
    bool afterBlank = true;
    for (char const c : text) {
        bool const isBlank = IsWhiteSpace(c);
        if (!isBlank)
            result.push_back(c);
        else if (!afterBlank)
            result.push_back(' ');
        afterBlank = isBlank;
    }
    if (!result.empty() && result.back() == ' ')
        result.pop_back();
    return CutAtNul(std::move(result));
}

std::string CWhitespaceUtils::ApplyRule(WhitespaceRule rule, std::string const& text) {
    switch (rule) {
    case WhitespaceRule_None:
        return text;
    case WhitespaceRule_Preserve:
        return Preserve(text);
    case WhitespaceRule_Replace:
        return Replace(text);
    case WhitespaceRule_Collapse:
        return Collapse(text);
    }
    FailWhitespaceRule();
}

} // namespace ZvXmlLib16
