// CDateTime: adding a duration (XML Schema Part 2, appendix E).
#include "zvxmllib/values/dates/Calendar.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"

namespace ZvXmlLib16 {

namespace {

// Adds to a field that wraps at `modulus`, and returns what goes on to the next field. The amount may have
// all of its 64 bits, so it is divided before it is added.
template <class Field>
long long AddWrapping(Field& field, long long carry, unsigned long long amount, bool isNegative,
                      unsigned modulus) {
    long long const wholes = static_cast<long long>(amount / modulus);
    long long const rest = static_cast<long long>(amount % modulus);
    long long const sum = field + carry + (isNegative ? -rest : rest);
    field = static_cast<Field>(detail::FloorRemainder(sum, modulus));
    return detail::FloorQuotient(sum, modulus) + (isNegative ? -wholes : wholes);
}

// Within its month a day moves as a number, even where the month has no such day (February 31 less one is
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

// All fields take part, whatever the type: a month that the type lacks counts as 0 and becomes 12 of the year
// before. The day is not cut to the length of its month, and nothing is validated.
void CDateTime::AddDateTimeSpan(CDateTimeSpan const& span) {
    bool const isNegative = span.IsNegative();
    auto const withSign = [isNegative](long long amount) { return isNegative ? -amount : amount; };

    long long const months = m_month - 1 + withSign(span.GetMonths());
    long long const year = m_year + detail::FloorQuotient(months, 12) + withSign(span.GetYears());
    unsigned const month = static_cast<unsigned>(detail::FloorRemainder(months, 12) + 1);

    long long carry = AddWrapping(m_nanoSecond, 0, span.GetNanoSeconds(), isNegative, 1000);
    carry = AddWrapping(m_microSecond, carry, span.GetMicroSeconds(), isNegative, 1000);
    carry = AddWrapping(m_milliSecond, carry, span.GetMilliSeconds(), isNegative, 1000);
    carry = AddWrapping(m_second, carry, span.GetSeconds(), isNegative, 60);
    carry = AddWrapping(m_minute, carry, span.GetMinutes(), isNegative, 60);
    carry = AddWrapping(m_hour, carry, span.GetHours(), isNegative, 24);

    detail::CalendarDate const date = AddDays(year, month, m_day, carry + withSign(span.GetDays()));
    m_year = static_cast<short>(date.year);
    m_month = static_cast<unsigned char>(date.month);
    m_day = static_cast<unsigned char>(date.day);
}

CDateTime CDateTime::GetNormalized() const {
    CDateTime result(*this);
    if (!m_hasOffset)
        return result;
    bool const isWest = m_zoneHour < 0;
    CDateTimeSpan offset(static_cast<std::uint32_t>(isWest ? -m_zoneHour : m_zoneHour), m_zoneMinute, 0);
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

} // namespace ZvXmlLib16
