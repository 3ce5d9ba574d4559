// The fastest ways known to us to read and write single values, without the rules that the library follows.
#include "benchmarks/values/BestKnown.h"

#include <algorithm>
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

constexpr std::array<std::uint64_t, 20> MakePowers() {
    std::array<std::uint64_t, 20> powers{};
    std::uint64_t power = 1;
    for (std::uint64_t& each : powers) {
        each = power;
        power *= 10; // the last one overflows, and is not used
    }
    return powers;
}

constexpr std::array<std::uint64_t, 20> kPowers = MakePowers();

Int128 PowerOfTen(int exponent) {
    return static_cast<Int128>(kPowers[static_cast<std::size_t>(exponent)]);
}

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
    bool const isNegative = !text.empty() && text.front() == '-';
    char const* at = text.data() + (isNegative ? 1 : 0);
    char const* const end = text.data() + text.size();
    FixedPoint result;
    std::uint64_t whole = 0;
    for (; at != end && *at != '.'; ++at)
        whole = whole * 10 + static_cast<std::uint64_t>(*at - '0');
    std::uint64_t fraction = 0;
    if (at != end) {
        char const* const start = ++at;
        for (; at != end; ++at)
            fraction = fraction * 10 + static_cast<std::uint64_t>(*at - '0');
        result.places = static_cast<int>(at - start);
    }
    result.digits = static_cast<Int128>(whole) * PowerOfTen(result.places) + static_cast<Int128>(fraction);
    if (isNegative)
        result.digits = -result.digits;
    return result;
}

std::string WriteFixedPoint(FixedPoint const& value) {
    char buffer[48];
    char* at = buffer;
    if (value.digits < 0)
        *at++ = '-';
    Int128 const digits = value.digits < 0 ? -value.digits : value.digits;
    Int128 const scale = PowerOfTen(value.places);
    at = std::to_chars(at, buffer + sizeof buffer, static_cast<std::uint64_t>(digits / scale)).ptr;
    if (value.places > 0) {
        *at++ = '.';
        char fraction[20];
        char const* const end =
            std::to_chars(fraction, fraction + sizeof fraction, static_cast<std::uint64_t>(digits % scale))
                .ptr;
        at = std::fill_n(at, value.places - (end - fraction), '0');
        at = std::copy(static_cast<char const*>(fraction), end, at);
    }
    return std::string(buffer, at);
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
