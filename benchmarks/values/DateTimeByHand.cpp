// A dateTime read and written as a program would do it by hand.
#include "benchmarks/values/DateTimeByHand.h"

#include <cstddef>

namespace bench {

namespace {

bool ReadTwo(char const* at, int& number) {
    unsigned const tens = static_cast<unsigned char>(at[0]) - unsigned{'0'};
    unsigned const ones = static_cast<unsigned char>(at[1]) - unsigned{'0'};
    number = static_cast<int>(tens * 10 + ones);
    return tens <= 9 && ones <= 9;
}

bool IsInRange(PlainDateTime const& value) {
    constexpr unsigned char kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (value.year == 0 || value.month < 1 || value.month > 12 || value.hour > 23 || value.minute > 59 ||
        value.second > 59)
        return false;
    bool const isLeap =
        value.month == 2 && value.year % 4 == 0 && (value.year % 100 != 0 || value.year % 400 == 0);
    return value.day >= 1 && value.day <= kLengths[value.month - 1] + (isLeap ? 1 : 0);
}

char const* ReadZone(char const* at, char const* end, PlainDateTime& value) {
    if (at == end)
        return at;
    value.hasZone = true;
    if (*at == 'Z')
        return at + 1;
    int hour = 0;
    int minute = 0;
    if (end - at != 6 || (*at != '+' && *at != '-') || !ReadTwo(at + 1, hour) || at[3] != ':' ||
        !ReadTwo(at + 4, minute) || hour > 14 || minute > 59)
        return nullptr;
    value.isOffset = true;
    value.zone = (*at == '-' ? -1 : 1) * (hour * 60 + minute);
    return end;
}

char* WriteTwo(char* at, int number) {
    at[0] = static_cast<char>('0' + number / 10);
    at[1] = static_cast<char>('0' + number % 10);
    return at + 2;
}

} // namespace

PlainDateTime ReadDateTime(std::string_view text) {
    PlainDateTime value;
    char const* at = text.data();
    char const* const end = at + text.size();
    bool const isNegative = at != end && *at == '-';
    if (isNegative)
        ++at;
    int century = 0;
    if (end - at < 19 || !ReadTwo(at, century) || !ReadTwo(at + 2, value.year) || at[4] != '-' ||
        !ReadTwo(at + 5, value.month) || at[7] != '-' || !ReadTwo(at + 8, value.day) || at[10] != 'T' ||
        !ReadTwo(at + 11, value.hour) || at[13] != ':' || !ReadTwo(at + 14, value.minute) || at[16] != ':' ||
        !ReadTwo(at + 17, value.second))
        return value;
    value.year += century * 100;
    if (isNegative)
        value.year = -value.year;
    at += 19;
    if (at != end && *at == '.') {
        int scale = 100'000'000;
        for (++at; at != end && *at >= '0' && *at <= '9'; ++at, scale /= 10)
            value.nanoSecond += (*at - '0') * scale;
    }
    value.isValid = ReadZone(at, end, value) == end && IsInRange(value);
    return value;
}

std::string WriteDateTime(PlainDateTime const& value) {
    char text[40];
    char* at = text;
    int const year = value.year < 0 ? -value.year : value.year;
    if (value.year < 0)
        *at++ = '-';
    at = WriteTwo(WriteTwo(at, year / 100), year % 100);
    *at++ = '-';
    at = WriteTwo(at, value.month);
    *at++ = '-';
    at = WriteTwo(at, value.day);
    *at++ = 'T';
    at = WriteTwo(at, value.hour);
    *at++ = ':';
    at = WriteTwo(at, value.minute);
    *at++ = ':';
    at = WriteTwo(at, value.second);
    if (value.nanoSecond != 0) {
        *at++ = '.';
        int rest = value.nanoSecond;
        for (int i = 8; i >= 0; --i, rest /= 10)
            at[i] = static_cast<char>('0' + rest % 10);
        for (at += 9; at[-1] == '0';)
            --at;
    }
    if (value.isOffset) {
        int const zone = value.zone < 0 ? -value.zone : value.zone;
        *at++ = value.zone < 0 ? '-' : '+';
        at = WriteTwo(at, zone / 60);
        *at++ = ':';
        at = WriteTwo(at, zone % 60);
    } else if (value.hasZone) {
        *at++ = 'Z';
    }
    return std::string(text, static_cast<std::size_t>(at - text));
}

} // namespace bench
