// The lexical forms of the primitive types, their bounds and their messages.
#include "zvxmllib/values/variant/Conversions.h"

#include "tests/support/Vectors.h"
#include "tests/values/ReadText.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace ZvXmlLib16;
using zvtest::ReadText;

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;
constexpr Rule kNone = CWhitespaceUtils::WhitespaceRule_None;
constexpr Rule kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

struct Row {
    ItemType type;
    Rule rule;
    std::string text;
    std::string result;
};

void ExpectRow(Row const& row) {
    EXPECT_EQ(ReadText(row.type, row.text, row.rule), row.result)
        << "type " << row.type << ", rule " << row.rule << ", text [" << row.text << "]";
}

void ExpectRows(std::string const& section) {
    std::string const rules[] = {"none", "preserve", "replace", "collapse"}; // in the order of their numbers
    for (auto const& row : Vectors("conversions.txt", section)) {
        auto const rule = std::find(std::begin(rules), std::end(rules), row[1]) - std::begin(rules);
        ExpectRow({zvtest::TypeNamed(row[0]), static_cast<Rule>(rule), row[2], row[3]});
    }
}

std::string NoNumber(std::string const& text, char const* type) {
    return "invalid: The value [" + text + "] can not be converted to a " + type;
}

std::string TooLarge(std::string const& text, char const* type) {
    return "invalid: The value [" + text + "] is to large to fit in a " + type;
}

} // namespace

TEST(Conversions, IntegersTakeSignAndLeadingWhiteSpaceAndNothingBehind) {
    ExpectRows("integers take sign and leading white space and nothing behind");
}

TEST(Conversions, IntegersOutOfRangeNameTheTypeThatRefuses) {
    ExpectRows("integers out of range name the type that refuses");
    std::string const digits(1000000, '9');
    EXPECT_EQ(ReadText(ItemType_i8, digits, kNone), TooLarge(digits, "i8"));
}

namespace {

// Around zero and both bounds, by each of the two ways in: plain digits, and what they refuse.
template <class Integer, class Argument>
void ExpectSameTextBack(ItemType type, std::string (*toText)(Argument)) {
    using Limits = std::numeric_limits<Integer>;
    for (Integer const start : {Limits::min(), Integer(0), Integer(Limits::max() - 2)}) {
        for (int step = 0; step < 3; ++step) {
            auto const value = static_cast<Integer>(start + static_cast<Integer>(step));
            std::string const text = std::to_string(value);
            EXPECT_EQ(toText(static_cast<Argument>(value)), text) << "type " << type;
            EXPECT_EQ(ReadText(type, text, kCollapse), text) << "type " << type;
            EXPECT_EQ(ReadText(type, "\f" + text, kCollapse), text) << "type " << type;
            EXPECT_EQ(ReadText(type, " 00" + text + "\n", kCollapse),
                      text[0] == '-' ? NoNumber("00" + text, sizeof(Integer) > 4 ? "i8" : "i4") : text)
                << "type " << type;
        }
    }
}

} // namespace

TEST(Conversions, IntegersPrintTheTextThatTheyWereReadFrom) {
    ExpectSameTextBack<signed char>(ItemType_i1, CConversions::i1ToString);
    ExpectSameTextBack<short>(ItemType_i2, CConversions::i2ToString);
    ExpectSameTextBack<std::int32_t>(ItemType_i4, CConversions::i4ToString);
    ExpectSameTextBack<long long>(ItemType_i8, CConversions::i8ToString);
    ExpectSameTextBack<unsigned char>(ItemType_ui1, CConversions::ui1ToString);
    ExpectSameTextBack<unsigned short>(ItemType_ui2, CConversions::ui2ToString);
    ExpectSameTextBack<std::uint32_t>(ItemType_ui4, CConversions::ui4ToString);
    ExpectSameTextBack<unsigned long long>(ItemType_ui8, CConversions::ui8ToString);
}

