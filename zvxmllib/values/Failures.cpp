// Every failure of the value types. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/values/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailAppendToSharedData(std::uint32_t holders) {
    throw CZvException(FormatString("Failed to append. [RefCount=%d]", static_cast<int>(holders)));
}

void FailReleaseSharedData(std::uint32_t holders) {
    throw CZvException(FormatString("Failed to release data. [RefCount=%d]", static_cast<int>(holders)));
}

void FailHexLength() {
    throw CZvException("Invalid length in hex string");
}

void FailHexDigit(char digit) {
    throw CZvException(FormatString("Invalid char in hex string [%c]", digit));
}

void FailDataIndex(std::uint32_t index) {
    throw CZvException(FormatString("Index Out of range [%d]", static_cast<int>(index)));
}

void FailWhitespaceRule() {
    throw CZvException("Unknown WhitespaceRule");
}

void FailNumberText(std::string_view text, char const* typeName) {
    throw CZvInvalidValueException(
        FormatString("The value [%s] can not be converted to a %s", std::string(text).c_str(), typeName));
}

void FailNumberTooLarge(std::string_view text, char const* typeName) {
    throw CZvInvalidValueException(
        FormatString("The value [%s] is to large to fit in a %s", std::string(text).c_str(), typeName));
}

void FailCharText(std::string_view text) {
    throw CZvInvalidValueException(
        FormatString("The value [%s] can not be a char as it is either empty of greater than 1 char long",
                     std::string(text).c_str()));
}

void FailBooleanText(std::string_view text) {
    throw CZvInvalidValueException(FormatString("A Boolean Value read from an XML document was invalid [%s]. "
                                                "Valid values are 'true', 'false', '1', or '0'",
                                                std::string(text).c_str()));
}

void FailZoneIsLost(std::string_view zone) {
    throw CZvInvalidValueException(
        FormatString("The time zone [%s] can not be kept", std::string(zone).c_str()));
}

void FailDecimalPlaces(std::string_view text, std::int32_t most) {
    throw CZvInvalidValueException(FormatString("The value [%s] has more than %d decimal places",
                                                std::string(text).c_str(), static_cast<int>(most)));
}

void FailWrittenText(std::string const& text, char const* name, std::string const& typeName) {
    throw CZvInvalidStateException(
        FormatString("The value [%s] of [%s] is no %s", text.c_str(), name, typeName.c_str()));
}

void FailZeroDivisor(char const* operation) {
    throw CZvInvalidValueException(FormatString("ERROR: Overflow in operator%s.", operation));
}

void FailNegativeSquareRoot() {
    throw CZvInvalidValueException("ERROR: Negative Number in function SquareRoot().");
}

void FailBeyondIntegerType(char const* typeName) {
    throw CZvInvalidValueException(FormatString("ERROR: Value out of bound of %s.", typeName));
}

void FailInfiniteInteger() {
    throw CZvInvalidValueException("ERROR: An infinite value can not be converted to an integer.");
}

void FailDecimalText(std::size_t position, std::string_view text) {
    throw CZvInvalidValueException(
        FormatString("The string representing a Decimal, contained an invalid char at position %d [%s].",
                     static_cast<int>(position), std::string(text).c_str()));
}

void FailBeyondDecimalTarget(char const* typeName) {
    throw CZvOverFlowException(FormatString("The Decimal value if to large to fit into a %s", typeName));
}

void FailTypeName(ItemType type) {
    throw CZvException(FormatString("Invalid Type %d", static_cast<int>(type)));
}

void FailTypeToString(ItemType type) {
    throw CZvException(FormatString("Invalid Type %d to convert to string", static_cast<int>(type)));
}

void FailUnknownType() {
    throw CZvException("Unknown Type");
}

void FailFacetOfInteger(char const* name, std::int32_t value) {
    throw CZvException(
        FormatString("Invalid Value for %s [%d]", name != nullptr ? name : "", static_cast<int>(value)));
}

void FailFacetOfReal(char const* name, double value) {
    throw CZvException(FormatString("Invalid Value for %s [%f]", name != nullptr ? name : "", value));
}

void FailFacetOfText(char const* name, std::string const& value) {
    throw CZvException(
        FormatString("Invalid Value for %s [%s].", name != nullptr ? name : "", value.c_str()));
}

void FailRegularExpression(std::string const& expression, std::string const& error) {
    throw CZvException(
        FormatString("Invalid Regular Expression: %s Error: '%s'", expression.c_str(), error.c_str()));
}

void FailPattern(std::string const& cause, char const* name, std::string const& value) {
    throw CZvException(FormatString("%s\nInvalid Value for %s [%s].", cause.c_str(),
                                    name != nullptr ? name : "", value.c_str()));
}

void FailFacetsOfType(std::string const& typeName) {
    throw CZvInvalidValueException("Unknown type [" + typeName + "].");
}

} // namespace ZvXmlLib16
