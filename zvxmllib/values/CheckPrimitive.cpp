// A value against the facets of its type.
#include "zvxmllib/values/CheckPrimitive.h"

#include "zvxmllib/foundation/Functions.h"
#include "zvxmllib/values/Conversions.h"
#include "zvxmllib/values/DateTimeSpan.h"
#include "zvxmllib/values/Decimal.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/PrimitiveRestrictions.h"
#include "zvxmllib/values/ZvVariant.h"

namespace ZvXmlLib16 {

namespace {

template <class Value>
using FromText = Value (*)(std::string const&, CWhitespaceUtils::WhitespaceRule);

// Each bound is parsed only when its turn comes, so that the first facet that fails decides. A value that
// cannot be compared (NaN) is within no bound.
template <class Value, class Text>
bool IsWithinBounds(Value value, FromText<Text> fromText, CPrimitiveRestrictions const& facets) {
    auto const parse = [fromText](std::string const& bound) {
        return static_cast<std::decay_t<Value>>(fromText(bound, CWhitespaceUtils::WhitespaceRule_Collapse));
    };
    return (facets.minInclusive.empty() || value >= parse(facets.minInclusive)) &&
           (facets.maxInclusive.empty() || value <= parse(facets.maxInclusive)) &&
           (facets.minExclusive.empty() || value > parse(facets.minExclusive)) &&
           (facets.maxExclusive.empty() || value < parse(facets.maxExclusive));
}

bool HasAtMost(std::int32_t limit, std::size_t count) {
    return limit == -1 || static_cast<long long>(count) <= limit;
}

bool IsLengthValid(std::size_t length, CPrimitiveRestrictions const& facets) {
    auto const count = static_cast<long long>(length);
    return (facets.minLength == -1 || count >= facets.minLength) && HasAtMost(facets.maxLength, length) &&
           (facets.length == -1 || count == facets.length);
}

// Whole numbers but for those of 64 bits: the message shows the number as a signed one of 32 bits.
template <class Value, class Text>
void CheckInteger(char const* name, Value value, FromText<Text> fromText, std::string (*toText)(Text),
                  CPrimitiveRestrictions const& facets) {
    if (!IsWithinBounds(value, fromText, facets) ||
        (facets.totalDigits != -1 && !HasAtMost(facets.totalDigits, toText(static_cast<Text>(value)).size())))
        FailFacetOfInteger(name, static_cast<std::int32_t>(value));
}

template <class Value>
void CheckLongInteger(char const* name, Value value, FromText<Value> fromText, std::string (*toText)(Value),
                      CPrimitiveRestrictions const& facets) {
    if (!IsWithinBounds(value, fromText, facets) ||
        (facets.totalDigits != -1 && !HasAtMost(facets.totalDigits, toText(value).size())))
        FailFacetOfText(name, toText(value));
}

// Values whose order is partial: a pair without an order is within any bound.
template <class Value>
bool IsWithinPartialBounds(Value const& value, FromText<Value> fromText,
                           CPrimitiveRestrictions const& facets) {
    auto const compare = [&](std::string const& bound) {
        return value.CompareTo(fromText(bound, CWhitespaceUtils::WhitespaceRule_Collapse));
    };
    auto const isAbove = [](CDateTime::DTCompareResult result) {
        return result == CDateTime::DTCompareGreater || result == CDateTime::DTCompareIndeterminate;
    };
    auto const isBelow = [](CDateTime::DTCompareResult result) {
        return result == CDateTime::DTCompareLess || result == CDateTime::DTCompareIndeterminate;
    };
    return (facets.minInclusive.empty() || compare(facets.minInclusive) != CDateTime::DTCompareLess) &&
           (facets.maxInclusive.empty() || compare(facets.maxInclusive) != CDateTime::DTCompareGreater) &&
           (facets.minExclusive.empty() || isAbove(compare(facets.minExclusive))) &&
           (facets.maxExclusive.empty() || isBelow(compare(facets.maxExclusive)));
}

// The numbers of gYear, gMonth and gDay have bounds alone.
template <class Value>
void CheckDatePart(char const* name, Value value, FromText<Value> fromText,
                   CPrimitiveRestrictions const& facets) {
    if (!IsWithinBounds(value, fromText, facets))
        FailFacetOfInteger(name, value);
}

FromText<CDateTime> DateFromText(ItemType type) {
    switch (type) {
    case ItemType_yearMonth:
        return CConversions::yearMonthFromString;
    case ItemType_monthDay:
        return CConversions::monthDayFromString;
    case ItemType_datetime:
        return CConversions::datetimeFromString;
    case ItemType_time:
        return CConversions::timeFromString;
    default: // a date, or a part of one, which the same texts can hold
        return CConversions::dateFromString;
    }
}

ItemType TypeOfDate(CDateTime const& value) {
    switch (value.GetType()) {
    case CDateTime::dt_gYearMonth:
        return ItemType_yearMonth;
    case CDateTime::dt_gMonthDay:
        return ItemType_monthDay;
    case CDateTime::dt_dateTime:
        return ItemType_datetime;
    case CDateTime::dt_time:
        return ItemType_time;
    default:
        return ItemType_date;
    }
}

std::size_t CountDigits(CBigInteger const& number) {
    std::string const text = number.ToString();
    return text.size() - (text[0] == '-' ? 1 : 0);
}

bool HasDigits(CDecimal const& value, CPrimitiveRestrictions const& facets) {
    if (facets.totalDigits == -1 && facets.fractionDigits == -1)
        return true;
    bool const isWhole = value.GetFractionPart() == CBigInteger(0);
    bool const isBelowOne = value.GetIntegerPart() == CBigInteger(0);
    std::size_t const fraction = isWhole ? 0 : static_cast<std::size_t>(value.GetFractionDivider());
    std::size_t const integer = isBelowOne ? 0 : CountDigits(value.GetIntegerPart());
    return HasAtMost(facets.totalDigits, integer + fraction) && HasAtMost(facets.fractionDigits, fraction);
}

// Where the pattern facet has its place, behind the lengths.
void TracePattern(char const* name, CPrimitiveRestrictions const& facets) {
    if (!facets.pattern.empty() && IsDebugTraceEnabled())
        DebugTrace("The pattern of %s is not checked [%s].\n", name != nullptr ? name : "",
                   facets.pattern.c_str());
}

} // namespace

void CheckPrimitive(char const* name, CBinaryData const& value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (!IsLengthValid(value.GetLength(), restrictions))
        FailFacetOfText(name, type == ItemType_base64Binary ? value.GetAsBase64() : value.GetAsHexString());
}

void CheckPrimitive(char const* name, CBinaryData const& value, CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, value, ItemType_hexBinary, restrictions);
}

