#include "zvxmllib/fastinfoset/EncodedValues.h"

#include "zvxmllib/fastinfoset/Failures.h"
#include "zvxmllib/values/Base64.h"
#include "zvxmllib/values/Conversions.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kUuidSize = 16;

unsigned char const* Bytes(std::string_view octets) noexcept {
    return reinterpret_cast<unsigned char const*>(octets.data());
}

// The high octet first.
template <class Bits>
Bits ReadBits(std::string_view octets) noexcept {
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(Bits); ++i)
        bits = static_cast<Bits>(bits << 8 | Bytes(octets)[i]);
    return bits;
}

// Calls `append` for each piece of `size` octets. `type` is what the message calls them.
template <class Append>
void AppendEach(std::string_view octets, std::size_t size, char const* type, std::string& text,
                Append append) {
    if (octets.size() % size != 0)
        FailEncodedLength(type);
    for (std::size_t at = 0; at < octets.size(); at += size) {
        if (at != 0)
            text += ' ';
        append(octets.substr(at, size));
    }
}

template <class Integer>
void AppendIntegers(std::string_view octets, char const* type, std::string& text) {
    using Bits = std::make_unsigned_t<Integer>;
    AppendEach(octets, sizeof(Integer), type, text, [&](std::string_view one) {
        char digits[24];
        char* const end =
            std::to_chars(digits, digits + sizeof digits, static_cast<Integer>(ReadBits<Bits>(one))).ptr;
        text.append(digits, end);
    });
}

template <class Real, class Bits>
void AppendReals(std::string_view octets, char const* type, std::string& text,
                 std::string (*toText)(Real value)) {
    static_assert(sizeof(Real) == sizeof(Bits));
    AppendEach(octets, sizeof(Real), type, text, [&](std::string_view one) {
        Bits const bits = ReadBits<Bits>(one);
        Real value;
        std::memcpy(&value, &bits, sizeof value);
        text += toText(value);
    });
}

void AppendHex(std::string_view octets, std::string& text) {
    constexpr char const* kDigits = "0123456789ABCDEF";
    for (char const c : octets) {
        unsigned const octet = static_cast<unsigned char>(c);
        text += kDigits[octet >> 4];
        text += kDigits[octet & 15U];
    }
}

// The high half of the first octet is the number of bits of the last one that are no values.
void AppendBooleans(std::string_view octets, std::string& text) {
    if (octets.empty())
        return;
    std::size_t const unused = Bytes(octets)[0] >> 4;
    std::size_t const bitsOfLast = octets.size() == 1 ? 4 : 8;
    std::size_t const end = 8 * octets.size() - std::min(unused, bitsOfLast);
    for (std::size_t bit = 4; bit < end; ++bit) {
        if (bit != 4)
            text += ' ';
        text += (Bytes(octets)[bit / 8] >> (7 - bit % 8) & 1) != 0 ? "true" : "false";
    }
}

} // namespace

void AppendEncodedValues(std::uint32_t algorithm, std::string_view octets, std::string& text) {
    switch (algorithm) {
    case 1:
        return AppendHex(octets, text);
    case 2:
        text += CBase64().Encode(Bytes(octets), static_cast<std::uint32_t>(octets.size()));
        return;
    case 3:
        return AppendIntegers<std::int16_t>(octets, "SHORT", text);
    case 4:
        return AppendIntegers<std::int32_t>(octets, "INT", text);
    case 5:
        return AppendIntegers<std::int64_t>(octets, "LONG", text);
    case 6:
        return AppendBooleans(octets, text);
    case 7:
        return AppendReals<float, std::uint32_t>(octets, "FLOAT", text, &CConversions::r4ToString);
    case 8:
        return AppendReals<double, std::uint64_t>(octets, "DOUBLE", text, &CConversions::r8ToString);
    case 9:
        return AppendEach(octets, kUuidSize, "UUID", text,
                          [&](std::string_view one) { AppendHex(one, text); });
    default:
        FailUnknownAlgorithm();
    }
}

} // namespace ZvXmlLib16
