// The lexical forms of dates and times: what is read, what is refused, what is printed.
#include "tests/support/MessageOf.h"
#include "tests/values/DateTexts.h"

#include <gmock/gmock.h>

#include <string_view>

using namespace ZvXmlLib16;

namespace {

enum Form { DateTime, Date, Time };

std::string ReadAs(Form form, std::string_view text) {
    return zvtest::Outcome([&] {
        CDateTime value(CDateTime::dt_gDay); // the text decides the type
        form == DateTime ? value.ParseXSDDateTime(text)
        : form == Date   ? value.ParseXSDDate(text)
                         : value.ParseXSDTime(text);
        return value.GetTypeAsString() + " " + value.ToString();
    });
}

std::string DateForm(std::string const& text) {
    return "invalid: Invalid XSD Date [" + text + "] expected CCYY-MM-DD[Z|[+|-]hh:mm]";
}
std::string TimeForm(std::string const& text) {
    return "invalid: Invalid XSD Time [" + text + "] expected hh:mm:ss[.ff]";
}
std::string ZoneForm(std::string const& text) {
    return "invalid: Invalid XSD Time Zone [" + text + "].";
}

struct Row {
    Form form;
    std::string_view text;
    std::string result;
};

void ExpectRows(std::vector<Row> const& rows) {
    for (Row const& row : rows)
        EXPECT_EQ(ReadAs(row.form, row.text), row.result) << "text [" << row.text << "]";
}

} // namespace

// More than is printed; what is printed is read below.
TEST(DateTimeText, ReadsEachTypeWithEachZone) {
    ExpectRows({
        {Date, "2005-01-01+24:00", "date 2005-01-01+00:00"},
        {Date, "-0004-02-29", "date -0004-02-29"},
        {Date, "2000-02-29", "date 2000-02-29"},
        {Date, "--05--", "gMonth --05"},
        {Date, "--05--Z", "gMonth --05Z"},
        {Date, "--05??", "gMonth --05"}, // the last two are not looked at
        {Time, "10:00:00.", "time 10:00:00"},
        {Time, "10:00:00.+01:00", "time 10:00:00+01:00"},
        {Time, "10:00:00x", "time 10:00:00"},
        {Time, "10:00:00Zoo", "time 10:00:00Z"},
        // The sign of a zone lives in its hour.
        {Time, "10:00:00-00:30", "time 10:00:00+00:30"},
        // The zone of the date stands unless the time has one.
        {DateTime, "2005-01-01ZT10:00:00", "dateTime 2005-01-01T10:00:00Z"},
        {DateTime, "2005-01-01+01:00T10:00:00", "dateTime 2005-01-01T10:00:00+01:00"},
        {DateTime, "2005-01-01+01:00T10:00:00-02:00", "dateTime 2005-01-01T10:00:00-02:00"},
        {DateTime, "2005-01-01+01:00T10:00:00Z", "dateTime 2005-01-01T10:00:00Z"},
        {DateTime, "2005-01-01T10:00:00-24:00", "dateTime 2005-01-01T10:00:00+00:00"},
        {DateTime, "2005-01-01T10:00:00.5-00:30", "dateTime 2005-01-01T10:00:00.5+00:30"},
        {DateTime, "2005-01-01T10:00:00.Z", "dateTime 2005-01-01T10:00:00Z"},
        {DateTime, {"2005-01-01T10:00:00\0Z", 21}, "dateTime 2005-01-01T10:00:00"},
        // Where the place of the zone holds something else, a colon alone makes no zone.
        {Date, "2005-01-01 12:34", "date 2005-01-01"},
        {Date, {"2005\0-01", 8}, "gYear 2005"},
    });
}

