// CDateTime, eight date and time types in one class.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/platform/SystemTime.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

namespace detail {
bool ReadPlainDateTime(std::string_view text, CDateTime& value) noexcept;
} // namespace detail

// A dateTime, date, time, gYear, gYearMonth, gMonth, gMonthDay or gDay (XML Schema Part 2, 3.2.7 to 3.2.14).
// The object knows which of them it is, which decides what fields it has. Years lie from -9999 to 9999
// without 0; a fraction of a second has nine digits, in three groups. A value that was set or parsed is
// valid; field setters and arithmetic do not check. An object belongs to one thread at a time.
class ZV_API CDateTime {
public:
    // Which of the eight types a value has.
    enum DTType : std::int32_t {
        dt_yearZero = 0, // no value has been set
        dt_dateTime = 1,
        dt_date = 2,
        dt_gYearMonth = 3,
        dt_gYear = 4,
        dt_time = 5,
        dt_gDay = 6,
        dt_gMonth = 7,
        dt_gMonthDay = 8
    };

    // The order of two values.
    enum DTCompareResult : std::int32_t {
        DTCompareEqual = 0,
        DTCompareLess = 1,
        DTCompareGreater = 2,
        DTCompareIndeterminate = 3 // the order depends on an unknown zone, or the fields do not match
    };