void CheckPrimitive(char const* name, char value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger<signed char, char>(name, static_cast<signed char>(value), CConversions::i1FromString,
                                    CConversions::i1ToString, restrictions);
}

void CheckPrimitive(char const* name, short value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, CConversions::i2FromString, CConversions::i2ToString, restrictions);
}

void CheckPrimitive(char const* name, std::int32_t value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, CConversions::i4FromString, CConversions::i4ToString, restrictions);
}

void CheckPrimitive(char const* name, long long value, CPrimitiveRestrictions const& restrictions) {
    CheckLongInteger(name, value, CConversions::i8FromString, CConversions::i8ToString, restrictions);
}

void CheckPrimitive(char const* name, unsigned char value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, CConversions::ui1FromString, CConversions::ui1ToString, restrictions);
}

void CheckPrimitive(char const* name, unsigned short value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, CConversions::ui2FromString, CConversions::ui2ToString, restrictions);
}

void CheckPrimitive(char const* name, std::uint32_t value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, CConversions::ui4FromString, CConversions::ui4ToString, restrictions);
}

void CheckPrimitive(char const* name, unsigned long long value, CPrimitiveRestrictions const& restrictions) {
    CheckLongInteger(name, value, CConversions::ui8FromString, CConversions::ui8ToString, restrictions);
}

void CheckPrimitive(char const* name, float value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, CConversions::r4FromString, restrictions))
        FailFacetOfReal(name, static_cast<double>(value));
}

void CheckPrimitive(char const* name, double value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, CConversions::r8FromString, restrictions))
        FailFacetOfReal(name, value);
}

void CheckPrimitive(char const* name, std::string const& value, CPrimitiveRestrictions const& restrictions) {
    if (!IsLengthValid(value.size(), restrictions))
        FailFacetOfText(name, value);
    TracePattern(name, restrictions);
}

void CheckPrimitive(char const* name, char const* value, CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, std::string(value != nullptr ? value : ""), restrictions);
}

void CheckPrimitive(char const*, bool, CPrimitiveRestrictions const&) {}