TEST(Conversions, FloatingPointTakesDecimalFormsAndTheNamedWordsOnly) {
    std::vector<Row> rows;
    for (auto const& [text, result] : std::vector<std::pair<char const*, char const*>>{
             {"0", "0"},
             {"-0", "-0"},
             {"+1.5", "1.5"},
             {"1.", "1"},
             {".5", "0.5"},
             {"-.25e1", "-2.5"},
             {"1E+05", "100000"},
             {"1e-05", "1e-05"},
             {"0.1", "0.1"},
             {" 2", "2"},
             {"1e999", "INF"},
             {"-1e999", "-INF"},
             {"1e-999", "0"},
             {"INF", "INF"},
             {"-INF", "-INF"},
             {"NaN", "NaN"},
             {"1.#QNAN", "NaN"},
             {"-NAN", "NaN"},
             {"0000000000000000000000000000000000000000000001", "1"}}) {
        rows.push_back({ItemType_r4, kNone, text, result});
        rows.push_back({ItemType_r8, kNone, text, result});
    }
    for (char const* const text :
         {"inf", "nan", "+INF", "NAN", "infinity", "nan(1)", "0x10", "0x1p999", " INF", "1e",
          "1e+", "e5",  ".",    "-",   "- 1",      "--1",    "1,5",  "1.5.",    "1 ",   "abc"}) {
        rows.push_back({ItemType_r4, kNone, text, NoNumber(text, "r4")});
        rows.push_back({ItemType_r8, kNone, text, NoNumber(text, "r8")});
    }
    rows.push_back({ItemType_r4, kCollapse, "\n", "invalid: The value [] can not be converted to a r4"});
    rows.push_back({ItemType_r8, kCollapse, " INF\n", "INF"});
    rows.push_back({ItemType_r8, kCollapse, "\t-2.5\n", "-2.5"});
    rows.push_back({ItemType_r8, kNone, "12\0x", "12"});
    rows.push_back({ItemType_r4, kNone, "3.5e38", "INF"}); // within a double only
    rows.push_back({ItemType_r4, kNone, "1e-46", "0"});
    rows.push_back({ItemType_r8, kNone, "4.9e-324", "4.940656458412465e-324"});
    rows.push_back({ItemType_r8, kNone, std::string(1000000, '9'), "INF"});
    for (Row const& row : rows)
        ExpectRow(row);
}

TEST(Conversions, FloatingPointReadsAndPrintsAsTheRuntimeDoesInTheCLocale) {
    std::mt19937_64 random(20260101); // any seed will do
    for (int i = 0; i < 20000; ++i) {
        std::uint64_t bits = random();
        if (i % 2 == 0) // of ordinary size, from about 2^-16 to 2^60
            bits = (bits & 0x800FFFFFFFFFFFFFU) | (1007 + random() % 76) << 52U;
        if (i % 8 == 0) // a fraction that may end in a 5
            bits &= ~std::uint64_t{0} << (random() % 52);
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        char text[64];
        std::snprintf(text, sizeof text, "%.16g", value);
        ASSERT_EQ(CConversions::r8ToString(value), text);
        ASSERT_EQ(CConversions::r8FromString(text, kCollapse), std::strtod(text, nullptr)) << text;
        float const narrow = static_cast<float>(value);
        if (std::isfinite(narrow)) {
            std::snprintf(text, sizeof text, "%.7g", static_cast<double>(narrow));
            ASSERT_EQ(CConversions::r4ToString(narrow), text);
        }
        ASSERT_EQ(CConversions::r4FromString(text, kCollapse),
                  static_cast<float>(std::strtod(text, nullptr)));
    }
}

