// One small policy for each value type of a typed collection. Header only.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16::detail {

// `Collection` is the named class; `Argument` is a value as Add takes it. The policies are exported, because
// a template is no more visible than its arguments.
template <class Collection_, ItemType type, class Value_, class Argument_ = Value_>
struct ValueItem {
    using Collection = Collection_;
    using Value = Value_;
    using Argument = Argument_;
    static constexpr ItemType kType = type;
};

struct ZV_API HexBinaryItem : ValueItem<ChexBinaryCol, ItemType_hexBinary, CBinaryData, CBinaryData const&> {
};
struct ZV_API Base64BinaryItem
    : ValueItem<Cbase64BinaryCol, ItemType_base64Binary, CBinaryData, CBinaryData const&> {};
struct ZV_API I1Item : ValueItem<Ci1Col, ItemType_i1, char> {};
struct ZV_API I2Item : ValueItem<Ci2Col, ItemType_i2, short> {};
struct ZV_API I4Item : ValueItem<Ci4Col, ItemType_i4, std::int32_t> {};
struct ZV_API I8Item : ValueItem<Ci8Col, ItemType_i8, long long> {};
struct ZV_API UI1Item : ValueItem<Cui1Col, ItemType_ui1, unsigned char> {};
struct ZV_API UI2Item : ValueItem<Cui2Col, ItemType_ui2, unsigned short> {};
struct ZV_API UI4Item : ValueItem<Cui4Col, ItemType_ui4, std::uint32_t> {};
struct ZV_API UI8Item : ValueItem<Cui8Col, ItemType_ui8, unsigned long long> {};
struct ZV_API R4Item : ValueItem<Cr4Col, ItemType_r4, float> {};
struct ZV_API R8Item : ValueItem<Cr8Col, ItemType_r8, double> {};
struct ZV_API DurationItem : ValueItem<CdurationCol, ItemType_duration, CDateTimeSpan, CDateTimeSpan const&> {
};
struct ZV_API YearItem : ValueItem<CyearCol, ItemType_year, unsigned short> {};
struct ZV_API MonthItem : ValueItem<CmonthCol, ItemType_month, unsigned char> {};
struct ZV_API DayItem : ValueItem<CdayCol, ItemType_day, unsigned char> {};
struct ZV_API StringItem : ValueItem<CstringCol, ItemType_string, std::string> {};
struct ZV_API BooleanItem : ValueItem<CbooleanCol, ItemType_boolean, bool> {};
struct ZV_API DecimalItem : ValueItem<CdecimalCol, ItemType_decimal, CDecimal, CDecimal const&> {};
struct ZV_API IntegerItem : ValueItem<CintegerCol, ItemType_integer, CBigInteger, CBigInteger const&> {};

// The kind of date that the collection takes.
template <class Collection, ItemType type, CDateTime::DTType kind>
struct ZV_API KindOfDateItem : ValueItem<Collection, type, CDateTime, CDateTime const&> {
    static constexpr CDateTime::DTType kKind = kind;
};
struct ZV_API YearMonthItem : KindOfDateItem<CyearMonthCol, ItemType_yearMonth, CDateTime::dt_gYearMonth> {};
struct ZV_API MonthDayItem : KindOfDateItem<CmonthDayCol, ItemType_monthDay, CDateTime::dt_gMonthDay> {};
struct ZV_API DateItem : KindOfDateItem<CdateCol, ItemType_date, CDateTime::dt_date> {};
struct ZV_API DatetimeItem : KindOfDateItem<CdatetimeCol, ItemType_datetime, CDateTime::dt_dateTime> {};
struct ZV_API TimeItem : KindOfDateItem<CtimeCol, ItemType_time, CDateTime::dt_time> {};

} // namespace ZvXmlLib16::detail
