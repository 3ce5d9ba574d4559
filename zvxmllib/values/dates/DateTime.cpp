// CDateTime: types, fields, conversions from and to outside forms.
#include "zvxmllib/values/dates/DateTime.h"

#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/platform/Clock.h"
#include "zvxmllib/values/dates/Calendar.h"
#include "zvxmllib/values/dates/DateTimeFailures.h"
#include "zvxmllib/values/dates/DateTimeFields.h"

#include <iterator>

namespace ZvXmlLib16 {

namespace {

constexpr int kMinimumYear = -9999;
constexpr int kMaximumYear = 9999;

struct TimeField {
    char const* name;
    char const* variable; // in the message
    unsigned maximum;
};
constexpr TimeField kTimeFields[] = {{"Hour", "hour", 23},           {"Minute", "minute", 59},
                                     {"Second", "second", 59},       {"Milli-Second", "milli", 999},
                                     {"Micro-Second", "micro", 999}, {"Nano-Second", "nano", 999}};

struct Fields {
    long long year;
    unsigned month;
    unsigned day;
    unsigned ofTime[std::size(kTimeFields)];
};

void CheckMonthAndYear(CDateTime::DTType type, Fields const& fields) {
    if (detail::IsOneOf(type, detail::kMonthTypes)) {
        if (fields.month < 1 || fields.month > 12)
            FailMonthRange(fields.month);
    } else if (fields.month != 0) {
        FailFieldOfType("Month", fields.month, detail::TypeName(type));
    }
    if (detail::IsOneOf(type, detail::kYearTypes)) {
        if (fields.year == 0 || fields.year < kMinimumYear || fields.year > kMaximumYear)
            FailYearRange(fields.year, kMinimumYear, kMaximumYear);
    } else if (fields.year != 0) {
        FailFieldOfType("Year", fields.year, detail::TypeName(type));
    }
}

// Year and month are in range where the type has them.
void CheckDay(CDateTime::DTType type, Fields const& fields) {
    unsigned const day = fields.day;
    switch (type) {
    case CDateTime::dt_dateTime:
    case CDateTime::dt_date:
        if (day < 1 || day > detail::DaysInMonth(fields.year, fields.month))
            FailDayOfMonthAndYear(day);
        return;
    case CDateTime::dt_gMonthDay:
        if (day < 1 || day > detail::LongestMonth(fields.month))
            FailDayOfMonth(day);
        return;
    case CDateTime::dt_gDay:
        if (day < 1 || day > 31)
            FailDayRange(day);
        return;
    default:
        if (day != 0)
            FailFieldOfType("Day", day, detail::TypeName(type));
    }
}

void CheckTime(CDateTime::DTType type, Fields const& fields) {
    bool const hasTime = detail::IsOneOf(type, detail::kTimeTypes);
    for (std::size_t i = 0; i < std::size(kTimeFields); ++i) {
        TimeField const& field = kTimeFields[i];
        unsigned const value = fields.ofTime[i];
        if (hasTime && value > field.maximum)
            FailTimeFieldRange(field.name, value, field.variable, field.maximum);
        if (!hasTime && value != 0)
            FailFieldOfType(field.name, value, detail::TypeName(type));
    }
}

// The order of the tests decides which message a value with several faults gets.
void CheckFields(CDateTime::DTType type, Fields const& fields) {
    if (type == CDateTime::dt_yearZero)
        FailYearZero();
    CheckMonthAndYear(type, fields);
    CheckDay(type, fields);
    CheckTime(type, fields);
}

// A FILETIME of more than 63 bits is not a time.
constexpr unsigned long long kMaximumTicks = 0x7FFF'FFFF'FFFF'FFFF;
constexpr unsigned long long kTicksOfSecond = 10'000'000;
constexpr unsigned long long kTicksOfMilliSecond = 10'000;
constexpr long long kSecondsFrom1601To1970 = 11'644'473'600;

} // namespace

char const* detail::TypeName(CDateTime::DTType type) {
    constexpr char const* kNames[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                      "time",     "gDay",     "gMonth", "gMonthDay"};
    static_assert(std::size(kNames) == CDateTime::dt_gMonthDay + 1);
    if (static_cast<unsigned>(type) < std::size(kNames))
        return kNames[type];
    ZV_ASSERT(false);
    return "";
}

template <class Set>
void CDateTime::SetOrClear(Set set) {
    try {
        set();
    } catch (CZvInvalidValueException const&) {
        Clear();
    }
}

CDateTime::CDateTime(char const* text) {
    ParseXSDDateTime(text);
}

CDateTime::CDateTime(long long const& time) {
    SetOrClear([&] { *this = time; });
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day) {
    SetOrClear([&] { SetDate(year, month, day); });
}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second)
    : CDateTime(year, month, day, hour, minute, second, 0, 0, 0) {}

