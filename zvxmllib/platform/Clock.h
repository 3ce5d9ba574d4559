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

// The present moment in the local time zone. Any number of threads may ask at once.
ClockReading ReadLocalClock();

// The day of the week on which an instant falls in the local time zone; 0 is Sunday. The instant is given in
// seconds since 1970, UTC, and lies within the years that an int holds.
unsigned LocalDayOfWeek(long long instant);

} // namespace ZvXmlLib16::platform
