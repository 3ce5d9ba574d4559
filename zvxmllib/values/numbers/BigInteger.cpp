// CBigInteger, a whole number of any size: the value of integer and the types derived from it.
#include "zvxmllib/values/numbers/BigInteger.h"

#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/numbers/MagnitudeArithmetic.h"
#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace ZvXmlLib16 {

using detail::IsDigit;
using detail::Magnitude;

namespace {

constexpr Magnitude::Limb kMaxLong[] = {147483647, 2};
constexpr Magnitude::Limb kMinLong[] = {147483648, 2};
constexpr Magnitude::Limb kMaxLongLong[] = {854775807, 223372036, 9};
constexpr Magnitude::Limb kMinLongLong[] = {854775808, 223372036, 9};

// 170 with 306 zeros.
struct MaxDouble {
    constexpr MaxDouble() : limbs{} { limbs[34] = 170; }
    Magnitude::Limb limbs[35];
};
constexpr MaxDouble kMaxDouble;

template <class Integer>
std::int32_t SignOf(Integer value) {
    return value < 0 ? -1 : 1;
}

// Without overflow for the lowest value, too.
template <class Integer>
Magnitude MagnitudeOf(Integer value) {
    auto const bits = static_cast<unsigned long long>(value);
    return Magnitude(value < 0 ? 0 - bits : bits);
}

// The value is not negative and whole. Beyond 53 bits the quotients by ten are rounded, and the digits with
// them.
Magnitude MagnitudeOfDouble(double value) {
    constexpr double kExact = 9007199254740992.0;
    if (value < kExact)
        return Magnitude(static_cast<unsigned long long>(value));
    std::string digits;
    for (; value > 0; value = std::trunc(value / 10))
        digits += static_cast<char>('0' + static_cast<int>(std::fmod(value, 10)));
    std::reverse(digits.begin(), digits.end());
    return Magnitude::OfDigits(digits);
}

bool IsIntegerCharacter(char c) {
    return IsDigit(c) || c == '-' || c == '+' || c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

} // namespace

CBigInteger const CBigInteger::MAX_LONG(1, kMaxLong);
CBigInteger const CBigInteger::MIN_LONG(-1, kMinLong);
CBigInteger const CBigInteger::MAX_LONGLONG(1, kMaxLongLong);
CBigInteger const CBigInteger::MIN_LONGLONG(-1, kMinLongLong);
CBigInteger const CBigInteger::MAX_DOUBLE(1, kMaxDouble.limbs);
CBigInteger const CBigInteger::MIN_DOUBLE(-1, kMaxDouble.limbs);

CBigInteger::CBigInteger(CBigInteger const& other) = default;

CBigInteger::CBigInteger(int value) noexcept : m_sign(SignOf(value)), m_digits(MagnitudeOf(value)) {}

CBigInteger::CBigInteger(unsigned int value) noexcept : m_sign(1), m_digits(value) {}

CBigInteger::CBigInteger(long value) noexcept : m_sign(SignOf(value)), m_digits(MagnitudeOf(value)) {}

CBigInteger::CBigInteger(unsigned long value) noexcept : m_sign(1), m_digits(value) {}

CBigInteger::CBigInteger(long long value) noexcept : m_sign(SignOf(value)), m_digits(MagnitudeOf(value)) {}

CBigInteger::CBigInteger(unsigned long long value) noexcept : m_sign(1), m_digits(value) {}

CBigInteger::CBigInteger(double value) : m_sign(value < 0 ? -1 : 1) {
    if (std::isinf(value))
        FailInfiniteInteger();
    double const rounded = std::ceil(std::fabs(value) - 0.5);
    if (rounded > 0)
        m_digits = MagnitudeOfDouble(rounded);
}

CBigInteger::CBigInteger(char const* text) : CBigInteger() {
    Parse(text);
}

CBigInteger::CBigInteger(CDecimal const& value) : CBigInteger(value.ToBigInteger()) {}

CBigInteger::CBigInteger(std::int32_t sign, Magnitude digits) noexcept
    : m_sign(sign), m_digits(std::move(digits)) {}

CBigInteger::~CBigInteger() = default;

CBigInteger& CBigInteger::operator=(CBigInteger const& other) = default;

CBigInteger& CBigInteger::operator=(CBigInteger&& other) noexcept {
    m_sign = other.m_sign;
    m_digits = std::move(other.m_digits);
    if (this != &other)
        other.m_sign = 1;
    return *this;
}

std::string& CBigInteger::Print(std::string& text) const {
    std::size_t const sign = m_sign < 0 && !IsZero() ? 1 : 0;
    text.resize(sign + CountDigits(m_digits));
    text.front() = '-';
    PrintDigits(m_digits, text.data() + sign);
    return text;
}

std::string CBigInteger::ToString() const {
    std::string text;
    Print(text);
    return text;
}

std::size_t CBigInteger::GetTextLength() const noexcept {
    return CountDigits(m_digits) + (m_sign < 0 && !IsZero() ? 1 : 0);
}

CBigInteger::operator int() const {
    if (*this < MIN_LONG || *this > MAX_LONG)
        FailBeyondIntegerType("int");
    return static_cast<int>(static_cast<long long>(*this));
}

CBigInteger::operator long long() const {
    if (*this < MIN_LONGLONG || *this > MAX_LONGLONG)
        FailBeyondIntegerType("LONGLONG");
    // On the side of the sign, where the lowest value has room.
    long long value = 0;
    for (std::size_t i = m_digits.Size(); i-- > 0;)
        value = value * Magnitude::kBase + m_sign * static_cast<long long>(m_digits.Limbs()[i]);
    return value;
}

CBigInteger CBigInteger::PlusSigned(Magnitude const& digits, std::int32_t sign) const {
    if (sign == m_sign)
        return CBigInteger(sign, Add(m_digits, digits));
    int const order = detail::Compare(m_digits, digits);
    if (order == 0)
        return CBigInteger();
    return order > 0 ? CBigInteger(m_sign, Subtract(m_digits, digits))
                     : CBigInteger(sign, Subtract(digits, m_digits));
}

CBigInteger CBigInteger::operator+(CBigInteger const& right) const {
    return PlusSigned(right.m_digits, right.m_sign);
}

CBigInteger CBigInteger::operator-(CBigInteger const& right) const {
    return PlusSigned(right.m_digits, -right.m_sign);
}

CBigInteger CBigInteger::operator*(CBigInteger const& right) const {
    if (IsZero() || right.IsZero())
        return CBigInteger();
    return CBigInteger(m_sign * right.m_sign, Multiply(m_digits, right.m_digits));
}

// A quotient that is cut to 0 keeps its sign; that of 0 itself is 0 without one.
CBigInteger CBigInteger::DividedBy(CBigInteger const& right, char const* operation) const {
    if (right.IsZero())
        FailZeroDivisor(operation);
    if (IsZero())
        return CBigInteger();
    return CBigInteger(m_sign * right.m_sign, Divide(m_digits, right.m_digits).quotient);
}

CBigInteger CBigInteger::RemainderBy(CBigInteger const& right, char const* operation) const {
    if (right.IsZero())
        FailZeroDivisor(operation);
    if (IsZero())
        return CBigInteger();
    return CBigInteger(m_sign, Divide(m_digits, right.m_digits).remainder);
}

CBigInteger CBigInteger::operator/(CBigInteger const& right) const {
    return DividedBy(right, "/");
}

CBigInteger CBigInteger::operator%(CBigInteger const& right) const {
    return RemainderBy(right, "%");
}

CBigInteger CBigInteger::GetAbs() const {
    return CBigInteger(1, m_digits);
}

CBigInteger CBigInteger::GetNegative() const {
    return CBigInteger(-m_sign, m_digits);
}

CBigInteger CBigInteger::SquareRoot() const {
    if (IsZero())
        FailZeroDivisor("/"); // Newton's method would reach a guess of 0 and divide by it
    if (m_sign < 0)
        FailNegativeSquareRoot();
    return CBigInteger(1, detail::SquareRoot(m_digits));
}

CBigInteger CBigInteger::Pow10(unsigned int exponent) {
    return CBigInteger(1, detail::Pow10(exponent));
}

CBigInteger& CBigInteger::operator+=(CBigInteger const& right) {
    return *this = *this + right;
}

CBigInteger& CBigInteger::operator-=(CBigInteger const& right) {
    return *this = *this - right;
}

CBigInteger& CBigInteger::operator*=(CBigInteger const& right) {
    return *this = *this * right;
}

CBigInteger& CBigInteger::operator/=(CBigInteger const& right) {
    return *this = DividedBy(right, " /=");
}

CBigInteger& CBigInteger::operator%=(CBigInteger const& right) {
    return *this = RemainderBy(right, "%=");
}

void CBigInteger::Abs() noexcept {
    m_sign = 1;
}

void CBigInteger::Negate() noexcept {
    m_sign = -m_sign;
}

CBigInteger& CBigInteger::operator-() noexcept {
    Negate();
    return *this;
}

bool CBigInteger::ReadPlain(std::string_view text, CBigInteger& value) {
    std::string_view digits = text;
    if (!digits.empty() && (digits.front() == '-' || digits.front() == '+'))
        digits.remove_prefix(1);
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), IsDigit))
        return false;
    value.m_digits = Magnitude::OfDigits(digits);
    value.m_sign = text.front() == '-' ? -1 : 1;
    return true;
}

