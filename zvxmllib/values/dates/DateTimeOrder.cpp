// CDateTime: the partial order.
#include "zvxmllib/values/dates/DateTime.h"

#include "zvxmllib/values/dates/DateTimeFields.h"

namespace ZvXmlLib16 {

namespace {

// XML Schema Part 2, 3.2.7.3: no zone lies further from UTC.
constexpr short kWidestOffset = 14;

} // namespace

CDateTime::DTCompareResult CDateTime::CompareTo(CDateTime const& other) const {
    if (!m_hasOffset && !other.m_hasOffset && m_hasZone == other.m_hasZone)
        return CompareFields(other);
    CDateTime const a = GetNormalized();
    CDateTime const b = other.GetNormalized();
    if (a.m_hasZone == b.m_hasZone)
        return a.CompareFields(b);
    // One side without a zone may stand for any instant of 28 hours.
    if (a.m_hasZone) {
        if (a.CompareFields(b.AtOffset(kWidestOffset)) == DTCompareLess)
            return DTCompareLess;
        if (a.CompareFields(b.AtOffset(-kWidestOffset)) == DTCompareGreater)
            return DTCompareGreater;
        return DTCompareIndeterminate;
    }
    if (a.AtOffset(kWidestOffset).CompareFields(b) == DTCompareGreater)
        return DTCompareGreater;
    if (a.AtOffset(-kWidestOffset).CompareFields(b) == DTCompareLess)
        return DTCompareLess;
    return DTCompareIndeterminate;
}

CDateTime CDateTime::AtOffset(short hour) const {
    CDateTime result(*this);
    result.SetTimeZone(hour, 0);
    return result.GetNormalized();
}

// A field that a type lacks counts as -1, so against one that is not 0 it has no order; neither have years
// before and after the year 0.
CDateTime::DTCompareResult CDateTime::CompareFields(CDateTime const& other) const noexcept {
    auto const fieldsOf = [](CDateTime const& value, long long(&fields)[6]) {
        auto const field = [&value](unsigned types, long long number) {
            return value.IsOneOf(types) ? number : -1;
        };
        fields[0] = field(detail::kYearTypes, value.m_year);
        fields[1] = field(detail::kMonthTypes, value.m_month);
        fields[2] = field(detail::kDayTypes, value.m_day);
        fields[3] = field(detail::kTimeTypes, value.m_hour);
        fields[4] = field(detail::kTimeTypes, value.m_minute);
        fields[5] =
            field(detail::kTimeTypes, value.m_second * 1'000'000'000LL + value.m_milliSecond * 1'000'000LL +
                                          value.m_microSecond * 1'000LL + value.m_nanoSecond);
    };
    long long left[6];
    long long right[6];
    fieldsOf(*this, left);
    fieldsOf(other, right);
    for (int i = 0; i < 6; ++i) {
        if ((left[i] < 0 && right[i] > 0) || (left[i] > 0 && right[i] < 0))
            return DTCompareIndeterminate;
        if (left[i] != right[i])
            return left[i] < right[i] ? DTCompareLess : DTCompareGreater;
    }
    return DTCompareEqual;
}

bool CDateTime::operator==(CDateTime const& other) const {
    return CompareTo(other) == DTCompareEqual;
}

bool CDateTime::operator!=(CDateTime const& other) const {
    return CompareTo(other) != DTCompareEqual;
}

bool CDateTime::operator<(CDateTime const& other) const {
    return CompareTo(other) == DTCompareLess;
}

bool CDateTime::operator<=(CDateTime const& other) const {
    DTCompareResult const result = CompareTo(other);
    return result == DTCompareLess || result == DTCompareEqual;
}

bool CDateTime::operator>(CDateTime const& other) const {
    return CompareTo(other) == DTCompareGreater;
}

bool CDateTime::operator>=(CDateTime const& other) const {
    DTCompareResult const result = CompareTo(other);
    return result == DTCompareGreater || result == DTCompareEqual;
}

} // namespace ZvXmlLib16
