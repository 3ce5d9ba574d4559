// CDateTime to its lexical forms.
#include "zvxmllib/values/dates/DateTime.h"

#include "zvxmllib/values/dates/DateTimeFields.h"

#include <charconv>
#include <cstring>

namespace ZvXmlLib16 {

namespace {

// Field setters do not check: -32768-255-255T255:255:255.655356553565535-23:59 is the longest text.
constexpr std::size_t kLongestText = 64;

constexpr char kNotSet[] = "Error: Date Not Set";

} // namespace

std::string CDateTime::ToString() const {
    return ToString("s");
}

std::string CDateTime::ToString(char const* format) const {
    if (IsNotSet())
        return kNotSet;
    if (format == nullptr || *format == '\0' || std::strcmp(format, "G") == 0)
        return std::string();
    if (std::strcmp(format, "s") != 0)
        return std::string("Unknown Format: ") + format;
    char text[kLongestText];
    return std::string(text, static_cast<std::size_t>(PrintTo(text) - text));
}

std::string& CDateTime::Print(std::string& text) const {
    if (IsNotSet())
        return text = kNotSet;
    char buffer[kLongestText];
    return text.assign(buffer, static_cast<std::size_t>(PrintTo(buffer) - buffer));
}

// A time may be all zeros.
bool CDateTime::IsNotSet() const noexcept {
    if (m_type == dt_time)
        return false;
    return m_type == dt_yearZero ||
           (m_year == 0 && m_month == 0 && m_day == 0 && m_hour == 0 && m_minute == 0 && m_second == 0 &&
            m_milliSecond == 0 && m_microSecond == 0 && m_nanoSecond == 0);
}

char* CDateTime::PrintTo(char* at) const noexcept {
    if (IsOneOf(detail::kYearTypes)) {
        int const year = m_year;
        if (year < 0)
            *at++ = '-';
        unsigned const magnitude = static_cast<unsigned>(year < 0 ? -year : year);
        at = detail::PrintTwoDigits(at, magnitude / 100);
        at = detail::PrintTwoDigits(at, magnitude % 100);
    } else if (m_type != dt_time) {
        *at++ = '-';
    }
    if (IsOneOf(detail::kMonthTypes)) {
        *at++ = '-';
        at = detail::PrintTwoDigits(at, m_month);
    } else if (m_type == dt_gDay) {
        *at++ = '-';
    }
    if (IsOneOf(detail::kDayTypes)) {
        *at++ = '-';
        at = detail::PrintTwoDigits(at, m_day);
    }
    if (m_type == dt_dateTime)
        *at++ = 'T';
    if (IsOneOf(detail::kTimeTypes)) {
        at = detail::PrintTwoDigits(at, m_hour);
        *at++ = ':';
        at = detail::PrintTwoDigits(at, m_minute);
        *at++ = ':';
        at = detail::PrintTwoDigits(at, m_second);
        at = detail::PrintFraction(at, m_milliSecond, m_microSecond, m_nanoSecond);
    }
    if (m_hasOffset) {
        *at++ = IsZoneNegative() ? '-' : '+';
        at = detail::PrintTwoDigits(at, static_cast<unsigned>(m_zoneHour < 0 ? -m_zoneHour : m_zoneHour));
        *at++ = ':';
        at = detail::PrintTwoDigits(at, m_zoneMinute);
    } else if (m_hasZone) {
        *at++ = 'Z';
    }
    return at;
}

char* detail::PrintNumber(char* at, unsigned number) noexcept {
    constexpr int kMostDigits = 5; // no field has more than 16 bits
    return std::to_chars(at, at + kMostDigits, number).ptr;
}

char* detail::PrintFraction(char* at, unsigned milliSecond, unsigned microSecond,
                            unsigned nanoSecond) noexcept {
    if (milliSecond == 0 && microSecond == 0 && nanoSecond == 0)
        return at;
    *at++ = '.';
    char const* const firstDigit = at;
    auto const printGroup = [&at](unsigned number) {
        if (number > 999) {
            at = PrintNumber(at, number);
        } else {
            *at++ = static_cast<char>('0' + number / 100);
            at = PrintTwoDigits(at, number % 100);
        }
    };
    printGroup(milliSecond);
    if (microSecond != 0 || nanoSecond != 0)
        printGroup(microSecond);
    if (nanoSecond != 0)
        printGroup(nanoSecond);
    while (at - firstDigit > 1 && at[-1] == '0')
        --at;
    return at;
}

} // namespace ZvXmlLib16