CBigInteger CBigInteger::FromText(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    if (!std::all_of(text.begin(), text.end(), IsIntegerCharacter))
        return CDecimal::FromText(text).ToBigInteger();
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    std::size_t start = text.size();
    while (start > 0 && IsDigit(text[start - 1]))
        --start;
    return CBigInteger(!text.empty() && text.front() == '-' ? -1 : 1,
                       Magnitude::OfDigits(text.substr(start)));
}

void CBigInteger::Parse(char const* text) {
    *this = FromText(text != nullptr ? text : "");
}

int CBigInteger::Compare(CBigInteger const& right) const noexcept {
    if (m_sign != right.m_sign)
        return m_sign;
    return m_sign * detail::Compare(m_digits, right.m_digits);
}

bool CBigInteger::operator==(CBigInteger const& right) const noexcept {
    return (IsZero() || m_sign == right.m_sign) && detail::Compare(m_digits, right.m_digits) == 0;
}

bool CBigInteger::operator!=(CBigInteger const& right) const noexcept {
    return !(*this == right);
}

bool CBigInteger::operator<(CBigInteger const& right) const noexcept {
    return Compare(right) < 0;
}

bool CBigInteger::operator>(CBigInteger const& right) const noexcept {
    return Compare(right) > 0;
}

bool CBigInteger::operator<=(CBigInteger const& right) const noexcept {
    return Compare(right) <= 0;
}

bool CBigInteger::operator>=(CBigInteger const& right) const noexcept {
    return Compare(right) >= 0;
}

} // namespace ZvXmlLib16
