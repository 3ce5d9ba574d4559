// The 25 collections of values, one for each simple type.
#pragma once

#include "zvxmllib/collections/DatetimeBaseCol.h"
#include "zvxmllib/collections/ValueCollection.h"
#include "zvxmllib/collections/ValueItems.h"

namespace ZvXmlLib16 {

namespace detail {

extern template class ValueStore<CBinaryData>;
extern template class ValueStore<char>;
extern template class ValueStore<short>;
extern template class ValueStore<std::int32_t>;
extern template class ValueStore<long long>;
extern template class ValueStore<unsigned char>;
extern template class ValueStore<unsigned short>;
extern template class ValueStore<std::uint32_t>;
extern template class ValueStore<unsigned long long>;
extern template class ValueStore<float>;
extern template class ValueStore<double>;
extern template class ValueStore<CDateTimeSpan>;
extern template class ValueStore<std::string>;
extern template class ValueStore<bool>;
extern template class ValueStore<CDecimal>;
extern template class ValueStore<CBigInteger>;
extern template class ValueCollection<HexBinaryItem>;
extern template class ValueCollection<Base64BinaryItem>;
extern template class ValueCollection<I1Item>;
extern template class ValueCollection<I2Item>;
extern template class ValueCollection<I4Item>;
extern template class ValueCollection<I8Item>;
extern template class ValueCollection<UI1Item>;
extern template class ValueCollection<UI2Item>;
extern template class ValueCollection<UI4Item>;
extern template class ValueCollection<UI8Item>;
extern template class ValueCollection<R4Item>;
extern template class ValueCollection<R8Item>;
extern template class ValueCollection<DurationItem>;
extern template class ValueCollection<YearItem>;
extern template class ValueCollection<MonthItem>;
extern template class ValueCollection<DayItem>;
extern template class ValueCollection<StringItem>;
extern template class ValueCollection<BooleanItem>;
extern template class ValueCollection<DecimalItem>;
extern template class ValueCollection<IntegerItem>;
extern template class DateCollection<YearMonthItem>;
extern template class DateCollection<MonthDayItem>;
extern template class DateCollection<DateItem>;
extern template class DateCollection<DatetimeItem>;
extern template class DateCollection<TimeItem>;

} // namespace detail

class ZV_API ChexBinaryCol : public detail::ValueCollection<detail::HexBinaryItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~ChexBinaryCol() override;
};

class ZV_API Cbase64BinaryCol : public detail::ValueCollection<detail::Base64BinaryItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cbase64BinaryCol() override;
};

class ZV_API Ci1Col : public detail::ValueCollection<detail::I1Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Ci1Col() override;
};

class ZV_API Ci2Col : public detail::ValueCollection<detail::I2Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Ci2Col() override;
};

class ZV_API Ci4Col : public detail::ValueCollection<detail::I4Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Ci4Col() override;
};

class ZV_API Ci8Col : public detail::ValueCollection<detail::I8Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Ci8Col() override;
};

class ZV_API Cui1Col : public detail::ValueCollection<detail::UI1Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cui1Col() override;
};

class ZV_API Cui2Col : public detail::ValueCollection<detail::UI2Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cui2Col() override;
};

class ZV_API Cui4Col : public detail::ValueCollection<detail::UI4Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cui4Col() override;
};

class ZV_API Cui8Col : public detail::ValueCollection<detail::UI8Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cui8Col() override;
};

class ZV_API Cr4Col : public detail::ValueCollection<detail::R4Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cr4Col() override;
};

class ZV_API Cr8Col : public detail::ValueCollection<detail::R8Item> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~Cr8Col() override;
};

class ZV_API CdurationCol : public detail::ValueCollection<detail::DurationItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CdurationCol() override;
};

class ZV_API CyearCol : public detail::ValueCollection<detail::YearItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CyearCol() override;
};

class ZV_API CmonthCol : public detail::ValueCollection<detail::MonthItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CmonthCol() override;
};

class ZV_API CdayCol : public detail::ValueCollection<detail::DayItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CdayCol() override;
};

class ZV_API CstringCol : public detail::ValueCollection<detail::StringItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CstringCol() override;
};

class ZV_API CbooleanCol : public detail::ValueCollection<detail::BooleanItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CbooleanCol() override;
};

class ZV_API CdecimalCol : public detail::ValueCollection<detail::DecimalItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CdecimalCol() override;
};

class ZV_API CintegerCol : public detail::ValueCollection<detail::IntegerItem> {
public:
    using ValueCollection::ValueCollection;

protected:
    ~CintegerCol() override;
};

class ZV_API CyearMonthCol : public detail::DateCollection<detail::YearMonthItem> {
public:
    using DateCollection::DateCollection;

protected:
    ~CyearMonthCol() override;
};

class ZV_API CmonthDayCol : public detail::DateCollection<detail::MonthDayItem> {
public:
    using DateCollection::DateCollection;

protected:
    ~CmonthDayCol() override;
};

class ZV_API CdateCol : public detail::DateCollection<detail::DateItem> {
public:
    using DateCollection::DateCollection;

protected:
    ~CdateCol() override;
};

class ZV_API CdatetimeCol : public detail::DateCollection<detail::DatetimeItem> {
public:
    using DateCollection::DateCollection;

protected:
    ~CdatetimeCol() override;
};

class ZV_API CtimeCol : public detail::DateCollection<detail::TimeItem> {
public:
    using DateCollection::DateCollection;

protected:
    ~CtimeCol() override;
};

} // namespace ZvXmlLib16
