// Durations: parts, lexical form.
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "tests/values/DateTexts.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

std::string Form(std::string const& text) {
    return "invalid: Invalid XSD Duration [" + text + "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]";
}

} // namespace

TEST(Duration, ReadsAndPrintsThePartsAsTheyAreWritten) {
    for (auto const& row : Vectors("dates.txt", "texts of durations"))
        EXPECT_EQ(zvtest::Outcome([&] { return zvtest::ReadSpan(row[0]).ToString(); }), row[1]);
    for (char const* const text : {"P4294967296M",
                                   "P4294967296D",
                                   "PT4294967296H",
                                   "PT18446744073709551616M",
                                   "PT18446744073709551616S",
                                   "PT18446744073709551616.5S",
                                   "P18446744073709551616Y",
                                   "-",
                                   "P",
                                   "-P",
                                   "1Y",
                                   "+P1Y",
                                   "P-1Y",
                                   "P1",
                                   "P1YT",
                                   "P1D1M",
                                   "P1D1D",
                                   "P1H",
                                   "P1S",
                                   "P1.5S",
                                   "PT1D",
                                   "PT1M1H",
                                   "PT1S1M",
                                   "PT1S1S",
                                   "PT1ST1S",
                                   "PT1.5",
                                   "PT1.5M",
                                   "PT1.5S1S",
                                   "P1W",
                                   "P1Y ",
                                   "PT1M2M"})
        EXPECT_EQ(zvtest::Outcome([&] { return zvtest::ReadSpan(text).ToString(); }), Form(text));
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTimeSpan().ParseXSDDuration(nullptr); }),
              "Invalid XSD Duration (Null String)");
}

TEST(Duration, ReadsMegabytesOfDigitsInOneGo) {
    std::string const zeros(4'000'000, '0');
    EXPECT_EQ(zvtest::ReadSpan("P" + zeros + "7Y").ToString(), "P7Y");
    std::string const text = "P7" + zeros + "D";
    EXPECT_EQ(zvtest::Outcome([&] { return zvtest::ReadSpan(text).ToString(); }), Form(text));
}

TEST(Duration, OneSignHoldsForAllParts) {
    CDateTimeSpan span(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(span.GetAsNegative().GetAsNegative().ToString(), "-P1Y2M3DT4H5M6.007008009S");
    span.Negate();
    EXPECT_TRUE(span.IsNegative());
    EXPECT_EQ(span.GetAsNegative().ToString(), span.ToString());
    span.Negate();
    EXPECT_EQ(span.ToString(), "P1Y2M3DT4H5M6.007008009S");
    span.Negate();
    span.SetDateTimeSpan(4, 5, 6); // clears the rest and the sign
    EXPECT_EQ(span.ToString(), "PT4H5M6S");
    span.SetDateTimeSpan(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(span.ToString(), "P1Y2M3DT4H5M6.007008009S");
    span.SetDateTimeSpan(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(span.ToString(), "P1Y2M3DT4H5M6S");
    EXPECT_EQ(CDateTimeSpan(0, 100, 0).ToString(), "PT100M");
}

TEST(Duration, PrintsTheWidestParts) {
    CDateTimeSpan span(0xFFFF, ~0U, ~0U, ~0U, ~0ULL, ~0ULL, 0xFFFF, 0xFFFF, 0xFFFF);
    span.Negate();
    std::string text = "what was there before";
    EXPECT_EQ(span.Print(text), "-P65535Y4294967295M4294967295DT4294967295H18446744073709551615M"
                                "18446744073709551615.655356553565535S");
    EXPECT_EQ(span.ToString(), text);
}

TEST(Duration, PrintsWhatItRead) {
    zvtest::RandomDates random(6);
    for (int i = 0; i < 10'000; ++i) {
        auto const part = [&] { return static_cast<std::uint32_t>(random.Number(-100, 1'000'000) & ~63); };
        auto const fraction = [&] {
            return static_cast<unsigned short>(random.Number(0, 1) * random.Number(0, 999));
        };
        CDateTimeSpan span(static_cast<unsigned short>(part()), part(), part(), part(), part(), part(),
                           fraction(), fraction(), fraction());
        if (random.Number(0, 1) == 0)
            span.Negate();
        std::string const text = span.ToString();
        ASSERT_EQ(zvtest::ReadSpan(text).ToString(), text);
        ASSERT_EQ(zvtest::ReadSpan(text).CompareTo(span), CDateTime::DTCompareEqual) << text;
    }
}
