// CDateTime from its lexical forms.
#include "zvxmllib/values/dates/DateTime.h"

#include "zvxmllib/values/dates/Calendar.h"
#include "zvxmllib/values/dates/DateTimeFailures.h"
#include "zvxmllib/values/dates/DateTimeFields.h"
#include "zvxmllib/values/text/TextParts.h"

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kOffsetLength = 6; // +hh:mm

struct DateFields {
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
};

inline bool ReadYear(char const* at, unsigned& year) {
    unsigned century = 0;
    unsigned yearOfCentury = 0;
    if (!detail::ReadTwoDigits(at, century) || !detail::ReadTwoDigits(at + 2, yearOfCentury))
        return false;
    year = century * 100 + yearOfCentury;
    return true;
}

// CCYY-MM-DD
inline bool ReadFullDate(char const* at, DateFields& fields) {
    return ReadYear(at, fields.year) && at[4] == '-' && detail::ReadTwoDigits(at + 5, fields.month) &&
           at[7] == '-' && detail::ReadTwoDigits(at + 8, fields.day);
}

struct ClockFields {
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
};

constexpr std::size_t kDateLength = 10;
constexpr std::size_t kClockLength = 8;

// hh:mm:ss, in range
inline bool ReadClock(char const* at, ClockFields& fields) {
    return detail::ReadTwoDigits(at, fields.hour) && at[2] == ':' &&
           detail::ReadTwoDigits(at + 3, fields.minute) && at[5] == ':' &&
           detail::ReadTwoDigits(at + 6, fields.second) && fields.hour < 24 && fields.minute < 60 &&
           fields.second < 60;
}

// +hh:mm or -hh:mm; the range is not checked
inline bool ReadOffset(char const* at, unsigned& hour, unsigned& minute) {
    return (at[0] == '+' || at[0] == '-') && detail::ReadTwoDigits(at + 1, hour) && at[3] == ':' &&
           detail::ReadTwoDigits(at + 4, minute);
}

inline bool IsInRange(DateFields const& fields) {
    return fields.year != 0 && fields.month >= 1 && fields.month <= 12 && fields.day >= 1 &&
           fields.day <= detail::DaysInMonth(fields.year, fields.month);
}

// The forms with a year, without sign and zone. No type if the text has none of them.
CDateTime::DTType ReadWithYear(std::string_view text, DateFields& fields) {
    char const* const at = text.data();
    if (text.size() == 4 && ReadYear(at, fields.year))
        return CDateTime::dt_gYear;
    if (text.size() == 7 && ReadYear(at, fields.year) && at[4] == '-' &&
        detail::ReadTwoDigits(at + 5, fields.month))
        return CDateTime::dt_gYearMonth;
    if (text.size() == kDateLength && ReadFullDate(at, fields))
        return CDateTime::dt_date;
    return CDateTime::dt_yearZero;
}

// The forms that begin with two minus signs, without zone.
CDateTime::DTType ReadWithoutYear(std::string_view text, DateFields& fields) {
    char const* const at = text.data();
    // Six characters are --MM--, of which the last two are ignored.
    if ((text.size() == 4 || text.size() == 6) && detail::ReadTwoDigits(at + 2, fields.month))
        return CDateTime::dt_gMonth;
    if (text.size() == 5 && at[2] == '-' && detail::ReadTwoDigits(at + 3, fields.day))
        return CDateTime::dt_gDay;
    if (text.size() == 7 && detail::ReadTwoDigits(at + 2, fields.month) && at[4] == '-' &&
        detail::ReadTwoDigits(at + 5, fields.day))
        return CDateTime::dt_gMonthDay;
    return CDateTime::dt_yearZero;
}

} // namespace

void CDateTime::ParseXSDDateTime(char const* text) {
    if (text == nullptr)
        FailDateTimeNull();
    ParseXSDDateTime(std::string_view(text));
}

void CDateTime::ParseXSDDateTime(std::string_view text) {
    if (detail::ReadPlainDateTime(text, *this))
        return;
    text = detail::UpToNul(text);
    std::size_t const separator = text.find('T');
    if (separator == std::string_view::npos)
        FailDateTimeWithoutT(text);
    Clear();
    SetDatePart(text.substr(0, separator));
    if (m_type != dt_date)
        FailDateTimeForm(text);
    SetXSDTime(text.substr(separator + 1));
    m_type = dt_dateTime;
    Validate();
}

