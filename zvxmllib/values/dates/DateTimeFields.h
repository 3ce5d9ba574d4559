// Which fields belong to which type of date and time, and the digits that dates and durations share.
#pragma once

#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/text/NumberText.h"

#include <cstddef>
#include <string_view>

namespace ZvXmlLib16::detail {

// Sets of types, one bit for each.
constexpr unsigned TypeBit(CDateTime::DTType type) noexcept {
    return 1U << type;
}
constexpr unsigned kDateTimeType = TypeBit(CDateTime::dt_dateTime);
constexpr unsigned kYearTypes = kDateTimeType | TypeBit(CDateTime::dt_date) | TypeBit(CDateTime::dt_gYear) |
                                TypeBit(CDateTime::dt_gYearMonth);
constexpr unsigned kMonthTypes = kDateTimeType | TypeBit(CDateTime::dt_date) |
                                 TypeBit(CDateTime::dt_gYearMonth) | TypeBit(CDateTime::dt_gMonth) |
                                 TypeBit(CDateTime::dt_gMonthDay);
constexpr unsigned kDayTypes = kDateTimeType | TypeBit(CDateTime::dt_date) | TypeBit(CDateTime::dt_gDay) |
                               TypeBit(CDateTime::dt_gMonthDay);
constexpr unsigned kTimeTypes = kDateTimeType | TypeBit(CDateTime::dt_time);
// Those that name a day in history.
constexpr unsigned kInstantTypes = kDateTimeType | TypeBit(CDateTime::dt_date);

constexpr bool IsOneOf(CDateTime::DTType type, unsigned types) noexcept {
    return static_cast<unsigned>(type) < 32 && (types >> type & 1) != 0;
}

// Asserts that the number is a type.
char const* TypeName(CDateTime::DTType type);

// Two digits. False if there is anything else; the number is then meaningless.
inline bool ReadTwoDigits(char const* at, unsigned& number) noexcept {
    unsigned const tens = static_cast<unsigned char>(at[0]) - static_cast<unsigned>('0');
    unsigned const ones = static_cast<unsigned char>(at[1]) - static_cast<unsigned>('0');
    number = tens * 10 + ones;
    return tens <= 9 && ones <= 9;
}

// The fraction digits of a second: at most nine, in three groups.
struct SecondFraction {
    unsigned short milliSecond = 0;
    unsigned short microSecond = 0;
    unsigned short nanoSecond = 0;
    std::size_t length = 0; // of what was read
    bool isTooLong = false; // a tenth digit follows
};
SecondFraction ReadFraction(std::string_view text) noexcept;

// The ordinary case: a valid dateTime with a year above 0, in its plain form to the last character. False for
// all other texts, valid or not; the value is then unchanged.
bool ReadPlainDateTime(std::string_view text, CDateTime& value) noexcept;

// These print to `at` and return the end. Numbers that do not fit their width take more digits.
char* PrintNumber(char* at, unsigned number) noexcept;
inline char* PrintTwoDigits(char* at, unsigned number) noexcept {
    if (number > 99)
        return PrintNumber(at, number);
    at[0] = static_cast<char>('0' + number / 10);
    at[1] = static_cast<char>('0' + number % 10);
    return at + 2;
}
// With the point, without trailing zeros; nothing for zero.
char* PrintFraction(char* at, unsigned milliSecond, unsigned microSecond, unsigned nanoSecond) noexcept;

} // namespace ZvXmlLib16::detail
