// Numbers from and to text, whatever locale the process has set.
#pragma once

#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

namespace ZvXmlLib16::detail {

// The ordinary case: digits with at most a minus sign in front, nothing else, in range. False for all other
// texts, which say nothing about the text being wrong.
template <class Integer>
bool ReadPlainInteger(std::string_view text, Integer& value) {
    char const* const end = text.data() + text.size();
    std::from_chars_result const read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end;
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
// No words and no hexadecimal form. Beyond the range the value is infinity or 0.
struct RealText {
    double value = 0;
    std::size_t length = 0;
};
RealText ScanReal(std::string_view text);

// Replaces the content of `text`, in the room that it has.
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
