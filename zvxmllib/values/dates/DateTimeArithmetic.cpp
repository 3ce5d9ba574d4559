// CDateTime: adding a duration (XML Schema Part 2, appendix E).
#include "zvxmllib/values/dates/Calendar.h"
#include "zvxmllib/values/dates/DateTimeFailures.h"
#include "zvxmllib/values/dates/DateTimeFields.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"

#include <algorithm>

namespace ZvXmlLib16 {

namespace {

// Adds to a field that wraps at `modulus`, and returns the carry to the next field. The amount may use all 64
// bits, so it is divided before it is added.
template <class Field>
long long AddWrapping(Field& field, long long carry, unsigned long long amount, bool isNegative,
                      unsigned modulus) {
    long long const wholes = static_cast<long long>(amount / modulus);
    long long const rest = static_cast<long long>(amount % modulus);
    long long const sum = field + carry + (isNegative ? -rest : rest);
    field = static_cast<Field>(detail::FloorRemainder(sum, modulus));
    return detail::FloorQuotient(sum, modulus) + (isNegative ? -wholes : wholes);
}

// Within its month a day changes as a number, even if the month has no such day (February 31 minus one is
// February 30). Beyond it days are counted, at the same cost for any distance.
detail::CalendarDate AddDays(long long year, unsigned month, unsigned day, long long days) {
    long long const target = static_cast<long long>(day) + days;
    bool const isWithinMonth =
        days == 0 || (days < 0 && target >= 1) || (days > 0 && target <= detail::DaysInMonth(year, month));
    if (isWithinMonth)
        return {year, month, static_cast<unsigned>(target)};
    return detail::DateOfDay(detail::DayNumber(year, month, target));
}

} // namespace

// Returns the carry in days.
long long CDateTime::AddTime(CDateTimeSpan const& span) noexcept {
    bool const isNegative = span.IsNegative();
    long long carry = AddWrapping(m_nanoSecond, 0, span.GetNanoSeconds(), isNegative, 1000);
    carry = AddWrapping(m_microSecond, carry, span.GetMicroSeconds(), isNegative, 1000);
    carry = AddWrapping(m_milliSecond, carry, span.GetMilliSeconds(), isNegative, 1000);
    carry = AddWrapping(m_second, carry, span.GetSeconds(), isNegative, 60);
    carry = AddWrapping(m_minute, carry, span.GetMinutes(), isNegative, 60);
    return AddWrapping(m_hour, carry, span.GetHours(), isNegative, 24);
}

// All fields take part, whatever the type: a month that the type lacks counts as 0 and becomes 12 of the year
// before. The day is not cut to the length of its month, and nothing is validated.
void CDateTime::AddDateTimeSpan(CDateTimeSpan const& span) {
    bool const isNegative = span.IsNegative();
    auto const withSign = [isNegative](long long amount) { return isNegative ? -amount : amount; };

    long long const months = m_month - 1 + withSign(span.GetMonths());
    long long const year = m_year + detail::FloorQuotient(months, 12) + withSign(span.GetYears());
    unsigned const month = static_cast<unsigned>(detail::FloorRemainder(months, 12) + 1);

    long long const carry = AddTime(span);
    detail::CalendarDate const date = AddDays(year, month, m_day, carry + withSign(span.GetDays()));
    m_year = static_cast<short>(date.year);
    m_month = static_cast<unsigned char>(date.month);
    m_day = static_cast<unsigned char>(date.day);
}

CDateTime CDateTime::GetNormalized() const {
    CDateTime result(*this);
    if (!m_hasOffset)
        return result;
    bool const isWest = IsZoneNegative();
    CDateTimeSpan offset(static_cast<std::uint32_t>(m_zoneHour < 0 ? -m_zoneHour : m_zoneHour), m_zoneMinute,
                         0);
    if (!isWest)
        offset.Negate();
    result.AddDateTimeSpan(offset);
    result.SetTimeZone(0, 0);
    return result;
}

CDateTime CDateTime::operator+(CDateTimeSpan const& span) const {
    CDateTime result(*this);
    result.AddDateTimeSpan(span);
    return result;
}

CDateTime& CDateTime::operator+=(CDateTimeSpan const& span) {
    AddDateTimeSpan(span);
    return *this;
}

CDateTime CDateTime::operator-(CDateTimeSpan const& span) const {
    return *this + span.GetAsNegative();
}

CDateTime& CDateTime::operator-=(CDateTimeSpan const& span) {
    return *this += span.GetAsNegative();
}

CDateTimeSpan CDateTime::operator-(CDateTime const&) const {
    return CDateTimeSpan();
}

CDateTime CDateTime::AddDuration(CDateTimeSpan const& span) const {
    constexpr short kLeapYear = 4; // has all days that a date without a year may name
    bool const hasYear = IsOneOf(detail::kYearTypes);
    bool const hasMonth = IsOneOf(detail::kMonthTypes);
    bool const hasDay = IsOneOf(detail::kDayTypes);

    CDateTime sum(*this); // the date in the fields as they stand, then the time
    bool const isNegative = span.IsNegative();
    auto const withSign = [isNegative](long long amount) { return isNegative ? -amount : amount; };
    long long const months = (hasMonth ? m_month : 1) - 1 + withSign(span.GetMonths());
    long long const year =
        (hasYear ? m_year : kLeapYear) + detail::FloorQuotient(months, 12) + withSign(span.GetYears());
    unsigned const month = static_cast<unsigned>(detail::FloorRemainder(months, 12) + 1);
    long long const carry = sum.AddTime(span);
    unsigned const day = std::min<unsigned>(hasDay ? m_day : 1, detail::DaysInMonth(year, month));
    detail::CalendarDate const date =
        detail::DateOfDay(detail::DayNumber(year, month, day + carry + withSign(span.GetDays())));

    CDateTime result;
    bool const hasTime = IsOneOf(detail::kTimeTypes);
    result.SetDateTime(m_type, hasYear ? date.year : 0, hasMonth ? date.month : 0, hasDay ? date.day : 0,
                       hasTime ? sum.m_hour : 0U, hasTime ? sum.m_minute : 0U, hasTime ? sum.m_second : 0U,
                       hasTime ? sum.m_milliSecond : 0U, hasTime ? sum.m_microSecond : 0U,
                       hasTime ? sum.m_nanoSecond : 0U);
    result.m_hasZone = m_hasZone;
    result.m_hasOffset = m_hasOffset;
    result.m_zoneHour = m_zoneHour;
    result.m_zoneMinute = m_zoneMinute;
    result.m_isZoneNegative = m_isZoneNegative;
    return result;
}

// Without the fraction, in UTC; a time lies on some day that is the same for all.
long long CDateTime::SecondsOfInstant() const noexcept {
    long long const day = m_type == dt_time ? 0 : detail::DayNumber(m_year, m_month, m_day);
    long long const offset = (m_zoneHour < 0 ? -m_zoneHour : m_zoneHour) * 60 + m_zoneMinute;
    long long const minutes = (day * 24 + m_hour) * 60 + m_minute - (IsZoneNegative() ? -offset : offset);
    return minutes * 60 + m_second;
}

CDateTimeSpan CDateTime::GetDifference(CDateTime const& other) const {
    if (m_type != other.m_type || !IsOneOf(detail::kInstantTypes | detail::kTimeTypes) ||
        m_hasZone != other.m_hasZone)
        FailDifference(ToString(), other.ToString());
    auto const nanoSecondsOf = [](CDateTime const& value) {
        return (value.m_milliSecond * 1000LL + value.m_microSecond) * 1000 + value.m_nanoSecond;
    };
    constexpr long long kSecond = 1'000'000'000;
    long long seconds = SecondsOfInstant() - other.SecondsOfInstant();
    long long nanoSeconds = nanoSecondsOf(*this) - nanoSecondsOf(other);
    bool const isNegative = seconds < 0 || (seconds == 0 && nanoSeconds < 0);
    if (isNegative) {
        seconds = -seconds;
        nanoSeconds = -nanoSeconds;
    }
    if (nanoSeconds < 0) {
        --seconds;
        nanoSeconds += kSecond;
    }
    auto const part = [](long long number) { return static_cast<unsigned short>(number % 1000); };
    CDateTimeSpan result(
        0, 0, static_cast<std::uint32_t>(seconds / 86'400), static_cast<std::uint32_t>(seconds / 3600 % 24),
        static_cast<unsigned long long>(seconds / 60 % 60), static_cast<unsigned long long>(seconds % 60),
        part(nanoSeconds / 1'000'000), part(nanoSeconds / 1000), part(nanoSeconds));
    if (isNegative)
        result.Negate();
    return result;
}

} // namespace ZvXmlLib16
