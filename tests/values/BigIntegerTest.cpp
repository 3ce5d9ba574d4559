// Whole numbers of any size: text, arithmetic, signs of zero, bounds.
#include "zvxmllib/values/numbers/BigInteger.h"

#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "tests/values/NumberTables.h"
#include "zvxmllib/values/numbers/Decimal.h"

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

// Read before main, and before the library's own statics if they were made by code.
std::string const kBoundAtLoad = CBigInteger::MIN_DOUBLE.ToString();

std::string MakeDigits(std::size_t count, std::uint64_t state) {
    std::string digits = "1";
    for (; count > 0; --count) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        digits += static_cast<char>('0' + (state >> 33U) % 10);
    }
    return digits;
}

std::uint64_t Modulo(std::string const& digits) {
    std::uint64_t rest = 0;
    for (char const digit : digits)
        rest = (rest * 10 + static_cast<std::uint64_t>(digit - '0')) % 1000000007U;
    return rest;
}

CBigInteger RandomInteger(std::mt19937_64& random) {
    // Limbs of nines and zeros lead astray more often than those that chance gives.
    std::string digits = random() % 2 != 0 ? "-" : "";
    for (auto pieces = random() % 12; pieces > 0; --pieces)
        digits += random() % 3 == 0   ? std::string(random() % 20, '9')
                  : random() % 2 == 0 ? std::string(random() % 20, '0')
                                      : std::to_string(random());
    return CBigInteger(digits.c_str());
}

// Prints the sign of zero, too.
std::string Signed(CBigInteger const& value) {
    return value == CBigInteger(0) && value < CBigInteger(0) ? "-0" : value.ToString();
}

std::string Message(void (*operation)()) {
    return MessageOf<CZvInvalidValueException>(operation);
}

} // namespace

TEST(BigInteger, TakesTheDigitsAtTheRightEndOfATextOfDigitsSignsAndWhiteSpace) {
    for (auto const& row : Vectors("number-texts.txt", "integers"))
        EXPECT_EQ(Signed(CBigInteger(row[0].c_str())), row[1]) << "[" << row[0] << "]";
    EXPECT_EQ(CBigInteger(static_cast<char const*>(nullptr)).ToString(), "0");
}

TEST(BigInteger, LeavesTheValueAloneWhenATextIsRefused) {
    CBigInteger value(5);
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([&] { value.Parse("12x"); }),
              "The string representing a Decimal, contained an invalid char at position 2 [12x].");
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([&] { value /= CBigInteger(); }),
              "ERROR: Overflow in operator /=.");
    EXPECT_EQ(value.ToString(), "5");
}

TEST(BigInteger, CalculatesAsTheTablesSay) {
    auto const rows = zvtest::NumberTable<8>("integers");
    ASSERT_GE(rows.size(), 30U);
    for (auto const& row : rows) {
        CBigInteger const a(row[0].c_str());
        CBigInteger const b(row[1].c_str());
        CBigInteger const results[] = {a + b, a - b, a * b, a / b, a % b};
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(results[i].ToString(), row[i + 2]) << row[0] << " and " << row[1];
        if (a != CBigInteger(0)) {
            EXPECT_EQ(a.GetAbs().SquareRoot().ToString(), row[7]) << row[0];
        }
    }
}

TEST(BigInteger, CalculatesWithTenThousandDigitsInAMomentAndExactly) {
    auto const start = std::chrono::steady_clock::now();
    auto const rows = zvtest::NumberTable<6>("large integers");
    ASSERT_GE(rows.size(), 10U);
    for (auto const& row : rows) {
        CBigInteger const a(MakeDigits(std::stoul(row[0]), 1).c_str());
        CBigInteger const b(MakeDigits(std::stoul(row[1]), 2).c_str());
        CBigInteger const results[] = {a * b, a / b, a % b, a.SquareRoot()};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(std::to_string(Modulo(results[i].ToString())), row[i + 2]) << row[0];
        EXPECT_EQ(Modulo((b * a).ToString()), Modulo(results[0].ToString())) << row[0];
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start,
              std::chrono::seconds(10)); // ten rows, sanitizers and all
}

