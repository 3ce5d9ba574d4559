// Values of dateTime and its kin, and of duration (XML Schema Part 2, 3.2.6 to 3.2.14).
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"
#include "zvxmllib/values/numbers/BigInteger.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::grammar {

// How two values stand to each other; some pairs have no order.
enum class Order : std::uint8_t { kLess, kEqual, kGreater, kNoOrder };

// The fields as they are written, all in range: the lexical form is right. Views are of the text.
struct InstantFields {
    bool isYearNegative = false;
    std::string_view year = "2000"; // a leap year, where the type has no year
    int month = 1;
    int day = 1;
    int hour = 0; // 24 only with neither minutes nor seconds
    int minute = 0;
    int second = 0;
    std::string_view fraction; // of a second, without zeros at the end
    bool hasZone = false;
    int zone = 0; // minutes east of UTC
};

// `type` is one of kDateTime to kGDay. False for a text that is none.
bool ReadInstantFields(BuiltIn type, std::string_view text, InstantFields& fields);

// A place on the time line. There is no year 0, and leap years are those whose number says so.
struct Instant {
    CBigInteger seconds; // of UTC if there is a zone, of an unknown zone otherwise
    std::string_view fraction;
    bool hasZone = false;
};
Instant MakeInstant(BuiltIn type, InstantFields const& fields);
// 3.2.7.4. Without a zone one is anywhere between 14 hours west and east of UTC.
Order Compare(Instant const& left, Instant const& right);
void AppendKey(Instant const& value, std::string& key);

struct Duration {
    bool isNegative = false; // not of nothing
    CBigInteger months;
    CBigInteger seconds;
    std::string_view fraction; // of a second, without zeros at the end
};
bool ReadDuration(std::string_view text, Duration& value);
// 3.2.6.2: by what comes out of adding each to four dates.
Order Compare(Duration const& left, Duration const& right);
void AppendKey(Duration const& value, std::string& key);

} // namespace ZvXmlLib16::grammar
