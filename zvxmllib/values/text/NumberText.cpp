// Numbers from and to text, whatever locale the process has set.
#include "zvxmllib/values/text/NumberText.h"

#include "zvxmllib/platform/NumericLocale.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace ZvXmlLib16::detail {

namespace {

constexpr std::size_t kFormattedSize = 48;

// isspace of the C locale, which accepts two more characters than XML.
bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Skips white space and a sign; true if the sign is a minus.
bool SkipToDigits(char const*& at, char const* end) {
    while (at != end && IsSpace(*at))
        ++at;
    if (at == end || (*at != '-' && *at != '+'))
        return false;
    return *at++ == '-';
}

#ifdef __SIZEOF_INT128__

__extension__ typedef unsigned __int128 Wide;

constexpr int kGreatestPower = 19;

constexpr std::array<std::uint64_t, kGreatestPower + 1> MakePowers() {
    std::array<std::uint64_t, kGreatestPower + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}

constexpr auto kPowersOfTen = MakePowers();

// The value times a power of ten, rounded to the nearest whole number, at a tie to the even one: exactly,
// since all the digits fit. `fraction` times a negative power of two is the value.
std::uint64_t Scale(std::uint64_t fraction, int negativePower, int powerOfTen) {
    Wide const product = static_cast<Wide>(fraction) * kPowersOfTen[static_cast<std::size_t>(powerOfTen)];
    std::uint64_t const whole = static_cast<std::uint64_t>(product >> negativePower);
    Wide const rest = product & ((static_cast<Wide>(1) << negativePower) - 1);
    Wide const half = static_cast<Wide>(1) << (negativePower - 1);
    return whole + (rest > half || (rest == half && (whole & 1U) != 0) ? 1 : 0);
}

// For numbers of ordinary size, which are printed without an exponent: the same text as that of to_chars,
// which takes five times as long. Returns null for others. The greatest number of digits is 16.
char* PrintOrdinaryReal(double value, int digits, char* out) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    int const negativePower = 1023 + 52 - static_cast<int>(bits >> 52U & 0x7FFU);
    // From about 0.0002 to 8192, or to 2^45 with 16 digits: the power of ten below is none that is too large.
    if (negativePower < (digits < 16 ? 40 : 8) || negativePower > 64)
        return nullptr;
    std::uint64_t const fraction = (bits & ((std::uint64_t{1} << 52U) - 1)) | std::uint64_t{1} << 52U;
    // The exponent to ten, from the one to two; one too small at times.
    int exponent = ((52 - negativePower) * 1233) >> 12;
    std::uint64_t number = Scale(fraction, negativePower, digits - 1 - exponent);
    if (number >= kPowersOfTen[static_cast<std::size_t>(digits)])
        number = Scale(fraction, negativePower, digits - 1 - ++exponent);
    int length = digits;
    for (int const zeros : {8, 4, 2, 1}) {
        std::uint64_t const power = kPowersOfTen[static_cast<std::size_t>(zeros)];
        for (; number % power == 0; length -= zeros)
            number /= power;
    }
    char text[kFormattedSize];
    std::to_chars(text, text + sizeof text, number);
    if (bits >> 63U != 0)
        *out++ = '-';
    int const whole = exponent + 1; // digits ahead of the point
    if (whole <= 0) {
        *out++ = '0';
        *out++ = '.';
        out = std::fill_n(out, -whole, '0');
        return std::copy_n(text, length, out);
    }
    if (length <= whole)
        return std::fill_n(std::copy_n(text, length, out), whole - length, '0');
    out = std::copy_n(text, whole, out);
    *out++ = '.';
    return std::copy_n(text + whole, length - whole, out);
}

#else

char* PrintOrdinaryReal(double, int, char*) {
    return nullptr;
}

#endif

} // namespace

IntegerText ScanInteger(std::string_view text) {
    IntegerText result;
    char const* at = text.data();
    char const* const end = at + text.size();
    result.isNegative = SkipToDigits(at, end);
    if (at == end || !IsDigit(*at))
        return result;
    for (; at != end && IsDigit(*at); ++at) {
        constexpr unsigned long long kMax = std::numeric_limits<unsigned long long>::max();
        auto const digit = static_cast<unsigned>(*at - '0');
        if (result.magnitude > (kMax - digit) / 10)
            result.isBeyond64Bits = true;
        else
            result.magnitude = result.magnitude * 10 + digit;
    }
    result.length = static_cast<std::size_t>(at - text.data());
    return result;
}

RealText ScanReal(std::string_view text) {
    RealText result;
    char const* at = text.data();
    char const* const end = at + text.size();
    bool const isNegative = SkipToDigits(at, end);
    if (at == end || !(IsDigit(*at) || (*at == '.' && at + 1 != end && IsDigit(at[1]))))
        return result;
    std::from_chars_result const read = std::from_chars(at, end, result.value);
    if (read.ec == std::errc::result_out_of_range) { // leaves the value open: too large or too small
        platform::CNumericLocaleGuard const guard;
        result.value = std::strtod(std::string(at, read.ptr).c_str(), nullptr);
    }
    if (isNegative)
        result.value = -result.value;
    result.length = static_cast<std::size_t>(read.ptr - text.data());
    return result;
}

std::string& PrintReal(double value, int digits, std::string& text) {
    char buffer[kFormattedSize];
    char const* end = PrintOrdinaryReal(value, digits, buffer);
    if (end == nullptr)
        end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits).ptr;
    return text.assign(buffer, static_cast<std::size_t>(end - buffer));
}

std::string& PrintReal(double value, char const* format, std::size_t limit, std::string& text) {
    char buffer[kFormattedSize] = "";
    platform::CNumericLocaleGuard const guard;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral" // the format is the application's own
    int const printed = std::snprintf(buffer, std::min(limit + 1, sizeof buffer), format, value);
#pragma GCC diagnostic pop
    return text.assign(printed > 0 ? buffer : "");
}

} // namespace ZvXmlLib16::detail
