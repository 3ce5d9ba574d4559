// The order of dates and durations, and their sum.
#include "tests/support/Vectors.h"
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

template <class Value>
void ExpectOrder(Value const& left, Value const& right, char sign, std::string const& what) {
    EXPECT_EQ(Sign(left.CompareTo(right)), sign) << what;
    EXPECT_EQ(Sign(right.CompareTo(left)), Mirrored(sign)) << what;
    EXPECT_EQ(left == right, sign == '=') << what;
    EXPECT_EQ(left != right, sign != '=') << what;
    EXPECT_EQ(left < right, sign == '<') << what;
    EXPECT_EQ(left > right, sign == '>') << what;
}

template <class Value>
void ExpectOrders(std::string const& section, Value (*read)(std::string const&)) {
    for (auto const& row : Vectors("dates.txt", section))
        ExpectOrder(read(row[0]), read(row[2]), row[1][0], row[0] + ' ' + row[2]);
}

} // namespace

TEST(DateTimeOrder, FollowsTheRecommendation) {
    ExpectOrders("order of dates", ReadDate);
}

// Where the recommendation has another answer, or none.
TEST(DateTimeOrder, DeviatesForOffsetsOfPartialDatesAndForMixedTypes) {
    ExpectOrders("order of dates beyond the recommendation", ReadDate);
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

void ExpectSums(std::string const& section) {
    for (auto const& row : Vectors("dates.txt", section)) {
        CDateTime sum = ReadDate(row[0]);
        sum += ReadSpan(row[1]);
        EXPECT_EQ(sum.ToString(), row[2]) << row[0] << ' ' << row[1];
        EXPECT_EQ((ReadDate(row[0]) + ReadSpan(row[1])).ToString(), row[2]);
    }
}

} // namespace

// datetime + timedelta of Python for dates and spans drawn by its random module, at the ends of centuries and
// of its years besides.
TEST(DateTimeSum, AgreesWithAnIndependentCalendar) {
    ExpectSums("sums by another calendar");
}

TEST(DateTimeSum, FollowsTheExamplesOfTheRecommendation) {
    ExpectSums("sums of the recommendation");
}

// The recommendation cuts the day to the length of its month, and leaves out fields that a type lacks.
TEST(DateTimeSum, DeviatesInTheDayOfTheMonthAndInFieldsThatATypeLacks) {
    ExpectSums("sums beyond the recommendation");
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
    ExpectOrders("order of durations", ReadSpan);
}
