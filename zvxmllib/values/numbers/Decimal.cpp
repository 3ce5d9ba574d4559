// CDecimal, an exact decimal number: rounding, arithmetic and order.
#include "zvxmllib/values/numbers/Decimal.h"

#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/numbers/MagnitudeArithmetic.h"
#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ZvXmlLib16 {

using detail::Magnitude;

namespace {

// A product has twice as many fraction digits as its factors, and a quotient two more, before they are cut.
constexpr std::int32_t kMostPlaces = std::numeric_limits<std::int32_t>::max() / 2 - 2;

std::size_t Digits(std::int32_t count) {
    return static_cast<std::size_t>(count);
}

} // namespace

std::int32_t CDecimal::m_maxDivider = 30;

std::int32_t CDecimal::GetMaxDecimalPlaces() noexcept {
    return m_maxDivider;
}

void CDecimal::SetMaxDecimalPlaces(std::int32_t places) noexcept {
    m_maxDivider = places;
}

std::int32_t CDecimal::MostPlaces() noexcept {
    return std::clamp(m_maxDivider, std::int32_t{0}, kMostPlaces);
}

CDecimal::CDecimal(CDecimal const& other) = default;

CDecimal::CDecimal(CDecimal&& other) noexcept
    : m_integerPart(std::move(other.m_integerPart)), m_fractionPart(std::move(other.m_fractionPart)),
      m_fractionDivider(std::exchange(other.m_fractionDivider, 1)) {}

CDecimal::CDecimal(int value) noexcept : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(unsigned int value) noexcept : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(long value) noexcept : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(unsigned long value) noexcept : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(long long value) noexcept : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(unsigned long long value) noexcept : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(CBigInteger const& value) : m_integerPart(value), m_fractionDivider(1) {}

CDecimal::CDecimal(CBigInteger integerPart, CBigInteger fractionPart, std::int32_t fractionDivider) noexcept
    : m_integerPart(std::move(integerPart)), m_fractionPart(std::move(fractionPart)),
      m_fractionDivider(fractionDivider) {}

CDecimal::~CDecimal() = default;

CDecimal& CDecimal::operator=(CDecimal const& other) {
    if (this != &other)
        *this = CDecimal(other);
    return *this;
}

CDecimal& CDecimal::operator=(CDecimal&& other) noexcept {
    m_integerPart = std::move(other.m_integerPart);
    m_fractionPart = std::move(other.m_fractionPart);
    m_fractionDivider = other.m_fractionDivider;
    if (this != &other)
        other.m_fractionDivider = 1;
    return *this;
}

void CDecimal::Rationalise() {
    if (m_fractionDivider <= 1)
        return;
    if (m_fractionPart.IsZero()) {
        m_fractionPart = CBigInteger(); // without a sign, as any quotient of 0
        m_fractionDivider = 1;
        return;
    }
    std::size_t const zeros =
        std::min(CountTrailingZeros(m_fractionPart.m_digits), Digits(m_fractionDivider - 1));
    if (zeros > 0) {
        m_fractionPart.m_digits = SplitAt(m_fractionPart.m_digits, zeros).quotient;
        m_fractionDivider -= static_cast<std::int32_t>(zeros);
    }
}

void CDecimal::ChangeFractionalDivider(std::int32_t divider) {
    if (m_fractionPart.IsZero())
        m_fractionPart = CBigInteger(); // products and quotients of 0 have no sign
    if (m_fractionDivider <= divider) {
        m_fractionPart.m_digits = ShiftLeft(m_fractionPart.m_digits, Digits(divider - m_fractionDivider));
        m_fractionDivider = divider;
        return;
    }
    std::size_t const cut = Digits(m_fractionDivider - divider);
    detail::Division parts = SplitAt(m_fractionPart.m_digits, cut);
    bool const isAboveHalf = Compare(Add(parts.remainder, parts.remainder), detail::Pow10(cut)) > 0;
    m_fractionPart.m_digits = std::move(parts.quotient);
    m_fractionDivider = divider;
    if (!isAboveHalf)
        return;
    CBigInteger const unit(m_fractionPart.m_sign);
    if (divider > 0) {
        m_fractionPart += unit;
        if (Compare(m_fractionPart.m_digits, detail::Pow10(Digits(divider))) < 0)
            return;
        m_fractionPart = CBigInteger();
    }
    m_integerPart += unit;
}

void CDecimal::LimitFractionalDivider() {
    if (m_fractionDivider > MostPlaces())
        ChangeFractionalDivider(MostPlaces());
}

Magnitude CDecimal::ScaledTo(std::int32_t divider) const {
    return Add(ShiftLeft(m_integerPart.m_digits, Digits(divider)),
               ShiftLeft(m_fractionPart.m_digits, Digits(divider - m_fractionDivider)));
}

CDecimal CDecimal::FromScaled(CBigInteger const& scaled, std::int32_t divider) {
    if (scaled.IsZero())
        return CDecimal();
    detail::Division parts = SplitAt(scaled.m_digits, Digits(divider));
    std::int32_t const fractionSign = parts.remainder.IsZero() ? 1 : scaled.m_sign;
    CDecimal result(CBigInteger(scaled.m_sign, std::move(parts.quotient)),
                    CBigInteger(fractionSign, std::move(parts.remainder)), divider);
    result.Rationalise();
    return result;
}

CDecimal CDecimal::PlusSigned(CDecimal const& right, std::int32_t sign) const {
    std::int32_t const divider = std::max(m_fractionDivider, right.m_fractionDivider);
    CBigInteger const left(m_integerPart.m_sign, ScaledTo(divider));
    return FromScaled(left.PlusSigned(right.ScaledTo(divider), sign), divider);
}

