// CDecimal, an exact decimal number: the value of decimal.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/numbers/BigInteger.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// The value of decimal (XML Schema Part 2, 3.2.3): a whole part of any size and a limited number of fraction
// digits, exact. A value type: copies are independent, one object belongs to one thread.
//
// The two parts are separate numbers, each with the sign of the whole: -1.25 is -1 and -25 with two fraction
// digits, -0.5 is a negative zero and -5, 1.05 is 1 and 5 with two digits.
class ZV_API CDecimal {
public:
    CDecimal() noexcept : m_fractionDivider(1) {}
    CDecimal(CDecimal const& other);
    CDecimal(CDecimal&& other) noexcept; // leaves 0
    // Exactly this number.
    CDecimal(int value) noexcept;
    CDecimal(unsigned int value) noexcept;
    CDecimal(long value) noexcept;
    CDecimal(unsigned long value) noexcept;
    CDecimal(long long value) noexcept;
    CDecimal(unsigned long long value) noexcept;
    CDecimal(CBigInteger const& value);
    // By its text with thirteen fraction digits. NaN and infinite values throw CZvInvalidValueException.
    CDecimal(double value);
    // Digits with a point, and an exponent, which XML Schema does not have. Signs and white space are
    // accepted anywhere in the whole part, and white space in the fraction; an empty text is 0. Rounds to the
    // greatest number of fraction digits, halves towards zero. Throws CZvInvalidValueException for other
    // characters and for an exponent above 65536. Null counts as empty.
    CDecimal(char const* text);
    // The same from a piece of text, up to a NUL.
    static CDecimal FromText(std::string_view text);
    // Returns false and does not change the value if the text is more than a sign, digits and a point.
    static bool ReadPlain(std::string_view text, CDecimal& value);
    virtual ~CDecimal();

    CDecimal& operator=(CDecimal const& other);
    CDecimal& operator=(CDecimal&& other) noexcept;

    // The whole part, with the sign.
    CBigInteger const& GetIntegerPart() const noexcept { return m_integerPart; }
    // The fraction digits read as a whole number.
    CBigInteger const& GetFractionPart() const noexcept { return m_fractionPart; }
    // The number of fraction digits.
    std::int32_t GetFractionDivider() const noexcept { return m_fractionDivider; }

    // The greatest number of fraction digits that reading, a product or a quotient keeps; 30 at first.
    // Process-wide and without a lock: set it before use. A negative one counts as 0.
    static std::int32_t GetMaxDecimalPlaces() noexcept;
    static void SetMaxDecimalPlaces(std::int32_t places) noexcept;

    // Without trailing zeros, and without a point for a whole number. A text with a point is cut to 1023
    // characters.
    std::string ToString() const;
    // Replaces the content of `text` by ToString(), reusing its memory. Returns `text`.
    std::string& Print(std::string& text) const;
    // Rounds to so many fraction digits, halves away from zero.
    std::string ToString(int places) const;
    // Round, halves towards zero. Throws CZvOverFlowException if the value does not fit.
    std::int32_t ToLong() const;
    // Cuts the fraction, but a fraction above 0.95 counts as 1. Throws CZvOverFlowException if the value does
    // not fit.
    long long ToLongLong() const;
    // Throws CZvOverFlowException if the whole part is beyond 1.7E+308.
    double ToDouble() const;
    CBigInteger ToBigInteger() const; // rounds, halves towards zero

    // Sums and differences are exact. Products and quotients are rounded to the greatest number of fraction
    // digits, halves towards zero.
    CDecimal operator+(CDecimal const& right) const;
    CDecimal operator-(CDecimal const& right) const;
    CDecimal operator*(CDecimal const& right) const;
    CDecimal operator/(CDecimal const& right) const; // throws CZvInvalidValueException for a zero divisor
    CDecimal& operator+=(CDecimal const& right);
    CDecimal& operator-=(CDecimal const& right);
    CDecimal& operator*=(CDecimal const& right);
    CDecimal& operator/=(CDecimal const& right);
    CDecimal& operator++();
    CDecimal operator++(int);
    CDecimal& operator--();
    CDecimal operator--(int);

    // By the whole parts, where -0 is less than 0 and equal to it, then by the fractions. So -0 < 0 and
    // -0 >= 0 both hold.
    bool operator==(CDecimal const& right) const;
    bool operator!=(CDecimal const& right) const;
    bool operator<(CDecimal const& right) const;
    bool operator<=(CDecimal const& right) const;
    bool operator>(CDecimal const& right) const;
    bool operator>=(CDecimal const& right) const;

    // With the other sign; Negate changes this object.
    CDecimal GetNegative() const;
    void Negate() noexcept;

private:
    CDecimal(CBigInteger integerPart, CBigInteger fractionPart, std::int32_t fractionDivider) noexcept;
    // The number that is `scaled` over 10 to the power of `divider`, without trailing zeros.
    static CDecimal FromScaled(CBigInteger const& scaled, std::int32_t divider);
    CDecimal PlusSigned(CDecimal const& right, std::int32_t sign) const;
    // The greatest number of fraction digits in effect.
    static std::int32_t MostPlaces() noexcept;

    void Parse(std::string_view text);
    // Of a text that had so many fraction digits.
    void SetSignAndDivider(std::int32_t sign, std::size_t places) noexcept {
        m_integerPart.m_sign = sign;
        m_fractionPart.m_sign = sign;
        m_fractionDivider = places != 0 ? static_cast<std::int32_t>(places) : 1;
    }
    void MovePointLeft(std::int64_t places);
    void MovePointRight(std::size_t places);
    // Rounds to the given number of fraction digits, halves towards zero.
    void ChangeFractionalDivider(std::int32_t divider);
    // Rounds to the greatest number of fraction digits.
    void LimitFractionalDivider();
    // Removes trailing zeros of the fraction; one digit stays.
    void Rationalise();
    // The magnitude of the value times 10 to the power of `divider`, which is not below that of the value.
    detail::Magnitude ScaledTo(std::int32_t divider) const;
    int CompareFractions(CDecimal const& right) const;
    // With a point and all fraction digits.
    void PrintParts(std::string& text) const;

    static constexpr std::int32_t kGuardDigits = 2; // of a quotient before it is rounded
    static std::int32_t m_maxDivider;

    CBigInteger m_integerPart;
    CBigInteger m_fractionPart;
    std::int32_t m_fractionDivider; // at least 0
};

} // namespace ZvXmlLib16
