// One small policy for each value type of a typed collection. Header only.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/values/BinaryData.h"
#include "zvxmllib/values/DateTime.h"
#include "zvxmllib/values/DateTimeSpan.h"
#include "zvxmllib/values/Decimal.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16::detail {

// `Collection` is the named class; `Argument` is a value as Add takes it.
template <class Collection_, ItemType type, class Value_, class Argument_ = Value_>
struct ValueItem {
    using Collection = Collection_;
    using Value = Value_;
    using Argument = Argument_;
    static constexpr ItemType kType = type;
};

struct HexBinaryItem : ValueItem<ChexBinaryCol, ItemType_hexBinary, CBinaryData, CBinaryData const&> {};
struct Base64BinaryItem
    : ValueItem<Cbase64BinaryCol, ItemType_base64Binary, CBinaryData, CBinaryData const&> {};
struct I1Item : ValueItem<Ci1Col, ItemType_i1, char> {};
struct I2Item : ValueItem<Ci2Col, ItemType_i2, short> {};
struct I4Item : ValueItem<Ci4Col, ItemType_i4, std::int32_t> {};
struct I8Item : ValueItem<Ci8Col, ItemType_i8, long long> {};
struct UI1Item : ValueItem<Cui1Col, ItemType_ui1, unsigned char> {};
struct UI2Item : ValueItem<Cui2Col, ItemType_ui2, unsigned short> {};
struct UI4Item : ValueItem<Cui4Col, ItemType_ui4, std::uint32_t> {};
struct UI8Item : ValueItem<Cui8Col, ItemType_ui8, unsigned long long> {};
struct R4Item : ValueItem<Cr4Col, ItemType_r4, float> {};
struct R8Item : ValueItem<Cr8Col, ItemType_r8, double> {};
struct DurationItem : ValueItem<CdurationCol, ItemType_duration, CDateTimeSpan, CDateTimeSpan const&> {};
struct YearItem : ValueItem<CyearCol, ItemType_year, unsigned short> {};
struct MonthItem : ValueItem<CmonthCol, ItemType_month, unsigned char> {};
struct DayItem : ValueItem<CdayCol, ItemType_day, unsigned char> {};
struct StringItem : ValueItem<CstringCol, ItemType_string, std::string> {};
struct BooleanItem : ValueItem<CbooleanCol, ItemType_boolean, bool> {};
struct DecimalItem : ValueItem<CdecimalCol, ItemType_decimal, CDecimal, CDecimal const&> {};
struct IntegerItem : ValueItem<CintegerCol, ItemType_integer, CBigInteger, CBigInteger const&> {};

// The kind of date that the collection takes.
template <class Collection, ItemType type, CDateTime::DTType kind>
struct KindOfDateItem : ValueItem<Collection, type, CDateTime, CDateTime const&> {
    static constexpr CDateTime::DTType kKind = kind;
};
struct YearMonthItem : KindOfDateItem<CyearMonthCol, ItemType_yearMonth, CDateTime::dt_gYearMonth> {};
struct MonthDayItem : KindOfDateItem<CmonthDayCol, ItemType_monthDay, CDateTime::dt_gMonthDay> {};
struct DateItem : KindOfDateItem<CdateCol, ItemType_date, CDateTime::dt_date> {};
struct DatetimeItem : KindOfDateItem<CdatetimeCol, ItemType_datetime, CDateTime::dt_dateTime> {};
struct TimeItem : KindOfDateItem<CtimeCol, ItemType_time, CDateTime::dt_time> {};

} // namespace ZvXmlLib16::detail
