// Types and fields of dates and times, and their outside forms.
#include "zvxmllib/values/dates/DateTime.h"

#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/foundation/Assert.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

using Type = CDateTime::DTType;
constexpr Type kTypes[] = {CDateTime::dt_yearZero,   CDateTime::dt_dateTime, CDateTime::dt_date,
                           CDateTime::dt_gYearMonth, CDateTime::dt_gYear,    CDateTime::dt_time,
                           CDateTime::dt_gDay,       CDateTime::dt_gMonth,   CDateTime::dt_gMonthDay};

// The local time zone of the process, for the life of the object.
class LocalZone {
public:
    explicit LocalZone(char const* rule) {
        if (char const* const before = std::getenv("TZ"))
            m_before = before;
        ::setenv("TZ", rule, 1);
        ::tzset();
    }
    ~LocalZone() {
        m_before.empty() ? ::unsetenv("TZ") : ::setenv("TZ", m_before.c_str(), 1);
        ::tzset();
    }
    LocalZone(LocalZone const&) = delete;
    LocalZone& operator=(LocalZone const&) = delete;

private:
    std::string m_before;
};

std::string StateFailure(std::function<void()> const& operation) {
    return MessageOf<CZvInvalidStateException>(operation);
}
std::string ValueFailure(std::function<void()> const& operation) {
    return MessageOf<CZvInvalidValueException>(operation);
}

FILETIME FileTime(unsigned long long ticks) {
    return {static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> 32)};
}

} // namespace

