#include "zvxmllib/fastinfoset/EncodedValues.h"

#include "zvxmllib/fastinfoset/Failures.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/binary/Base64.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/binary/HexText.h"
#include "zvxmllib/values/variant/Conversions.h"

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

// Calls `append` for each piece of `size` octets. `type` is their name in the message.
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

// The high half of the first octet, which there always is, is the number of bits of the last one that are no
// values.
void AppendBooleans(std::string_view octets, std::string& text) {
    std::size_t const unused = Bytes(octets)[0] >> 4;
    std::size_t const bitsOfLast = octets.size() == 1 ? 4 : 8;
    std::size_t const end = 8 * octets.size() - std::min(unused, bitsOfLast);
    for (std::size_t bit = 4; bit < end; ++bit) {
        if (bit != 4)
            text += ' ';
        text += (Bytes(octets)[bit / 8] >> (7 - bit % 8) & 1) != 0 ? "true" : "false";
    }
}

template <class Integer>
void AppendInteger(Integer value, std::string& octets) {
    auto const bits = static_cast<std::make_unsigned_t<Integer>>(value);
    char bytes[sizeof bits];
    for (unsigned i = 0; i < sizeof bits; ++i)
        bytes[i] = static_cast<char>(bits >> 8 * (sizeof bits - 1 - i) & 0xFF);
    octets.append(bytes, sizeof bytes);
}

template <class Bits, class Real>
void AppendReal(Real value, std::string& octets) {
    static_assert(sizeof(Bits) == sizeof(Real));
    Bits bits;
    std::memcpy(&bits, &value, sizeof bits);
    AppendInteger(bits, octets);
}

void AppendBase64(std::string const& text, std::string& octets) {
    std::size_t const begin = octets.size();
    octets.resize(begin + text.size());
    auto* const output = reinterpret_cast<unsigned char*>(&octets[begin]);
    octets.resize(begin + CBase64().Decode(text.c_str(), output));
}

// Eight bytes at a time. A true answer is exact, which is all that matters.
template <class Word>
bool AreAsciiWithoutZero(char const* p) noexcept {
    constexpr Word kOnes = static_cast<Word>(0x0101010101010101U);
    Word word;
    std::memcpy(&word, p, sizeof word);
    return ((word | (word - kOnes)) & kOnes << 7U) == 0;
}

bool IsAsciiWithoutZero(std::string_view text) noexcept {
    char const* p = text.data();
    char const* const end = p + text.size();
    if (text.size() < 4)
        return std::all_of(p, end, [](char c) { return static_cast<signed char>(c) > 0; });
    if (text.size() < 8)
        return AreAsciiWithoutZero<std::uint32_t>(p) && AreAsciiWithoutZero<std::uint32_t>(end - 4);
    for (; end - p > 8; p += 8) {
        if (!AreAsciiWithoutZero<std::uint64_t>(p))
            return false;
    }
    return AreAsciiWithoutZero<std::uint64_t>(end - 8);
}

// Like CBinaryData.
void AppendFromHex(std::string const& text, std::string& octets) {
    std::size_t const digits = std::strlen(text.c_str());
    if (digits % 2 != 0)
        FailHexLength();
    std::size_t const begin = octets.size();
    octets.resize(begin + digits / 2);
    detail::BytesFromHex(text.c_str(), digits, reinterpret_cast<unsigned char*>(&octets[begin]));
}

} // namespace

void AppendEncodedOctets(std::uint32_t algorithm, std::string const& text, std::string& octets) {
    constexpr auto kRule = CWhitespaceUtils::WhitespaceRule_None;
    constexpr char kTrue = 0x38; // three of the four bits are unused, the other one is set
    constexpr char kFalse = 0x30;
    switch (algorithm) {
    case 1:
    case 9:
        return AppendFromHex(text, octets);
    case 2:
        return AppendBase64(text, octets);
    case 3:
        return AppendInteger(CConversions::i2FromString(text, kRule), octets);
    case 4:
        return AppendInteger(CConversions::i4FromString(text, kRule), octets);
    case 5:
        return AppendInteger(CConversions::i8FromString(text, kRule), octets);
    case 6:
        octets += CConversions::booleanFromString(text, kRule) ? kTrue : kFalse;
        return;
    case 7:
        return AppendReal<std::uint32_t>(CConversions::r4FromString(text, kRule), octets);
    case 8:
        return AppendReal<std::uint64_t>(CConversions::r8FromString(text, kRule), octets);
    case 10: {
        std::string room;
        octets += AsUtf8(text, room);
        return;
    }
    default:
        FailUnknownAlgorithm();
    }
}

std::string_view AsUtf8(std::string_view text, std::string& room) {
    if (IsAsciiWithoutZero(text))
        return text;
    text = text.substr(0, text.find('\0'));
    if (IsAscii(text) || IsASCIIOnly() || (IsLocalTextUtf8() && IsValidUtf8(text)))
        return text;
    room.assign(text);
    CBinaryData const utf8 = LocalToUtf8(room.c_str());
    room.assign(reinterpret_cast<char const*>(utf8.GetData()), utf8.GetLength());
    return room;
}

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
