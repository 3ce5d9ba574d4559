// CConversions: durations, dates and times, decimal, integer.
#include "zvxmllib/values/Conversions.h"
#include "zvxmllib/values/DateTimeFields.h"
#include "zvxmllib/values/DateTimeSpan.h"
#include "zvxmllib/values/Decimal.h"
#include "zvxmllib/values/NumberText.h"
#include "zvxmllib/values/RuledText.h"
#include "zvxmllib/values/TextValues.h"

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

// Of gMonth and gDay: two digits behind dashes.
std::string PartToString(char const* dashes, unsigned char value) {
    std::string text = dashes;
    if (value < 10)
        text += '0';
    return text += std::to_string(static_cast<unsigned>(value));
}

// The number at the head of a format, as atoi reads it; 0 if there is none.
int DecimalPlaces(std::string const& format) {
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
    return CDecimal(std::string(RuledText(rule, text).Get()).c_str());
}

CBigInteger integerFromText(std::string_view text, TextRule rule) {
    return CBigInteger(std::string(RuledText(rule, text).Get()).c_str());
}

} // namespace detail

std::string CConversions::durationToString(CDateTimeSpan const& value) {
    return value.ToString();
}

std::string CConversions::yearToString(unsigned short value) {
    return detail::PrintInteger(value);
}

std::string CConversions::monthToString(unsigned char value) {
    return PartToString("--", value);
}

std::string CConversions::dayToString(unsigned char value) {
    return PartToString("---", value);
}

std::string CConversions::decimalToString(CDecimal const& value) {
    return value.ToString();
}

std::string CConversions::decimalToString(CDecimal const& value, std::string const& format) {
    if (format.empty())
        return value.ToString();
    return value.ToString(DecimalPlaces(format));
}

std::string CConversions::integerToString(CBigInteger const& value) {
    return value.ToString();
}

#define ZV_DATE(name)                                                                                        \
    std::string CConversions::name##ToString(CDateTime const& value) {                                       \
        return value.ToString("s");                                                                          \
    }
ZV_DATE(yearMonth)
ZV_DATE(monthDay)
ZV_DATE(date)
ZV_DATE(datetime)
ZV_DATE(time)
#undef ZV_DATE

#define ZV_FROM(name, Value)                                                                                 \
    Value CConversions::name##FromString(std::string const& value, WhitespaceRule rule) {                    \
        return detail::name##FromText(value, rule);                                                          \
    }
ZV_FROM(duration, CDateTimeSpan)
ZV_FROM(yearMonth, CDateTime)
ZV_FROM(monthDay, CDateTime)
ZV_FROM(year, unsigned short)
ZV_FROM(month, unsigned char)
ZV_FROM(day, unsigned char)
ZV_FROM(date, CDateTime)
ZV_FROM(datetime, CDateTime)
ZV_FROM(time, CDateTime)
ZV_FROM(decimal, CDecimal)
ZV_FROM(integer, CBigInteger)
#undef ZV_FROM

} // namespace ZvXmlLib16
