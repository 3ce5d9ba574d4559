// Decimal numbers: text, rounding, arithmetic, order, bounds.
#include "zvxmllib/values/numbers/Decimal.h"

#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "tests/values/NumberTables.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;

namespace {

// Sets the greatest number of places for one test.
class PlacesGuard {
public:
    explicit PlacesGuard(std::int32_t places) : m_before(CDecimal::GetMaxDecimalPlaces()) {
        CDecimal::SetMaxDecimalPlaces(places);
    }
    ~PlacesGuard() { CDecimal::SetMaxDecimalPlaces(m_before); }
    PlacesGuard(PlacesGuard const&) = delete;
    PlacesGuard& operator=(PlacesGuard const&) = delete;

private:
    std::int32_t m_before;
};

std::string SignedText(CBigInteger const& value) {
    return value == CBigInteger(0) && value < CBigInteger(0) ? "-0" : value.ToString();
}

// "whole part, fraction part, divider"
std::string Parts(CDecimal const& value) {
    return SignedText(value.GetIntegerPart()) + ", " + SignedText(value.GetFractionPart()) + ", " +
           std::to_string(value.GetFractionDivider());
}

std::string Read(std::string const& text) {
    try {
        return CDecimal(text.c_str()).ToString();
    } catch (CZvInvalidValueException const& failure) {
        return failure.GetFullMessage();
    }
}

std::string BadChar(std::string const& text, int position) {
    return "The string representing a Decimal, contained an invalid char at position " +
           std::to_string(position) + " [" + text + "].";
}

CDecimal RandomDecimal(std::mt19937_64& random) {
    std::string text = random() % 2 != 0 ? "-" : "";
    text += std::to_string(random() >> random() % 64) + ".";
    text += std::string(random() % 9, '0') + std::to_string(random() >> random() % 64);
    return CDecimal(text.c_str());
}

} // namespace

TEST(Decimal, ReadsMoreThanTheSchemaAllowsAndNamesTheFirstCharacterThatItDoesNot) {
    std::string const ones(31, '1');
    struct Row {
        std::string text, result;
    };
    for (auto const& row : Vectors("number-texts.txt", "decimals"))
        EXPECT_EQ(Read(row[0]), row[1]) << "[" << row[0] << "]";
    for (Row const& row : std::vector<Row>{
             {"0." + ones, "0." + ones.substr(1)},
             {"0." + ones.substr(1) + "50", "0." + ones.substr(1)},
             {"0." + ones.substr(1) + "51", "0." + ones.substr(2) + "2"},
             {"-0." + ones.substr(1) + "51", "-0." + ones.substr(2) + "2"},
             {"0." + ones.substr(2) + "01", "0." + ones.substr(2) + "0"},
             {"0." + ones.substr(2) + "0", "0." + ones.substr(2)},
             {"9." + std::string(31, '9'), "10"},
             {"-9." + std::string(31, '9'), "-10"},
             {"5." + std::string(50, '1') + "E40", "5" + ones + "111111111." + std::string(10, '1')},
             {"1234\xB5"
              "6789",
              BadChar("1234\xB5"
                      "6789",
                      4)}})
        EXPECT_EQ(Read(row.text), row.result) << "[" << row.text << "]";
    EXPECT_EQ(CDecimal(static_cast<char const*>(nullptr)).ToString(), "0");
}

