// ZvVariant to and from text.
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/text/TextValues.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <iterator>
#include <utility>

namespace ZvXmlLib16 {

namespace {

// By ItemType, from 1 on.
constexpr char const* kTypeNames[] = {
    "hexBinary", "base64Binary", "i1",   "i2",       "i4",        "i8",       "ui1",     "ui2",    "ui4",
    "ui8",       "r4",           "r8",   "duration", "yearMonth", "monthDay", "year",    "month",  "day",
    "date",      "datetime",     "time", "char",     "string",    "boolean",  "decimal", "integer"};
static_assert(std::size(kTypeNames) == ItemType_integer);

bool IsNamed(ItemType type) {
    return type >= ItemType_hexBinary && type <= ItemType_integer;
}

// The text of a value, or of the empty one where there is none.
template <class Value, class ToText>
std::string const& TextOf(Value const* value, ToText toText) {
    return value != nullptr ? toText(*value) : toText(Value());
}

} // namespace

std::string ZvVariant::GetType() const {
    if (!IsNamed(m_type))
        FailTypeName(m_type);
    return kTypeNames[m_type - 1];
}

std::string ZvVariant::ToString(char const* format) const {
    std::string buffer;
    std::string const& text = ToText(format, buffer);
    if (&text == &buffer)
        return buffer;
    return text;
}

std::string const& ZvVariant::ToText(char const* format, std::string& buffer) const {
    using namespace detail;
    switch (m_type) {
    case ItemType_hexBinary:
        return hexBinaryToText(GetBinary(), buffer);
    case ItemType_base64Binary:
        return base64BinaryToText(GetBinary(), buffer);
    case ItemType_i1:
        return i1ToText(m_i1, buffer);
    case ItemType_i2:
        return i2ToText(m_i2, buffer);
    case ItemType_i4:
        return i4ToText(m_i4, buffer);
    case ItemType_i8:
        return i8ToText(m_i8, buffer);
    case ItemType_ui1:
        return ui1ToText(m_ui1, buffer);
    case ItemType_ui2:
        return ui2ToText(m_ui2, buffer);
    case ItemType_ui4:
        return ui4ToText(m_ui4, buffer);
    case ItemType_ui8:
        return ui8ToText(m_ui8, buffer);
    case ItemType_r4:
        return r4ToText(m_r4, format, buffer);
    case ItemType_r8:
        return r8ToText(m_r8, format, buffer);
    case ItemType_duration:
        return TextOf(
            FindDuration(), [&](auto const& value) -> auto& { return durationToText(value, buffer); });
    case ItemType_yearMonth:
    case ItemType_monthDay:
    case ItemType_date:
    case ItemType_datetime:
    case ItemType_time:
        return TextOf(
            FindDateTime(), [&](auto const& value) -> auto& { return dateToText(value, buffer); });
    case ItemType_year:
        return yearToText(m_ui2, buffer);
    case ItemType_month:
        return monthToText(m_ui1, buffer);
    case ItemType_day:
        return dayToText(m_ui1, buffer);
    case ItemType_decimal:
        return TextOf(
            FindDecimal(), [&](auto const& value) -> auto& { return decimalToText(value, format, buffer); });
    case ItemType_integer:
        return TextOf(
            FindInteger(), [&](auto const& value) -> auto& { return integerToText(value, buffer); });
    case ItemType_char:
        return charToText(m_char, buffer);
    case ItemType_string:
        return m_text;
    case ItemType_boolean:
        return booleanToText(m_boolean, buffer);
    default:
        FailTypeToString(m_type);
    }
}

void ZvVariant::FromString(std::string const& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    FromText(text, type, rule);
}

// Each value is parsed before its setter touches the variant.
void ZvVariant::FromText(std::string_view text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    switch (type) {
    case ItemType_hexBinary:
        return SetHexBinary(detail::hexBinaryFromText(text, rule));
    case ItemType_base64Binary:
        return SetBase64Binary(detail::base64BinaryFromText(text, rule));
    case ItemType_i1:
        return SetI1(detail::i1FromText(text, rule));
    case ItemType_i2:
        return SetI2(detail::i2FromText(text, rule));
    case ItemType_i4:
        return SetI4(detail::i4FromText(text, rule));
    case ItemType_i8:
        return SetI8(detail::i8FromText(text, rule));
    case ItemType_ui1:
        return SetUI1(detail::ui1FromText(text, rule));
    case ItemType_ui2:
        return SetUI2(detail::ui2FromText(text, rule));
    case ItemType_ui4:
        return SetUI4(detail::ui4FromText(text, rule));
    case ItemType_ui8:
        return SetUI8(detail::ui8FromText(text, rule));
    case ItemType_r4:
        return SetR4(detail::r4FromText(text, rule));
    case ItemType_r8:
        return SetR8(detail::r8FromText(text, rule));
    case ItemType_duration:
        return SetDuration(detail::durationFromText(text, rule));
    case ItemType_yearMonth:
        return SetYearMonth(detail::yearMonthFromText(text, rule));
    case ItemType_monthDay:
        return SetMonthDay(detail::monthDayFromText(text, rule));
    case ItemType_year:
        return SetYear(detail::yearFromText(text, rule));
    case ItemType_month:
        return SetMonth(detail::monthFromText(text, rule));
    case ItemType_day:
        return SetDay(detail::dayFromText(text, rule));
    case ItemType_date:
        return SetDate(detail::dateFromText(text, rule));
    case ItemType_datetime:
        return SetDateTime(detail::datetimeFromText(text, rule));
    case ItemType_time:
        return SetTime(detail::timeFromText(text, rule));
    case ItemType_decimal:
        return SetDecimal(detail::decimalFromText(text, rule));
    case ItemType_integer:
        return SetInteger(detail::integerFromText(text, rule));
    case ItemType_char:
        return SetChar(detail::charFromText(text, rule));
    case ItemType_string:
        return SetRuledString(text, rule);
    case ItemType_boolean:
        return SetBoolean(detail::booleanFromText(text, rule));
    default:
        FailTypeToString(type);
    }
}

void ZvVariant::SetRuledString(std::string_view text, CWhitespaceUtils::WhitespaceRule rule) {
    detail::RuledText ruled(rule, text);
    if (std::string* const own = ruled.Own())
        return SetString(std::move(*own));
    m_text.assign(text); // before anything is dropped: the text may live in what the variant holds
    TextBecomesValue();
}

} // namespace ZvXmlLib16