CDateTime::CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milliSeconds,
                     unsigned short microSeconds, unsigned short nanoSeconds) {
    SetOrClear([&] {
        SetDateTime(year, month, day, hour, minute, second, milliSeconds, microSeconds, nanoSeconds);
    });
}

CDateTime::~CDateTime() = default;

void CDateTime::SetUnlessInvalid(Record const& record) {
    SetOrClear([&] { SetRecord(record); });
}

void CDateTime::SetUnlessInvalid(unsigned long long ticks) {
    SetOrClear([&] { SetTicks(ticks); });
}

CDateTime& CDateTime::operator=(long long const& time) {
    detail::CalendarTime const utc = detail::TimeOfInstant(time);
    SetDateTime(dt_dateTime, utc.date.year, utc.date.month, utc.date.day, utc.hour, utc.minute, utc.second, 0,
                0, 0);
    return *this;
}

CDateTime& CDateTime::SetRecord(Record const& record) {
    SetDateTime(dt_dateTime, record.year, record.month, record.day, record.hour, record.minute, record.second,
                record.milliSecond, 0, 0);
    return *this;
}

CDateTime& CDateTime::SetTicks(unsigned long long ticks) {
    if (ticks > kMaximumTicks)
        FailFileTime();
    detail::CalendarTime const utc =
        detail::TimeOfInstant(static_cast<long long>(ticks / kTicksOfSecond) - kSecondsFrom1601To1970);
    SetDateTime(dt_dateTime, utc.date.year, utc.date.month, utc.date.day, utc.hour, utc.minute, utc.second,
                static_cast<unsigned>(ticks % kTicksOfSecond / kTicksOfMilliSecond), 0, 0);
    return *this;
}

CDateTime CDateTime::GetTickCount() {
    platform::ClockReading const now = platform::ReadLocalClock();
    CDateTime result;
    result.SetDateTime(dt_dateTime, now.year, now.month, now.day, now.hour, now.minute, now.second,
                       now.milliSecond, 0, 0);
    return result;
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second) {
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                            unsigned char minute, unsigned char second, unsigned short milliSeconds,
                            unsigned short microSeconds, unsigned short nanoSeconds) {
    SetDateTime(dt_dateTime, year, month, day, hour, minute, second, milliSeconds, microSeconds, nanoSeconds);
}