TEST(BigInteger, KeepsItsLawsForAnyNumbers) {
    std::mt19937_64 random(3);
    CBigInteger const zero;
    CBigInteger const one(1);
    for (int i = 0; i < 3000; ++i) {
        CBigInteger const a = RandomInteger(random);
        CBigInteger const b = RandomInteger(random);
        CBigInteger const c = RandomInteger(random);
        std::string const what = a.ToString() + " and " + b.ToString();
        ASSERT_EQ(CBigInteger(a.ToString().c_str()).ToString(), a.ToString());
        ASSERT_TRUE((a + b) * c == a * c + b * c) << what << " and " << c.ToString();
        ASSERT_TRUE(a - b == (b - a).GetNegative()) << what;
        ASSERT_EQ(a<b, b> a) << what;
        ASSERT_EQ(a <= b, b >= a) << what;
        ASSERT_EQ(a == b, !(a != b)) << what;
        ASSERT_FALSE(a < b && b < a) << what;
        if (b != zero) {
            ASSERT_EQ((a < b) + (b < a) + (a == b), 1) << what;
            ASSERT_TRUE(a / b * b + a % b == a) << what;
            ASSERT_TRUE((a % b).GetAbs() < b.GetAbs()) << what;
        }
        if (a != zero) {
            CBigInteger const root = a.GetAbs().SquareRoot();
            ASSERT_TRUE(root * root <= a.GetAbs() && (root + one) * (root + one) > a.GetAbs()) << what;
        }
    }
}

TEST(BigInteger, GivesZeroTheSignOfTheRuleThatLeadsThere) {
    CBigInteger const zero;
    CBigInteger const minusZero("-0");
    CBigInteger const one(1);
    CBigInteger const minusTwo(-2);
    struct Row {
        char const* what;
        CBigInteger value;
        char const* sign;
    };
    std::vector<Row> const rows = {{"-0 + -0", minusZero + minusZero, "-0"},
                                   {"-0 - 0", minusZero - zero, "-0"},
                                   {"-0 + 0", minusZero + zero, "0"},
                                   {"0 - 0", zero - CBigInteger(0), "0"},
                                   {"-2 - -2", minusTwo - CBigInteger(-2), "0"},
                                   {"-0 * 1", minusZero * one, "0"},
                                   {"0 * -2", zero * minusTwo, "0"},
                                   {"1 / -2", one / minusTwo, "-0"},
                                   {"-0 / 1", minusZero / one, "0"},
                                   {"-2 % 1", minusTwo % one, "-0"},
                                   {"-0 % -2", minusZero % minusTwo, "0"},
                                   {"negative of 0", zero.GetNegative(), "-0"},
                                   {"magnitude of -0", minusZero.GetAbs(), "0"},
                                   {"of -0.3", CBigInteger(-0.3), "-0"},
                                   {"of -0.0", CBigInteger(-0.0), "0"}};
    for (Row const& row : rows)
        EXPECT_EQ(Signed(row.value), row.sign) << row.what;
    EXPECT_EQ(minusZero.ToString(), "0");
    EXPECT_TRUE(minusZero == zero);
    EXPECT_TRUE(minusZero < zero);
    EXPECT_FALSE(minusZero >= zero);
    EXPECT_TRUE(minusTwo < minusZero);
}

TEST(BigInteger, TakesEveryIntegerTypeToItsLimits) {
    using std::numeric_limits;
    EXPECT_EQ(CBigInteger(numeric_limits<int>::min()).ToString(), "-2147483648");
    EXPECT_EQ(CBigInteger(numeric_limits<unsigned>::max()).ToString(), "4294967295");
    EXPECT_EQ(CBigInteger(numeric_limits<long>::min()).ToString(),
              std::to_string(numeric_limits<long>::min()));
    EXPECT_EQ(CBigInteger(numeric_limits<unsigned long>::max()).ToString(),
              std::to_string(numeric_limits<unsigned long>::max()));
    EXPECT_EQ(CBigInteger(numeric_limits<long long>::min()).ToString(), "-9223372036854775808");
    EXPECT_EQ(CBigInteger(numeric_limits<unsigned long long>::max()).ToString(), "18446744073709551615");
    EXPECT_EQ(CBigInteger::Pow10(18).ToString(), "1000000000000000000");
    EXPECT_EQ(CBigInteger::Pow10(0).ToString(), "1");

    EXPECT_EQ(static_cast<int>(CBigInteger("-2147483648")), numeric_limits<int>::min());
    EXPECT_EQ(static_cast<int>(CBigInteger("2147483647")), numeric_limits<int>::max());
    EXPECT_EQ(static_cast<long long>(CBigInteger("-9223372036854775808")), numeric_limits<long long>::min());
    EXPECT_EQ(static_cast<long long>(CBigInteger("9223372036854775807")), numeric_limits<long long>::max());
}

TEST(BigInteger, ConvertsDoublesDigitByDigit) {
    auto const rows = zvtest::NumberTable<2>("doubles");
    ASSERT_GE(rows.size(), 15U);
    for (auto const& [value, integer] : rows)
        EXPECT_EQ(CBigInteger(std::stod(value)).ToString(), integer) << value;
    EXPECT_EQ(CBigInteger(std::nan("")).ToString(), "0");
}

