// The calendar behind dates and durations: the Gregorian one, continued in both directions, with a year 0.
#pragma once

namespace ZvXmlLib16::detail {

constexpr bool IsLeapYear(long long year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// The length of a month without a year, so February has 29. The month is 1 to 12.
constexpr unsigned LongestMonth(unsigned month) noexcept {
    constexpr unsigned char kLengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kLengths[month - 1];
}
constexpr unsigned DaysInMonth(long long year, unsigned month) noexcept {
    return month == 2 && !IsLeapYear(year) ? 28 : LongestMonth(month);
}
// In an ordinary year. The month is 1 to 12.
unsigned DaysBeforeMonth(unsigned month) noexcept;

// Division that rounds towards minus infinity; the remainder lies from 0 to divisor - 1. The divisor is
// positive.
constexpr long long FloorQuotient(long long number, long long divisor) noexcept {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}
constexpr long long FloorRemainder(long long number, long long divisor) noexcept {
    return number % divisor + (number % divisor < 0 ? divisor : 0);
}

struct CalendarDate {
    long long year;
    unsigned month;
    unsigned day;
};

// Days since 1970-01-01. A month or day out of range counts on: February 31 is March 3 or 2.
long long DayNumber(long long year, long long month, long long day) noexcept;
CalendarDate DateOfDay(long long dayNumber) noexcept;

struct CalendarTime {
    CalendarDate date;
    unsigned hour;
    unsigned minute;
    unsigned second;
};

// From seconds since 1970, UTC.
CalendarTime TimeOfInstant(long long instant) noexcept;

} // namespace ZvXmlLib16::detail