TEST(Decimal, BoundsTheWorkThatAnExponentAsksFor) {
    auto const start = std::chrono::steady_clock::now();
    EXPECT_EQ(Read("1E65536"), "1" + std::string(65536, '0'));
    EXPECT_EQ(Read("1E65537"), BadChar("1E65537", 1));
    EXPECT_EQ(Read("-2.5E999999999"), BadChar("-2.5E999999999", 4));
    EXPECT_EQ(Read("1e" + std::string(100000, '9')), BadChar("1e" + std::string(100000, '9'), 1));
    EXPECT_EQ(Read("0.00E999999999"), "0");
    EXPECT_EQ(Read("-7E-" + std::string(100000, '9')), "0");
    EXPECT_EQ(Read("1" + std::string(2000000, '0') + "E-2000000"), "1");
    EXPECT_EQ(Read("0." + std::string(2000000, '0') + "7"), "0");
    std::string spread;
    for (int i = 0; i < 500000; ++i)
        spread += "- 7";
    EXPECT_EQ(Read(spread), "-" + std::string(500000, '7'));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(Decimal, KeepsTheSignInBothParts) {
    struct Row {
        char const* text;
        char const* parts;
    };
    for (Row const& row : {Row{"-1.25", "-1, -25, 2"},
                           {"-0.5", "-0, -5, 1"},
                           {"1.05", "1, 5, 2"},
                           {"1.50", "1, 5, 1"},
                           {"-5", "-5, -0, 1"},
                           {"-5.00", "-5, 0, 1"},
                           {"-5E1", "-50, 0, 1"},
                           {"-0E5", "0, 0, 1"},
                           {"-1E-33", "0, 0, 1"},
                           {"-1E-31", "-0, 0, 1"}})
        EXPECT_EQ(Parts(CDecimal(row.text)), row.parts) << row.text;
    EXPECT_EQ(Parts(CDecimal()), "0, 0, 1");
    EXPECT_EQ(Parts(CDecimal(-5)), "-5, 0, 1");
    EXPECT_EQ(CDecimal(~0U).ToString(), "4294967295");
    EXPECT_EQ(CDecimal(~0UL).ToString(), std::to_string(~0UL));
    EXPECT_EQ(CDecimal(-1L).ToString(), "-1");
    EXPECT_EQ(CDecimal(~0ULL).ToString(), "18446744073709551615");
    EXPECT_EQ(Parts(CDecimal("1.5") - CDecimal(2)), "-0, -5, 1");
    EXPECT_EQ(Parts(CDecimal("-1.5") + CDecimal(2)), "0, 5, 1");
    EXPECT_EQ(Parts(CDecimal("-1.5") + CDecimal("1.5")), "0, 0, 1");
    EXPECT_EQ(Parts(CDecimal("-0.5") * CDecimal("0.5")), "-0, -25, 2");
    EXPECT_EQ(Parts(CDecimal("-0.5") * CDecimal(0)), "0, 0, 1");
    EXPECT_EQ(Parts(CDecimal("0.25").GetNegative()), "-0, -25, 2");
}

TEST(Decimal, CalculatesAsTheTablesSay) {
    auto const rows = zvtest::NumberTable<7>("decimals");
    ASSERT_GE(rows.size(), 25U);
    for (auto const& row : rows) {
        CDecimal const a(row[0].c_str());
        CDecimal const b(row[1].c_str());
        std::string const what = row[0] + " and " + row[1];
        CDecimal const results[] = {a + b, a - b, a * b, a / b};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(results[i].ToString(), row[i + 2]) << what;
        int const order = std::stoi(row[6]);
        EXPECT_EQ(a < b, order < 0) << what;
        EXPECT_EQ(a > b, order > 0) << what;
        EXPECT_EQ(a == b, order == 0) << what;
        EXPECT_EQ(a != b, order != 0) << what;
    }
}

TEST(Decimal, RoundsTextAwayFromZeroAndNumbersTowardsIt) {
    auto const rows = zvtest::NumberTable<8>("roundings");
    ASSERT_GE(rows.size(), 15U);
    constexpr int kPlaces[] = {0, 1, 2, 3, 31};
    for (auto const& row : rows) {
        CDecimal const value(row[0].c_str());
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(value.ToString(kPlaces[i]), row[i + 1]) << row[0];
        EXPECT_EQ(std::to_string(value.ToLong()), row[6]) << row[0];
        EXPECT_EQ(CBigInteger(value).ToString(), row[6]) << row[0];
        EXPECT_EQ(std::to_string(value.ToLongLong()), row[7]) << row[0];
    }
    EXPECT_EQ(CDecimal("1.5").ToString(-1), "2.");
    EXPECT_EQ(CDecimal("1.5").ToString(std::numeric_limits<int>::max()), "1.5");
}

TEST(Decimal, KeepsItsLawsForAnyNumbers) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 2000; ++i) {
        CDecimal const a = RandomDecimal(random);
        CDecimal const b = RandomDecimal(random);
        std::string const what = a.ToString() + " and " + b.ToString();
        ASSERT_EQ(CDecimal(a.ToString().c_str()).ToString(), a.ToString());
        ASSERT_TRUE(a + b - b == a) << what;
        ASSERT_TRUE(a * b == b * a) << what;
        ASSERT_TRUE(a - b == (b - a).GetNegative()) << what;
        ASSERT_EQ((a < b) + (b < a) + (a == b), 1) << what;
        ASSERT_EQ(a <= b, b >= a) << what;
        ASSERT_EQ(a > b, b < a) << what;
        ASSERT_EQ(a < b, a - b < CDecimal()) << what;
    }
}

TEST(Decimal, SeesANegativeZeroBelowZeroAndEqualToIt) {
    CDecimal const zero;
    CDecimal const minusZero("-0");
    EXPECT_TRUE(minusZero == zero);
    EXPECT_TRUE(minusZero < zero);
    EXPECT_TRUE(minusZero <= zero);
    EXPECT_TRUE(minusZero >= zero);
    EXPECT_TRUE(zero > minusZero);
    EXPECT_TRUE(zero <= minusZero);
    EXPECT_TRUE(CDecimal("-0.5") < minusZero);
    EXPECT_FALSE(CDecimal("-5") < CDecimal(-5)) << "the sign of a zero fraction does not count";
}

