// The order of dates and durations, and their sum.
#include "tests/values/DateTexts.h"

#include <gmock/gmock.h>

#include <vector>

using namespace ZvXmlLib16;
using zvtest::ReadDate;
using zvtest::ReadSpan;

namespace {

char Sign(CDateTime::DTCompareResult result) {
    return "=<>?"[result];
}

char Mirrored(char sign) {
    return sign == '<' ? '>' : sign == '>' ? '<' : sign;
}

struct OrderRow {
    char const* left;
    char sign; // '?' for no order
    char const* right;
};

template <class Value>
void ExpectOrder(Value const& left, Value const& right, char sign, std::string const& what) {
    EXPECT_EQ(Sign(left.CompareTo(right)), sign) << what;
    EXPECT_EQ(Sign(right.CompareTo(left)), Mirrored(sign)) << what;
    EXPECT_EQ(left == right, sign == '=') << what;
    EXPECT_EQ(left != right, sign != '=') << what;
    EXPECT_EQ(left < right, sign == '<') << what;
    EXPECT_EQ(left > right, sign == '>') << what;
}

} // namespace

TEST(DateTimeOrder, FollowsTheRecommendation) {
    for (OrderRow const& row :
         {// XML Schema Part 2, 3.2.7.3 and 3.2.7.4.
          OrderRow{"2000-01-15T00:00:00", '<', "2000-02-15T00:00:00"},
          OrderRow{"2000-01-15T12:00:00", '<', "2000-01-16T12:00:00Z"},
          OrderRow{"2000-01-01T12:00:00", '?', "1999-12-31T23:00:00Z"},
          OrderRow{"2000-01-16T12:00:00", '?', "2000-01-16T12:00:00Z"},
          OrderRow{"2000-01-16T00:00:00", '?', "2000-01-16T12:00:00Z"},
          OrderRow{"2002-10-10T12:00:00-05:00", '=', "2002-10-10T17:00:00Z"},
          OrderRow{"2002-10-10+13:00", '=', "2002-10-09-11:00"},
          // The margin of fourteen hours, to the nanosecond.
          OrderRow{"2005-01-01T10:00:00", '?', "2005-01-02T00:00:00Z"},
          OrderRow{"2005-01-01T10:00:00", '<', "2005-01-02T00:00:00.000000001Z"},
          OrderRow{"2005-01-01T10:00:00", '?', "2004-12-31T20:00:00Z"},
          OrderRow{"2005-01-01T10:00:00", '>', "2004-12-31T19:59:59.999999999Z"},
          OrderRow{"2005-01-01T10:00:00.1+01:00", '<', "2005-01-01T10:00:00.100000001+01:00"},
          OrderRow{"10:00:00+01:00", '=', "09:00:00Z"}, OrderRow{"--05", '<', "--06"},
          OrderRow{"---05", '=', "---05"}})
        ExpectOrder(ReadDate(row.left), ReadDate(row.right), row.sign,
                    std::string(row.left) + " " + row.right);
}

// Where the recommendation has another answer, or none.
TEST(DateTimeOrder, DeviatesForOffsetsOfPartialDatesAndForMixedTypes) {
    for (OrderRow const& row :
         {// An offset counts a month that is not there as December of the year before.
          OrderRow{"2005Z", '>', "2005+00:00"},
          // Years before and after the year 0 have no order.
          OrderRow{"-0001-01-01T00:00:00", '?', "2005-01-01T00:00:00"}, OrderRow{"-0002", '<', "-0001"},
          // A field that one side lacks has no order with one that is not 0, and is less than 0.
          OrderRow{"2005", '?', "2005-01"}, OrderRow{"2005-01-01", '<', "2005-01-01T00:00:00"},
          OrderRow{"2005-01-01", '<', "2005-01-01T00:00:01"},
          OrderRow{"2005-01-01", '?', "2005-01-01T01:00:00"},
          OrderRow{"2005-01-01", '<', "2005-02-01T00:00:01"}, OrderRow{"--05", '?', "---05"},
          OrderRow{"10:00:00", '?', "2005-01-01"}})
        ExpectOrder(ReadDate(row.left), ReadDate(row.right), row.sign,
                    std::string(row.left) + " " + row.right);
    ExpectOrder(CDateTime(), CDateTime(), '=', "values that are not set");
    CDateTime const noon("2005-01-01T12:00:00");
    CDateTime const noonUtc("2005-01-01T12:00:00Z");
    EXPECT_FALSE(noon <= noonUtc || noon >= noonUtc);
    EXPECT_TRUE(noon <= noon && noon >= noon);
}

