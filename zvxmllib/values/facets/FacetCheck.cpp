#include "zvxmllib/values/facets/FacetCheck.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/facets/Bounds.h"
#include "zvxmllib/values/facets/Pattern.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/values/variant/Conversions.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <algorithm>
#include <memory>

namespace ZvXmlLib16 {

namespace {

using detail::kBounds;

template <class Value>
using FromText = Value (*)(std::string const&, CWhitespaceUtils::WhitespaceRule);

// Whether a value is within a bound. A number that cannot be compared (NaN) is within none.
template <class Value>
bool Keeps(std::size_t bound, Value const& value, Value const& limit, detail::FacetRules) {
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

// In a partial order, a pair without an order satisfies every bound, or by XML Schema none.
bool KeepsInPartialOrder(std::size_t bound, CDateTime::DTCompareResult order, detail::FacetRules rules) {
    if (order == CDateTime::DTCompareIndeterminate)
        return rules == detail::FacetRules::kLetter;
    switch (bound) {
    case detail::kMinInclusive:
        return order != CDateTime::DTCompareLess;
    case detail::kMaxInclusive:
        return order != CDateTime::DTCompareGreater;
    case detail::kMinExclusive:
        return order == CDateTime::DTCompareGreater;
    default:
        return order == CDateTime::DTCompareLess;
    }
}
bool Keeps(std::size_t bound, CDateTime const& value, CDateTime const& limit, detail::FacetRules rules) {
    return KeepsInPartialOrder(bound, value.CompareTo(limit), rules);
}
bool Keeps(std::size_t bound, CDateTimeSpan const& value, CDateTimeSpan const& limit,
           detail::FacetRules rules) {
    return KeepsInPartialOrder(bound, value.CompareTo(limit), rules);
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

// The first violated bound decides: later ones are not parsed, and need not be values of the type.
template <class Value>
bool IsWithinBounds(Value const& value, ItemType type, FromText<Value> fromText, FacetCheck const& check) {
    CPrimitiveRestrictions const& facets = check.facets;
    if (facets.minInclusive.empty() && facets.maxInclusive.empty() && facets.minExclusive.empty() &&
        facets.maxExclusive.empty())
        return true;
    detail::Bounds<Value> const* const bounds = FindBounds(type, fromText, facets);
    for (std::size_t bound = 0; bound < kBounds; ++bound) {
        if (bounds != nullptr) {
            Value const* const limit = bounds->Find(bound);
            if (limit != nullptr && !Keeps(bound, value, *limit, check.rules))
                return false;
            continue;
        }
        std::string const& text = detail::BoundText(facets, bound);
        if (!text.empty() &&
            !Keeps(bound, value, fromText(text, CWhitespaceUtils::WhitespaceRule_Collapse), check.rules))
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

// Of a string, in characters where XML Schema counts.
std::size_t LengthOf(std::string const& text, detail::FacetRules rules) {
    if (rules == detail::FacetRules::kLetter || IsAscii(text))
        return text.size();
    auto const countCharacters = [](std::string_view utf8) {
        auto const isFirstOctet = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
        return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), isFirstOctet));
    };
    if (IsLocalTextUtf8())
        return countCharacters(text);
    CBinaryData const utf8 = LocalToUtf8(text.c_str());
    return countCharacters({reinterpret_cast<char const*>(utf8.GetData()), utf8.GetLength()});
}

// The digits of a whole number, with its sign but where XML Schema counts.
template <class Value>
bool HasTotalDigits(Value value, FacetCheck const& check) {
    if (check.facets.totalDigits == -1)
        return true;
    std::string buffer; // in place: no text is longer than 20
    std::size_t const length = detail::PrintInteger(value, buffer).size();
    bool const leavesSignOut = check.rules == detail::FacetRules::kXmlSchema && buffer.front() == '-';
    return HasAtMost(check.facets.totalDigits, length - (leavesSignOut ? 1 : 0));
}

// Whole numbers but for those of 64 bits: the message shows the number as a signed one of 32 bits.
template <class Value>
void CheckInteger(FacetCheck const& check, Value value, ItemType type, FromText<Value> fromText) {
    if (!IsWithinBounds(value, type, fromText, check) || !HasTotalDigits(value, check))
        FailFacetOfInteger(check.name, static_cast<std::int32_t>(value));
}

template <class Value>
void CheckLongInteger(FacetCheck const& check, Value value, ItemType type, FromText<Value> fromText) {
    if (!IsWithinBounds(value, type, fromText, check) || !HasTotalDigits(value, check))
        FailFacetOfText(check.name, detail::PrintInteger(value));
}

// The numbers of gYear, gMonth and gDay have bounds alone.
template <class Value>
void CheckDatePart(FacetCheck const& check, Value value, ItemType type, FromText<Value> fromText) {
    if (!IsWithinBounds(value, type, fromText, check))
        FailFacetOfInteger(check.name, value);
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

// The message shows `text`, the value as written.
void CheckPattern(FacetCheck const& check, std::string_view text) {
    if (check.facets.pattern.empty())
        return;
    bool isMatch = false;
    try {
        isMatch = MatchesPattern(check.facets, text, check.rules);
    } catch (CZvException const& failure) {
        FailPattern(failure.GetFullMessage(), check.name, std::string(text));
    }
    if (!isMatch)
        FailFacetOfText(check.name, std::string(text));
}

} // namespace

void FacetCheck::Check(CBinaryData const& value, ItemType type) const {
    if (!IsLengthValid(value.GetLength(), facets))
        FailFacetOfText(name, type == ItemType_base64Binary ? value.GetAsBase64() : value.GetAsHexString());
}

void FacetCheck::Check(char value, ItemType) const {
    CheckInteger(*this, static_cast<signed char>(value), ItemType_i1, I1FromText);
}

void FacetCheck::Check(short value, ItemType) const {
    CheckInteger(*this, value, ItemType_i2, CConversions::i2FromString);
}

void FacetCheck::Check(std::int32_t value, ItemType) const {
    CheckInteger(*this, value, ItemType_i4, CConversions::i4FromString);
}

void FacetCheck::Check(long long value, ItemType) const {
    CheckLongInteger(*this, value, ItemType_i8, CConversions::i8FromString);
}

void FacetCheck::Check(unsigned char value, ItemType type) const {
    if (type == ItemType_month)
        CheckDatePart(*this, value, type, CConversions::monthFromString);
    else if (type == ItemType_day)
        CheckDatePart(*this, value, type, CConversions::dayFromString);
    else
        CheckInteger(*this, value, ItemType_ui1, CConversions::ui1FromString);
}

void FacetCheck::Check(unsigned short value, ItemType type) const {
    if (type == ItemType_year)
        CheckDatePart(*this, value, type, CConversions::yearFromString);
    else
        CheckInteger(*this, value, ItemType_ui2, CConversions::ui2FromString);
}

void FacetCheck::Check(std::uint32_t value, ItemType) const {
    CheckInteger(*this, value, ItemType_ui4, CConversions::ui4FromString);
}

void FacetCheck::Check(unsigned long long value, ItemType) const {
    CheckLongInteger(*this, value, ItemType_ui8, CConversions::ui8FromString);
}

void FacetCheck::Check(float value, ItemType) const {
    if (!IsWithinBounds(value, ItemType_r4, CConversions::r4FromString, *this))
        FailFacetOfReal(name, static_cast<double>(value));
}

void FacetCheck::Check(double value, ItemType) const {
    if (!IsWithinBounds(value, ItemType_r8, CConversions::r8FromString, *this))
        FailFacetOfReal(name, value);
}

void FacetCheck::Check(std::string const& value, ItemType) const {
    if (!IsLengthValid(LengthOf(value, rules), facets))
        FailFacetOfText(name, value);
    if (rules == detail::FacetRules::kLetter)
        CheckPattern(*this, value);
}

void FacetCheck::Check(bool, ItemType) const {}

void FacetCheck::Check(CDateTimeSpan const& value, ItemType) const {
    if (!IsWithinBounds(value, ItemType_duration, CConversions::durationFromString, *this))
        FailFacetOfText(name, value.ToString());
}

void FacetCheck::Check(CDateTime const& value, ItemType type) const {
    if (!IsWithinBounds(value, type, DateFromText(type), *this))
        FailFacetOfText(name, value.ToString());
}

void FacetCheck::Check(CDecimal const& value, ItemType) const {
    if (!IsWithinBounds(value, ItemType_decimal, CConversions::decimalFromString, *this) ||
        !HasDigits(value, facets))
        FailFacetOfText(name, value.ToString());
}

// The number -0 lies below 0, but not by XML Schema, which knows none.
void FacetCheck::Check(CBigInteger const& value, ItemType) const {
    bool const isStrict = rules == detail::FacetRules::kXmlSchema;
    CBigInteger const zero(0);
    CBigInteger const& number = isStrict && value == zero ? zero : value;
    std::size_t const digits = number.GetTextLength() - (isStrict && number < zero ? 1 : 0);
    if (!IsWithinBounds(number, ItemType_integer, CConversions::integerFromString, *this) ||
        !HasAtMost(facets.totalDigits, digits))
        FailFacetOfText(name, value.ToString());
}

void FacetCheck::CheckText(std::string_view text) const {
    CheckPattern({name, facets, detail::FacetRules::kXmlSchema}, text);
}

namespace {

// The value where the variant holds it. The getter, which copies, gives that of a nil variant, and asserts
// that the type is the variant's.
template <class Value>
void CheckHeld(FacetCheck const& check, ZvVariant const& variant, Value const* held,
               Value (ZvVariant::*getter)() const, ItemType type) {
    if (held != nullptr && variant.GetTypeAsEnum() == type)
        check.Check(*held, type);
    else
        check.Check((variant.*getter)(), type);
}

} // namespace

void FacetCheck::Check(ZvVariant const& value, ItemType type) const {
    if (value.GetTypeAsEnum() == ItemType_invalid)
        FailTypeName(ItemType_invalid);
    switch (type) {
    case ItemType_hexBinary:
        return Check(value.GetHexBinary(), type);
    case ItemType_base64Binary:
        return Check(value.GetBase64Binary(), type);
    case ItemType_i1:
        return Check(value.GetI1(), type);
    case ItemType_i2:
        return Check(value.GetI2(), type);
    case ItemType_i4:
        return Check(value.GetI4(), type);
    case ItemType_i8:
        return Check(value.GetI8(), type);
    case ItemType_ui1:
        return Check(value.GetUI1(), type);
    case ItemType_ui2:
        return Check(value.GetUI2(), type);
    case ItemType_ui4:
        return Check(value.GetUI4(), type);
    case ItemType_ui8:
        return Check(value.GetUI8(), type);
    case ItemType_r4:
        return Check(value.GetR4(), type);
    case ItemType_r8:
        return Check(value.GetR8(), type);
    case ItemType_string:
        return Check(value.GetText(), type);
    case ItemType_boolean:
        return Check(value.GetBoolean(), type);
    case ItemType_duration:
        return CheckHeld(*this, value, value.FindDuration(), &ZvVariant::GetDuration, type);
    case ItemType_yearMonth:
        return CheckHeld(*this, value, value.FindDateTime(), &ZvVariant::GetYearMonth, type);
    case ItemType_monthDay:
        return CheckHeld(*this, value, value.FindDateTime(), &ZvVariant::GetMonthDay, type);
    case ItemType_date:
        return CheckHeld(*this, value, value.FindDateTime(), &ZvVariant::GetDate, type);
    case ItemType_datetime:
        return CheckHeld(*this, value, value.FindDateTime(), &ZvVariant::GetDateTime, type);
    case ItemType_time:
        return CheckHeld(*this, value, value.FindDateTime(), &ZvVariant::GetTime, type);
    case ItemType_year:
        return Check(value.GetYear(), type);
    case ItemType_month:
        return Check(value.GetMonth(), type);
    case ItemType_day:
        return Check(value.GetDay(), type);
    case ItemType_decimal:
        return CheckHeld(*this, value, value.FindDecimal(), &ZvVariant::GetDecimal, type);
    case ItemType_integer:
        return CheckHeld(*this, value, value.FindInteger(), &ZvVariant::GetInteger, type);
    default:
        FailFacetsOfType(value.GetType());
    }
}

} // namespace ZvXmlLib16