void CDateTime::ParseXSDDate(char const* text) {
    if (text == nullptr) {
        Clear();
        FailDateNull();
    }
    ParseXSDDate(std::string_view(text));
}

void CDateTime::ParseXSDDate(std::string_view text) {
    Clear();
    SetXSDDate(detail::UpToNul(text));
    Validate();
}

void CDateTime::ParseXSDTime(char const* text) {
    if (text == nullptr) {
        Clear();
        FailTimeNull();
    }
    ParseXSDTime(std::string_view(text));
}

void CDateTime::ParseXSDTime(std::string_view text) {
    Clear();
    SetXSDTime(detail::UpToNul(text));
    Validate();
}

void CDateTime::ParseXSDDateTime(std::string_view text, bool keepZoneSign) {
    ParseXSDDateTime(text);
    if (keepZoneSign)
        KeepZoneSign(detail::UpToNul(text));
}

void CDateTime::ParseXSDDate(std::string_view text, bool keepZoneSign) {
    ParseXSDDate(text);
    if (keepZoneSign)
        KeepZoneSign(detail::UpToNul(text));
}

void CDateTime::ParseXSDTime(std::string_view text, bool keepZoneSign) {
    ParseXSDTime(text);
    if (keepZoneSign)
        KeepZoneSign(detail::UpToNul(text));
}

// The text has been read, and so ends in the offset if there is one.
void CDateTime::KeepZoneSign(std::string_view text) noexcept {
    m_isZoneNegative =
        m_hasOffset && m_zoneHour == 0 && m_zoneMinute != 0 && text[text.size() - kOffsetLength] == '-';
}

void CDateTime::SetXSDDate(std::string_view text) {
    if (text.find('T') != std::string_view::npos)
        FailDateWithT();
    SetDatePart(text);
}

// The text has no T. Its last character, or a colon anywhere, shows that there is a zone.
void CDateTime::SetDatePart(std::string_view text) {
    if (text.empty())
        FailDateEmpty();

    DateFields fields;
    DTType type = dt_yearZero;
    bool isNegative = false;
    std::string_view zone;
    if (text.size() == kDateLength && ReadFullDate(text.data(), fields)) { // most dates by far
        type = dt_date;
    } else {
        fields = DateFields();
        bool const isZulu = text.back() == 'Z';
        bool const hasColon = text.find(':') != std::string_view::npos;
        if (isZulu && hasColon)
            FailDateZone();
        std::size_t const zoneLength = isZulu ? 1 : hasColon ? kOffsetLength : 0;
        if (text.size() <= zoneLength)
            FailDateForm(text);
        std::string_view date = text.substr(0, text.size() - zoneLength);
        zone = text.substr(date.size());
        // The signs may lie within what is counted as the zone.
        if (text.substr(0, 2) == "--") {
            type = ReadWithoutYear(date, fields);
        } else {
            isNegative = date.front() == '-';
            type = ReadWithYear(date.substr(isNegative ? 1 : 0), fields);
        }
        if (type == dt_yearZero)
            FailDateForm(text);
    }

    int const year = static_cast<int>(fields.year);
    m_year = static_cast<short>(isNegative ? -year : year);
    m_month = static_cast<unsigned char>(fields.month);
    m_day = static_cast<unsigned char>(fields.day);
    m_type = type;
    if (!zone.empty())
        SetZone(zone);
}

void CDateTime::SetXSDTime(std::string_view text) {
    if (text.empty())
        FailTimeEmpty();
    ClockFields clock;
    if (text.size() < kClockLength || !ReadClock(text.data(), clock))
        FailTimeForm(text);
    m_hour = static_cast<unsigned char>(clock.hour);
    m_minute = static_cast<unsigned char>(clock.minute);
    m_second = static_cast<unsigned char>(clock.second);
    std::size_t position = kClockLength;
    if (position < text.size() && text[position] == '.') {
        ++position;
        detail::SecondFraction const fraction = detail::ReadFraction(text.substr(position));
        if (fraction.isTooLong)
            FailTimeFraction(text);
        m_milliSecond = fraction.milliSecond;
        m_microSecond = fraction.microSecond;
        m_nanoSecond = fraction.nanoSecond;
        position += fraction.length;
    }
    if (position < text.size())
        SetZone(text.substr(position));
    m_type = dt_time;
}

