// ZvVariant to and from text.
#include "zvxmllib/values/Conversions.h"
#include "zvxmllib/values/DateTimeSpan.h"
#include "zvxmllib/values/Decimal.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/NumberText.h"
#include "zvxmllib/values/RuledText.h"
#include "zvxmllib/values/TextValues.h"
#include "zvxmllib/values/ZvVariant.h"

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
    auto const formatText = [format] { return std::string(format != nullptr ? format : ""); };
    switch (m_type) {
    case ItemType_hexBinary:
        return buffer = CConversions::hexBinaryToString(GetBinary());
    case ItemType_base64Binary:
        return buffer = CConversions::base64BinaryToString(GetBinary());
    case ItemType_i1:
        return detail::PrintInteger(static_cast<int>(static_cast<signed char>(m_i1)), buffer);
    case ItemType_i2:
        return detail::PrintInteger(m_i2, buffer);
    case ItemType_i4:
        return detail::PrintInteger(m_i4, buffer);
    case ItemType_i8:
        return detail::PrintInteger(m_i8, buffer);
    case ItemType_ui1:
        return detail::PrintInteger(static_cast<unsigned>(m_ui1), buffer);
    case ItemType_ui2:
        return detail::PrintInteger(m_ui2, buffer);
    case ItemType_ui4:
        return detail::PrintInteger(m_ui4, buffer);
    case ItemType_ui8:
        return detail::PrintInteger(m_ui8, buffer);
    case ItemType_r4:
        return buffer = CConversions::r4ToString(m_r4, formatText());
    case ItemType_r8:
        return buffer = CConversions::r8ToString(m_r8, formatText());
    case ItemType_duration: {
        CDateTimeSpan const* const value = FindDuration();
        return value != nullptr ? value->Print(buffer) : CDateTimeSpan().Print(buffer);
    }
    case ItemType_yearMonth:
    case ItemType_monthDay:
    case ItemType_date:
    case ItemType_datetime:
    case ItemType_time: {
        CDateTime const* const value = FindDateTime();
        return value != nullptr ? value->Print(buffer) : CDateTime().Print(buffer);
    }
    case ItemType_year:
        return detail::PrintInteger(m_ui2, buffer);
    case ItemType_month:
        return buffer = CConversions::monthToString(m_ui1);
    case ItemType_day:
        return buffer = CConversions::dayToString(m_ui1);
    case ItemType_decimal: {
        CDecimal const* const value = FindDecimal();
        return buffer = CConversions::decimalToString(value != nullptr ? *value : CDecimal(), formatText());
    }
    case ItemType_integer: {
        CBigInteger const* const value = FindInteger();
        return buffer = CConversions::integerToString(value != nullptr ? *value : CBigInteger());
    }
    case ItemType_char:
        return buffer = CConversions::charToString(m_char);
    case ItemType_string:
        return m_text;
    case ItemType_boolean:
        return buffer = CConversions::booleanToString(m_boolean);
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
    case ItemType_string: {
        detail::RuledText ruled(rule, text);
        if (std::string* const own = ruled.Own())
            return SetString(std::move(*own));
        m_text.assign(text); // before anything is dropped: the text may live in what the variant holds
        return TextBecomesValue();
    }
    case ItemType_boolean:
        return SetBoolean(detail::booleanFromText(text, rule));
    default:
        FailTypeToString(type);
    }
}

} // namespace ZvXmlLib16
