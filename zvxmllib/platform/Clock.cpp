// Local time: the clock and the time zone of the process.
#include "zvxmllib/platform/Clock.h"

#include <algorithm>

#include <time.h>

namespace ZvXmlLib16::platform {

static_assert(sizeof(time_t) >= sizeof(long long), "instants have 64 bits");

namespace {

// The thread-safe form. It fails only for a year that does not fit an int.
tm BreakDownLocally(time_t instant) {
    tm fields{};
    ::localtime_r(&instant, &fields);
    return fields;
}

} // namespace

ClockReading ReadLocalClock() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    tm const local = BreakDownLocally(now.tv_sec);
    auto const field = [](int value) { return static_cast<unsigned>(value); };
    // Zones that count leap seconds have a second 60.
    return {local.tm_year + 1900,
            field(local.tm_mon + 1),
            field(local.tm_mday),
            field(local.tm_hour),
            field(local.tm_min),
            field(std::min(local.tm_sec, 59)),
            static_cast<unsigned>(now.tv_nsec / 1'000'000)};
}

unsigned LocalDayOfWeek(long long instant) {
    return static_cast<unsigned>(BreakDownLocally(static_cast<time_t>(instant)).tm_wday);
}

} // namespace ZvXmlLib16::platform
