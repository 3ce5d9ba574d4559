// A value against the facets of its type.
#include "zvxmllib/values/facets/CheckPrimitive.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/facets/Bounds.h"
#include "zvxmllib/values/facets/Pattern.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/values/variant/Conversions.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <memory>

namespace ZvXmlLib16 {

namespace {

using detail::kBounds;

template <class Value>
using FromText = Value (*)(std::string const&, CWhitespaceUtils::WhitespaceRule);

// Whether a value keeps a bound. A number that cannot be compared (NaN) keeps none.
template <class Value>
bool Keeps(std::size_t bound, Value const& value, Value const& limit) {
    switch (bound) {
    case detail::kMinInclusive:
        return value >= limit;
    case detail::kMaxInclusive:
        return value <= limit;
    case detail::kMinExclusive:
        return value > limit;
    default:
        return value < limit;
    }
}

// Where the order is partial, a pair without one keeps any bound.
bool KeepsInPartialOrder(std::size_t bound, CDateTime::DTCompareResult order) {
    switch (bound) {
    case detail::kMinInclusive:
        return order != CDateTime::DTCompareLess;
    case detail::kMaxInclusive:
        return order != CDateTime::DTCompareGreater;
    case detail::kMinExclusive:
        return order == CDateTime::DTCompareGreater || order == CDateTime::DTCompareIndeterminate;
    default:
        return order == CDateTime::DTCompareLess || order == CDateTime::DTCompareIndeterminate;
    }
}
bool Keeps(std::size_t bound, CDateTime const& value, CDateTime const& limit) {
    return KeepsInPartialOrder(bound, value.CompareTo(limit));
}
bool Keeps(std::size_t bound, CDateTimeSpan const& value, CDateTimeSpan const& limit) {
    return KeepsInPartialOrder(bound, value.CompareTo(limit));
}

// The parsed bounds that stand beside the facets; null if a bound is no value of the type, or if the facets
// were changed behind the first check.
template <class Value>
detail::Bounds<Value> const* FindBounds(ItemType type, FromText<Value> fromText,
                                        CPrimitiveRestrictions const& facets) {
    detail::PreparedFacets const* prepared = facets.GetPreparedSlot().Get();
    if (prepared == nullptr) {
        try {
            prepared =
                facets.GetPreparedSlot().Put(std::make_unique<detail::Bounds<Value>>(type, facets, fromText));
        } catch (CZvException const&) {
            return nullptr;
        }
    }
    if (prepared->GetType() != type)
        return nullptr;
    auto const* const bounds = static_cast<detail::Bounds<Value> const*>(prepared);
    return bounds->AreOf(facets) ? bounds : nullptr;
}

// The first bound that is not kept decides: one behind it is not looked at, and may be no value of the type.
template <class Value>
bool IsWithinBounds(Value const& value, ItemType type, FromText<Value> fromText,
                    CPrimitiveRestrictions const& facets) {
    if (facets.minInclusive.empty() && facets.maxInclusive.empty() && facets.minExclusive.empty() &&
        facets.maxExclusive.empty())
        return true;
    detail::Bounds<Value> const* const bounds = FindBounds(type, fromText, facets);
    for (std::size_t bound = 0; bound < kBounds; ++bound) {
        if (bounds != nullptr) {
            Value const* const limit = bounds->Find(bound);
            if (limit != nullptr && !Keeps(bound, value, *limit))
                return false;
            continue;
        }
        std::string const& text = detail::BoundText(facets, bound);
        if (!text.empty() && !Keeps(bound, value, fromText(text, CWhitespaceUtils::WhitespaceRule_Collapse)))
            return false;
    }
    return true;
}

bool HasAtMost(std::int32_t limit, std::size_t count) {
    return limit == -1 || static_cast<long long>(count) <= limit;
}

bool IsLengthValid(std::size_t length, CPrimitiveRestrictions const& facets) {
    auto const count = static_cast<long long>(length);
    return (facets.minLength == -1 || count >= facets.minLength) && HasAtMost(facets.maxLength, length) &&
           (facets.length == -1 || count == facets.length);
}

// The length of a whole number's text, where the sign counts.
template <class Value>
std::size_t CountCharacters(Value value) {
    std::string buffer; // in place: no text is longer than 20
    return detail::PrintInteger(value, buffer).size();
}

template <class Value>
bool HasTotalDigits(Value value, CPrimitiveRestrictions const& facets) {
    return facets.totalDigits == -1 || HasAtMost(facets.totalDigits, CountCharacters(value));
}

// Whole numbers but for those of 64 bits: the message shows the number as a signed one of 32 bits.
template <class Value>
void CheckInteger(char const* name, Value value, ItemType type, FromText<Value> fromText,
                  CPrimitiveRestrictions const& facets) {
    if (!IsWithinBounds(value, type, fromText, facets) || !HasTotalDigits(value, facets))
        FailFacetOfInteger(name, static_cast<std::int32_t>(value));
}

template <class Value>
void CheckLongInteger(char const* name, Value value, ItemType type, FromText<Value> fromText,
                      CPrimitiveRestrictions const& facets) {
    if (!IsWithinBounds(value, type, fromText, facets) || !HasTotalDigits(value, facets))
        FailFacetOfText(name, detail::PrintInteger(value));
}

// The numbers of gYear, gMonth and gDay have bounds alone.
template <class Value>
void CheckDatePart(char const* name, Value value, ItemType type, FromText<Value> fromText,
                   CPrimitiveRestrictions const& facets) {
    if (!IsWithinBounds(value, type, fromText, facets))
        FailFacetOfInteger(name, value);
}

// char may be unsigned, and i1 is a signed number.
signed char I1FromText(std::string const& text, CWhitespaceUtils::WhitespaceRule rule) {
    return static_cast<signed char>(CConversions::i1FromString(text, rule));
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

// Of the whole part of a decimal, where 0 has none.
std::size_t CountWholeDigits(CBigInteger const& whole) {
    CBigInteger const zero(0);
    return whole == zero ? 0 : whole.GetTextLength() - (whole < zero ? 1 : 0);
}

bool HasDigits(CDecimal const& value, CPrimitiveRestrictions const& facets) {
    if (facets.totalDigits == -1 && facets.fractionDigits == -1)
        return true;
    bool const isWhole = value.GetFractionPart() == CBigInteger(0);
    std::size_t const fraction = isWhole ? 0 : static_cast<std::size_t>(value.GetFractionDivider());
    std::size_t const integer = CountWholeDigits(value.GetIntegerPart());
    return HasAtMost(facets.totalDigits, integer + fraction) && HasAtMost(facets.fractionDigits, fraction);
}

void CheckPattern(char const* name, std::string const& value, CPrimitiveRestrictions const& facets) {
    if (facets.pattern.empty())
        return;
    bool isMatch = false;
    try {
        isMatch = MatchesPattern(facets, value);
    } catch (CZvException const& failure) {
        FailPattern(failure.GetFullMessage(), name, value);
    }
    if (!isMatch)
        FailFacetOfText(name, value);
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
    CheckInteger(name, static_cast<signed char>(value), ItemType_i1, I1FromText, restrictions);
}

void CheckPrimitive(char const* name, short value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, ItemType_i2, CConversions::i2FromString, restrictions);
}

void CheckPrimitive(char const* name, std::int32_t value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, ItemType_i4, CConversions::i4FromString, restrictions);
}

void CheckPrimitive(char const* name, long long value, CPrimitiveRestrictions const& restrictions) {
    CheckLongInteger(name, value, ItemType_i8, CConversions::i8FromString, restrictions);
}

void CheckPrimitive(char const* name, unsigned char value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, ItemType_ui1, CConversions::ui1FromString, restrictions);
}

