// CDecimal, an exact decimal number: from and to text.
#include "zvxmllib/values/Decimal.h"

#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/MagnitudeArithmetic.h"
#include "zvxmllib/values/Whitespace.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace ZvXmlLib16 {

using detail::Magnitude;

namespace {

constexpr std::int64_t kGreatestExponent = 65536; // so that a few characters cannot ask for gigabytes
constexpr std::int64_t kExponentBeyondAll = std::int64_t{1} << 60U;
constexpr std::size_t kLongestWithPoint = 1023;
constexpr std::size_t kMostFractionDigits = std::size_t{1} << 30U; // of a text

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The digits of one section: where they stand in the text, or a copy if something stands between them.
class DigitRuns {
public:
    DigitRuns() = default;
    DigitRuns(DigitRuns const&) = delete;
    DigitRuns& operator=(DigitRuns const&) = delete;

    void Add(char const* begin, char const* end) {
        std::string_view const run(begin, static_cast<std::size_t>(end - begin));
        if (run.empty())
            return;
        if (m_digits.empty()) {
            m_digits = run;
            return;
        }
        if (m_joined.empty())
            m_joined = m_digits;
        m_joined += run;
        m_digits = m_joined;
    }
    std::string_view Get() const { return m_digits; }

private:
    std::string_view m_digits;
    std::string m_joined;
};

struct DecimalText {
    std::int32_t sign = 1;
    DigitRuns integer;
    DigitRuns fraction;
    std::int64_t exponent = 0; // cut at kExponentBeyondAll
    std::size_t exponentAt = 0;
};

char const* PassDigits(char const* at, DigitRuns& digits) {
    char const* const begin = at;
    while (IsDigit(*at))
        ++at;
    digits.Add(begin, at);
    return at;
}

char const* PassSign(char const* at, std::int32_t& sign) {
    sign = *at == '-' ? -1 : 1;
    return at + 1;
}

bool IsSign(char c) {
    return c == '-' || c == '+';
}

// Signs may stand anywhere, and the last one counts.
char const* ScanIntegerSection(char const* at, DecimalText& found) {
    for (;;) {
        at = PassDigits(at, found.integer);
        if (IsSign(*at))
            at = PassSign(at, found.sign);
        else if (CWhitespaceUtils::IsWhiteSpace(*at))
            ++at;
        else
            return at;
    }
}

char const* ScanFractionSection(char const* at, DecimalText& found) {
    for (;;) {
        at = PassDigits(at, found.fraction);
        if (!CWhitespaceUtils::IsWhiteSpace(*at))
            return at;
        ++at;
    }
}

char const* ScanExponentSection(char const* at, DecimalText& found) {
    std::int32_t sign = 1;
    while (CWhitespaceUtils::IsWhiteSpace(*at))
        ++at;
    while (IsSign(*at))
        at = PassSign(at, sign);
    std::int64_t exponent = 0;
    for (; IsDigit(*at); ++at)
        exponent = std::min(exponent * 10 + (*at - '0'), kExponentBeyondAll);
    found.exponent = sign * exponent;
    return at;
}

void ScanDecimal(char const* text, DecimalText& found) {
    char const* at = ScanIntegerSection(text, found);
    if (*at == '.')
        at = ScanFractionSection(at + 1, found);
    if (*at == 'e' || *at == 'E') {
        found.exponentAt = static_cast<std::size_t>(at - text);
        at = ScanExponentSection(at + 1, found);
    }
    if (*at != '\0')
        FailDecimalText(static_cast<std::size_t>(at - text), text);
}

} // namespace

CDecimal::CDecimal(char const* text) : CDecimal() {
    Parse(text != nullptr ? text : "");
}

CDecimal::CDecimal(double value) : CDecimal() {
    char text[344]; // 309 digits, the point and thirteen more, a sign, the end of the line
    char* end = text;
    if (std::isfinite(value))
        end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 13).ptr;
    else
        end = std::copy_n(std::isnan(value) ? "nan" : "inf", 3, text);
    *end++ = '\n';
    *end = '\0';
    Parse(text);
}