TEST(DateTimeOrder, IsAntisymmetricAndFollowsTheInstants) {
    zvtest::RandomDates dates(14);
    int ordered = 0;
    for (int i = 0; i < 20'000; ++i) {
        CDateTime const left = ReadDate(dates.Text());
        CDateTime const right =
            dates.Number(0, 3) == 0 ? left + ReadSpan("-PT1.000000001S") : ReadDate(dates.Text());
        char const sign = Sign(left.CompareTo(right));
        ASSERT_EQ(Sign(right.CompareTo(left)), Mirrored(sign)) << left.ToString() << " " << right.ToString();
        ASSERT_EQ(Sign(left.CompareTo(left)), '=') << left.ToString();
        bool const haveInstants = left.GetType() == CDateTime::dt_dateTime &&
                                  right.GetType() == CDateTime::dt_dateTime && left.IsUTC() == right.IsUTC();
        if (haveInstants && left.GetTime() != right.GetTime() && sign != '?') {
            ASSERT_EQ(sign == '<', left.GetTime() < right.GetTime());
            ++ordered;
        }
    }
    EXPECT_GT(ordered, 2'000);
}

TEST(DateTimeOrder, NormalizingKeepsTheInstant) {
    struct Row {
        char const* text;
        char const* normalized;
    };
    for (Row const& row : {Row{"2000-03-04T23:00:00+03:00", "2000-03-04T20:00:00+00:00"},
                           Row{"2000-03-01T00:15:00+00:30", "2000-02-29T23:45:00+00:00"},
                           Row{"1999-12-31T23:00:00.5-01:30", "2000-01-01T00:30:00.5+00:00"},
                           Row{"0001-01-01T00:00:00+01:00", "0000-12-31T23:00:00+00:00"},
                           Row{"2000-03-04T23:00:00Z", "2000-03-04T23:00:00Z"},
                           Row{"2000-03-04T23:00:00", "2000-03-04T23:00:00"}})
        EXPECT_EQ(ReadDate(row.text).GetNormalized().ToString(), row.normalized);
}

namespace {

struct SumRow {
    char const* start;
    char const* span;
    char const* sum;
};

void ExpectSums(std::vector<SumRow> const& rows) {
    for (SumRow const& row : rows) {
        CDateTime sum = ReadDate(row.start);
        sum += ReadSpan(row.span);
        EXPECT_EQ(sum.ToString(), row.sum) << row.start << " " << row.span;
        EXPECT_EQ((ReadDate(row.start) + ReadSpan(row.span)).ToString(), row.sum);
    }
}

} // namespace

// datetime + timedelta of Python for dates and spans drawn by its random module, at the ends of centuries and
// of its years besides.
TEST(DateTimeSum, AgreesWithAnIndependentCalendar) {
    ExpectSums({{"1999-12-31T23:59:59.999999", "P7DT13H40M", "2000-01-08T13:39:59.999999"},
                {"2000-02-28T23:00:00", "-PT14H59M28S", "2000-02-28T08:00:32"},
                {"1900-02-28T12:00:00", "PT17H44M44.475143S", "1900-03-01T05:44:44.475143"},
                {"0001-01-01T00:00:01", "P265DT14H50M33.497363S", "0001-09-23T14:50:34.497363"},
                {"5545-04-23T02:31:57", "-P903830DT1H54M37S", "3070-09-15T00:37:20"},
                {"4659-09-22T02:51:57", "-P300DT23H33M58.75S", "4658-11-25T03:17:58.25"},
                {"0552-07-09T12:19:53.739661", "P10DT4H13M58S", "0552-07-19T16:33:51.739661"},
                {"2633-05-04T00:50:48.5", "PT1S", "2633-05-04T00:50:49.5"},
                {"5311-09-13T23:33:41", "P455DT10H47M40S", "5312-12-12T10:21:21"},
                {"6601-04-21T09:05:35.5", "P257DT11H6.25S", "6602-01-03T20:05:41.75"},
                {"4847-11-28T03:12:31.387943", "-P191414DT16H31M37.695394S", "4323-11-01T10:40:53.692549"},
                {"8580-12-24T11:52:43.5", "-P14325DT6H9M43S", "8541-10-05T05:43:00.5"},
                {"1733-02-13T02:41:10.818141", "-PT23H11M45S", "1733-02-12T03:29:25.818141"},
                {"5232-04-10T23:22:20", "-P40186DT8H10M42S", "5122-04-02T15:11:38"}});
}

TEST(DateTimeSum, FollowsTheExamplesOfTheRecommendation) {
    ExpectSums({{"2000-01-12T12:13:14Z", "P1Y3M5DT7H10M3.3S", "2001-04-17T19:23:17.3Z"},
                {"2000-01", "-P3M", "1999-10"},
                {"2000-01-12", "PT33H", "2000-01-13"},
                {"2000-04-30", "P1D", "2000-05-01"}, // 2000-03-30 plus a month plus a day
                {"2004-12-31", "P1D", "2005-01-01"},
                {"2004-03-01", "-P1D", "2004-02-29"},
                {"2005-01-01T00:00:00+05:00", "-PT0.000000001S", "2004-12-31T23:59:59.999999999+05:00"}});
}

// The recommendation cuts the day to the length of its month, and leaves out fields that a type lacks.
TEST(DateTimeSum, DeviatesInTheDayOfTheMonthAndInFieldsThatATypeLacks) {
    ExpectSums({{"2000-01-31", "P1M", "2000-02-31"},                     // there: 2000-02-29
                {"2000-03-31", "P1M", "2000-04-31"},                     // there: 2000-04-30
                {"2000", "P1Y", "2000"},                                 // there: 2001
                {"2000", "P1Y1M", "2001"},                               // the month counts as 0
                {"-0001-12-31", "P1D", "0000-01-01"},                    // there is no year 0
                {"9999-12-31T23:59:59", "PT1S", "10000-01-01T00:00:00"}, // and no end
                {"2005-01-31T00:00:00", "P1M1D", "2005-03-04T00:00:00"}, // February 31 is March 3
                {"2005-01-31T00:00:00", "P1MT24H", "2005-03-04T00:00:00"}});
    // No date carries its day out of its month while it stays above 0.
    CDateTime date(2005, 1, 31);
    date += ReadSpan("P1M");
    EXPECT_EQ((date - ReadSpan("P1D")).ToString(), "2005-02-30");
    EXPECT_EQ((date - ReadSpan("-P31D")).ToString(), "2005-01-31"); // by the magnitude
    date -= ReadSpan("P28D");
    EXPECT_EQ(date.ToString(), "2005-02-03");
}

TEST(DateTimeSum, TheDifferenceOfTwoDatesIsZero) {
    EXPECT_EQ((CDateTime(2005, 1, 2) - CDateTime(2004, 1, 1)).ToString(), "P");
}

TEST(DurationOrder, FollowsTheRecommendation) {
    for (OrderRow const& row :
         {// The table of XML Schema Part 2, 3.2.6.2.
          OrderRow{"P1Y", '>', "P364D"}, OrderRow{"P1Y", '?', "P365D"}, OrderRow{"P1Y", '?', "P366D"},
          OrderRow{"P1Y", '<', "P367D"}, OrderRow{"P1M", '>', "P27D"}, OrderRow{"P1M", '?', "P28D"},
          OrderRow{"P1M", '?', "P30D"}, OrderRow{"P1M", '?', "P31D"}, OrderRow{"P1M", '<', "P32D"},
          OrderRow{"P5M", '>', "P149D"}, OrderRow{"P5M", '?', "P150D"}, OrderRow{"P5M", '?', "P153D"},
          OrderRow{"P5M", '<', "P154D"}, OrderRow{"PT24H", '=', "P1D"}, OrderRow{"P1Y", '=', "P12M"},
          OrderRow{"PT1M", '=', "PT60S"}, OrderRow{"-P1D", '<', "PY"}, OrderRow{"PT0.000000001S", '>', "PY"},
          OrderRow{"-P1M", '?', "-P30D"},
          // The widest numbers, at once and exactly.
          OrderRow{"PT18446744073709551615S", '>', "PT18446744073709551614S"},
          OrderRow{"PT307445734561825860M15S", '=', "PT18446744073709551615S"},
          OrderRow{"P65535Y", '=', "P786420M"}})
        ExpectOrder(ReadSpan(row.left), ReadSpan(row.right), row.sign,
                    std::string(row.left) + " " + row.right);
}
