// Texts of the simple types: binary forms, characters, strings, booleans.
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/binary/Base64Text.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/text/TextValues.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace ZvXmlLib16 {

namespace {

// `word` is in lower case.
bool EqualsWithoutCase(std::string_view text, std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
}

} // namespace

namespace detail {

CBinaryData hexBinaryFromText(std::string_view text, TextRule rule) {
    CBinaryData data;
    data.SetAsHexString(TerminatedText(RuledText(rule, text).Get()).Get());
    return data;
}

CBinaryData base64BinaryFromText(std::string_view text, TextRule rule) {
    if (!IsKnownRule(rule))
        FailWhitespaceRule();
    // Reading skips white space, so the rule makes no difference.
    if (text.empty())
        return CBinaryData();
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[RoomForBase64(text.size())]);
    std::uint32_t const length = DecodeBase64(text, bytes.get());
    return CBinaryData(bytes.release(), length, true);
}

char charFromText(std::string_view text, TextRule rule) {
    RuledText const ruled(rule, text);
    if (ruled.Get().size() != 1)
        FailCharText(ruled.Get());
    return ruled.Get()[0];
}

std::string stringFromText(std::string_view text, TextRule rule) {
    RuledText ruled(rule, text);
    if (std::string* const own = ruled.Own())
        return std::move(*own);
    return std::string(text);
}

bool booleanFromText(std::string_view text, TextRule rule) {
    RuledText const ruled(rule, text);
    std::string_view const word = ruled.Get();
    if (EqualsWithoutCase(word, "true") || word == "1")
        return true;
    if (EqualsWithoutCase(word, "false") || word == "0")
        return false;
    FailBooleanText(text);
}

std::string const& hexBinaryToText(CBinaryData const& value, char const*, std::string& buffer) {
    return value.PrintHex(buffer);
}

std::string const& base64BinaryToText(CBinaryData const& value, char const*, std::string& buffer) {
    return value.PrintBase64(buffer);
}

std::string const& charToText(char value, char const*, std::string& buffer) {
    return buffer.assign(1, value);
}

std::string const& stringToText(std::string const& value, char const*, std::string&) {
    return value;
}

std::string const& booleanToText(bool value, char const*, std::string& buffer) {
    return buffer = value ? "true" : "false";
}

} // namespace detail

} // namespace ZvXmlLib16
