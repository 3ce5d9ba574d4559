// A dateTime read and written as a program would do it by hand: one walk over the text, no failures told.
#pragma once

#include <string>
#include <string_view>

namespace bench {

struct PlainDateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int nanoSecond = 0;
    int zone = 0; // minutes from UTC
    bool hasZone = false;
    bool isOffset = false; // and not the letter Z
    bool isValid = false;
};

// [-]CCYY-MM-DDThh:mm:ss[.f][Z|[+|-]hh:mm], with all fields in range.
PlainDateTime ReadDateTime(std::string_view text);
std::string WriteDateTime(PlainDateTime const& value);

} // namespace bench
