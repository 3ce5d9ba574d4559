// Every failure of the JSON forms. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/json/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

// All failures of the grammar end with the position.
[[noreturn]] void FailAt(JsonPlace const& place, std::string const& what) {
    CZvValidationException failure(
        what + FormatString(" at line %d, position %d.", place.line, place.position), place.path);
    // A line end is at position 0 of the line behind it.
    failure.SetPosition(static_cast<std::uint64_t>(place.line),
                        static_cast<std::uint64_t>(std::max(place.position, 1)));
    throw failure;
}

// What is expected, and the character found in its place.
[[noreturn]] void FailFound(JsonPlace const& place, char const* expected, char found) {
    FailAt(place, FormatString("%s, found '%c'", expected, found));
}

} // namespace

void FailUnknownNamespace(std::string const& ns) {
    throw CZvException(FormatString("Unknown Namespace: %s.", ns.c_str()));
}

void FailContentAfterScalar() {
    throw CZvException("In JSON nothing can follow the text of an element that began with its text.");
}

void FailJsonTooDeep(JsonPlace const& place) {
    FailAt(place, "JSON exceeded depth limit");
}

void FailExpectedValue(char found, JsonPlace const& place) {
    FailFound(place, "Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null'", found);
}

void FailEndBehindBrace(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected Object terminator character '}}'");
}

void FailEndInObject(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected Object terminator character '}'");
}

void FailExpectedName(char found, JsonPlace const& place) {
    FailFound(place, "Expected quotation mark character '\"' before Name", found);
}

void FailEndBehindName(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected Object Name/Value separator character ':'");
}

void FailExpectedColon(char found, JsonPlace const& place) {
    FailFound(place, "Expected Object Name/Value separator character ':'", found);
}

void FailEndBehindColon(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected Object Value");
}

void FailExpectedObjectComma(char found, JsonPlace const& place) {
    FailFound(place, "Expected Object separator character ','", found);
}

void FailEndInArray(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected Array terminator character ']'");
}

void FailExpectedArrayComma(char found, JsonPlace const& place) {
    FailFound(place, "Expected Array separator character ','", found);
}

void FailEndInString(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected string value");
}

void FailEndInCharacterCode(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected 4 hexadecimal digits'\\uxxxx'");
}

void FailInvalidEscape(char found, JsonPlace const& place) {
    FailAt(place, FormatString("Invalid Escape Character '%c'", found));
}

void FailEndBehindSign(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected a number");
}

void FailEndBehindExponentMark(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected '+', '-' or a number");
}

void FailEndBeforeDigit(JsonPlace const& place) {
    FailAt(place, "Unexpected End of File. Expected a digit '0' to '9'");
}

void FailExpectedDigit(char found, JsonPlace const& place) {
    FailFound(place, "Expected a digit '0' to '9'", found);
}

void FailEndInWord(char const* word, JsonPlace const& place) {
    FailAt(place, FormatString("Unexpected End of File. Expected value '%s'", word));
}

void FailWrongWord(char const* word, JsonPlace const& place) {
    FailAt(place, FormatString("Expected '%s'", word));
}

void FailEmptyName(std::string const& path) {
    throw CZvValidationException("JSON item has an empty Name.", path);
}

void FailArrayWithoutName(std::string const& path) {
    throw CZvValidationException("JSON Array has no Name.", path);
}

void FailElementName(std::string const& name) {
    throw CZvInvalidStateException(
        FormatString("Failed to convert name '%s' to Element name in XML.", name.c_str()));
}

void FailAttributeValue(std::string const& value) {
    throw CZvInvalidStateException(
        FormatString("Failed to convert value '%s' to Attribute string value in XML.", value.c_str()));
}

void FailElementValue(std::string const& value) {
    throw CZvInvalidStateException(
        FormatString("Failed to convert value '%s' to Element string value in XML.", value.c_str()));
}

void FailEmptyJsonText() {
    throw CZvException("JSON String is empty!");
}

void FailEmptyJsonStream() {
    throw CZvException("JSON Stream is empty!");
}

void FailReadingConvertedXml(std::string const& xml, CZvException const& cause) {
    throw CZvException("Error converting JSON to XML:\n" + xml, cause);
}

void FailElementPlaceInJson(std::string const& name) {
    throw CZvInvalidStateException(
        FormatString("JSON can not express the Element [%s] in this place.", name.c_str()));
}

void FailTextPlaceInJson(std::string const& name) {
    throw CZvInvalidStateException(
        FormatString("The place of the text in [%s] can not be expressed in JSON.", name.c_str()));
}

void FailControlCharacter(char found, JsonPlace const& place) {
    FailAt(place, FormatString("Invalid control character [U+%04X] in string", unsigned(found)));
}

void FailInvalidSurrogate(JsonPlace const& place) {
    FailAt(place, "Invalid surrogate in string");
}

void FailInvalidUtf8(JsonPlace const& place) {
    FailAt(place, "Invalid UTF-8 in string");
}

void FailExpectedEnd(char found, JsonPlace const& place) {
    FailFound(place, "Expected the end of JSON", found);
}

void FailNameTwice(std::string const& name, JsonPlace const& place) {
    FailAt(place, FormatString("The Name '%s' stands twice in a JSON Object", name.c_str()));
}

void FailNoPlainValue(std::string const& name, JsonPlace const& place) {
    FailAt(place, FormatString("The JSON Attribute '%s' has no plain value", name.c_str()));
}

void FailSeveralRoots() {
    throw CZvValidationException("JSON has more than one root element, set a RootElementName.", "");
}

void FailNoJsonRoot() {
    throw CZvValidationException("JSON has no root element.", "");
}

void FailAttributeName(std::string const& name) {
    throw CZvInvalidStateException(
        FormatString("Failed to convert name '%s' to Attribute name in XML.", name.c_str()));
}

} // namespace ZvXmlLib16
