// The public forms of the check of a value against the facets of its type.
#include "zvxmllib/values/facets/CheckPrimitive.h"

#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/facets/FacetCheck.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/variant/ZvVariant.h"

namespace ZvXmlLib16 {

namespace {

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

// By the rules that the facets say. Where they want the text of the value, `set` puts it into a variant.
template <class Value, class Set>
void CheckByOwnRules(char const* name, Value const& value, ItemType type,
                     CPrimitiveRestrictions const& facets, Set set) {
    FacetCheck const check{name, facets, facets.GetRules()};
    check.Check(value, type);
    if (check.rules == detail::FacetRules::kLetter || facets.pattern.empty())
        return;
    ZvVariant variant;
    set(variant);
    std::string buffer;
    check.CheckText(variant.ToText(nullptr, buffer));
}

} // namespace

#define ZV_CHECK(Value, type, Setter)                                                                        \
    void CheckPrimitive(char const* name, Value value, CPrimitiveRestrictions const& restrictions) {         \
        CheckByOwnRules(name, value, type, restrictions,                                                     \
                        [&](ZvVariant& variant) { variant.Setter(value); });                                 \
    }
ZV_CHECK(CBinaryData const&, ItemType_hexBinary, SetHexBinary)
ZV_CHECK(char, ItemType_i1, SetI1)
ZV_CHECK(short, ItemType_i2, SetI2)
ZV_CHECK(std::int32_t, ItemType_i4, SetI4)
ZV_CHECK(long long, ItemType_i8, SetI8)
ZV_CHECK(unsigned char, ItemType_ui1, SetUI1)
ZV_CHECK(unsigned short, ItemType_ui2, SetUI2)
ZV_CHECK(std::uint32_t, ItemType_ui4, SetUI4)
ZV_CHECK(unsigned long long, ItemType_ui8, SetUI8)
ZV_CHECK(float, ItemType_r4, SetR4)
ZV_CHECK(double, ItemType_r8, SetR8)
ZV_CHECK(std::string const&, ItemType_string, SetString)
ZV_CHECK(bool, ItemType_boolean, SetBoolean)
ZV_CHECK(CDateTimeSpan const&, ItemType_duration, SetDuration)
ZV_CHECK(CDateTime const&, TypeOfDate(value), SetDateTime)
ZV_CHECK(CDecimal const&, ItemType_decimal, SetDecimal)
ZV_CHECK(CBigInteger const&, ItemType_integer, SetInteger)
#undef ZV_CHECK

void CheckPrimitive(char const* name, char const* value, CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, std::string(value != nullptr ? value : ""), restrictions);
}

void CheckPrimitive(char const* name, CBinaryData const& value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    CheckByOwnRules(name, value, type, restrictions, [&](ZvVariant& variant) {
        type == ItemType_base64Binary ? variant.SetBase64Binary(value) : variant.SetHexBinary(value);
    });
}

void CheckPrimitive(char const* name, CDateTime const& value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    CheckByOwnRules(name, value, type, restrictions, [&](ZvVariant& variant) { variant.SetDateTime(value); });
}

void CheckPrimitive(char const* name, unsigned char value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    CheckByOwnRules(name, value, type, restrictions, [&](ZvVariant& variant) {
        type == ItemType_month ? variant.SetMonth(value)
        : type == ItemType_day ? variant.SetDay(value)
                               : variant.SetUI1(value);
    });
}

void CheckPrimitive(char const* name, unsigned short value, ItemType type,
                    CPrimitiveRestrictions const& restrictions) {
    CheckByOwnRules(name, value, type, restrictions, [&](ZvVariant& variant) {
        type == ItemType_year ? variant.SetYear(value) : variant.SetUI2(value);
    });
}

void CheckPrimitiveVariant(char const* name, ZvVariant const& value, ItemType type,
                           CPrimitiveRestrictions const& restrictions) {
    CheckByOwnRules(name, value, type, restrictions, [&](ZvVariant& variant) { variant = value; });
}

bool detail::NeedsCheck(ItemType type, CPrimitiveRestrictions const& restrictions) noexcept {
    // What has no facets at all is refused, with or without them.
    bool const isRefused = type < ItemType_hexBinary || type > ItemType_integer || type == ItemType_char;
    return isRefused || restrictions.HasFacets();
}

} // namespace ZvXmlLib16
