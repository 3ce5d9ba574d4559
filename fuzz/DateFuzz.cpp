// A text as a date, time or duration of each type.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string const text(TextOf(data, size));
    ReadAsEach(text, {ItemType_datetime, ItemType_time, ItemType_duration});
    // All with a date part are read by one parser, and what it refuses, it refuses for each.
    if (ReadAs(text, ItemType_date))
        ReadAsEach(text,
                   {ItemType_yearMonth, ItemType_monthDay, ItemType_year, ItemType_month, ItemType_day});
    return 0;
}