TEST(DateTimeText, RefusesWhatHasNotTheForm) {
    std::string const wholeDateTime = "invalid: Invalid XSD DateTime [";
    ExpectRows({
        {Date, "", "invalid: Invalid Date (Empty String)"},
        {Date, "2005-01-01T00:00:00", "invalid: Invalid Date ('T' not allowed)"},
        {Date, "2005-01-01+01:00Z", "invalid: Invalid Date (Bad Zone value)"},
        {Date, "2005-0:-01", ZoneForm("-0:-01")},
        {Date, "2005-01-01+0100:", ZoneForm("+0100:")},
        {Date, "2005-01-01+1x:00", ZoneForm("+1x:00")},
        {Date, "2005-01-01+25:00", "invalid: Invalid TimeZone [25:0]"},
        {Date, "2005-01-01-30:00", "invalid: Invalid TimeZone [-30:0]"},
        {Date, "2005-01-01-05:60", "invalid: Invalid TimeZone [-5:60]"},
        {Time, "", "invalid: Invalid XSD Time (Empty String)"},
        {Time, "10:00:00.1234567890",
         "invalid: Invalid XSD Time [10:00:00.1234567890] Fraction part too long"},
        {Time, "10:00:00+01:000", ZoneForm("+01:000")},
        {Time, "10:00:00-", ZoneForm("-")},
        {DateTime, "", wholeDateTime + "]."},
        {DateTime, "2005-01-01", wholeDateTime + "2005-01-01]."},
        {DateTime, "2005T10:00:00", wholeDateTime + "2005T10:00:00] expected CCYY-MM-DDThh:mm:ss[.ff]"},
        {DateTime, "T10:00:00", "invalid: Invalid Date (Empty String)"},
        {DateTime, "2005-01-01T", "invalid: Invalid XSD Time (Empty String)"},
        {DateTime, "2005-01-1xT10:00:00", DateForm("2005-01-1x")}, // a message shows its own part
        {DateTime, "2005-01-01T10:00:0", TimeForm("10:00:0")},
        {DateTime, "2005-01-01T10:00:00+01:60", "invalid: Invalid TimeZone [1:60]"},
        {DateTime, "2005-01-01T10:00:00T", "dateTime 2005-01-01T10:00:00"},
    });
    for (char const* const text :
         {"12005-01-01", "2005/01/01", "2005-01/01", "2005-1-1", "2005x12", "20a5",    " 2005",
          "+2005",       "-",          "--",         "---",      "--1",     "--x1-01", "--01x01",
          "--+01",       "---0x",      "Z",          ":",        "-05:00",  "--05:00", "\xB2\xB0\xB0\xB5"})
        EXPECT_EQ(ReadAs(Date, text), DateForm(text));
    for (char const* const text :
         {"10:00", "1a:00:00", "10-00:00", "10:00-00", "24:00:00", "00:60:00", "23:59:60Z"})
        EXPECT_EQ(ReadAs(Time, text), TimeForm(text));
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTime().ParseXSDDate(nullptr); }),
              "Invalid Date (Null String)");
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTime().ParseXSDTime(nullptr); }),
              "Invalid Time (Null String)");
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTime value(nullptr); }),
              "Invalid DateTime (Null String)");
}

TEST(DateTimeText, RefusesFieldsOutOfRange) {
    std::string const year = "invalid: Invalid Year [0] (-9999 <= year <= 9999 && year != 0)";
    ExpectRows({
        {Date, "0000-01-01", year},
        {Date, "-0000", year},
        {Date, "2005-00", "invalid: Invalid Month [0] (1 <= month <= 12)"},
        {Date, "--13", "invalid: Invalid Month [13] (1 <= month <= 12)"},
        {Date, "0000-99-99", "invalid: Invalid Month [99] (1 <= month <= 12)"}, // the month comes first
        {Date, "2005-02-29", "invalid: Invalid Day [29] (1 <= day <= days in month"},
        {Date, "1900-02-29", "invalid: Invalid Day [29] (1 <= day <= days in month"},
        {Date, "2005-04-31", "invalid: Invalid Day [31] (1 <= day <= days in month"},
        {Date, "2005-04-00", "invalid: Invalid Day [0] (1 <= day <= days in month"},
        {Date, "--02-30", "invalid: Invalid Day [30] (1 <= day <= days in month)"},
        {Date, "---32", "invalid: Invalid Day [32] (1 <= day <= 31)"},
        {Date, "---00", "invalid: Invalid Day [0] (1 <= day <= 31)"},
        {DateTime, "2005-02-29T10:00:00", "invalid: Invalid Day [29] (1 <= day <= days in month"},
    });
}

TEST(DateTimeText, PrintsFractionsWithoutZerosAtTheEnd) {
    struct Fraction {
        unsigned short milli, micro, nano;
        char const* text;
    };
    for (Fraction const& row : {Fraction{500, 0, 0, "00:00:00.5"}, Fraction{5, 0, 0, "00:00:00.005"},
                                Fraction{1, 200, 0, "00:00:00.0012"}, Fraction{0, 0, 7, "00:00:00.000000007"},
                                Fraction{0, 10, 0, "00:00:00.00001"}, Fraction{1, 0, 20, "00:00:00.00100002"},
                                Fraction{0, 0, 0, "00:00:00"}}) {
        CDateTime value;
        value.SetFracTime(row.milli, row.micro, row.nano);
        EXPECT_EQ(value.ToString(), row.text);
    }
}

