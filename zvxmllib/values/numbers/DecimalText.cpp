// CDecimal, an exact decimal number: from and to text.
#include "zvxmllib/values/numbers/Decimal.h"

#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/numbers/MagnitudeArithmetic.h"
#include "zvxmllib/values/text/NumberText.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace ZvXmlLib16 {

using detail::IsDigit;
using detail::Magnitude;

namespace {

constexpr std::int64_t kGreatestExponent = 65536; // so that a few characters cannot ask for gigabytes
constexpr std::int64_t kExponentBeyondAll = std::int64_t{1} << 56U; // has room for one digit more
constexpr std::size_t kLongestWithPoint = 1023;
constexpr std::size_t kMostFractionDigits = std::size_t{1} << 30U; // of a text

// The digits of one section: in place in the text, or a copy if something lies between them.
class DigitRuns {
public:
    DigitRuns() = default;
    DigitRuns(DigitRuns const&) = delete;
    DigitRuns& operator=(DigitRuns const&) = delete;

    void Add(std::string_view run) {
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

// The scanners below return where their section ends. A NUL belongs to none, and ends the text.
char const* PassDigits(char const* at, char const* end) {
    while (at != end && IsDigit(*at))
        ++at;
    return at;
}

// A run of digits, and their value if it fits.
struct Run {
    char const* begin;
    char const* end;
    std::uint64_t value;

    std::size_t Size() const { return static_cast<std::size_t>(end - begin); }
};

Run ReadRun(char const* begin, char const* end) {
    char const* at = begin;
    std::uint64_t value = 0;
    std::uint32_t eight = 0;
    for (; end - at >= 8 && detail::ReadEightDigits(at, eight); at += 8)
        value = value * 100000000 + eight;
    for (; at != end; ++at) {
        unsigned const digit = static_cast<unsigned char>(*at) - unsigned{'0'};
        if (digit > 9)
            break;
        value = value * 10 + digit;
    }
    return {begin, at, value};
}

inline void SetDigits(Magnitude& magnitude, Run run) {
    constexpr std::size_t kDigitsOf64Bits = 19;
    if (run.Size() <= kDigitsOf64Bits)
        magnitude.Set(run.value);
    else
        magnitude = Magnitude::OfDigits(std::string_view(run.begin, run.Size()));
}

std::string_view Between(char const* begin, char const* end) {
    return std::string_view(begin, static_cast<std::size_t>(end - begin));
}

std::int32_t SignOf(char c) {
    return c == '-' ? -1 : 1;
}

bool IsSign(char c) {
    return c == '-' || c == '+';
}

// Signs may stand anywhere, and the last one counts.
char const* ScanIntegerSection(char const* at, char const* end, DecimalText& found) {
    for (;; ++at) {
        char const* const run = at;
        at = PassDigits(at, end);
        found.integer.Add(Between(run, at));
        if (at != end && IsSign(*at))
            found.sign = SignOf(*at);
        else if (at == end || !CWhitespaceUtils::IsWhiteSpace(*at))
            return at;
    }
}

char const* ScanFractionSection(char const* at, char const* end, DecimalText& found) {
    for (;; ++at) {
        char const* const run = at;
        at = PassDigits(at, end);
        found.fraction.Add(Between(run, at));
        if (at == end || !CWhitespaceUtils::IsWhiteSpace(*at))
            return at;
    }
}

char const* ScanExponentSection(char const* at, char const* end, DecimalText& found) {
    std::int32_t sign = 1;
    while (at != end && CWhitespaceUtils::IsWhiteSpace(*at))
        ++at;
    for (; at != end && IsSign(*at); ++at)
        sign = SignOf(*at);
    std::int64_t exponent = 0;
    for (; at != end && IsDigit(*at); ++at)
        exponent = std::min(exponent * 10 + (*at - '0'), kExponentBeyondAll);
    found.exponent = sign * exponent;
    return at;
}

void ScanDecimal(std::string_view text, DecimalText& found) {
    char const* const end = text.data() + text.size();
    char const* at = ScanIntegerSection(text.data(), end, found);
    if (at != end && *at == '.')
        at = ScanFractionSection(at + 1, end, found);
    if (at != end && (*at == 'e' || *at == 'E')) {
        found.exponentAt = Between(text.data(), at).size();
        at = ScanExponentSection(at + 1, end, found);
    }
    if (at != end && *at != '\0')
        FailDecimalText(Between(text.data(), at).size(), text);
}

} // namespace

CDecimal::CDecimal(char const* text) : CDecimal() {
    if (text != nullptr)
        Parse(text);
}

CDecimal CDecimal::FromText(std::string_view text) {
    CDecimal value;
    value.Parse(text);
    return value;
}

CDecimal::CDecimal(double value) : CDecimal() {
    char text[344]; // 309 digits, the point and thirteen more, a sign, the end of the line
    char* end = text;
    if (std::isfinite(value))
        end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 13).ptr;
    else
        end = std::copy_n(std::isnan(value) ? "nan" : "inf", 3, text);
    *end++ = '\n';
    Parse(Between(text, end));
}

bool CDecimal::ReadPlain(std::string_view text, CDecimal& value) {
    char const* const end = text.data() + text.size();
    char const* const start = text.data() + (!text.empty() && IsSign(text.front()) ? 1 : 0);
    Run const integer = ReadRun(start, end);
    bool const hasPoint = integer.end != end && *integer.end == '.';
    Run const fraction = ReadRun(hasPoint ? integer.end + 1 : integer.end, end);
    if (fraction.end != end || fraction.Size() > kMostFractionDigits)
        return false;
    std::int32_t const sign = start != text.data() ? SignOf(text.front()) : 1;
    SetDigits(value.m_integerPart.m_digits, integer);
    SetDigits(value.m_fractionPart.m_digits, fraction);
    value.SetSignAndDivider(sign, fraction.Size());
    if (fraction.Size() > 1 && end[-1] == '0')
        value.Rationalise();
    if (value.m_fractionDivider > m_maxDivider)
        value.LimitFractionalDivider();
    return true;
}

void CDecimal::Parse(std::string_view text) {
    if (ReadPlain(text, *this))
        return;
    DecimalText found;
    ScanDecimal(text, found);
    std::string_view const fraction = found.fraction.Get().substr(0, kMostFractionDigits);
    m_integerPart.m_digits = Magnitude::OfDigits(found.integer.Get());
    m_fractionPart.m_digits = Magnitude::OfDigits(fraction);
    SetSignAndDivider(found.sign, fraction.size());
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

// Multiplies by a power of ten.
void CDecimal::MovePointRight(std::size_t places) {
    CBigInteger const scaled(m_integerPart.m_sign, ShiftLeft(ScaledTo(m_fractionDivider), places));
    *this = FromScaled(scaled, m_fractionDivider);
    LimitFractionalDivider();
}

// Divides by a power of ten, which may leave nothing.
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
void CDecimal::PrintParts(std::string& text) const {
    std::size_t const sign = m_integerPart.m_sign < 0 ? 1U : 0U;
    std::size_t const whole = CountDigits(m_integerPart.m_digits);
    std::size_t const fraction = m_fractionPart.IsZero() ? 0 : CountDigits(m_fractionPart.m_digits);
    auto const places = static_cast<std::size_t>(m_fractionDivider);
    text.resize(sign + whole + 1 + places);
    char* out = text.data();
    if (sign != 0)
        *out++ = '-';
    out = PrintDigits(m_integerPart.m_digits, out);
    *out++ = '.';
    out = std::fill_n(out, places - fraction, '0');
    if (fraction != 0)
        PrintDigits(m_fractionPart.m_digits, out);
}

std::string& CDecimal::Print(std::string& text) const {
    if (m_fractionPart.IsZero())
        return m_integerPart.Print(text);
    PrintParts(text);
    if (text.size() > kLongestWithPoint)
        text.resize(kLongestWithPoint);
    return text;
}

std::string CDecimal::ToString() const {
    std::string text;
    Print(text);
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