// Text that begins neither with Z nor with a sign is not a zone, and is ignored.
void CDateTime::SetZone(std::string_view text) {
    char const first = text.front();
    if (first == 'Z')
        return SetUTC();
    if (first != '+' && first != '-')
        return;
    unsigned hour = 0;
    unsigned minute = 0;
    if (text.size() != kOffsetLength || !ReadOffset(text.data(), hour, minute))
        FailZoneForm(text);
    int const signedHour = static_cast<int>(hour == 24 ? 0 : hour);
    SetTimeZone(static_cast<short>(first == '-' ? -signedHour : signedHour),
                static_cast<unsigned char>(minute));
}

bool detail::ReadPlainDateTime(std::string_view text, CDateTime& value) noexcept {
    DateFields date;
    ClockFields clock;
    if (text.size() < kDateLength + 1 + kClockLength || !ReadFullDate(text.data(), date) ||
        text[kDateLength] != 'T' || !ReadClock(text.data() + kDateLength + 1, clock) || !IsInRange(date))
        return false;
    text.remove_prefix(kDateLength + 1 + kClockLength);

    SecondFraction fraction;
    if (!text.empty() && text.front() == '.') {
        fraction = ReadFraction(text.substr(1));
        if (fraction.length == 0 || fraction.isTooLong)
            return false;
        text.remove_prefix(fraction.length + 1);
    }
    unsigned zoneHour = 0;
    unsigned zoneMinute = 0;
    bool const isZulu = text.size() == 1 && text.front() == 'Z';
    bool const hasOffset = text.size() == kOffsetLength && ReadOffset(text.data(), zoneHour, zoneMinute) &&
                           zoneHour < 24 && zoneMinute < 60;
    if (!text.empty() && !isZulu && !hasOffset)
        return false;

    value.m_type = CDateTime::dt_dateTime;
    value.m_year = static_cast<short>(date.year);
    value.m_month = static_cast<unsigned char>(date.month);
    value.m_day = static_cast<unsigned char>(date.day);
    value.m_hour = static_cast<unsigned char>(clock.hour);
    value.m_minute = static_cast<unsigned char>(clock.minute);
    value.m_second = static_cast<unsigned char>(clock.second);
    value.m_milliSecond = fraction.milliSecond;
    value.m_microSecond = fraction.microSecond;
    value.m_nanoSecond = fraction.nanoSecond;
    value.m_hasZone = !text.empty();
    value.m_hasOffset = hasOffset;
    int const signedHour = static_cast<int>(zoneHour);
    value.m_zoneHour = static_cast<short>(hasOffset && text.front() == '-' ? -signedHour : signedHour);
    value.m_zoneMinute = static_cast<unsigned char>(zoneMinute);
    value.m_isZoneNegative = false;
    return true;
}

detail::SecondFraction detail::ReadFraction(std::string_view text) noexcept {
    constexpr std::size_t kDigits = 9;
    constexpr unsigned kScales[kDigits + 1] = {1'000'000'000, 100'000'000, 10'000'000, 1'000'000, 100'000,
                                               10'000,        1'000,       100,        10,        1};
    SecondFraction fraction;
    unsigned nanoSeconds = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && digits < kDigits && IsDigit(text[digits]); ++digits)
        nanoSeconds = nanoSeconds * 10 + static_cast<unsigned>(text[digits] - '0');
    fraction.length = digits;
    fraction.isTooLong = digits == kDigits && digits < text.size() && IsDigit(text[digits]);
    nanoSeconds *= kScales[digits];
    fraction.milliSecond = static_cast<unsigned short>(nanoSeconds / 1'000'000);
    fraction.microSecond = static_cast<unsigned short>(nanoSeconds / 1'000 % 1'000);
    fraction.nanoSecond = static_cast<unsigned short>(nanoSeconds % 1'000);
    return fraction;
}

} // namespace ZvXmlLib16