TEST(Decimal, KeepsAsManyPlacesAsItIsTold) {
    PlacesGuard const guard(2);
    EXPECT_EQ(Read("0.125"), "0.12");
    EXPECT_EQ(Read("0.999"), "1");
    EXPECT_EQ(Read("-0.996"), "-1");
    EXPECT_EQ((CDecimal(2) / CDecimal(3)).ToString(), "0.67");
    EXPECT_EQ((CDecimal("0.15") * CDecimal("0.15")).ToString(), "0.02");
    EXPECT_EQ((CDecimal("0.15") + CDecimal("0.15")).ToString(), "0.3");
    EXPECT_EQ(CDecimal("1.23").ToString(2), "1.23") << "the half unit is rounded away";
    CDecimal::SetMaxDecimalPlaces(0);
    EXPECT_EQ(Read("2.5"), "2");
    EXPECT_EQ(Read("-2.6"), "-3");
    EXPECT_EQ((CDecimal(8) / CDecimal(3)).ToString(), "3");
    EXPECT_EQ((CDecimal("2.5") * CDecimal("3.5")).ToString(), "6");
    CDecimal::SetMaxDecimalPlaces(-4);
    EXPECT_EQ(Read("2.51"), "3");
    CDecimal::SetMaxDecimalPlaces(40);
    EXPECT_EQ((CDecimal(1) / CDecimal(3)).ToString(), "0." + std::string(40, '3'));
}

TEST(Decimal, CutsATextWithAPointOnly) {
    std::string const digits(1022, '7');
    EXPECT_EQ(Read(digits + ".5"), digits + ".");
    EXPECT_EQ(Read("-" + digits + "7.5"), "-" + digits);
    EXPECT_EQ(Read(digits + "77777"), digits + "77777");
    EXPECT_EQ(CDecimal((digits + "7.25").c_str()).ToString(1), digits + "7.3");
}

TEST(Decimal, ReadsDoublesByThirteenPlaces) {
    struct Row {
        double value;
        std::string text;
    };
    for (Row const& row : std::vector<Row>{{0.1, "0.1"},
                                           {-2.5, "-2.5"},
                                           {1e-13, "0.0000000000001"},
                                           {4e-14, "0"},
                                           {-1234567.89, "-1234567.8899999998976"},
                                           {1e22, "10000000000000000000000"},
                                           {1e23, "99999999999999991611392"}})
        EXPECT_EQ(CDecimal(row.value).ToString(), row.text) << row.value;
    for (double const value : {std::nan(""), -std::nan("")})
        EXPECT_EQ(MessageOf<CZvInvalidValueException>([&] { CDecimal const refused(value); }),
                  BadChar("nan\n", 0));
    for (double const value : {HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(MessageOf<CZvInvalidValueException>([&] { CDecimal const refused(value); }),
                  BadChar("inf\n", 0));
}

TEST(Decimal, GivesDoublesAndRefusesThoseBeyondTheBound) {
    EXPECT_EQ(CDecimal("0.1").ToDouble(), 0.1);
    EXPECT_EQ(CDecimal("-12345678901234567890.125").ToDouble(), -12345678901234567890.125);
    EXPECT_EQ(CDecimal("1.7E308").ToDouble(), 1.7e308);
    EXPECT_TRUE(std::signbit(CDecimal("-0.1E-29").ToDouble()));
    for (char const* const text : {"1.70000000000000000001E308", "-1E309"})
        EXPECT_EQ(MessageOf<CZvOverFlowException>([&] { CDecimal(text).ToDouble(); }),
                  "The Decimal value if to large to fit into a Double")
            << text;
}

TEST(Decimal, RefusesIntegersBeyondTheirType) {
    EXPECT_EQ(CDecimal("2147483647.5").ToLong(), 2147483647);
    EXPECT_EQ(CDecimal("-2147483648.5").ToLong(), -2147483647 - 1);
    EXPECT_EQ(CDecimal("9223372036854775807.95").ToLongLong(), std::numeric_limits<long long>::max());
    EXPECT_EQ(CDecimal("-9223372036854775808.95").ToLongLong(), std::numeric_limits<long long>::min());
    for (char const* const text : {"2147483647.6", "-2147483648.6", "1E20"})
        EXPECT_EQ(MessageOf<CZvOverFlowException>([&] { CDecimal(text).ToLong(); }),
                  "The Decimal value if to large to fit into a LONG")
            << text;
    for (char const* const text : {"9223372036854775807.96", "-9223372036854775808.96"})
        EXPECT_EQ(MessageOf<CZvOverFlowException>([&] { CDecimal(text).ToLongLong(); }),
                  "The Decimal value if to large to fit into a LONGLONG")
            << text;
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDecimal(1) / CDecimal("-0.0"); }),
              "ERROR: Overflow in operator/.");
}

TEST(Decimal, StepsByOneAndChangesInPlace) {
    CDecimal value("-0.5");
    EXPECT_EQ((value++).ToString(), "-0.5");
    EXPECT_EQ((++value).ToString(), "1.5");
    EXPECT_EQ((value--).ToString(), "1.5");
    EXPECT_EQ((--value).ToString(), "-0.5");
    value += CDecimal(2LL);
    value *= value;
    EXPECT_EQ(value.ToString(), "2.25");
    value -= CDecimal(CBigInteger(3));
    value /= CDecimal(-0.5);
    EXPECT_EQ(value.ToString(), "1.5");
    value.Negate();
    CDecimal const moved(std::move(value));
    EXPECT_EQ(Parts(moved), "-1, -5, 1");
    EXPECT_EQ(Parts(value), "0, 0, 1"); // NOLINT(bugprone-use-after-move): that is what is told
}