void CDecimal::Parse(char const* text) {
    DecimalText found;
    ScanDecimal(text, found);
    SetParts(found.sign, found.integer.Get(), found.fraction.Get());
    if (found.exponent != 0) {
        if (m_integerPart.IsZero() && m_fractionPart.IsZero())
            *this = CDecimal();
        else if (found.exponent > kGreatestExponent)
            FailDecimalText(found.exponentAt, text);
        else if (found.exponent > 0)
            MovePointRight(static_cast<std::size_t>(found.exponent));
        else
            MovePointLeft(-found.exponent);
    }
    Rationalise();
    LimitFractionalDivider();
}

void CDecimal::SetParts(std::int32_t sign, std::string_view integer, std::string_view fraction) {
    fraction = fraction.substr(0, kMostFractionDigits);
    m_integerPart.m_digits = Magnitude::OfDigits(integer);
    m_integerPart.m_sign = sign;
    m_fractionPart.m_digits = Magnitude::OfDigits(fraction);
    m_fractionPart.m_sign = sign;
    m_fractionDivider = fraction.empty() ? 1 : static_cast<std::int32_t>(fraction.size());
}

// The product with a power of ten.
void CDecimal::MovePointRight(std::size_t places) {
    CBigInteger const scaled(m_integerPart.m_sign, ShiftLeft(ScaledTo(m_fractionDivider), places));
    *this = FromScaled(scaled, m_fractionDivider);
    LimitFractionalDivider();
}

// The quotient by a power of ten, which may leave nothing.
void CDecimal::MovePointLeft(std::int64_t places) {
    std::int32_t const kept = MostPlaces() + kGuardDigits;
    std::int64_t const shift = std::int64_t{kept} - m_fractionDivider - places;
    Magnitude const scaled = ScaledTo(m_fractionDivider);
    Magnitude shifted = shift >= 0 ? ShiftLeft(scaled, static_cast<std::size_t>(shift))
                                   : SplitAt(scaled, static_cast<std::size_t>(-shift)).quotient;
    *this = FromScaled(CBigInteger(m_integerPart.m_sign, std::move(shifted)), kept);
    LimitFractionalDivider();
}

// A whole part of -0 prints its sign.
std::string& CDecimal::PrintParts(std::string& text) const {
    std::size_t const sign = m_integerPart.m_sign < 0 ? 1U : 0U;
    std::size_t const whole = CountDigits(m_integerPart.m_digits);
    auto const places = static_cast<std::size_t>(m_fractionDivider);
    text.assign(sign + whole + 1 + places, '0');
    char* out = text.data();
    if (sign != 0)
        *out++ = '-';
    out = PrintDigits(m_integerPart.m_digits, out);
    *out++ = '.';
    if (!m_fractionPart.IsZero())
        PrintDigits(m_fractionPart.m_digits, out + (places - CountDigits(m_fractionPart.m_digits)));
    return text;
}

std::string CDecimal::ToString() const {
    std::string text;
    Print(text);
    return text;
}

std::string& CDecimal::Print(std::string& text) const {
    if (m_fractionPart.IsZero())
        return m_integerPart.Print(text);
    PrintParts(text);
    if (text.size() > kLongestWithPoint)
        text.resize(kLongestWithPoint);
    return text;
}

std::string CDecimal::ToString(int places) const {
    std::int32_t const digits = std::max(places, 0);
    std::int32_t const sign = m_integerPart.m_sign;
    CDecimal half(CBigInteger(sign, Magnitude()), CBigInteger(), 1);
    if (digits < MostPlaces()) // beyond, the half unit itself is rounded to nothing
        half = CDecimal(CBigInteger(sign, Magnitude()), CBigInteger(sign * 5), digits + 1);
    CDecimal const rounded = *this + half;
    std::string text;
    rounded.PrintParts(text);
    if (rounded.m_fractionDivider > digits)
        text.resize(text.size() - static_cast<std::size_t>(rounded.m_fractionDivider - digits));
    return text;
}

} // namespace ZvXmlLib16