void CheckPrimitive(char const* name, unsigned short value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, ItemType_ui2, CConversions::ui2FromString, restrictions);
}

void CheckPrimitive(char const* name, std::uint32_t value, CPrimitiveRestrictions const& restrictions) {
    CheckInteger(name, value, ItemType_ui4, CConversions::ui4FromString, restrictions);
}

void CheckPrimitive(char const* name, unsigned long long value, CPrimitiveRestrictions const& restrictions) {
    CheckLongInteger(name, value, ItemType_ui8, CConversions::ui8FromString, restrictions);
}

void CheckPrimitive(char const* name, float value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, ItemType_r4, CConversions::r4FromString, restrictions))
        FailFacetOfReal(name, static_cast<double>(value));
}

void CheckPrimitive(char const* name, double value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, ItemType_r8, CConversions::r8FromString, restrictions))
        FailFacetOfReal(name, value);
}

void CheckPrimitive(char const* name, std::string const& value, CPrimitiveRestrictions const& restrictions) {
    if (!IsLengthValid(value.size(), restrictions))
        FailFacetOfText(name, value);
    CheckPattern(name, value, restrictions);
}

void CheckPrimitive(char const* name, char const* value, CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, std::string(value != nullptr ? value : ""), restrictions);
}

void CheckPrimitive(char const*, bool, CPrimitiveRestrictions const&) {}

