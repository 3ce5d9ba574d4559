// Every failure of dates and durations. The texts are a contract with callers.
#pragma once

#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// The state of the object. `operation` is the accessor as callers name it.
[[noreturn]] void FailFieldAccess(char const* operation, char const* typeName);
[[noreturn]] void FailTypeChange(char const* wanted, char const* actual);
[[noreturn]] void FailNoTimeZone();

// Use of a value.
[[noreturn]] void FailTypeOfSource(char const* wanted, char const* source);
[[noreturn]] void FailUnknownDateType(int type);
[[noreturn]] void FailFileTime();
[[noreturn]] void FailInstantOfType(char const* typeName);
[[noreturn]] void FailSystemTimeOfType(char const* typeName);
[[noreturn]] void FailTimeZoneRange(int hour, int minute);
[[noreturn]] void FailDifference(std::string const& left, std::string const& right);

// Fields out of range. `name` is that of the field at the head of the message, `variable` the one in its
// condition.
[[noreturn]] void FailYearZero();
[[noreturn]] void FailMonthRange(unsigned month);
[[noreturn]] void FailYearRange(long long year, int minimum, int maximum);
[[noreturn]] void FailDayOfMonthAndYear(unsigned day);
[[noreturn]] void FailDayOfMonth(unsigned day);
[[noreturn]] void FailDayRange(unsigned day);
[[noreturn]] void FailTimeFieldRange(char const* name, unsigned value, char const* variable,
                                     unsigned maximum);
[[noreturn]] void FailFieldOfType(char const* name, long long value, char const* typeName);

// Texts.
[[noreturn]] void FailDateNull();
[[noreturn]] void FailDateEmpty();
[[noreturn]] void FailDateWithT();
[[noreturn]] void FailDateZone();
[[noreturn]] void FailDateForm(std::string_view text);
[[noreturn]] void FailTimeNull();
[[noreturn]] void FailTimeEmpty();
[[noreturn]] void FailTimeForm(std::string_view text);
[[noreturn]] void FailTimeFraction(std::string_view text);
[[noreturn]] void FailZoneForm(std::string_view text);
[[noreturn]] void FailDateTimeNull();
[[noreturn]] void FailDateTimeWithoutT(std::string_view text);
[[noreturn]] void FailDateTimeForm(std::string_view text);
[[noreturn]] void FailDurationNull();
[[noreturn]] void FailDurationEmpty();
[[noreturn]] void FailDurationForm(std::string_view text);
[[noreturn]] void FailDurationFraction(std::string_view text);

} // namespace ZvXmlLib16
