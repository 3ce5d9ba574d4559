#include "zvxmllib/generated/Values.h"

#include "zvxmllib/foundation/Exceptions.h"

#include <algorithm>

namespace ZvXmlLib16::generated {

namespace {

constexpr int kFewestDigits = 6;
constexpr int kMostDigits = 17;

} // namespace

std::string ShortestText(float value) {
    std::string text;
    for (int digits = kFewestDigits; digits <= kMostDigits; ++digits) {
        text = CConversions::r4ToString(value, "%." + std::to_string(digits) + "g");
        if (CConversions::r4FromString(text, CWhitespaceUtils::WhitespaceRule_Preserve) == value)
            break;
    }
    return text;
}

std::string ShortestText(double value) {
    std::string text;
    for (int digits = kFewestDigits; digits <= kMostDigits; ++digits) {
        text = CConversions::r8ToString(value, "%." + std::to_string(digits) + "g");
        if (CConversions::r8FromString(text, CWhitespaceUtils::WhitespaceRule_Preserve) == value)
            break;
    }
    return text;
}

std::vector<std::string> SplitList(std::string_view text) {
    constexpr std::string_view kWhiteSpace = " \t\r\n";
    std::vector<std::string> words;
    std::size_t at = 0;
    while ((at = text.find_first_not_of(kWhiteSpace, at)) != std::string_view::npos) {
        std::size_t const end = std::min(text.find_first_of(kWhiteSpace, at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

std::size_t EnumTexts::Find(std::string_view text) const {
    auto const* const found = std::find(texts, texts + count, text);
    if (found == texts + count)
        throw CZvInvalidValueException("The value [" + std::string(text) +
                                       "] is not one of the enumeration.");
    return static_cast<std::size_t>(found - texts);
}

char const* EnumTexts::At(std::size_t number) const {
    if (number >= count)
        throw CZvInvalidParamException("There is no enumerator " + std::to_string(number) + ".");
    return texts[number];
}

} // namespace ZvXmlLib16::generated