    CDateTime() noexcept = default;
    // All fields 0. Implicit, since a type would otherwise convert as a number of seconds.
    CDateTime(DTType type) noexcept : m_type(type) {}
    // Like ParseXSDDateTime.
    CDateTime(char const* text);
    CDateTime(CDateTime const& other) noexcept = default;
    // From other forms, into a dateTime (from three numbers: into a date). An invalid value gives an object
    // of type dt_yearZero, without an exception.
    CDateTime(long long const& time); // seconds since 1970, UTC
    CDateTime(SYSTEMTIME const& time) { SetUnlessInvalid(RecordOf(time)); }
    CDateTime(FILETIME const& time) { SetUnlessInvalid(TicksOf(time)); }
    CDateTime(short year, unsigned char month, unsigned char day);
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
              unsigned char second);
    CDateTime(short year, unsigned char month, unsigned char day, unsigned char hour, unsigned char minute,
              unsigned char second, unsigned short milliSeconds, unsigned short microSeconds,
              unsigned short nanoSeconds);
    virtual ~CDateTime();

    CDateTime& operator=(CDateTime const& other) noexcept = default;
    // Into a dateTime, like SetDateTime. A FILETIME is kept to the millisecond; beyond 63 bits it throws
    // CZvInvalidValueException.
    CDateTime& operator=(long long const& time); // seconds since 1970, UTC
    CDateTime& operator=(SYSTEMTIME const& time) { return SetRecord(RecordOf(time)); }
    CDateTime& operator=(FILETIME const& time) { return SetTicks(TicksOf(time)); }

    // The current local time as a dateTime, with milliseconds and no zone.
    static CDateTime GetTickCount();

    // These set type and fields and drop the zone. They throw CZvInvalidStateException for an object that has
    // another type, and CZvInvalidValueException for a field out of range; in which case the fields are still
    // set.
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second);
    void SetDateTime(short year, unsigned char month, unsigned char day, unsigned char hour,
                     unsigned char minute, unsigned char second, unsigned short milliSeconds,
                     unsigned short microSeconds, unsigned short nanoSeconds);
    void SetDate(short year, unsigned char month, unsigned char day);
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second);
    void SetTime(unsigned char hour, unsigned char minute, unsigned char second, unsigned short milliSeconds,
                 unsigned short microSeconds, unsigned short nanoSeconds);
    // A time within the first second of the day.
    void SetFracTime(unsigned short milliSeconds, unsigned short microSeconds, unsigned short nanoSeconds);
    void SetGYear(short year);
    void SetGYearMonth(short year, unsigned char month);
    void SetGMonth(unsigned char month);
    void SetGMonthDay(unsigned char month, unsigned char day);
    void SetGDay(unsigned char day);

    // Copies all fields and the zone, with the given type. Throws CZvInvalidValueException if CheckConversion
    // refuses.
    void SetDateTime(CDateTime const& source, DTType type);
    // True if a value of type `from` has the fields of type `to`. Throws CZvInvalidValueException for an
    // unknown type.
    static bool CheckConversion(DTType from, DTType to);

    // Each throws CZvInvalidStateException if the type lacks the field. The setters store without a check.
    short GetYear() const;
    void SetYear(short year);
    unsigned char GetMonth() const;
    void SetMonth(unsigned char month);
    unsigned char GetDay() const;
    void SetDay(unsigned char day);
    unsigned char GetHour() const;
    void SetHour(unsigned char hour);
    unsigned char GetMinute() const;
    void SetMinute(unsigned char minute);
    unsigned char GetSecond() const;
    void SetSecond(unsigned char second);
    unsigned short GetMilliSecond() const;
    void SetMilliSecond(unsigned short milliSecond);
    unsigned short GetMicroSecond() const;
    void SetMicroSecond(unsigned short microSecond);
    unsigned short GetNanoSecond() const;
    void SetNanoSecond(unsigned short nanoSecond);
    double GetRealSecond() const; // with the fraction

    // Which of the types it has; as a text it is the name of XML Schema.
    DTType GetType() const noexcept { return m_type; }
    std::string GetTypeAsString() const;

    // The value has a zone: an offset or the letter Z.
    bool IsUTC() const noexcept { return m_hasZone; }
    // The zone is an offset.
    bool HasTimeZone() const noexcept { return m_hasOffset; }
    // Throw CZvInvalidStateException if there is no offset. Only IsZoneNegative shows the sign of an offset
    // of less than an hour.
    short GetZoneHour() const;
    unsigned char GetZoneMinute() const;
    bool IsZoneNegative() const noexcept { return m_zoneHour < 0 || m_isZoneNegative; }
    // Hours from -23 to 23, minutes below 60; otherwise throws CZvInvalidValueException.
    void SetTimeZone(short hour, unsigned char minute);
    // The same with a separate sign, so that offsets such as -00:30 can be set.
    void SetTimeZone(bool isNegative, unsigned char hour, unsigned char minute);
    void SetUTC() noexcept;

    // Seconds since 1970, UTC; a value without a zone counts as UTC. For dateTime and date, otherwise throws
    // CZvInvalidValueException.
    long long GetTime() const;
    // The fields unchanged, without the zone. For dateTime, otherwise throws CZvInvalidValueException.
    SYSTEMTIME GetAsSystemTime() const;
    // Of the instant in the local time zone; Sunday is 1. For dateTime and date, otherwise throws
    // CZvInvalidStateException, as the next.
    unsigned char GetDayOfWeek() const;
    unsigned short GetDayOfYear() const; // from 1
    // The same instant with the offset +00:00; a value without an offset is unchanged.
    CDateTime GetNormalized() const;

    // The text decides the new type: a dateTime; any of the five with a date part; a time. They throw
    // CZvInvalidValueException, also for a null pointer; the object must then be set again. A text given by
    // its length ends at its first NUL. The offset -00:30 becomes +00:30, unless `keepZoneSign`.
    void ParseXSDDateTime(char const* text);
    void ParseXSDDateTime(std::string_view text);
    void ParseXSDDateTime(std::string_view text, bool keepZoneSign);
    void ParseXSDDate(char const* text);
    void ParseXSDDate(std::string_view text);
    void ParseXSDDate(std::string_view text, bool keepZoneSign);
    void ParseXSDTime(char const* text);
    void ParseXSDTime(std::string_view text);
    void ParseXSDTime(std::string_view text, bool keepZoneSign);

    // The lexical form, or "Error: Date Not Set". The only format that prints it is "s"; null, "" and "G"
    // give an empty text.
    std::string ToString() const;
    std::string ToString(char const* format) const;
    // Replaces the content of `text` by ToString(), reusing its memory. Returns `text`.
    std::string& Print(std::string& text) const;

    // The partial order of XML Schema Part 2, 3.2.7.3. For an indeterminate pair all operators but != are
    // false.
    DTCompareResult CompareTo(CDateTime const& other) const;
    bool operator==(CDateTime const& other) const;
    bool operator!=(CDateTime const& other) const;
    bool operator<(CDateTime const& other) const;
    bool operator<=(CDateTime const& other) const;
    bool operator>(CDateTime const& other) const;
    bool operator>=(CDateTime const& other) const;

    // XML Schema Part 2, appendix E, without its last step: the day is not cut to the length of the month.
    // Adding respects the sign of the span, subtracting uses its magnitude.
    CDateTime operator+(CDateTimeSpan const& span) const;
    CDateTime& operator+=(CDateTimeSpan const& span);
    CDateTime operator-(CDateTimeSpan const& span) const;
    CDateTime& operator-=(CDateTimeSpan const& span);
    // The difference of two dates is not computed: the result is zero.
    CDateTimeSpan operator-(CDateTime const& other) const;

    // XML Schema Part 2, appendix E, with its last step: January 31 plus a month is the last of February. A
    // field that the type lacks counts as its least value. Respects the sign of the span. Throws
    // CZvInvalidValueException for a result that is out of range.
    CDateTime AddDuration(CDateTimeSpan const& span) const;
    // The duration from `other` to this value, in days and parts of a day: other.AddDuration gives this
    // instant. For two values of one type that is dateTime, date or time, either both with a zone or both
    // without; otherwise throws CZvInvalidValueException.
    CDateTimeSpan GetDifference(CDateTime const& other) const;