void CDateTime::SetDate(short year, unsigned char month, unsigned char day) {
    SetDateTime(dt_date, year, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second) {
    SetDateTime(dt_time, 0, 0, 0, hour, minute, second, 0, 0, 0);
}

void CDateTime::SetTime(unsigned char hour, unsigned char minute, unsigned char second,
                        unsigned short milliSeconds, unsigned short microSeconds,
                        unsigned short nanoSeconds) {
    SetDateTime(dt_time, 0, 0, 0, hour, minute, second, milliSeconds, microSeconds, nanoSeconds);
}

void CDateTime::SetFracTime(unsigned short milliSeconds, unsigned short microSeconds,
                            unsigned short nanoSeconds) {
    SetDateTime(dt_time, 0, 0, 0, 0, 0, 0, milliSeconds, microSeconds, nanoSeconds);
}

void CDateTime::SetGYear(short year) {
    SetDateTime(dt_gYear, year, 0, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGYearMonth(short year, unsigned char month) {
    SetDateTime(dt_gYearMonth, year, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonth(unsigned char month) {
    SetDateTime(dt_gMonth, 0, month, 0, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGMonthDay(unsigned char month, unsigned char day) {
    SetDateTime(dt_gMonthDay, 0, month, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetGDay(unsigned char day) {
    SetDateTime(dt_gDay, 0, 0, day, 0, 0, 0, 0, 0, 0);
}

void CDateTime::SetDateTime(DTType type, long long year, unsigned month, unsigned day, unsigned hour,
                            unsigned minute, unsigned second, unsigned milliSecond, unsigned microSecond,
                            unsigned nanoSecond) {
    if (m_type != dt_yearZero && m_type != type)
        FailTypeChange(detail::TypeName(type), detail::TypeName(m_type));
    Clear();
    m_type = type;
    m_year = static_cast<short>(year);
    m_month = static_cast<unsigned char>(month);
    m_day = static_cast<unsigned char>(day);
    m_hour = static_cast<unsigned char>(hour);
    m_minute = static_cast<unsigned char>(minute);
    m_second = static_cast<unsigned char>(second);
    m_milliSecond = static_cast<unsigned short>(milliSecond);
    m_microSecond = static_cast<unsigned short>(microSecond);
    m_nanoSecond = static_cast<unsigned short>(nanoSecond);
    CheckFields(type, {year, month, day, {hour, minute, second, milliSecond, microSecond, nanoSecond}});
}

void CDateTime::SetDateTime(CDateTime const& source, DTType type) {
    if (!CheckConversion(source.m_type, type))
        FailTypeOfSource(detail::TypeName(type), detail::TypeName(source.m_type));
    *this = source;
    m_type = type;
}

bool CDateTime::CheckConversion(DTType from, DTType to) {
    if (from == to || to == dt_yearZero)
        return true;
    switch (from) {
    case dt_dateTime:
        return true;
    case dt_date:
        return to == dt_gDay || to == dt_gMonth || to == dt_gYear || to == dt_gMonthDay ||
               to == dt_gYearMonth;
    case dt_gYearMonth:
        return to == dt_gMonth || to == dt_gYear;
    case dt_gMonthDay:
        return to == dt_gDay || to == dt_gMonth;
    case dt_yearZero:
    case dt_gYear:
    case dt_time:
    case dt_gDay:
    case dt_gMonth:
        return false;
    }
    FailUnknownDateType(from);
}

void CDateTime::Validate() const {
    CheckFields(
        m_type,
        {m_year, m_month, m_day, {m_hour, m_minute, m_second, m_milliSecond, m_microSecond, m_nanoSecond}});
}

void CDateTime::Clear() noexcept {
    m_type = dt_yearZero;
    m_year = 0;
    m_month = 0;
    m_day = 0;
    m_hour = 0;
    m_minute = 0;
    m_second = 0;
    m_milliSecond = 0;
    m_microSecond = 0;
    m_nanoSecond = 0;
    m_hasZone = false;
    m_hasOffset = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
    m_isZoneNegative = false;
}

bool CDateTime::IsOneOf(unsigned types) const noexcept {
    return detail::IsOneOf(m_type, types);
}

void CDateTime::Require(unsigned types, char const* operation) const {
    if (!IsOneOf(types))
        FailFieldAccess(operation, detail::TypeName(m_type));
}

// A setter fails with the text of its getter.
#define ZV_DEFINE_FIELD(Type, Name, m_field, types)                                                          \
    Type CDateTime::Get##Name() const {                                                                      \
        Require(types, "Get" #Name);                                                                         \
        return m_field;                                                                                      \
    }                                                                                                        \
    void CDateTime::Set##Name(Type value) {                                                                  \
        Require(types, "Get" #Name);                                                                         \
        m_field = value;                                                                                     \
    }
ZV_DEFINE_FIELD(short, Year, m_year, detail::kYearTypes)
ZV_DEFINE_FIELD(unsigned char, Month, m_month, detail::kMonthTypes)
ZV_DEFINE_FIELD(unsigned char, Day, m_day, detail::kDayTypes)
ZV_DEFINE_FIELD(unsigned char, Hour, m_hour, detail::kTimeTypes)
ZV_DEFINE_FIELD(unsigned char, Minute, m_minute, detail::kTimeTypes)
ZV_DEFINE_FIELD(unsigned char, Second, m_second, detail::kTimeTypes)
ZV_DEFINE_FIELD(unsigned short, MilliSecond, m_milliSecond, detail::kTimeTypes)
ZV_DEFINE_FIELD(unsigned short, MicroSecond, m_microSecond, detail::kTimeTypes)
ZV_DEFINE_FIELD(unsigned short, NanoSecond, m_nanoSecond, detail::kTimeTypes)
#undef ZV_DEFINE_FIELD

double CDateTime::GetRealSecond() const {
    Require(detail::kTimeTypes, "GetRealSecond");
    return m_second + m_milliSecond / 1e3 + m_microSecond / 1e6 + m_nanoSecond / 1e9;
}

std::string CDateTime::GetTypeAsString() const {
    return detail::TypeName(m_type);
}

short CDateTime::GetZoneHour() const {
    if (!m_hasOffset)
        FailNoTimeZone();
    return m_zoneHour;
}

unsigned char CDateTime::GetZoneMinute() const {
    if (!m_hasOffset)
        FailNoTimeZone();
    return m_zoneMinute;
}

void CDateTime::SetTimeZone(short hour, unsigned char minute) {
    if (hour < -23 || hour > 23 || minute >= 60)
        FailTimeZoneRange(hour, minute);
    m_hasZone = true;
    m_hasOffset = true;
    m_zoneHour = hour;
    m_zoneMinute = minute;
    m_isZoneNegative = false;
}

void CDateTime::SetTimeZone(bool isNegative, unsigned char hour, unsigned char minute) {
    SetTimeZone(static_cast<short>(isNegative ? -hour : hour), minute);
    m_isZoneNegative = isNegative && hour == 0 && minute != 0;
}

void CDateTime::SetUTC() noexcept {
    m_hasZone = true;
    m_hasOffset = false;
    m_zoneHour = 0;
    m_zoneMinute = 0;
    m_isZoneNegative = false;
}

// Counts days, since the local zone has hours that do not exist and hours that occur twice.
long long CDateTime::GetTime() const {
    if (!IsOneOf(detail::kInstantTypes))
        FailInstantOfType(detail::TypeName(m_type));
    CDateTime const utc = GetNormalized();
    long long const day = detail::DayNumber(utc.m_year, utc.m_month, utc.m_day);
    if (m_type == dt_date)
        return day * 86'400;
    return ((day * 24 + utc.m_hour) * 60 + utc.m_minute) * 60 + utc.m_second;
}

CDateTime::Record CDateTime::GetRecord() const {
    if (m_type != dt_dateTime)
        FailSystemTimeOfType(detail::TypeName(m_type));
    return {static_cast<unsigned short>(m_year),
            m_month,
            GetDayOfWeek() - 1U,
            m_day,
            m_hour,
            m_minute,
            m_second,
            m_milliSecond};
}

unsigned char CDateTime::GetDayOfWeek() const {
    Require(detail::kInstantTypes, "GetDayOfWeek");
    return static_cast<unsigned char>(platform::LocalDayOfWeek(GetTime()) + 1);
}

unsigned short CDateTime::GetDayOfYear() const {
    Require(detail::kInstantTypes, "GetDayOfYear");
    if (m_month < 1 || m_month > 12) // as a field setter leaves it
        FailMonthRange(m_month);
    unsigned const leapDay = m_month > 2 && detail::IsLeapYear(m_year) ? 1 : 0;
    return static_cast<unsigned short>(detail::DaysBeforeMonth(m_month) + m_day + leapDay);
}

} // namespace ZvXmlLib16