TEST(DateTime, TheTypeDecidesWhichFieldsThereAre) {
    CDateTime const converted = CDateTime::dt_gDay; // not the sixth second of 1970
    EXPECT_EQ(converted.GetType(), CDateTime::dt_gDay);
    struct Row {
        char const* name;
        std::vector<char const*> types;
        std::function<void(CDateTime&)> set;
        std::function<double(CDateTime const&)> get;
    };
    std::vector<char const*> const withYear = {"dateTime", "date", "gYear", "gYearMonth"};
    std::vector<char const*> const withTime = {"dateTime", "time"};
    std::vector<char const*> const withDate = {"dateTime", "date"};
#define ZV_FIELD(Name, types)                                                                                \
    Row {                                                                                                    \
#Name, types, [](CDateTime & d) { d.Set##Name(7); },                                                 \
                                                          [](CDateTime const& d) { return d.Get##Name(); }   \
    }
#define ZV_READ_ONLY(Name, types, value)                                                                     \
    Row {                                                                                                    \
#Name, types, nullptr, [](CDateTime const& d) { return d.Get##Name() - (value) + 7.0; }              \
    }
    std::vector<char const*> const withMonth = {"dateTime", "date", "gYearMonth", "gMonth", "gMonthDay"};
    std::vector<char const*> const withDay = {"dateTime", "date", "gDay", "gMonthDay"};
    Row const rows[] = {ZV_FIELD(Year, withYear),
                        ZV_FIELD(Month, withMonth),
                        ZV_FIELD(Day, withDay),
                        ZV_FIELD(Hour, withTime),
                        ZV_FIELD(Minute, withTime),
                        ZV_FIELD(Second, withTime),
                        ZV_FIELD(MilliSecond, withTime),
                        ZV_FIELD(MicroSecond, withTime),
                        ZV_FIELD(NanoSecond, withTime),
                        ZV_READ_ONLY(RealSecond, withTime, 7.007007007),
                        ZV_READ_ONLY(DayOfYear, withDate, 188)};
#undef ZV_READ_ONLY
#undef ZV_FIELD

    for (Type const type : kTypes) {
        CDateTime value(type);
        std::string const typeName = value.GetTypeAsString();
        for (Row const& row : rows) {
            std::string const failure =
                std::string("Failed to Get") + row.name + ". Invalid Date Type: " + typeName + ".";
            bool const hasField = testing::Matches(testing::Contains(testing::StrEq(typeName)))(row.types);
            if (hasField) {
                if (row.set)
                    row.set(value);
                EXPECT_NEAR(row.get(value), 7, 1e-12) << row.name << " of " << typeName;
            } else {
                EXPECT_EQ(StateFailure([&] { row.get(value); }), failure);
                EXPECT_EQ(row.set ? StateFailure([&] { row.set(value); }) : failure, failure);
            }
        }
    }
}

TEST(DateTime, SettingByPartsKeepsATypeAndRefusesFieldsOutOfRange) {
    CDateTime value;
    value.SetDate(2005, 12, 31);
    value.SetUTC();
    EXPECT_EQ(StateFailure([&] { value.SetTime(1, 2, 3); }),
              "Failed to copy CDateTime. Invalid Date Type: time, expected: date.");
    EXPECT_EQ(value.ToString(), "2005-12-31Z");
    value.SetDate(2004, 2, 29);
    EXPECT_EQ(value.ToString(), "2004-02-29");

    using Set = std::function<void(CDateTime&)>;
    struct Row {
        Set set;
        char const* outcome;
    };
    for (Row const& row :
         {Row{[](CDateTime& d) { d.SetDateTime(2005, 1, 2, 3, 4, 5); }, "2005-01-02T03:04:05"},
          Row{[](CDateTime& d) { d.SetDateTime(2005, 1, 2, 3, 4, 5, 6, 7, 8); },
              "2005-01-02T03:04:05.006007008"},
          Row{[](CDateTime& d) { d.SetTime(3, 4, 5, 6, 7, 8); }, "03:04:05.006007008"},
          Row{[](CDateTime& d) { d.SetGYear(-5); }, "-0005"},
          Row{[](CDateTime& d) { d.SetGYearMonth(2005, 6); }, "2005-06"},
          Row{[](CDateTime& d) { d.SetGMonth(6); }, "--06"},
          Row{[](CDateTime& d) { d.SetGMonthDay(2, 29); }, "--02-29"},
          Row{[](CDateTime& d) { d.SetGDay(31); }, "---31"},
          Row{[](CDateTime& d) { d.SetGYear(10000); },
              "Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)"},
          Row{[](CDateTime& d) { d.SetGYear(-10000); },
              "Invalid Year [-10000] (-9999 <= year <= 9999 && year != 0)"},
          Row{[](CDateTime& d) { d.SetGMonth(0); }, "Invalid Month [0] (1 <= month <= 12)"},
          Row{[](CDateTime& d) { d.SetGMonthDay(4, 31); }, "Invalid Day [31] (1 <= day <= days in month)"},
          Row{[](CDateTime& d) { d.SetGDay(32); }, "Invalid Day [32] (1 <= day <= 31)"},
          Row{[](CDateTime& d) { d.SetTime(24, 60, 60); }, "Invalid Hour [24] (0 <= hour <= 23)"},
          Row{[](CDateTime& d) { d.SetTime(23, 60, 60); }, "Invalid Minute [60] (0 <= minute <= 59)"},
          Row{[](CDateTime& d) { d.SetTime(23, 59, 60); }, "Invalid Second [60] (0 <= second <= 59)"},
          Row{[](CDateTime& d) { d.SetFracTime(1000, 1000, 1000); },
              "Invalid Milli-Second [1000] (0 <= milli <= 999)"},
          Row{[](CDateTime& d) { d.SetFracTime(999, 1000, 1000); },
              "Invalid Micro-Second [1000] (0 <= micro <= 999)"},
          Row{[](CDateTime& d) { d.SetFracTime(999, 999, 1000); },
              "Invalid Nano-Second [1000] (0 <= nano <= 999)"}}) {
        CDateTime fresh;
        std::string outcome = ValueFailure([&] { row.set(fresh); });
        EXPECT_EQ(outcome == "nothing was thrown" ? fresh.ToString() : outcome, row.outcome);
    }
}

TEST(DateTime, ConstructorsFromFieldsGiveNoValueForInvalidOnes) {
    EXPECT_EQ(CDateTime(2005, 12, 31).ToString(), "2005-12-31");
    EXPECT_EQ(CDateTime(2005, 12, 31, 1, 2, 3).ToString(), "2005-12-31T01:02:03");
    EXPECT_EQ(CDateTime(2005, 12, 31, 1, 2, 3, 4, 5, 6).ToString(), "2005-12-31T01:02:03.004005006");
    SYSTEMTIME noDay{};
    noDay.wYear = 2005;
    noDay.wMonth = 257; // not a month 1
    noDay.wDay = 1;
    for (CDateTime const& value :
         {CDateTime(2005, 13, 1), CDateTime(2005, 1, 32, 0, 0, 0), CDateTime(2005, 1, 1, 0, 0, 0, 0, 0, 1000),
          CDateTime(noDay), CDateTime(FileTime(1ULL << 63)), CDateTime(1LL << 62),
          CDateTime(FileTime(~0ULL >> 1))}) {
        EXPECT_EQ(value.GetType(), CDateTime::dt_yearZero);
        EXPECT_EQ(value.ToString(), "Error: Date Not Set");
    }
    EXPECT_EQ(ValueFailure([&] { CDateTime() = noDay; }), "Invalid Month [257] (1 <= month <= 12)");
    EXPECT_EQ(ValueFailure([] { CDateTime() = FileTime(1ULL << 63); }),
              "Failed to convert FILETIME to SYSTEMTIME");
    EXPECT_EQ(ValueFailure([] { CDateTime() = 1LL << 62; }),
              "Invalid Year [146138514283] (-9999 <= year <= 9999 && year != 0)");
    CDateTime date(CDateTime::dt_date);
    EXPECT_EQ(StateFailure([&] { date = 0LL; }),
              "Failed to copy CDateTime. Invalid Date Type: dateTime, expected: date.");
}

// Instants, days of the week and days of the year by calendar.timegm, isoweekday and timetuple of Python.
TEST(DateTime, InstantsGoBothWays) {
    LocalZone const zone("UTC");
    for (auto const& row :
         Vectors("dates.txt", "instants: text, seconds, day of the week, day of the year")) {
        CDateTime const value(row[0].c_str());
        EXPECT_EQ(value.GetTime(), std::stoll(row[1])) << row[0];
        EXPECT_EQ(value.GetDayOfWeek(), std::stoi(row[2])) << row[0];
        EXPECT_EQ(value.GetDayOfYear(), std::stoi(row[3])) << row[0];
        EXPECT_EQ(CDateTime(std::stoll(row[1])).ToString(), row[0]);
    }
}

TEST(DateTime, InstantsDoNotDependOnTheLocalZoneButTheDayOfTheWeekDoes) {
    CDateTime date;
    date.ParseXSDDate("2024-01-01+01:00");
    CDateTime const time("2024-03-10T02:30:00-05:00");
    for (char const* const rule : {"UTC", "XST5XDT,M3.2.0,M11.1.0", "XST-14"}) {
        LocalZone const zone(rule);                    // the second one has no 2:30 on that day
        EXPECT_EQ(date.GetTime(), 1703980800) << rule; // midnight of the day that it is in UTC
        EXPECT_EQ(time.GetTime(), 1710055800) << rule;
        EXPECT_EQ(CDateTime(1710055800LL).ToString(), "2024-03-10T07:30:00") << rule;
    }
    CDateTime const monday("2024-01-01T00:00:00");
    EXPECT_EQ((LocalZone("XST5"), monday.GetDayOfWeek()), 1);
    EXPECT_EQ((LocalZone("XST-5"), monday.GetDayOfWeek()), 2);
}

TEST(DateTime, UncheckedFieldsCountOnInInstants) {
    CDateTime value(2004, 12, 31);
    value.SetMonth(14);
    EXPECT_EQ(value.GetTime(), CDateTime("2005-03-03T00:00:00").GetTime());
    EXPECT_EQ(ValueFailure([&] { value.GetDayOfYear(); }), "Invalid Month [14] (1 <= month <= 12)");
    value.SetMonth(0);
    EXPECT_EQ(value.GetTime(), CDateTime("2003-12-31T00:00:00").GetTime());
    EXPECT_EQ(ValueFailure([&] { value.GetDayOfYear(); }), "Invalid Month [0] (1 <= month <= 12)");
}

TEST(DateTime, CalendarRecordsGoBothWays) {
    LocalZone const zone("UTC");
    CDateTime const value(2024, 2, 29, 13, 14, 15, 678, 9, 10);
    SYSTEMTIME const record = value.GetAsSystemTime();
    EXPECT_EQ(record.wDayOfWeek, 4); // a Thursday
    CDateTime back;
    back = record;
    EXPECT_EQ(back.ToString(), "2024-02-29T13:14:15.678");
    // 100 nanoseconds since 1601, by Python's datetime: (d - datetime(1601, 1, 1)) /
    // timedelta(microseconds=.1).
    EXPECT_EQ(CDateTime(FileTime(133'536'860'551'234'567)).ToString(), "2024-02-29T13:14:15.123");
    EXPECT_EQ(CDateTime(FileTime(0)).ToString(), "1601-01-01T00:00:00");
}

TEST(DateTime, OperationsOnTheWrongTypeSayWhichTypesFit) {
    CDateTime time;
    time.SetTime(1, 2, 3);
    CDateTime const date(2005, 1, 1);
    EXPECT_EQ(ValueFailure([&] { time.GetTime(); }),
              "Failed to GetTime, Date Status must be dateTime or date. Invalid Date Type: time.");
    EXPECT_EQ(ValueFailure([&] { date.GetAsSystemTime(); }),
              "Failed to GetAsSystemTime, Date Status must be dateTime. Invalid Date Type: date.");
    EXPECT_EQ(StateFailure([&] { time.GetDayOfWeek(); }), "Failed to GetDayOfWeek. Invalid Date Type: time.");
}

TEST(DateTime, TheClockShowsLocalTime) {
    LocalZone const zone("XST-3");
    long long const before = std::time(nullptr);
    CDateTime const now = CDateTime::GetTickCount();
    long long const after = std::time(nullptr);
    EXPECT_EQ(now.GetType(), CDateTime::dt_dateTime);
    EXPECT_FALSE(now.IsUTC());
    EXPECT_GE(now.GetTime() - 3 * 3600, before - 1); // time() may lag behind by a tick
    EXPECT_LE(now.GetTime() - 3 * 3600, after + 1);
}

TEST(DateTime, ZonesAreOffsetsOrTheLetter) {
    CDateTime value(2005, 1, 1);
    EXPECT_EQ(StateFailure([&] { value.GetZoneHour(); }), "TimeZone is not been used");
    value.SetTimeZone(-23, 59);
    EXPECT_TRUE(value.IsUTC() && value.HasTimeZone());
    EXPECT_EQ(value.GetZoneHour(), -23);
    EXPECT_EQ(value.GetZoneMinute(), 59);
    EXPECT_EQ(ValueFailure([&] { value.SetTimeZone(-24, 0); }), "Invalid TimeZone [-24:0]");
    EXPECT_EQ(ValueFailure([&] { value.SetTimeZone(24, 0); }), "Invalid TimeZone [24:0]");
    EXPECT_EQ(ValueFailure([&] { value.SetTimeZone(0, 60); }), "Invalid TimeZone [0:60]");
    EXPECT_EQ(value.ToString(), "2005-01-01-23:59");
    value.SetUTC();
    EXPECT_TRUE(value.IsUTC() && !value.HasTimeZone());
    EXPECT_EQ(StateFailure([&] { value.GetZoneMinute(); }), "TimeZone is not been used");
}

TEST(DateTime, AValueMayTakeATypeWithFewerFields) {
    struct Row {
        Type from;
        std::vector<Type> to;
    };
    for (Row const& row :
         {Row{CDateTime::dt_dateTime, std::vector<Type>(std::begin(kTypes), std::end(kTypes))},
          Row{CDateTime::dt_date,
              {CDateTime::dt_gDay, CDateTime::dt_gMonth, CDateTime::dt_gYear, CDateTime::dt_gMonthDay,
               CDateTime::dt_gYearMonth}},
          Row{CDateTime::dt_gYearMonth, {CDateTime::dt_gMonth, CDateTime::dt_gYear}},
          Row{CDateTime::dt_gMonthDay, {CDateTime::dt_gDay, CDateTime::dt_gMonth}},
          Row{CDateTime::dt_yearZero, {}}, Row{CDateTime::dt_gYear, {}}, Row{CDateTime::dt_time, {}},
          Row{CDateTime::dt_gDay, {}}, Row{CDateTime::dt_gMonth, {}}}) {
        for (Type const to : kTypes) {
            bool const isAllowed = to == CDateTime::dt_yearZero || to == row.from ||
                                   testing::Matches(testing::Contains(to))(row.to);
            EXPECT_EQ(CDateTime::CheckConversion(row.from, to), isAllowed) << row.from << " to " << to;
        }
    }
    EXPECT_EQ(ValueFailure([] { CDateTime::CheckConversion(static_cast<Type>(9), CDateTime::dt_date); }),
              "Unknown date type 9.");

    CDateTime value;
    value.SetDateTime(CDateTime("2005-06-07T08:09:10Z"), CDateTime::dt_gYearMonth);
    EXPECT_EQ(value.ToString(), "2005-06Z");
    EXPECT_EQ(
        ValueFailure([&] { value.SetDateTime(value, CDateTime::dt_date); }),
        "Attempting to set a CDateTime of type date using an XmlDateTime of type gYearMonth. The source "
        "CDateTime does not contian enough data to allow the conversion.");
}

#ifndef NDEBUG
TEST(DateTime, ANumberThatIsNoTypeIsAProgrammersMistake) {
    static std::string condition;
    AssertionHandler const before =
        SetAssertionHandler([](char const* text, char const*, int) { condition = text; });
    std::string const name = CDateTime(static_cast<Type>(9)).GetTypeAsString();
    SetAssertionHandler(before);
    EXPECT_EQ(condition, "false");
    EXPECT_EQ(name, "");
}
#endif