void CheckPrimitive(char const* name, CDateTimeSpan const& value,
                    CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, ItemType_duration, CConversions::durationFromString, restrictions))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitive(char const* name, CDateTime const& value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, type, DateFromText(type), restrictions))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitive(char const* name, CDateTime const& value, CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, value, TypeOfDate(value), restrictions);
}

void CheckPrimitive(char const* name, unsigned char value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (type == ItemType_month)
        CheckDatePart(name, value, type, CConversions::monthFromString, restrictions);
    else if (type == ItemType_day)
        CheckDatePart(name, value, type, CConversions::dayFromString, restrictions);
    else
        CheckPrimitive(name, value, restrictions);
}

void CheckPrimitive(char const* name, unsigned short value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    if (type == ItemType_year)
        CheckDatePart(name, value, type, CConversions::yearFromString, restrictions);
    else
        CheckPrimitive(name, value, restrictions);
}

void CheckPrimitive(char const* name, CDecimal const& value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, ItemType_decimal, CConversions::decimalFromString, restrictions) ||
        !HasDigits(value, restrictions))
        FailFacetOfText(name, value.ToString());
}

void CheckPrimitive(char const* name, CBigInteger const& value, CPrimitiveRestrictions const& restrictions) {
    if (!IsWithinBounds(value, ItemType_integer, CConversions::integerFromString, restrictions) ||
        (restrictions.totalDigits != -1 && !HasAtMost(restrictions.totalDigits, value.GetTextLength())))
        FailFacetOfText(name, value.ToString());
}

namespace {

// The value where the variant holds it. The getter, which copies, gives that of a nil variant, and asserts
// that the type is the variant's.
template <class Value>
void CheckHeld(char const* name, ZvVariant const& variant, Value const* held,
               Value (ZvVariant::*getter)() const, ItemType type, CPrimitiveRestrictions const& facets) {
    if (held != nullptr && variant.GetTypeAsEnum() == type)
        CheckPrimitive(name, *held, type, facets);
    else
        CheckPrimitive(name, (variant.*getter)(), type, facets);
}

} // namespace

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
        return CheckHeld(name, value, value.FindDuration(), &ZvVariant::GetDuration, type, restrictions);
    case ItemType_yearMonth:
        return CheckHeld(name, value, value.FindDateTime(), &ZvVariant::GetYearMonth, type, restrictions);
    case ItemType_monthDay:
        return CheckHeld(name, value, value.FindDateTime(), &ZvVariant::GetMonthDay, type, restrictions);
    case ItemType_date:
        return CheckHeld(name, value, value.FindDateTime(), &ZvVariant::GetDate, type, restrictions);
    case ItemType_datetime:
        return CheckHeld(name, value, value.FindDateTime(), &ZvVariant::GetDateTime, type, restrictions);
    case ItemType_time:
        return CheckHeld(name, value, value.FindDateTime(), &ZvVariant::GetTime, type, restrictions);
    case ItemType_year:
        return CheckPrimitive(name, value.GetYear(), type, restrictions);
    case ItemType_month:
        return CheckPrimitive(name, value.GetMonth(), type, restrictions);
    case ItemType_day:
        return CheckPrimitive(name, value.GetDay(), type, restrictions);
    case ItemType_decimal:
        return CheckHeld(name, value, value.FindDecimal(), &ZvVariant::GetDecimal, type, restrictions);
    case ItemType_integer:
        return CheckHeld(name, value, value.FindInteger(), &ZvVariant::GetInteger, type, restrictions);
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
