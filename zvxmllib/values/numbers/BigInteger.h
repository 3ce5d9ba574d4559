// CBigInteger, a whole number of any size: the value of integer and the types derived from it.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/numbers/Magnitude.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// The value of integer (XML Schema Part 2, 3.3.13), exact at any size. A value type: copies are independent,
// one object belongs to one thread. Zero has a sign: -0 equals 0 and prints as "0", but it is less than 0.
// All failures are CZvInvalidValueException, and leave the object as it was.
class ZV_API CBigInteger {
public:
    static CBigInteger const MAX_LONG;     // of 32 bits
    static CBigInteger const MIN_LONG;     // of 32 bits
    static CBigInteger const MAX_LONGLONG; // of 64 bits
    static CBigInteger const MIN_LONGLONG; // of 64 bits
    static CBigInteger const MAX_DOUBLE;   // 1.7E+308
    static CBigInteger const MIN_DOUBLE;   // -1.7E+308

    CBigInteger() noexcept : m_sign(1) {}
    CBigInteger(CBigInteger const& other);
    CBigInteger(CBigInteger&& other) noexcept // leaves 0
        : m_sign(other.m_sign), m_digits(static_cast<detail::Magnitude&&>(other.m_digits)) {
        other.m_sign = 1;
    }
    // Exactly this number.
    CBigInteger(int value) noexcept;
    CBigInteger(unsigned int value) noexcept;
    CBigInteger(long value) noexcept;
    CBigInteger(unsigned long value) noexcept;
    CBigInteger(long long value) noexcept;
    CBigInteger(unsigned long long value) noexcept;
    // Rounds, halves towards zero. NaN gives 0, an infinite value throws. From 2^53 on the low digits are
    // those of repeated division of the double.
    CBigInteger(double value);
    CBigInteger(char const* text); // Parse
    // Rounds, halves towards zero.
    CBigInteger(CDecimal const& value);
    virtual ~CBigInteger();

    CBigInteger& operator=(CBigInteger const& other);
    CBigInteger& operator=(CBigInteger&& other) noexcept;

    // Digits, behind a minus sign if it is negative.
    std::string ToString() const;
    // Replaces the content of `text` by ToString(), reusing its memory. Returns `text`.
    std::string& Print(std::string& text) const;
    std::size_t GetTextLength() const noexcept; // of ToString()
    operator int() const;                       // these two throw if the value does not fit
    operator long long() const;

    // Quotients are cut towards zero; the remainder has the sign of the dividend. A zero divisor throws.
    CBigInteger operator+(CBigInteger const& right) const;
    CBigInteger operator-(CBigInteger const& right) const;
    CBigInteger operator*(CBigInteger const& right) const;
    CBigInteger operator/(CBigInteger const& right) const;
    CBigInteger operator%(CBigInteger const& right) const;
    CBigInteger GetAbs() const;
    CBigInteger GetNegative() const;
    // The whole part of the root. Throws for a negative value and for 0.
    CBigInteger SquareRoot() const;
    static CBigInteger Pow10(unsigned int exponent);

    // As the operators above; Abs and Negate change the sign.
    CBigInteger& operator+=(CBigInteger const& right);
    CBigInteger& operator-=(CBigInteger const& right);
    CBigInteger& operator*=(CBigInteger const& right);
    CBigInteger& operator/=(CBigInteger const& right);
    CBigInteger& operator%=(CBigInteger const& right);
    void Abs() noexcept;
    void Negate() noexcept;
    CBigInteger& operator-() noexcept; // changes this object

    // Digits with a sign and blanks around. Of a text that mixes digits with signs and white space, only the
    // digits at the right end count; without any the value is 0. A text with any other character is read like
    // a CDecimal and rounded. Null counts as empty.
    void Parse(char const* text);
    // The same from a piece of text, up to a NUL.
    static CBigInteger FromText(std::string_view text);
    // Returns false and does not change the value if the text is more than a sign and digits.
    static bool ReadPlain(std::string_view text, CBigInteger& value);

    // The last two are "not greater" and "not less", so -0 >= 0 is false.
    bool operator==(CBigInteger const& right) const noexcept;
    bool operator!=(CBigInteger const& right) const noexcept;
    bool operator<(CBigInteger const& right) const noexcept;
    bool operator>(CBigInteger const& right) const noexcept;
    bool operator<=(CBigInteger const& right) const noexcept;
    bool operator>=(CBigInteger const& right) const noexcept;

protected:
    // The sign is 1 or -1.
    CBigInteger(std::int32_t sign, detail::Magnitude digits) noexcept;

private:
    friend class CDecimal;

    // For the constants, which exist before any code runs.
    template <std::size_t size>
    constexpr CBigInteger(std::int32_t sign, detail::Magnitude::Limb const (&limbs)[size]) noexcept
        : m_sign(sign), m_digits(limbs) {}

    bool IsZero() const noexcept { return m_digits.IsZero(); }
    // The order is: negative numbers, -0, 0, positive numbers.
    int Compare(CBigInteger const& right) const noexcept;
    CBigInteger PlusSigned(detail::Magnitude const& digits, std::int32_t sign) const;
    CBigInteger DividedBy(CBigInteger const& right, char const* operation) const;
    CBigInteger RemainderBy(CBigInteger const& right, char const* operation) const;

    std::int32_t m_sign;
    detail::Magnitude m_digits;
};

} // namespace ZvXmlLib16