void CheckPrimitive(char const* name, CDateTimeSpan const& value,
                    CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinPartialBounds(value, CConversions::durationFromString, restrictions))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitive(char const* name, CDateTime const& value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinPartialBounds(value, DateFromText(type), restrictions))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitive(char const* name, CDateTime const& value, CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, value, TypeOfDate(value), restrictions);
}

void CheckPrimitive(char const* name, unsigned char value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (type == ItemType_month)
        CheckDatePart(name, value, CConversions::monthFromString, restrictions);
    else if (type == ItemType_day)
        CheckDatePart(name, value, CConversions::dayFromString, restrictions);
    else
        CheckPrimitive(name, value, restrictions);
}

void CheckPrimitive(char const* name, unsigned short value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (type == ItemType_year)
        CheckDatePart(name, value, CConversions::yearFromString, restrictions);
    else
        CheckPrimitive(name, value, restrictions);
}

void CheckPrimitive(char const* name, CDecimal const& value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds<CDecimal const&>(value, CConversions::decimalFromString, restrictions) ||
        !HasDigits(value, restrictions))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitive(char const* name, CBigInteger const& value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds<CBigInteger const&>(value, CConversions::integerFromString, restrictions) ||
        (restrictions.totalDigits != -1 && !HasAtMost(restrictions.totalDigits, value.ToString().size())))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitiveVariant(char const* name, ZvVariant const& value, ItemType type,
                           CPrimitiveRestrictions const& restrictions) {
    if (value.GetTypeAsEnum() == ItemType_invalid)
        FailTypeName(ItemType_invalid);
    switch (type) {
    case ItemType_hexBinary:
        return CheckPrimitive(name, value.GetHexBinary(), type, restrictions);
    case ItemType_base64Binary:
        return CheckPrimitive(name, value.GetBase64Binary(), type, restrictions);
    case ItemType_i1:
        return CheckPrimitive(name, value.GetI1(), restrictions);
    case ItemType_i2:
        return CheckPrimitive(name, value.GetI2(), restrictions);
    case ItemType_i4:
        return CheckPrimitive(name, value.GetI4(), restrictions);
    case ItemType_i8:
        return CheckPrimitive(name, value.GetI8(), restrictions);
    case ItemType_ui1:
        return CheckPrimitive(name, value.GetUI1(), restrictions);
    case ItemType_ui2:
        return CheckPrimitive(name, value.GetUI2(), restrictions);
    case ItemType_ui4:
        return CheckPrimitive(name, value.GetUI4(), restrictions);
    case ItemType_ui8:
        return CheckPrimitive(name, value.GetUI8(), restrictions);
    case ItemType_r4:
        return CheckPrimitive(name, value.GetR4(), restrictions);
    case ItemType_r8:
        return CheckPrimitive(name, value.GetR8(), restrictions);
    case ItemType_string:
        return CheckPrimitive(name, value.GetText(), restrictions);
    case ItemType_boolean:
        return CheckPrimitive(name, value.GetBoolean(), restrictions);
    case ItemType_duration:
        return CheckPrimitive(name, value.GetDuration(), restrictions);
    case ItemType_yearMonth:
        return CheckPrimitive(name, value.GetYearMonth(), type, restrictions);
    case ItemType_monthDay:
        return CheckPrimitive(name, value.GetMonthDay(), type, restrictions);
    case ItemType_date:
        return CheckPrimitive(name, value.GetDate(), type, restrictions);
    case ItemType_datetime:
        return CheckPrimitive(name, value.GetDateTime(), type, restrictions);
    case ItemType_time:
        return CheckPrimitive(name, value.GetTime(), type, restrictions);
    case ItemType_year:
        return CheckPrimitive(name, value.GetYear(), type, restrictions);
    case ItemType_month:
        return CheckPrimitive(name, value.GetMonth(), type, restrictions);
    case ItemType_day:
        return CheckPrimitive(name, value.GetDay(), type, restrictions);
    case ItemType_decimal:
        return CheckPrimitive(name, value.GetDecimal(), restrictions);
    case ItemType_integer:
        return CheckPrimitive(name, value.GetInteger(), restrictions);
    default:
        FailFacetsOfType(value.GetType());
    }
}

bool NeedsCheck(ItemType type, CPrimitiveRestrictions const& restrictions) noexcept {
    // What has no facets at all is refused, with or without them.
    bool const isRefused = type < ItemType_hexBinary || type > ItemType_integer || type == ItemType_char;
    return isRefused || restrictions.HasFacets();
}

} // namespace ZvXmlLib16
