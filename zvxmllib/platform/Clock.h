// Local time: the clock and the time zone of the process.
#pragma once

namespace ZvXmlLib16::platform {

struct ClockReading {
    int year;
    unsigned month; // 1 to 12
    unsigned day;
    unsigned hour;
    unsigned minute;
    unsigned second;
    unsigned milliSecond;
};

// The current local time. Thread-safe.
ClockReading ReadLocalClock();

// The day of the week on which an instant falls in the local time zone; 0 is Sunday. The instant is given in
// seconds since 1970, UTC, and its year must fit an int.
unsigned LocalDayOfWeek(long long instant);

} // namespace ZvXmlLib16::platform
