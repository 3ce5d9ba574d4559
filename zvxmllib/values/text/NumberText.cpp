// Numbers from and to text, whatever locale the process has set.
#include "zvxmllib/values/text/NumberText.h"

#include "zvxmllib/platform/NumericLocale.h"

#include <algorithm>
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
    std::to_chars_result const printed =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    return text.assign(buffer, printed.ptr);
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
