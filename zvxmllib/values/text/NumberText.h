// Numbers from and to text, whatever locale the process has set.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>

namespace ZvXmlLib16::detail {

constexpr bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

// The ordinary case: digits with at most a minus sign in front, nothing else, in range. False for all other
// texts, valid or not.
template <class Integer>
bool ReadPlainInteger(std::string_view text, Integer& value) {
    char const* const end = text.data() + text.size();
    std::from_chars_result const read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end;
}

// Eight characters, most significant first; false if they are not all digits. Neighbours are joined to
// numbers of two, four and eight digits, for all eight at once where the first character is the lowest octet
// of a word.
inline bool ReadEightDigits(char const* text, std::uint32_t& value) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    constexpr std::uint64_t kHighHalves = 0xF0F0F0F0F0F0F0F0U;
    constexpr std::uint64_t kZeros = 0x3030303030303030U;
    constexpr std::uint64_t kSixes =
        0x0606060606060606U; // lifts what is above '9' out of the row of the digits
    std::uint64_t word = 0;
    std::memcpy(&word, text, sizeof word);
    if ((word & kHighHalves) != kZeros || ((word + kSixes) & kHighHalves) != kZeros)
        return false;
    word -= kZeros;
    word = word * 10 + (word >> 8U); // pairs, in every other octet
    constexpr std::uint64_t kPairs = 0x000000FF000000FFU;
    constexpr std::uint64_t kOuterWeights = 100 + (std::uint64_t{1000000} << 32U);
    constexpr std::uint64_t kInnerWeights = 1 + (std::uint64_t{10000} << 32U);
    word = (word & kPairs) * kOuterWeights + (word >> 16U & kPairs) * kInnerWeights;
    value = static_cast<std::uint32_t>(word >> 32U);
    return true;
#else
    std::uint32_t number = 0;
    for (char const* at = text; at != text + 8; ++at) {
        unsigned const digit = static_cast<unsigned char>(*at) - unsigned{'0'};
        if (digit > 9)
            return false;
        number = number * 10 + digit;
    }
    value = number;
    return true;
#endif
}

// What stands at the head of a text: white space by the list of C, a sign, digits.
struct IntegerText {
    unsigned long long magnitude = 0;
    bool isNegative = false;
    bool isBeyond64Bits = false;
    std::size_t length = 0; // of all that was read; 0 if there is no digit
};
IntegerText ScanInteger(std::string_view text);

// What stands at the head of a text: white space by the list of C, a sign, digits with a point, an exponent.
// Words and hexadecimal forms are not read. Beyond the range the value is infinity or 0.
struct RealText {
    double value = 0;
    std::size_t length = 0;
};
RealText ScanReal(std::string_view text);

// Replaces the content of `text`, reusing its memory.
template <class Integer>
std::string& PrintInteger(Integer value, std::string& text) {
    char buffer[24]; // 64 bits are twenty characters with the sign
    char const* const end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return text.assign(buffer, static_cast<std::size_t>(end - buffer));
}

template <class Integer>
std::string PrintInteger(Integer value) {
    std::string text;
    PrintInteger(value, text);
    return text;
}

// As "%.<digits>g", at most 17 digits. The value is finite. This and the next print as PrintInteger does.
std::string& PrintReal(double value, int digits, std::string& text);

// By a printf format for one double, cut to `limit` characters, at most 47.
std::string& PrintReal(double value, char const* format, std::size_t limit, std::string& text);

} // namespace ZvXmlLib16::detail