private:
    friend bool detail::ReadPlainDateTime(std::string_view text, CDateTime& value) noexcept;

    // The calendar record in the library's own form.
    struct Record {
        unsigned year, month, dayOfWeek, day, hour, minute, second, milliSecond;
    };

    // Templates, so that they accept any record with these fields.
    template <class SystemTime>
    static Record RecordOf(SystemTime const& time) {
        auto const number = [](auto field) { return static_cast<unsigned>(field); };
        return {number(time.wYear),   number(time.wMonth),       number(time.wDayOfWeek),
                number(time.wDay),    number(time.wHour),        number(time.wMinute),
                number(time.wSecond), number(time.wMilliseconds)};
    }
    template <class FileTime>
    static unsigned long long TicksOf(FileTime const& time) {
        return static_cast<unsigned long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    }
    template <class Field>
    static void PutField(Field& field, unsigned value) {
        field = static_cast<Field>(value);
    }

    CDateTime& SetRecord(Record const& record);
    CDateTime& SetTicks(unsigned long long ticks);
    void SetUnlessInvalid(Record const& record);
    void SetUnlessInvalid(unsigned long long ticks);
    Record GetRecord() const;

    // Wider than the fields, so that no number becomes valid by truncation.
    void SetDateTime(DTType type, long long year, unsigned month, unsigned day, unsigned hour,
                     unsigned minute, unsigned second, unsigned milliSecond, unsigned microSecond,
                     unsigned nanoSecond);
    template <class Set>
    void SetOrClear(Set set);
    void SetXSDDate(std::string_view text);
    void SetDatePart(std::string_view text);
    void SetXSDTime(std::string_view text);
    void SetZone(std::string_view text);
    void KeepZoneSign(std::string_view text) noexcept;
    long long SecondsOfInstant() const noexcept;
    void Validate() const;
    void Clear() noexcept;
    bool IsOneOf(unsigned types) const noexcept;
    void Require(unsigned types, char const* operation) const;
    bool IsNotSet() const noexcept;
    char* PrintTo(char* at) const noexcept;
    void AddDateTimeSpan(CDateTimeSpan const& span);
    long long AddTime(CDateTimeSpan const& span) noexcept;
    DTCompareResult CompareFields(CDateTime const& other) const noexcept;
    CDateTime AtOffset(short hour) const;

    DTType m_type = dt_yearZero;
    short m_year = 0;
    unsigned char m_month = 0;
    unsigned char m_day = 0;
    unsigned char m_hour = 0;
    unsigned char m_minute = 0;
    unsigned char m_second = 0;
    unsigned short m_milliSecond = 0;
    unsigned short m_microSecond = 0;
    unsigned short m_nanoSecond = 0;
    bool m_hasZone = false;
    bool m_hasOffset = false; // only with m_hasZone
    short m_zoneHour = 0;
    unsigned char m_zoneMinute = 0;
    bool m_isZoneNegative = false; // of an offset of less than an hour
};

inline SYSTEMTIME CDateTime::GetAsSystemTime() const {
    Record const record = GetRecord();
    SYSTEMTIME time{};
    PutField(time.wYear, record.year);
    PutField(time.wMonth, record.month);
    PutField(time.wDayOfWeek, record.dayOfWeek);
    PutField(time.wDay, record.day);
    PutField(time.wHour, record.hour);
    PutField(time.wMinute, record.minute);
    PutField(time.wSecond, record.second);
    PutField(time.wMilliseconds, record.milliSecond);
    return time;
}

} // namespace ZvXmlLib16
