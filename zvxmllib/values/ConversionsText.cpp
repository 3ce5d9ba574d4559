// CConversions: binary forms, characters, strings, booleans.
#include "zvxmllib/values/BinaryData.h"
#include "zvxmllib/values/Conversions.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/RuledText.h"

#include <algorithm>
#include <string_view>

namespace ZvXmlLib16 {

namespace {

// `word` is in lower case.
bool EqualsWithoutCase(std::string_view text, std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
}

} // namespace

std::string CConversions::hexBinaryToString(CBinaryData const& value) {
    return value.GetAsHexString();
}

CBinaryData CConversions::hexBinaryFromString(std::string const& value, WhitespaceRule rule) {
    CBinaryData data;
    data.SetAsHexString(detail::RuledText(rule, value).Get().c_str());
    return data;
}

std::string CConversions::base64BinaryToString(CBinaryData const& value) {
    return value.GetAsBase64();
}

CBinaryData CConversions::base64BinaryFromString(std::string const& value, WhitespaceRule rule) {
    CBinaryData data;
    data.SetAsBase64(detail::RuledText(rule, value).Get().c_str());
    return data;
}

std::string CConversions::charToString(char value) {
    return std::string(1, value);
}

char CConversions::charFromString(std::string const& value, WhitespaceRule rule) {
    detail::RuledText const ruled(rule, value);
    std::string const& text = ruled.Get();
    if (text.size() != 1)
        FailCharText(text);
    return text[0];
}

std::string CConversions::stringToString(std::string const& value) {
    return value;
}

std::string CConversions::stringFromString(std::string const& value, WhitespaceRule rule) {
    return CWhitespaceUtils::ApplyRule(rule, value);
}

std::string CConversions::booleanToString(bool value) {
    return value ? "true" : "false";
}

bool CConversions::booleanFromString(std::string const& value, WhitespaceRule rule) {
    detail::RuledText const ruled(rule, value);
    std::string const& text = ruled.Get();
    if (EqualsWithoutCase(text, "true") || text == "1")
        return true;
    if (EqualsWithoutCase(text, "false") || text == "0")
        return false;
    FailBooleanText(value);
}

} // namespace ZvXmlLib16
