// Texts of the simple types: durations, dates and times, decimal, integer.
#include "zvxmllib/values/dates/DateTimeFields.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/text/TextValues.h"

#include <limits>

namespace ZvXmlLib16 {

namespace {

using detail::RuledText;
using detail::TextRule;

CDateTime DateFromText(CDateTime::DTType type, std::string_view text, TextRule rule) {
    CDateTime value(type);
    value.ParseXSDDate(RuledText(rule, text).Get());
    return value;
}

// Of gMonth and gDay: two digits, or three, behind dashes.
std::string const& PartToText(char const* dashes, unsigned char value, std::string& buffer) {
    buffer = dashes;
    if (value >= 100)
        buffer += static_cast<char>('0' + value / 100);
    buffer += static_cast<char>('0' + value / 10 % 10);
    return buffer += static_cast<char>('0' + value % 10);
}

// The number at the head of a format, as atoi reads it; 0 if there is none.
int DecimalPlaces(std::string_view format) {
    detail::IntegerText const number = detail::ScanInteger(format);
    constexpr auto kGreatest = static_cast<unsigned long long>(std::numeric_limits<int>::max());
    int const magnitude = number.isBeyond64Bits || number.magnitude > kGreatest
                              ? std::numeric_limits<int>::max()
                              : static_cast<int>(number.magnitude);
    return number.isNegative ? -magnitude : magnitude;
}

} // namespace

namespace detail {

CDateTimeSpan durationFromText(std::string_view text, TextRule rule) {
    CDateTimeSpan value;
    value.ParseXSDDuration(RuledText(rule, text).Get());
    return value;
}

CDateTime yearMonthFromText(std::string_view text, TextRule rule) {
    return DateFromText(CDateTime::dt_gYearMonth, text, rule);
}

CDateTime monthDayFromText(std::string_view text, TextRule rule) {
    return DateFromText(CDateTime::dt_gMonthDay, text, rule);
}

unsigned short yearFromText(std::string_view text, TextRule rule) {
    return static_cast<unsigned short>(DateFromText(CDateTime::dt_gYear, text, rule).GetYear());
}

unsigned char monthFromText(std::string_view text, TextRule rule) {
    return DateFromText(CDateTime::dt_gMonth, text, rule).GetMonth();
}

unsigned char dayFromText(std::string_view text, TextRule rule) {
    return DateFromText(CDateTime::dt_gDay, text, rule).GetDay();
}

CDateTime dateFromText(std::string_view text, TextRule rule) {
    return DateFromText(CDateTime::dt_date, text, rule);
}

CDateTime datetimeFromText(std::string_view text, TextRule rule) {
    CDateTime value(CDateTime::dt_dateTime);
    if (IsKnownRule(rule) && ReadPlainDateTime(text, value)) // no rule changes such a text
        return value;
    value.ParseXSDDateTime(RuledText(rule, text).Get());
    return value;
}

CDateTime timeFromText(std::string_view text, TextRule rule) {
    CDateTime value(CDateTime::dt_time);
    value.ParseXSDTime(RuledText(rule, text).Get());
    return value;
}

CDecimal decimalFromText(std::string_view text, TextRule rule) {
    CDecimal value;
    if (!IsKnownRule(rule) || !CDecimal::ReadPlain(text, value)) // no rule changes a plain text
        value = CDecimal::FromText(RuledText(rule, text).Get());
    return value;
}

CBigInteger integerFromText(std::string_view text, TextRule rule) {
    CBigInteger value;
    if (!IsKnownRule(rule) || !CBigInteger::ReadPlain(text, value))
        value = CBigInteger::FromText(RuledText(rule, text).Get());
    return value;
}

std::string const& durationToText(CDateTimeSpan const& value, char const*, std::string& buffer) {
    return value.Print(buffer);
}

std::string const& yearToText(unsigned short value, char const*, std::string& buffer) {
    return PrintInteger(value, buffer);
}

std::string const& monthToText(unsigned char value, char const*, std::string& buffer) {
    return PartToText("--", value, buffer);
}

std::string const& dayToText(unsigned char value, char const*, std::string& buffer) {
    return PartToText("---", value, buffer);
}

#define ZV_DATE_TEXT(name)                                                                                   \
    std::string const& name##ToText(CDateTime const& value, char const*, std::string& buffer) {              \
        return value.Print(buffer);                                                                          \
    }
ZV_DATE_TEXT(yearMonth)
ZV_DATE_TEXT(monthDay)
ZV_DATE_TEXT(date)
ZV_DATE_TEXT(datetime)
ZV_DATE_TEXT(time)
#undef ZV_DATE_TEXT

std::string const& decimalToText(CDecimal const& value, char const* format, std::string& buffer) {
    if (format == nullptr || *format == '\0')
        return value.Print(buffer);
    return buffer = value.ToString(DecimalPlaces(format));
}

std::string const& integerToText(CBigInteger const& value, char const*, std::string& buffer) {
    return value.Print(buffer);
}

} // namespace detail

} // namespace ZvXmlLib16