TEST(Conversions, FloatingPointObeysTheFormatOfTheCallerUpToALimit) {
    EXPECT_EQ(CConversions::r4ToString(0.1F), "0.1");
    EXPECT_EQ(CConversions::r8ToString(0.1F), "0.1000000014901161");
    EXPECT_EQ(CConversions::r8ToString(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(CConversions::r4ToString(1.5F, "%08.3f"), "0001.500");
    EXPECT_EQ(CConversions::r8ToString(1e15, "%.2e"), "1.00e+15");
    EXPECT_EQ(CConversions::r4ToString(2.0F, "%.40f"), "2." + std::string(29, '0'));
    EXPECT_EQ(CConversions::r8ToString(2.0, "%.60f"), "2." + std::string(45, '0'));
    double const infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(CConversions::r8ToString(-infinity, "%.2f"), "-INF");
    EXPECT_EQ(CConversions::r8ToString(-std::numeric_limits<double>::quiet_NaN(), "%.2f"), "NaN");

    ZvVariant value;
    value.SetR8(2.5);
    EXPECT_EQ(value.ToString("%.2f"), "2.50");
    EXPECT_EQ(value.ToString(nullptr), "2.5");
    value.SetI4(7);
    EXPECT_EQ(value.ToString("%.2f"), "7");
}

TEST(Conversions, NumbersAreTheSameInALocaleWithADecimalComma) {
    ASSERT_EQ(setenv("LOCPATH", ZV_TEST_LOCALES, 1), 0);
    char const* const locale = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    unsetenv("LOCPATH");
    ASSERT_NE(locale, nullptr);
    char probe[16];
    std::snprintf(probe, sizeof probe, "%.1f", 0.5);
    std::string const printed = CConversions::r8ToString(1234.5);
    std::string const formatted = CConversions::r8ToString(1234.5, "%.2f");
    std::string const read = ReadText(ItemType_r8, "1234.5", kCollapse);
    std::string const denormal = ReadText(ItemType_r8, "2.5e-320", kCollapse);
    std::string const overflow =
        ReadText(ItemType_r8, "1.5e999", kCollapse); // by way of the runtime's parser
    std::string const comma = ReadText(ItemType_r8, "1234,5", kCollapse);
    std::string const integer = CConversions::i4ToString(1234567);
    std::setlocale(LC_NUMERIC, "C");

    ASSERT_STREQ(probe, "0,5");
    EXPECT_EQ(printed, "1234.5");
    EXPECT_EQ(formatted, "1234.50");
    EXPECT_EQ(read, "1234.5");
    EXPECT_EQ(denormal, "2.499972167956708e-320");
    EXPECT_EQ(overflow, "INF");
    EXPECT_EQ(comma, "invalid: The value [1234,5] can not be converted to a r8");
    EXPECT_EQ(integer, "1234567");
}

TEST(Conversions, BooleansTakeFourWordsInAnyCase) {
    ExpectRows("booleans take four words in any case");
}

TEST(Conversions, TextAndBytesFollowTheirRule) {
    ExpectRows("text and bytes follow their rule");
    ExpectRow({ItemType_hexBinary, kCollapse, std::string(200, 'a'), std::string(200, 'A')});
    EXPECT_EQ(CConversions::stringToString(CConversions::stringFromString(" a ", kCollapse)), "a");
    EXPECT_EQ(CConversions::booleanToString(true) + CConversions::booleanToString(false), "truefalse");
}

TEST(Conversions, DatesAndExactNumbersFollowTheirRuleAndTheirClasses) {
    ExpectRows("texts of another type of date");
    EXPECT_EQ(CConversions::yearToString(7), "7");
    EXPECT_EQ(CConversions::monthToString(7), "--07");
    EXPECT_EQ(CConversions::dayToString(7), "---07");
    EXPECT_EQ(CConversions::dayToString(255), "---255");
    EXPECT_EQ(CConversions::yearFromString("-0001+01:00", kCollapse), 0xFFFF);
    EXPECT_EQ(CConversions::monthFromString(" --12Z\n", kCollapse), 12);
    EXPECT_EQ(CConversions::dayFromString("---31-05:00", kCollapse), 31);
    CDecimal const number = CConversions::decimalFromString(" 1.005 ", kCollapse);
    struct Row {
        char const* format;
        char const* text;
    };
    for (Row const& row : {Row{"", "1.005"}, Row{"2", "1.01"}, Row{" 1x", "1.0"}, Row{"x", "1."}})
        EXPECT_EQ(CConversions::decimalToString(number, row.format), row.text) << row.format;
}

TEST(Conversions, ARuleOutOfRangeIsRefusedByEveryType) {
    auto const rule = static_cast<Rule>(4);
    for (ItemType const type :
         {ItemType_hexBinary, ItemType_base64Binary, ItemType_i1, ItemType_i2, ItemType_i4, ItemType_i8,
          ItemType_ui1, ItemType_ui2, ItemType_ui4, ItemType_ui8, ItemType_r4, ItemType_r8, ItemType_char,
          ItemType_string, ItemType_boolean})
        for (char const* const text : {"1", "INF"})
            EXPECT_EQ(ReadText(type, text, rule), "plain: Unknown WhitespaceRule") << type;
}