TEST(BigInteger, RefusesWhatHasNoResult) {
    EXPECT_EQ(Message([] { CBigInteger(1) / CBigInteger("-0"); }), "ERROR: Overflow in operator/.");
    EXPECT_EQ(Message([] { CBigInteger(0) % CBigInteger(0); }), "ERROR: Overflow in operator%.");
    EXPECT_EQ(Message([] { CBigInteger(1) /= CBigInteger(0); }), "ERROR: Overflow in operator /=.");
    EXPECT_EQ(Message([] { CBigInteger(1) %= CBigInteger(0); }), "ERROR: Overflow in operator%=.");
    EXPECT_EQ(Message([] { CBigInteger(-1).SquareRoot(); }),
              "ERROR: Negative Number in function SquareRoot().");
    EXPECT_EQ(Message([] { CBigInteger(0).SquareRoot(); }), "ERROR: Overflow in operator/.");
    EXPECT_EQ(Message([] { CBigInteger("-0").SquareRoot(); }), "ERROR: Overflow in operator/.");
    for (char const* const text : {"2147483648", "-2147483649", "1E65536"})
        EXPECT_EQ(MessageOf<CZvInvalidValueException>(
                      [&] { static_cast<void>(static_cast<int>(CBigInteger(text))); }),
                  "ERROR: Value out of bound of int.")
            << text;
    for (char const* const text : {"9223372036854775808", "-9223372036854775809", "-1E65536"})
        EXPECT_EQ(MessageOf<CZvInvalidValueException>(
                      [&] { static_cast<void>(static_cast<long long>(CBigInteger(text))); }),
                  "ERROR: Value out of bound of LONGLONG.")
            << text;
    for (double const value : {HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(MessageOf<CZvInvalidValueException>([&] { CBigInteger const refused(value); }),
                  "ERROR: An infinite value can not be converted to an integer.");
}

TEST(BigInteger, ChangesInPlace) {
    CBigInteger value(7);
    EXPECT_EQ((-value).ToString(), "-7");
    EXPECT_EQ(value.ToString(), "-7") << "unary minus changes its operand";
    value += CBigInteger("1000000000000000000000000000000000000000");
    EXPECT_EQ(value.ToString(), "999999999999999999999999999999999999993");
    value *= value;
    value -= value + CBigInteger(20);
    EXPECT_EQ(value.ToString(), "-20");
    value /= CBigInteger(3);
    EXPECT_EQ(value.ToString(), "-6");
    value %= CBigInteger(4);
    EXPECT_EQ(value.ToString(), "-2");
    value.Abs();
    EXPECT_EQ(value.ToString(), "2");
}

TEST(BigInteger, CopiesAreIndependentAndMovedOnesAreZero) {
    for (char const* const text : {"-5", "-123456789012345678901234567890123456789012345678901234567890"}) {
        CBigInteger value(text);
        CBigInteger const copy = value;
        value += CBigInteger(1);
        EXPECT_EQ(copy.ToString(), text);
        value = copy;
        CBigInteger moved(std::move(value));
        EXPECT_EQ(moved.ToString(), text);
        EXPECT_EQ(Signed(value), "0"); // NOLINT(bugprone-use-after-move): that is what is told
        value = std::move(moved);
        EXPECT_EQ(value.ToString(), text);
        EXPECT_EQ(Signed(moved), "0"); // NOLINT(bugprone-use-after-move)
        CBigInteger& same = value;
        value = std::move(same);
        EXPECT_EQ(value.ToString(), text);
    }
    CBigInteger bound = CBigInteger::MAX_DOUBLE; // whose limbs are constants
    bound -= CBigInteger(1);
    EXPECT_EQ((CBigInteger::MAX_DOUBLE - bound).ToString(), "1");
}

TEST(BigInteger, HasItsBoundsBeforeAnyOtherStatic) {
    EXPECT_EQ(kBoundAtLoad, "-17" + std::string(307, '0'));
    EXPECT_EQ(CBigInteger::MAX_DOUBLE.ToString(), CBigInteger("1.7E+308").ToString());
    EXPECT_EQ(CBigInteger::MIN_LONGLONG.ToString(), "-9223372036854775808");
    EXPECT_EQ(CBigInteger::MAX_LONGLONG.ToString(), "9223372036854775807");
    EXPECT_EQ(CBigInteger::MIN_LONG.ToString(), "-2147483648");
    EXPECT_EQ(CBigInteger::MAX_LONG.ToString(), "2147483647");
}

TEST(BigInteger, ReadsMegabytesOfDigitsInProportionalTime) {
    std::string const digits = "-1" + std::string(3000000, '7') + "000";
    auto const start = std::chrono::steady_clock::now();
    CBigInteger const value(digits.c_str());
    EXPECT_TRUE(value.ToString() == digits);
    EXPECT_TRUE(value + CBigInteger(1) > value);
    EXPECT_TRUE(CBigInteger((digits + ".6").c_str()) == value - CBigInteger(1));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}
