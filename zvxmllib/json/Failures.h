// Every failure of the JSON forms.
#pragma once

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

class CZvException;

// Writing.
[[noreturn]] void FailUnknownNamespace(std::string const& ns);
[[noreturn]] void FailContentAfterScalar();
[[noreturn]] void FailElementPlaceInJson(std::string const& name);
[[noreturn]] void FailTextPlaceInJson(std::string const& name);

// Where reading stopped: line from 1, position of the last byte read on it, and the path of the open members.
struct JsonPlace {
    std::int32_t line;
    std::int32_t position;
    std::string path;
};

// Grammar. `found` is the character that cannot stand there.
[[noreturn]] void FailJsonTooDeep(JsonPlace const& place);
[[noreturn]] void FailExpectedValue(char found, JsonPlace const& place);
[[noreturn]] void FailEndBehindBrace(JsonPlace const& place);
[[noreturn]] void FailEndInObject(JsonPlace const& place);
[[noreturn]] void FailExpectedName(char found, JsonPlace const& place);
[[noreturn]] void FailEndBehindName(JsonPlace const& place);
[[noreturn]] void FailExpectedColon(char found, JsonPlace const& place);
[[noreturn]] void FailEndBehindColon(JsonPlace const& place);
[[noreturn]] void FailExpectedObjectComma(char found, JsonPlace const& place);
[[noreturn]] void FailEndInArray(JsonPlace const& place);
[[noreturn]] void FailExpectedArrayComma(char found, JsonPlace const& place);
[[noreturn]] void FailEndInString(JsonPlace const& place);
[[noreturn]] void FailEndInCharacterCode(JsonPlace const& place);
[[noreturn]] void FailInvalidEscape(char found, JsonPlace const& place);
[[noreturn]] void FailEndBehindSign(JsonPlace const& place);
[[noreturn]] void FailEndBehindExponentMark(JsonPlace const& place);
// Also for an exponent sign that another character follows.
[[noreturn]] void FailEndBeforeDigit(JsonPlace const& place);
[[noreturn]] void FailExpectedDigit(char found, JsonPlace const& place);
// `word`: null, true or false, as the message has it.
[[noreturn]] void FailEndInWord(char const* word, JsonPlace const& place);
[[noreturn]] void FailWrongWord(char const* word, JsonPlace const& place);

// Of the strict reading.
[[noreturn]] void FailControlCharacter(char found, JsonPlace const& place);
[[noreturn]] void FailInvalidSurrogate(JsonPlace const& place);
[[noreturn]] void FailInvalidUtf8(JsonPlace const& place);
[[noreturn]] void FailExpectedEnd(char found, JsonPlace const& place);
[[noreturn]] void FailNameTwice(std::string const& name, JsonPlace const& place);
[[noreturn]] void FailNoPlainValue(std::string const& name, JsonPlace const& place);
[[noreturn]] void FailSeveralRoots();
[[noreturn]] void FailNoJsonRoot();

// Conversion to XML.
[[noreturn]] void FailEmptyName(std::string const& path);
[[noreturn]] void FailArrayWithoutName(std::string const& path);
[[noreturn]] void FailElementName(std::string const& name);
[[noreturn]] void FailAttributeName(std::string const& name);
[[noreturn]] void FailAttributeValue(std::string const& value);
[[noreturn]] void FailElementValue(std::string const& value);

// Entry points.
[[noreturn]] void FailEmptyJsonText();
[[noreturn]] void FailEmptyJsonStream();
[[noreturn]] void FailReadingConvertedXml(std::string const& xml, CZvException const& cause);

} // namespace ZvXmlLib16
