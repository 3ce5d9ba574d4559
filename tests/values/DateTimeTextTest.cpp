// The lexical forms of dates and times: what is read, what is refused, what is printed.
#include "tests/support/MessageOf.h"
#include "tests/support/Vectors.h"
#include "tests/values/DateTexts.h"

#include <gmock/gmock.h>

#include <string_view>

using namespace ZvXmlLib16;

namespace {

std::string ReadAs(std::string const& form, std::string_view text) {
    return zvtest::Outcome([&] {
        CDateTime value(CDateTime::dt_gDay); // the text decides the type
        form == "DateTime" ? value.ParseXSDDateTime(text)
        : form == "Date"   ? value.ParseXSDDate(text)
                           : value.ParseXSDTime(text);
        return value.GetTypeAsString() + " " + value.ToString();
    });
}

void ExpectRows(std::string const& section) {
    for (auto const& row : Vectors("dates.txt", section))
        EXPECT_EQ(ReadAs(row[0], row[1]), row[2]) << "text [" << row[1] << "]";
}

} // namespace

// More than is printed; what is printed is read below.
TEST(DateTimeText, ReadsEachTypeWithEachZone) {
    ExpectRows("texts of dates");
}

TEST(DateTimeText, RefusesWhatHasNotTheForm) {
    ExpectRows("texts of no dates");
    for (char const* const text :
         {"12005-01-01", "2005/01/01", "2005-01/01", "2005-1-1", "2005x12", "20a5",    " 2005",
          "+2005",       "-",          "--",         "---",      "--1",     "--x1-01", "--01x01",
          "--+01",       "---0x",      "Z",          ":",        "-05:00",  "--05:00", "\xB2\xB0\xB0\xB5"})
        EXPECT_EQ(ReadAs("Date", text),
                  std::string("invalid: Invalid XSD Date [") + text + "] expected CCYY-MM-DD[Z|[+|-]hh:mm]");
    for (char const* const text :
         {"10:00", "1a:00:00", "10-00:00", "10:00-00", "24:00:00", "00:60:00", "23:59:60Z"})
        EXPECT_EQ(ReadAs("Time", text),
                  std::string("invalid: Invalid XSD Time [") + text + "] expected hh:mm:ss[.ff]");
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTime().ParseXSDDate(nullptr); }),
              "Invalid Date (Null String)");
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTime().ParseXSDTime(nullptr); }),
              "Invalid Time (Null String)");
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([] { CDateTime value(nullptr); }),
              "Invalid DateTime (Null String)");
}

TEST(DateTimeText, RefusesFieldsOutOfRange) {
    ExpectRows("texts of dates out of range");
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