CDecimal CDecimal::operator+(CDecimal const& right) const {
    return PlusSigned(right, right.m_integerPart.m_sign);
}

CDecimal CDecimal::operator-(CDecimal const& right) const {
    return PlusSigned(right, -right.m_integerPart.m_sign);
}

CDecimal CDecimal::operator*(CDecimal const& right) const {
    std::int32_t const divider = m_fractionDivider + right.m_fractionDivider;
    CBigInteger const scaled(m_integerPart.m_sign * right.m_integerPart.m_sign,
                             Multiply(ScaledTo(m_fractionDivider), right.ScaledTo(right.m_fractionDivider)));
    CDecimal product = FromScaled(scaled, divider);
    product.LimitFractionalDivider();
    return product;
}

CDecimal CDecimal::operator/(CDecimal const& right) const {
    std::int32_t const divider = std::max(m_fractionDivider, right.m_fractionDivider);
    std::int32_t const places = MostPlaces() + kGuardDigits;
    CBigInteger const dividend(m_integerPart.m_sign, ShiftLeft(ScaledTo(divider), Digits(places)));
    CBigInteger const divisor(right.m_integerPart.m_sign, right.ScaledTo(divider));
    CDecimal quotient = FromScaled(dividend / divisor, places);
    quotient.LimitFractionalDivider();
    return quotient;
}

CDecimal& CDecimal::operator+=(CDecimal const& right) {
    return *this = *this + right;
}

CDecimal& CDecimal::operator-=(CDecimal const& right) {
    return *this = *this - right;
}

CDecimal& CDecimal::operator*=(CDecimal const& right) {
    return *this = *this * right;
}

CDecimal& CDecimal::operator/=(CDecimal const& right) {
    return *this = *this / right;
}

CDecimal& CDecimal::operator++() {
    return *this += CDecimal(1);
}

CDecimal CDecimal::operator++(int) {
    CDecimal before(*this);
    ++*this;
    return before;
}

CDecimal& CDecimal::operator--() {
    return *this -= CDecimal(1);
}

CDecimal CDecimal::operator--(int) {
    CDecimal before(*this);
    --*this;
    return before;
}

// As numbers: the sign of a zero fraction does not count.
int CDecimal::CompareFractions(CDecimal const& right) const {
    auto const signOf = [](CBigInteger const& part) { return part.IsZero() ? 0 : part.m_sign; };
    std::int32_t const sign = signOf(m_fractionPart);
    std::int32_t const rightSign = signOf(right.m_fractionPart);
    if (sign != rightSign)
        return sign < rightSign ? -1 : 1;
    Magnitude const& digits = m_fractionPart.m_digits;
    Magnitude const& rightDigits = right.m_fractionPart.m_digits;
    std::int32_t const further = m_fractionDivider - right.m_fractionDivider;
    if (further == 0)
        return sign * Compare(digits, rightDigits);
    return sign * (further > 0 ? Compare(digits, ShiftLeft(rightDigits, Digits(further)))
                               : Compare(ShiftLeft(digits, Digits(-further)), rightDigits));
}

bool CDecimal::operator==(CDecimal const& right) const {
    return m_integerPart == right.m_integerPart && CompareFractions(right) == 0;
}

bool CDecimal::operator!=(CDecimal const& right) const {
    return !(*this == right);
}

bool CDecimal::operator<(CDecimal const& right) const {
    return m_integerPart < right.m_integerPart ||
           (m_integerPart == right.m_integerPart && CompareFractions(right) < 0);
}

bool CDecimal::operator<=(CDecimal const& right) const {
    return m_integerPart < right.m_integerPart ||
           (m_integerPart == right.m_integerPart && CompareFractions(right) <= 0);
}

bool CDecimal::operator>(CDecimal const& right) const {
    return m_integerPart > right.m_integerPart ||
           (m_integerPart == right.m_integerPart && CompareFractions(right) > 0);
}

bool CDecimal::operator>=(CDecimal const& right) const {
    return m_integerPart > right.m_integerPart ||
           (m_integerPart == right.m_integerPart && CompareFractions(right) >= 0);
}

CDecimal CDecimal::GetNegative() const {
    CDecimal negative(*this);
    negative.Negate();
    return negative;
}

void CDecimal::Negate() noexcept {
    m_integerPart.Negate();
    m_fractionPart.Negate();
}

std::int32_t CDecimal::ToLong() const {
    CBigInteger const whole = ToBigInteger();
    if (whole < CBigInteger::MIN_LONG || whole > CBigInteger::MAX_LONG)
        FailBeyondDecimalTarget("LONG");
    return static_cast<int>(whole);
}

long long CDecimal::ToLongLong() const {
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(1);
    CBigInteger const& whole = rounded.m_integerPart;
    if (whole < CBigInteger::MIN_LONGLONG || whole > CBigInteger::MAX_LONGLONG)
        FailBeyondDecimalTarget("LONGLONG");
    return static_cast<long long>(whole);
}

double CDecimal::ToDouble() const {
    if (m_integerPart < CBigInteger::MIN_DOUBLE || m_integerPart > CBigInteger::MAX_DOUBLE)
        FailBeyondDecimalTarget("Double");
    return detail::ScanReal(ToString()).value;
}

CBigInteger CDecimal::ToBigInteger() const {
    CDecimal rounded(*this);
    rounded.ChangeFractionalDivider(0);
    return std::move(rounded.m_integerPart);
}

} // namespace ZvXmlLib16
