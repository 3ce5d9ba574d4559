// The calendar behind dates and durations.
#include "zvxmllib/values/dates/Calendar.h"

namespace ZvXmlLib16::detail {

namespace {

constexpr unsigned short kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

// The calendar repeats after 400 years. Cycles are counted from March 1 of the year 0, so that the day that
// a leap year adds is the last of its year.
constexpr long long kDaysOfCycle = 146'097;
constexpr long long kDaysOfCentury = 36'524;
constexpr long long kDaysOfFourYears = 1'461;
constexpr long long kEpochInCycles = 719'468; // from 0000-03-01 to 1970-01-01

// Days from March 1 to the first of the month that comes `months` later. Five months from March or August on
// have 153 days.
constexpr long long DaysSinceMarch(long long months) {
    return (153 * months + 2) / 5;
}

constexpr long long kSecondsOfDay = 86'400;

} // namespace

unsigned DaysBeforeMonth(unsigned month) noexcept {
    return kDaysBefore[month - 1];
}

long long DayNumber(long long year, long long month, long long day) noexcept {
    long long const months = year * 12 + month - 3; // since March of the year 0
    long long const marchYear = FloorQuotient(months, 12);
    long long const cycle = FloorQuotient(marchYear, 400);
    long long const yearOfCycle = FloorRemainder(marchYear, 400);
    long long const dayOfYear = DaysSinceMarch(FloorRemainder(months, 12)) + day - 1;
    long long const dayOfCycle = yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;
    return cycle * kDaysOfCycle + dayOfCycle - kEpochInCycles;
}

CalendarDate DateOfDay(long long dayNumber) noexcept {
    long long const day = dayNumber + kEpochInCycles;
    long long const dayOfCycle = FloorRemainder(day, kDaysOfCycle);
    // Without the leap days before it, each year has 365 days.
    long long const yearOfCycle = (dayOfCycle - dayOfCycle / (kDaysOfFourYears - 1) +
                                   dayOfCycle / kDaysOfCentury - dayOfCycle / (kDaysOfCycle - 1)) /
                                  365;
    long long const dayOfYear = dayOfCycle - (yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100);
    long long const monthsSinceMarch = (5 * dayOfYear + 2) / 153;
    bool const isNextYear = monthsSinceMarch >= 10;
    long long const year = FloorQuotient(day, kDaysOfCycle) * 400 + yearOfCycle + (isNextYear ? 1 : 0);
    return {year, static_cast<unsigned>(monthsSinceMarch + (isNextYear ? -9 : 3)),
            static_cast<unsigned>(dayOfYear - DaysSinceMarch(monthsSinceMarch) + 1)};
}

CalendarTime TimeOfInstant(long long instant) noexcept {
    unsigned const secondOfDay = static_cast<unsigned>(FloorRemainder(instant, kSecondsOfDay));
    return {DateOfDay(FloorQuotient(instant, kSecondsOfDay)), secondOfDay / 3600, secondOfDay / 60 % 60,
            secondOfDay % 60};
}

} // namespace ZvXmlLib16::detail
