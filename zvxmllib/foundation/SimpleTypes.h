// The table of the simple types. What has a part for each of them is made from it.
#pragma once

// X(name, Policy, Name, Value, KIND, slot), in the order of ItemType:
//   name   of the type, of its enumerator, its conversions and its collection: i4, ItemType_i4, Ci4Col
//   Policy the policy of its collection is detail::<Policy>Item
//   Name   its accessors in ZvVariant are Get<Name> and Set<Name>
//   Value  in C++
//   KIND   how ZvVariant holds it: SCALAR in a slot; BINARY, DATE, OBJECT (of one type), NUMBER (of any size)
//          and TEXT in an object
//   slot   m_<slot> of a scalar, m_p<slot> of an object; of a date, which is in m_pDateTime, the kind,
//          CDateTime::dt_<slot>
// A new type is a line here, an enumerator, <name>FromText and <name>ToText, and accessors in ZvVariant and
// CConversions. If it brings a new Value, that is a line of ZV_SIMPLE_VALUES, too.
// clang-format off
#define ZV_SIMPLE_TYPES_BEFORE_CHAR(X) \
    X(hexBinary,    HexBinary,    HexBinary,    CBinaryData,        BINARY, Binary) \
    X(base64Binary, Base64Binary, Base64Binary, CBinaryData,        BINARY, Binary) \
    X(i1,           I1,           I1,           char,               SCALAR, i1) \
    X(i2,           I2,           I2,           short,              SCALAR, i2) \
    X(i4,           I4,           I4,           std::int32_t,       SCALAR, i4) \
    X(i8,           I8,           I8,           long long,          SCALAR, i8) \
    X(ui1,          UI1,          UI1,          unsigned char,      SCALAR, ui1) \
    X(ui2,          UI2,          UI2,          unsigned short,     SCALAR, ui2) \
    X(ui4,          UI4,          UI4,          std::uint32_t,      SCALAR, ui4) \
    X(ui8,          UI8,          UI8,          unsigned long long, SCALAR, ui8) \
    X(r4,           R4,           R4,           float,              SCALAR, r4) \
    X(r8,           R8,           R8,           double,             SCALAR, r8) \
    X(duration,     Duration,     Duration,     CDateTimeSpan,      OBJECT, Duration) \
    X(yearMonth,    YearMonth,    YearMonth,    CDateTime,          DATE,   gYearMonth) \
    X(monthDay,     MonthDay,     MonthDay,     CDateTime,          DATE,   gMonthDay) \
    X(year,         Year,         Year,         unsigned short,     SCALAR, ui2) \
    X(month,        Month,        Month,        unsigned char,      SCALAR, ui1) \
    X(day,          Day,          Day,          unsigned char,      SCALAR, ui1) \
    X(date,         Date,         Date,         CDateTime,          DATE,   date) \
    X(datetime,     Datetime,     DateTime,     CDateTime,          DATE,   dateTime) \
    X(time,         Time,         Time,         CDateTime,          DATE,   time)
#define ZV_SIMPLE_TYPES_BEHIND_CHAR(X) \
    X(string,       String,       String,       std::string,        TEXT,   String) \
    X(boolean,      Boolean,      Boolean,      bool,               SCALAR, boolean) \
    X(decimal,      Decimal,      Decimal,      CDecimal,           NUMBER, Decimal) \
    X(integer,      Integer,      Integer,      CBigInteger,        NUMBER, BigInteger)

// Those of which there are collections: all but char.
#define ZV_COLLECTED_TYPES(X) ZV_SIMPLE_TYPES_BEFORE_CHAR(X) ZV_SIMPLE_TYPES_BEHIND_CHAR(X)
#define ZV_SIMPLE_TYPES(X) \
    ZV_SIMPLE_TYPES_BEFORE_CHAR(X) \
    X(char,         Char,         Char,         char,               SCALAR, char) \
    ZV_SIMPLE_TYPES_BEHIND_CHAR(X)

// The values of the collections, each once.
#define ZV_SIMPLE_VALUES(X) \
    X(CBinaryData) X(char) X(short) X(std::int32_t) X(long long) X(unsigned char) \
    X(unsigned short) X(std::uint32_t) X(unsigned long long) X(float) X(double) \
    X(CDateTimeSpan) X(CDateTime) X(std::string) X(bool) X(CDecimal) X(CBigInteger)
// clang-format on
