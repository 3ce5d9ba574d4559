#include "zvxmllib/values/variant/StrictText.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/variant/Conversions.h"
#include "zvxmllib/values/variant/LexicalForm.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace ZvXmlLib16 {

namespace detail {

namespace {

constexpr auto kNoRule = CWhitespaceUtils::WhitespaceRule_None;

std::string TypeNameOf(ItemType type) {
    ZvVariant value;
    value.SetNil(type);
    return value.GetType();
}

bool IsDateTime(ItemType type) noexcept {
    return type == ItemType_datetime || type == ItemType_date || type == ItemType_time ||
           type == ItemType_yearMonth || type == ItemType_monthDay;
}

// Midnight at the end of the day. The text has the form of its type.
bool IsEndOfDay(ItemType type, std::string_view text) noexcept {
    if (type == ItemType_time)
        return text.substr(0, 2) == "24";
    return type == ItemType_datetime && text.substr(text.find('T') + 1, 2) == "24";
}

// Puts the text of a number there that is the shortest to be read as the same one. INF and NaN have theirs.
template <class Real>
std::string const& ShortestText(Real value, std::string& buffer) {
    char text[32];
    char const* const end = std::to_chars(text, text + sizeof text, value).ptr;
    return buffer.assign(text, static_cast<std::size_t>(end - text));
}

bool HasLongFraction(CDateTimeSpan const& span) noexcept {
    return span.GetMilliSeconds() > 999 || span.GetMicroSeconds() > 999 || span.GetNanoSeconds() > 999;
}

// Carries what a group of the fraction of a second has beyond three digits. False if the seconds have no
// room.
bool CarryFraction(CDateTimeSpan& span) noexcept {
    unsigned const micro = span.GetMicroSeconds() + span.GetNanoSeconds() / 1000u;
    unsigned const milli = span.GetMilliSeconds() + micro / 1000;
    unsigned const seconds = milli / 1000;
    if (seconds > std::numeric_limits<unsigned long long>::max() - span.GetSeconds())
        return false;
    span.SetNanoSeconds(static_cast<unsigned short>(span.GetNanoSeconds() % 1000));
    span.SetMicroSeconds(static_cast<unsigned short>(micro % 1000));
    span.SetMilliSeconds(static_cast<unsigned short>(milli % 1000));
    span.SetSeconds(span.GetSeconds() + seconds);
    return true;
}

std::string const& TextOf(ZvVariant const& value, ItemType type, char const* format, std::string& buffer) {
    bool const hasFormat = format != nullptr && *format != '\0';
    switch (value.IsNil() ? ItemType_invalid : value.GetTypeAsEnum()) {
    case ItemType_r4:
        return hasFormat || !std::isfinite(value.GetR4()) ? value.ToText(format, buffer)
                                                          : ShortestText(value.GetR4(), buffer);
    case ItemType_r8:
        return hasFormat || !std::isfinite(value.GetR8()) ? value.ToText(format, buffer)
                                                          : ShortestText(value.GetR8(), buffer);
    case ItemType_duration:
        value.ToText(format, buffer);
        if (CDateTimeSpan span = *value.FindDuration(); HasLongFraction(span) && CarryFraction(span))
            span.Print(buffer);
        return buffer.back() == 'P' ? buffer = "PT0S" : buffer;
    case ItemType_year:
        value.ToText(format, buffer);
        return type == ItemType_year && buffer.size() < 4 ? buffer.insert(0, 4 - buffer.size(), '0') : buffer;
    default:
        return value.ToText(format, buffer);
    }
}

// Whether a group of the fraction of a second has more digits than it has places, which the text hides.
bool HidesFraction(ZvVariant const& value) {
    if (CDateTimeSpan const* const duration = value.FindDuration()) {
        CDateTimeSpan span = *duration;
        return !CarryFraction(span);
    }
    CDateTime const* const date = value.FindDateTime();
    return date != nullptr &&
           (date->GetType() == CDateTime::dt_dateTime || date->GetType() == CDateTime::dt_time) &&
           (date->GetMilliSecond() > 999 || date->GetMicroSecond() > 999 || date->GetNanoSecond() > 999);
}

// Whether the text of a value may be none of its type: where the class holds more, or a format makes the
// text.
bool NeedsProof(ItemType type, ItemType typeOfValue, char const* format) noexcept {
    if (type != typeOfValue)
        return type != ItemType_string;
    switch (type) {
    case ItemType_r4:
    case ItemType_r8:
    case ItemType_decimal:
        return format != nullptr && *format != '\0';
    case ItemType_duration:
    case ItemType_year:
    case ItemType_month:
    case ItemType_day:
        return true;
    default:
        return IsDateTime(type);
    }
}

} // namespace

void RequireLexical(ItemType type, std::string_view text) {
    bool const isPartOfDate = type == ItemType_year || type == ItemType_month || type == ItemType_day;
    if (!HasLexicalForm(type, text)) {
        std::string_view const zone = isPartOfDate ? ZoneOf(text) : std::string_view();
        if (!zone.empty() && HasLexicalForm(type, text.substr(0, text.size() - zone.size())))
            FailZoneIsLost(zone);
        FailNumberText(text, TypeNameOf(type).c_str());
    }
    if (type == ItemType_decimal &&
        CountDecimalPlaces(text) > static_cast<std::size_t>(CDecimal::GetMaxDecimalPlaces()))
        FailDecimalPlaces(text, CDecimal::GetMaxDecimalPlaces());
}

CDateTime StrictDateTimeFromText(ItemType type, std::string_view text) {
    RequireLexical(type, text);
    std::string startOfDay;
    bool const isEndOfDay = IsEndOfDay(type, text);
    if (isEndOfDay) {
        startOfDay = text;
        startOfDay.replace(type == ItemType_time ? 0 : text.find('T') + 1, 2, "00");
        text = startOfDay;
    }
    CDateTime value;
    if (type == ItemType_datetime)
        value.ParseXSDDateTime(text, true);
    else if (type == ItemType_time)
        value.ParseXSDTime(text, true);
    else
        value.ParseXSDDate(text, true);
    return isEndOfDay ? value.AddDuration(CDateTimeSpan(24, 0, 0)) : value;
}

void StrictFromText(ZvVariant& value, std::string_view text, ItemType type) {
    if (!IsDateTime(type)) {
        RequireLexical(type, text);
        return value.FromText(text, type, kNoRule);
    }
    CDateTime const date = StrictDateTimeFromText(type, text);
    switch (type) {
    case ItemType_datetime:
        return value.SetDateTime(date);
    case ItemType_date:
        return value.SetDate(date);
    case ItemType_time:
        return value.SetTime(date);
    case ItemType_yearMonth:
        return value.SetYearMonth(date);
    default:
        return value.SetMonthDay(date);
    }
}

std::string const& ToStrictText(char const* name, ZvVariant const& value, ItemType type, char const* format,
                                std::string& buffer) {
    std::string const& text = TextOf(value, type, format, buffer);
    if (NeedsProof(type, value.GetTypeAsEnum(), format) && (!IsValidText(type, text) || HidesFraction(value)))
        FailWrittenText(text, name, TypeNameOf(type));
    return text;
}

} // namespace detail

bool IsValidText(ItemType type, std::string_view text) {
    try {
        ZvVariant value;
        detail::StrictFromText(value, text, type);
        return true;
    } catch (CZvException const&) {
        return false;
    }
}

} // namespace ZvXmlLib16
