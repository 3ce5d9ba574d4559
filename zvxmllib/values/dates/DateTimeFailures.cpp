// Every failure of dates and durations. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/values/dates/DateTimeFailures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailFieldAccess(char const* operation, char const* typeName) {
    throw CZvInvalidStateException(FormatString("Failed to %s. Invalid Date Type: %s.", operation, typeName));
}

void FailTypeChange(char const* wanted, char const* actual) {
    throw CZvInvalidStateException(
        FormatString("Failed to copy CDateTime. Invalid Date Type: %s, expected: %s.", wanted, actual));
}

void FailNoTimeZone() {
    throw CZvInvalidStateException("TimeZone is not been used");
}

void FailTypeOfSource(char const* wanted, char const* source) {
    throw CZvInvalidValueException(
        FormatString("Attempting to set a CDateTime of type %s using an XmlDateTime of type %s. The source "
                     "CDateTime does not contian enough data to allow the conversion.",
                     wanted, source));
}

void FailUnknownDateType(int type) {
    throw CZvInvalidValueException(FormatString("Unknown date type %d.", type));
}

void FailFileTime() {
    throw CZvInvalidValueException("Failed to convert FILETIME to SYSTEMTIME");
}

void FailInstantOfType(char const* typeName) {
    throw CZvInvalidValueException(FormatString(
        "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: %s.", typeName));
}

void FailSystemTimeOfType(char const* typeName) {
    throw CZvInvalidValueException(FormatString(
        "Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: %s.", typeName));
}

void FailTimeZoneRange(int hour, int minute) {
    throw CZvInvalidValueException(FormatString("Invalid TimeZone [%d:%d]", hour, minute));
}

void FailDifference(std::string const& left, std::string const& right) {
    throw CZvInvalidValueException(
        FormatString("There is no difference between [%s] and [%s]", left.c_str(), right.c_str()));
}

void FailYearZero() {
    throw CZvInvalidValueException("Invalid Year Zero");
}

void FailMonthRange(unsigned month) {
    throw CZvInvalidValueException(FormatString("Invalid Month [%u] (1 <= month <= 12)", month));
}

void FailYearRange(long long year, int minimum, int maximum) {
    throw CZvInvalidValueException(
        FormatString("Invalid Year [%lld] (%d <= year <= %d && year != 0)", year, minimum, maximum));
}

void FailDayOfMonthAndYear(unsigned day) {
    throw CZvInvalidValueException(FormatString("Invalid Day [%u] (1 <= day <= days in month", day));
}

void FailDayOfMonth(unsigned day) {
    throw CZvInvalidValueException(FormatString("Invalid Day [%u] (1 <= day <= days in month)", day));
}

void FailDayRange(unsigned day) {
    throw CZvInvalidValueException(FormatString("Invalid Day [%u] (1 <= day <= 31)", day));
}

void FailTimeFieldRange(char const* name, unsigned value, char const* variable, unsigned maximum) {
    throw CZvInvalidValueException(
        FormatString("Invalid %s [%u] (0 <= %s <= %u)", name, value, variable, maximum));
}

void FailFieldOfType(char const* name, long long value, char const* typeName) {
    throw CZvInvalidValueException(FormatString("Invalid %s [%lld] for type %s", name, value, typeName));
}

void FailDateNull() {
    throw CZvInvalidValueException("Invalid Date (Null String)");
}

void FailDateEmpty() {
    throw CZvInvalidValueException("Invalid Date (Empty String)");
}

void FailDateWithT() {
    throw CZvInvalidValueException("Invalid Date ('T' not allowed)");
}

void FailDateZone() {
    throw CZvInvalidValueException("Invalid Date (Bad Zone value)");
}

void FailDateForm(std::string_view text) {
    throw CZvInvalidValueException(
        FormatString("Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", std::string(text).c_str()));
}

void FailTimeNull() {
    throw CZvInvalidValueException("Invalid Time (Null String)");
}

void FailTimeEmpty() {
    throw CZvInvalidValueException("Invalid XSD Time (Empty String)");
}

void FailTimeForm(std::string_view text) {
    throw CZvInvalidValueException(
        FormatString("Invalid XSD Time [%s] expected hh:mm:ss[.ff]", std::string(text).c_str()));
}

void FailTimeFraction(std::string_view text) {
    throw CZvInvalidValueException(
        FormatString("Invalid XSD Time [%s] Fraction part too long", std::string(text).c_str()));
}

void FailZoneForm(std::string_view text) {
    throw CZvInvalidValueException(FormatString("Invalid XSD Time Zone [%s].", std::string(text).c_str()));
}

void FailDateTimeNull() {
    throw CZvInvalidValueException("Invalid DateTime (Null String)");
}

void FailDateTimeWithoutT(std::string_view text) {
    throw CZvInvalidValueException(FormatString("Invalid XSD DateTime [%s].", std::string(text).c_str()));
}

void FailDateTimeForm(std::string_view text) {
    throw CZvInvalidValueException(FormatString("Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]",
                                                std::string(text).c_str()));
}

void FailDurationNull() {
    throw CZvInvalidValueException("Invalid XSD Duration (Null String)");
}

void FailDurationEmpty() {
    throw CZvInvalidValueException("Invalid XSD Duration (Empty String)");
}

void FailDurationForm(std::string_view text) {
    throw CZvInvalidValueException(FormatString(
        "Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]", std::string(text).c_str()));
}

void FailDurationFraction(std::string_view text) {
    throw CZvInvalidValueException(
        FormatString("Invalid XSD Duration [%s] Fraction part too long", std::string(text).c_str()));
}

} // namespace ZvXmlLib16
