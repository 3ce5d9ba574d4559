// Texts of values by the usual rules and in a strict context.
#include "tests/strict/Twice.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/variant/Conversions.h"

#include <cmath>
#include <limits>

using namespace entries;

namespace {

CElementInfo* Value(ItemType type, char const* format = nullptr) {
    return new CElementInfoSeqPrimOpt("n", "", 0, false, type, format,
                                      CWhitespaceUtils::WhitespaceRule_Collapse, CPrimitiveRestrictions(),
                                      nullptr);
}

// What is written of a text that was read, without the tags; "-" for a failure.
std::string Again(ItemType type, std::string const& text, bool strict) {
    OrderOf model({Value(type)});
    CSerializationContext ctx;
    ctx.SetStrict(strict);
    std::string const outcome = Outcome(model, ("<order><n>" + text + "</n></order>").c_str(), ctx);
    std::string const start = "<order><n>";
    if (outcome.substr(0, start.size()) != start)
        return outcome == "<order><n/></order>" ? "" : "-";
    return outcome.substr(start.size(), outcome.find("</n>") - start.size());
}

constexpr char kSame[] = "same";

TEST(StrictValues, AreReadFromTheTextsOfTheirTypesAlone) {
    struct Row {
        ItemType type;
        char const* text;
        char const* usual;
        char const* strict;
    };
    for (Row const& row : {
             Row{ItemType_ui4, "-1", "4294967295", "-"},
             Row{ItemType_ui1, "-4294967295", "1", "-"},
             Row{ItemType_ui8, "-0", "0", "0"},
             Row{ItemType_ui2, "+7", "7", "7"},
             Row{ItemType_base64Binary, "not*base64", "", "-"},
             Row{ItemType_base64Binary, "QUI=QUI=", "QUIQUA==", "-"},
             Row{ItemType_base64Binary, "Q", "", "-"},
             Row{ItemType_base64Binary, "QR==", "QQ==", "-"},
             Row{ItemType_base64Binary, "QU\n I=", "QUI=", "QUI="},
             Row{ItemType_base64Binary, "", "", ""},
             Row{ItemType_hexBinary, "0a", "0A", "0A"},
             Row{ItemType_hexBinary, "0", "-", "-"},
             Row{ItemType_integer, "12-", "0", "-"},
             Row{ItemType_integer, "1 2", "2", "-"},
             Row{ItemType_integer, "1.6", "2", "-"},
             Row{ItemType_integer, "", "0", "-"},
             Row{ItemType_integer, " +12\n", "12", "12"},
             Row{ItemType_decimal, "1-2", "-12", "-"},
             Row{ItemType_decimal, "1E3", "1000", "-"},
             Row{ItemType_decimal, "", "0", "-"},
             Row{ItemType_decimal, "+", "0", "-"},
             Row{ItemType_decimal, ".", "0", "-"},
             Row{ItemType_decimal, "-.50", "-0.5", "-0.5"},
             Row{ItemType_decimal, "1.", "1", "1"},
             Row{ItemType_i4, "\v5", "-", "-"},
             Row{ItemType_i4, "2147483648", "-", "-"},
             Row{ItemType_i1, "-128", kSame, kSame},
             Row{ItemType_r8, "1.#QNAN", "NaN", "-"},
             Row{ItemType_r8, "-NAN", "NaN", "-"},
             Row{ItemType_r8, "+INF", "-", "-"},
             Row{ItemType_r8, "-INF", kSame, kSame},
             Row{ItemType_r8, "1e400", "INF", "INF"},
             Row{ItemType_r8, "1.5E+3", "1500", "1500"},
             Row{ItemType_r8, "1e", "-", "-"},
             Row{ItemType_boolean, "TRUE", "true", "-"},
             Row{ItemType_boolean, " 1 ", "true", "true"},
             Row{ItemType_duration, "PT0S", "P", "PT0S"},
             Row{ItemType_duration, "-P0Y", "-P", "PT0S"},
             Row{ItemType_duration, "P1M2Y", "P2Y1M", "-"},
             Row{ItemType_duration, "PY", "P", "-"},
             Row{ItemType_duration, "P70000Y", "P4464Y", "-"},
             Row{ItemType_duration, "P065535Y2M3DT4H5M6.7S", "P65535Y2M3DT4H5M6.7S", "P65535Y2M3DT4H5M6.7S"},
             Row{ItemType_duration, "P1DT", "-", "-"},
             Row{ItemType_duration, "PT.5S", "PT0.5S", "-"},
             Row{ItemType_date, "2005-01-01-00:30", "2005-01-01+00:30", kSame},
             Row{ItemType_datetime, "2005-01-01T00:00:00-00:30", "2005-01-01T00:00:00+00:30", kSame},
             Row{ItemType_time, "10:00:00-00:59", "10:00:00+00:59", kSame},
             Row{ItemType_date, "2005-01-01+15:00", kSame, "-"},
             Row{ItemType_date, "2005-01-01-14:00", kSame, kSame},
             Row{ItemType_date, "2005-02-29", "-", "-"},
             Row{ItemType_date, "2005", kSame, "-"},
             Row{ItemType_yearMonth, "-0005-01Z", kSame, kSame},
             Row{ItemType_yearMonth, "2005-01-01", kSame, "-"},
             Row{ItemType_monthDay, "--02-29Z", kSame, kSame},
             Row{ItemType_time, "10:00:00x", "10:00:00", "-"},
             Row{ItemType_time, "10:00:00.", "10:00:00", "-"},
             Row{ItemType_time, "24:00:00", "-", "00:00:00"},
             Row{ItemType_time, "24:00:01", "-", "-"},
             Row{ItemType_datetime, "2024-12-31T24:00:00.0Z", "-", "2025-01-01T00:00:00Z"},
             Row{ItemType_datetime, "9999-12-31T24:00:00", "-", "-"},
             Row{ItemType_datetime, "2024-01-01T10:00:00.1234567890", "-", "-"},
             Row{ItemType_month, "--05--", "--05", "-"},
             Row{ItemType_month, "--05Z", "--05", "-"},
             Row{ItemType_day, "---31", kSame, kSame},
             Row{ItemType_year, "-0001", "65535", "-"},
             Row{ItemType_year, "2024Z", "2024", "-"},
             Row{ItemType_year, "0999", "999", kSame},
             Row{ItemType_year, "0000", "-", "-"},
             Row{ItemType_string, " a ", "a", "a"},
         }) {
        auto const expected = [&](char const* outcome) { return outcome == kSame ? row.text : outcome; };
        EXPECT_EQ(Again(row.type, row.text, false), expected(row.usual)) << row.text;
        EXPECT_EQ(Again(row.type, row.text, true), expected(row.strict)) << row.text << " strict";
        std::string const collapsed = CWhitespaceUtils::Collapse(row.text);
        EXPECT_EQ(IsValidText(row.type, collapsed), std::string(row.strict) != "-") << row.text;
    }
}

TEST(StrictValues, KeepTheCarriageReturnsOfPreservedTexts) {
    OrderOf model({new CElementInfoSeqPrimOpt("n", "", 0, false, ItemType_string, nullptr,
                                              CWhitespaceUtils::WhitespaceRule_Preserve,
                                              CPrimitiveRestrictions(), nullptr)});
    ExpectTwice(model, {{"<order><n>a&#xD;\n&#xD;b </n></order>", "<order><n>a\nb </n></order>", ""}});
}

TEST(StrictValues, FailuresSayWhy) {
    struct Row {
        ItemType type;
        std::string text;
        std::string message;
    };
    std::string const places = "0." + std::string(30, '1');
    for (Row const& row : {
             Row{ItemType_ui4, "-1", "The value [-1] can not be converted to a ui4"},
             Row{ItemType_datetime, "2024", "The value [2024] can not be converted to a datetime"},
             Row{ItemType_decimal, places + "2",
                 "The value [" + places + "2] has more than 30 decimal places"},
             Row{ItemType_year, "2024+01:00", "The time zone [+01:00] can not be kept"},
             Row{ItemType_day, "---31Z", "The time zone [Z] can not be kept"},
             Row{ItemType_i4, "2147483648", "The value [2147483648] is to large to fit in a i4"},
         }) {
        OrderOf model({Value(row.type)});
        EXPECT_EQ(Outcome(model, ("<order><n>" + row.text + "</n></order>").c_str(), Strict()),
                  Failed(row.message));
    }
    EXPECT_EQ(Again(ItemType_decimal, places + "000", true), places);
}

template <class Set>
std::string Written(ItemType type, Set set, bool strict, char const* format = nullptr) {
    OrderOf model({Value(type, format)});
    CSmartPtr<Probe> const probe(new Probe(model));
    set(probe->properties[0]);
    CSerializationContext ctx;
    ctx.SetStrict(strict);
    try {
        return Write(*probe, ctx);
    } catch (CZvException const& failure) {
        return failure.GetInnerException()->GetMessage();
    }
}
std::string N(std::string const& text) {
    return "<order><n>" + text + "</n></order>";
}

TEST(StrictValues, AreWrittenSoThatTheyAreReadAgain) {
    struct Row {
        ItemType type;
        std::function<void(ZvVariant&)> set;
        std::string usual;
        std::string strict;
        char const* format = nullptr;
    };
    auto const r8 = [](double number) { return [number](ZvVariant& value) { value.SetR8(number); }; };
    auto const no = [](std::string const& text, char const* type) {
        return "The value [" + text + "] of [n] is no " + type;
    };
    auto const date = [](CDateTime const& day) { return [day](ZvVariant& value) { value.SetDate(day); }; };
    CDateTime february(2023, 1, 31);
    february += CDateTimeSpan(0, 1, 0, 0, 0, 0);
    auto const span = [](unsigned long long seconds, unsigned short milli, unsigned short micro,
                         unsigned short nano) {
        CDateTimeSpan const value(0, 0, 0, 0, 0, seconds, milli, micro, nano);
        return [value](ZvVariant& variant) { variant.SetDuration(value); };
    };
    CDateTime longFraction("2024-01-01T00:00:00");
    longFraction.SetMilliSecond(5000);
    constexpr unsigned long long kMost = std::numeric_limits<unsigned long long>::max();
    for (Row const& row : std::vector<Row>{
             {ItemType_r8, r8(0.1 + 0.2), N("0.3"), N("0.30000000000000004")},
             {ItemType_r8, r8(-95.431362), N("-95.43136199999999"), N("-95.431362")},
             {ItemType_r8, r8(0.1 + 0.2), N("0.30"), N("0.30"), "%.2f"},
             {ItemType_r8, r8(5), N("   5"), no("   5", "r8"), "%4.0f"},
             {ItemType_r8, r8(-std::numeric_limits<double>::infinity()), N("-INF"), N("-INF")},
             {ItemType_r8, r8(1e22), N("1e+22"), N("1e+22")},
             {ItemType_r4, [](ZvVariant& value) { value.SetR4(16777216); }, N("1.677722e+07"), N("16777216")},
             {ItemType_year, [](ZvVariant& value) { value.SetYear(7); }, N("7"), N("0007")},
             {ItemType_year, [](ZvVariant& value) { value.SetYear(12024); }, N("12024"), no("12024", "year")},
             {ItemType_month, [](ZvVariant& value) { value.SetMonth(13); }, N("--13"), no("--13", "month")},
             {ItemType_date, date(CDateTime(2005, 13, 1)), N("Error: Date Not Set"),
              no("Error: Date Not Set", "date")},
             {ItemType_date, date(february), N("2023-02-31"), no("2023-02-31", "date")},
             {ItemType_date, date(CDateTime("2023-02-01T00:00:00")), N("2023-02-01T00:00:00"),
              no("2023-02-01T00:00:00", "date")},
             {ItemType_duration, [](ZvVariant& value) { value.SetDuration(CDateTimeSpan()); }, N("P"),
              N("PT0S")},
             {ItemType_duration, span(0, 5000, 0, 0), N("PT0.5S"), N("PT5S")},
             {ItemType_duration, span(1, 999, 999, 1001), N("PT1.9999991001S"), N("PT2.000000001S")},
             {ItemType_duration, span(kMost, 0, 999, 0), N("PT18446744073709551615.000999S"),
              N("PT18446744073709551615.000999S")},
             {ItemType_duration, span(kMost, 1000, 0, 0), N("PT18446744073709551615.1S"),
              no("PT18446744073709551615.1S", "duration")},
             {ItemType_datetime, [=](ZvVariant& value) { value.SetDateTime(longFraction); },
              N("2024-01-01T00:00:00.5"), no("2024-01-01T00:00:00.5", "datetime")},
             {ItemType_char, [](ZvVariant& value) { value.SetChar('x'); }, "Unknown type [char].", N("x")},
         }) {
        EXPECT_EQ(Written(row.type, row.set, false, row.format), row.usual);
        EXPECT_EQ(Written(row.type, row.set, true, row.format), row.strict) << row.usual;
    }
}

TEST(StrictValues, HoldInAttributesAndSimpleContent) {
    Model model;
    model.attributes = {new CAttributeInfoPrimitive("k", "", 0, true, ItemType_ui4, nullptr,
                                                    CWhitespaceUtils::WhitespaceRule_Collapse,
                                                    CPrimitiveRestrictions(), nullptr)};
    model.contentIndex = 1;
    model.contentType = ItemType_integer;
    model.Finish();
    std::string const noNumber = "can not be converted to a ";
    ExpectTwice(model, {
                           {"<order>5\n</order>", "<order>0</order>", "<order>5</order>"},
                           {"<order k=\"-1\">5</order>", "<order k=\"4294967295\">5</order>",
                            Failed("The value [-1] " + noNumber + "ui4")},
                           {"<order>1 2</order>", "<order>2</order>",
                            Failed("The value [1 2] " + noNumber + "integer")},
                       });
}

TEST(StrictValues, OfSimpleContentMayStandBetweenBlanks) {
    for (auto const& [type, text] :
         {std::pair(ItemType_i4, "5"), std::pair(ItemType_boolean, "true"),
          std::pair(ItemType_date, "2024-01-01"), std::pair(ItemType_r8, "-INF")}) {
        Model model;
        model.contentIndex = 0;
        model.contentType = type;
        model.Finish();
        std::string const read = "<order>" + std::string(text) + "</order>";
        EXPECT_EQ(Outcome(model, ("<order>\n " + std::string(text) + "\t</order>").c_str(), Strict()), read);
    }
}

TEST(StrictValues, HoldInCollections) {
    struct Row {
        std::function<CXmlCollectionBase*()> make;
        char const* text;
        char const* usual;
        char const* strict; // null for a failure
    };
    for (Row const& row : std::vector<Row>{
             {[] { return NewCol<Cui4Col>({"n"}); }, "-1", "4294967295", nullptr},
             {[] { return NewCol<CdateCol>({"n"}); }, "2005-01-01-00:30", "2005-01-01+00:30",
              "2005-01-01-00:30"},
             {[] { return NewCol<CdatetimeCol>({"n"}); }, "2005-01-01T24:00:00", nullptr,
              "2005-01-02T00:00:00"},
             {[] { return NewCol<Cr8Col>({"n"}); }, "0.30000000000000004", "0.3", "0.30000000000000004"},
             {[] { return NewCol<CyearCol>({"n"}); }, "0999", "999", "0999"},
             {[] { return NewCol<CdurationCol>({"n"}); }, "PT0S", "P", "PT0S"},
         }) {
        OrderOf model({new CElementInfoSeqPrimCol("n", "", 0)},
                      [&](Probe& probe) { probe.properties[0].SetXmlCollection(row.make()); });
        for (bool const strict : {false, true}) {
            CSerializationContext ctx;
            ctx.SetStrict(strict);
            char const* const expected = strict ? row.strict : row.usual;
            std::string const outcome = Outcome(model, N(row.text).c_str(), ctx);
            if (expected == nullptr)
                EXPECT_THAT(outcome, testing::StartsWith("Failed to process the element.")) << row.text;
            else
                EXPECT_EQ(outcome, N(expected));
        }
    }
}

TEST(StrictDates, AddAndSubtractAsXmlSchemaDoes) {
    auto const parse = [](std::string const& text) {
        CDateTime value;
        if (text.find('T') != std::string::npos)
            value.ParseXSDDateTime(text, true);
        else if (text.find(':') == 2)
            value.ParseXSDTime(text, true);
        else
            value.ParseXSDDate(text, true);
        return value;
    };
    struct Sum {
        char const* start;
        char const* span;
        char const* sum; // null for a failure
    };
    for (Sum const& row : {
             Sum{"2000-01-12T12:13:14Z", "P1Y3M5DT7H10M3.3S", "2001-04-17T19:23:17.3Z"}, // appendix E's own
             Sum{"2000-01", "-P3M", "1999-10"},
             Sum{"2000-01-12", "PT33H", "2000-01-13"},
             Sum{"2023-01-31", "P1M", "2023-02-28"},
             Sum{"2024-01-31", "P1M", "2024-02-29"},
             Sum{"2024-03-31", "-P1M", "2024-02-29"},
             Sum{"2024-02-29-00:30", "P1Y", "2025-02-28-00:30"},
             Sum{"--02-29", "P1Y", "--02-28"},
             Sum{"---31", "P1D", "---01"},
             Sum{"23:59:59", "PT2S", "00:00:01"},
             Sum{"9999-12-31", "P1D", nullptr},
             Sum{"2024-01-01", "P65535Y", nullptr},
         }) {
        CDateTimeSpan span;
        span.ParseXSDDuration(row.span);
        if (row.sum == nullptr)
            EXPECT_THROW(parse(row.start).AddDuration(span), CZvInvalidValueException) << row.start;
        else
            EXPECT_EQ(parse(row.start).AddDuration(span).ToString(), row.sum) << row.start;
    }
    struct Difference {
        char const* left;
        char const* right;
        char const* span; // null for a failure
    };
    for (Difference const& row : {
             Difference{"2024-03-01", "2024-02-28", "P2D"},
             Difference{"2024-02-28", "2024-03-01", "-P2D"},
             Difference{"2024-01-01T00:00:00.25", "2023-12-31T23:59:59.5", "PT0.75S"},
             Difference{"2024-01-01T00:00:00-00:30", "2024-01-01T00:00:00Z", "PT30M"},
             Difference{"10:00:00+01:00", "10:00:00Z", "-PT1H"},
             Difference{"2024-01-01T00:00:00", "2024-01-01T00:00:00Z", nullptr},
             Difference{"2024-01-01", "2024-01", nullptr},
         }) {
        if (row.span == nullptr) {
            EXPECT_EQ(
                MessageOf<CZvInvalidValueException>([&] { parse(row.left).GetDifference(parse(row.right)); }),
                std::string("There is no difference between [") + row.left + "] and [" + row.right + "]");
            continue;
        }
        CDateTimeSpan const span = parse(row.left).GetDifference(parse(row.right));
        EXPECT_EQ(span.ToString(), row.span) << row.left;
        EXPECT_EQ(parse(row.right).AddDuration(span), parse(row.left)) << row.left;
    }
}

TEST(StrictDates, AZoneBelowAnHourKeepsItsSign) {
    CDateTime value(2024, 1, 1);
    value.SetTimeZone(true, 0, 30);
    EXPECT_EQ(value.ToString(), "2024-01-01-00:30");
    EXPECT_TRUE(value.IsZoneNegative());
    value.SetTimeZone(0, 30);
    EXPECT_EQ(value.ToString(), "2024-01-01+00:30");
    CDateTime west;
    west.ParseXSDDateTime("2024-01-01T00:00:00-00:30", true);
    EXPECT_EQ(west.GetNormalized().ToString(), "2024-01-01T00:30:00+00:00");
    west.ParseXSDDateTime("2024-01-01T00:00:00-00:30");
    EXPECT_EQ(west.GetNormalized().ToString(), "2023-12-31T23:30:00+00:00");
}

} // namespace