// Field setters do not check, so printing takes what comes.
TEST(DateTimeText, PrintsUncheckedFieldsInFull) {
    CDateTime value(2005, 1, 1, 0, 0, 0);
    value.SetYear(-32768);
    value.SetMonth(255);
    value.SetDay(255);
    value.SetHour(255);
    value.SetMinute(255);
    value.SetSecond(255);
    value.SetMilliSecond(65535);
    value.SetMicroSecond(65535);
    value.SetNanoSecond(65535);
    value.SetTimeZone(-23, 59);
    EXPECT_EQ(value.ToString(), "-32768-255-255T255:255:255.655356553565535-23:59");
    std::string room = "what was there before";
    EXPECT_EQ(&value.Print(room), &room);
    EXPECT_EQ(room, value.ToString());
}

TEST(DateTimeText, PrintsOnlyByOneFormatAndOnlyWhatIsSet) {
    CDateTime const value("2005-01-01T00:00:00");
    EXPECT_EQ(value.ToString("s"), "2005-01-01T00:00:00");
    EXPECT_EQ(value.ToString(nullptr), "");
    EXPECT_EQ(value.ToString(""), "");
    EXPECT_EQ(value.ToString("G"), "");
    EXPECT_EQ(value.ToString("yyyy"), "Unknown Format: yyyy");
    std::string const notSet = "Error: Date Not Set";
    std::string text;
    EXPECT_EQ(CDateTime().ToString(), notSet);
    EXPECT_EQ(CDateTime().Print(text), notSet);
    EXPECT_EQ(CDateTime(CDateTime::dt_dateTime).ToString("yyyy"), notSet);
    EXPECT_EQ(CDateTime(CDateTime::dt_gDay).ToString(), notSet);
    EXPECT_EQ(CDateTime(CDateTime::dt_time).ToString(), "00:00:00");
}

TEST(DateTimeText, PrintsWhatItRead) {
    zvtest::RandomDates dates(20050101);
    for (int i = 0; i < 20'000; ++i) {
        std::string const text = dates.Text();
        CDateTime const value = zvtest::ReadDate(text);
        ASSERT_EQ(value.ToString(), text);
        CDateTime const again = zvtest::ReadDate(value.ToString());
        ASSERT_EQ(again.GetType(), value.GetType());
        ASSERT_EQ(again.CompareTo(value), CDateTime::DTCompareEqual) << text;
    }
}

// A text of good parts, damaged: an exception or a value that prints and reads again, and a dateTime is what
// its date and its time are.
TEST(DateTimeText, SurvivesDamagedTexts) {
    zvtest::RandomDates dates(7);
    constexpr std::string_view kCharacters = "0123456789-+:.TZ x";
    int refused = 0;
    int composed = 0;
    for (int i = 0; i < 50'000; ++i) {
        std::string text = dates.Text();
        std::size_t const at = static_cast<std::size_t>(dates.Number(0, static_cast<int>(text.size()) - 1));
        char const other = kCharacters[static_cast<std::size_t>(dates.Number(0, 17))];
        switch (dates.Number(0, 2)) {
        case 0:
            text[at] = other;
            break;
        case 1:
            text.insert(at, 1, other);
            break;
        default:
            text.erase(at);
        }
        auto const read = [](std::string const& t) {
            return zvtest::Outcome([&] { return zvtest::ReadDate(t).ToString(); });
        };
        std::string const outcome = read(text);
        bool const isRefused = outcome.rfind("invalid: Invalid ", 0) == 0;
        refused += isRefused ? 1 : 0;
        if (!isRefused) {
            ASSERT_EQ(read(outcome), outcome) << text;
        }
        if (text.find('T') == 10 && text.size() > 13 && text[13] == ':' && text.find('T', 11) > text.size()) {
            std::string const date = read(text.substr(0, 10));
            std::string const time = read(text.substr(11));
            if (date.size() == 10 && date[7] == '-' && time.rfind("invalid", 0) != 0) {
                ASSERT_EQ(outcome, date + "T" + time) << text;
                ++composed;
            } else {
                ASSERT_TRUE(isRefused) << text;
            }
        }
    }
    EXPECT_GT(refused, 10'000);
    EXPECT_GT(composed, 2'000);
}
