// SYSTEMTIME and FILETIME, the two calendar records of the date and time interface.
#pragma once

#include <cstdint>

// An application that has its own records, with these names and field names, defines ZV_OWN_SYSTEMTIME and
// declares them before this header. Their tags, field order and field widths do not matter: no compiled
// function of the library takes or returns a record.
#ifndef ZV_OWN_SYSTEMTIME

// A calendar date with the time of day, to the millisecond.
struct SYSTEMTIME {
    std::uint16_t wYear;         // 1601 to 30827
    std::uint16_t wMonth;        // 1 to 12
    std::uint16_t wDayOfWeek;    // 0 is Sunday
    std::uint16_t wDay;          // 1 to 31
    std::uint16_t wHour;         // 0 to 23
    std::uint16_t wMinute;       // 0 to 59
    std::uint16_t wSecond;       // 0 to 59
    std::uint16_t wMilliseconds; // 0 to 999
};

// A count of intervals of 100 nanoseconds since the start of 1601, UTC, in two halves.
struct FILETIME {
    std::uint32_t dwLowDateTime;  // the lower 32 bits
    std::uint32_t dwHighDateTime; // the higher 32 bits
};

#endif
