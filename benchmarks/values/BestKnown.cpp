// The fastest ways known to us to read and write single values, without the rules that the library follows.
#include "benchmarks/values/BestKnown.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace bench {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<unsigned char, 256> MakeValues() {
    std::array<unsigned char, 256> values{};
    for (unsigned i = 0; i < 64; ++i)
        values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<unsigned char>(i);
    return values;
}

constexpr std::array<unsigned char, 256> kValues = MakeValues();

template <class Value>
Value Read(std::string_view text) {
    Value value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

template <class Value>
std::string Write(Value value) {
    char buffer[24];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

} // namespace

int ReadInt(std::string_view text) {
    return Read<int>(text);
}

std::string WriteInt(int value) {
    return Write(value);
}

long long ReadLongLong(std::string_view text) {
    return Read<long long>(text);
}

std::string WriteLongLong(long long value) {
    return Write(value);
}

double ReadDouble(std::string_view text) {
    return Read<double>(text);
}

std::string WriteDouble(double value) {
    char buffer[32];
    std::to_chars_result const written =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 16);
    return std::string(buffer, written.ptr);
}

FixedPoint ReadFixedPoint(std::string_view text) {
    constexpr int kDigitsOfWord = 19;
    bool const isNegative = !text.empty() && text.front() == '-';
    if (isNegative)
        text.remove_prefix(1);
    FixedPoint result;
    std::size_t point = text.size();
    std::uint64_t word = 0;
    std::uint64_t scale = 1;
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '.') {
            point = i + 1;
            continue;
        }
        word = word * 10 + static_cast<std::uint64_t>(text[i] - '0');
        scale *= 10;
        if (++count == kDigitsOfWord) {
            result.digits = result.digits * static_cast<Int128>(scale) + static_cast<Int128>(word);
            word = 0;
            scale = 1;
            count = 0;
        }
    }
    result.digits = result.digits * static_cast<Int128>(scale) + static_cast<Int128>(word);
    if (isNegative)
        result.digits = -result.digits;
    result.places = static_cast<int>(text.size() - point);
    return result;
}

std::string WriteFixedPoint(FixedPoint const& value) {
    constexpr Int128 kWord = 1000000000000000000;
    char buffer[48];
    char* const end = buffer + sizeof buffer;
    char* at = end;
    int left = value.places;
    auto const put = [&](std::uint64_t word, int digits) {
        for (; digits > 0 || word != 0; --digits, word /= 10) {
            if (left-- == 0 && value.places != 0)
                *--at = '.';
            *--at = static_cast<char>('0' + word % 10);
        }
    };
    Int128 const digits = value.digits < 0 ? -value.digits : value.digits;
    auto const high = static_cast<std::uint64_t>(digits / kWord);
    put(static_cast<std::uint64_t>(digits % kWord), high != 0 ? 18 : value.places + 1);
    if (high != 0)
        put(high, value.places + 1 - 18);
    if (value.digits < 0)
        *--at = '-';
    return std::string(at, end);
}

std::vector<unsigned char> ReadBase64(std::string_view text) {
    std::size_t const padding = text.size() - (text.find_last_not_of('=') + 1);
    std::vector<unsigned char> bytes(text.size() / 4 * 3);
    unsigned char* out = bytes.data();
    auto const value = [](char c) { return std::uint32_t{kValues[static_cast<unsigned char>(c)]}; };
    for (std::size_t i = 0; i + 4 <= text.size(); i += 4) {
        std::uint32_t const group =
            value(text[i]) << 18U | value(text[i + 1]) << 12U | value(text[i + 2]) << 6U | value(text[i + 3]);
        *out++ = static_cast<unsigned char>(group >> 16U);
        *out++ = static_cast<unsigned char>(group >> 8U);
        *out++ = static_cast<unsigned char>(group);
    }
    bytes.resize(bytes.size() - padding);
    return bytes;
}

std::string WriteBase64(std::vector<unsigned char> const& bytes) {
    std::string text((bytes.size() + 2) / 3 * 4, '=');
    char* out = text.data();
    std::size_t i = 0;
    for (; i + 3 <= bytes.size(); i += 3) {
        std::uint32_t const group =
            std::uint32_t{bytes[i]} << 16U | std::uint32_t{bytes[i + 1]} << 8U | bytes[i + 2];
        *out++ = kAlphabet[group >> 18U];
        *out++ = kAlphabet[group >> 12U & 63U];
        *out++ = kAlphabet[group >> 6U & 63U];
        *out++ = kAlphabet[group & 63U];
    }
    if (i < bytes.size()) {
        std::uint32_t const group =
            std::uint32_t{bytes[i]} << 16U | (i + 1 < bytes.size() ? std::uint32_t{bytes[i + 1]} << 8U : 0U);
        *out++ = kAlphabet[group >> 18U];
        *out++ = kAlphabet[group >> 12U & 63U];
        if (i + 1 < bytes.size())
            *out++ = kAlphabet[group >> 6U & 63U];
    }
    return text;
}

} // namespace bench
