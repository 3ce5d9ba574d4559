// An application that has calendar records of its own: other tags, another order, wider fields.
struct OwnSystemTime {
    int wMilliseconds, wSecond, wMinute, wHour, wDay, wDayOfWeek, wMonth, wYear;
};
struct OwnFileTime {
    unsigned long dwHighDateTime, dwLowDateTime;
};
typedef OwnSystemTime SYSTEMTIME;
typedef OwnFileTime FILETIME;
#define ZV_OWN_SYSTEMTIME
#include "zvxmllib/ZvXmlLib.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

TEST(OwnRecords, GoBothWays) {
    CDateTime const value(2024, 2, 29, 13, 14, 15, 678, 0, 0);
    SYSTEMTIME const record = value.GetAsSystemTime();
    EXPECT_EQ(record.wYear, 2024);
    EXPECT_EQ(record.wMonth, 2);
    EXPECT_EQ(CDateTime(record).ToString(), "2024-02-29T13:14:15.678");
    FILETIME const epoch{0x019DB1DE, 0xD53E8000}; // 1970, in 100 nanoseconds since 1601
    CDateTime assigned;
    assigned = epoch;
    EXPECT_EQ(assigned.ToString(), "1970-01-01T00:00:00");
}
