// CBase64, the base64 form of bytes (RFC 4648 section 4).
#include "zvxmllib/values/binary/Base64.h"

#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/values/binary/Base64Text.h"
#include "zvxmllib/values/binary/CheckedSize.h"

#include <array>
#include <cstring>

namespace ZvXmlLib16 {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::uint8_t kSkipped = 0x40;
constexpr std::uint8_t kInvalid = 0x80;

// The value of each character. The top bit of the byte does not count, so both halves are the same.
constexpr std::array<std::uint8_t, 256> MakeValues() {
    std::array<std::uint8_t, 256> values{};
    for (std::uint8_t& value : values)
        value = kInvalid;
    for (unsigned i = 0; i < 64; ++i)
        values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
    for (char const c : {'=', ' ', '\t', '\n', '\r'})
        values[static_cast<unsigned char>(c)] = kSkipped;
    for (unsigned i = 0; i < 128; ++i)
        values[i + 128] = values[i];
    return values;
}

constexpr std::array<std::uint8_t, 256> kValues = MakeValues();

// The value of each character at each place in a group of four, or kNoGroup.
constexpr std::uint32_t kNoGroup = 1U << 24U;

using Groups = std::array<std::array<std::uint32_t, 256>, 4>;

constexpr Groups MakeGroups() {
    Groups groups{};
    for (unsigned place = 0; place < 4; ++place)
        for (unsigned i = 0; i < 256; ++i)
            groups[place][i] =
                kValues[i] < kSkipped ? std::uint32_t{kValues[i]} << (18 - 6 * place) : kNoGroup;
    return groups;
}

constexpr Groups kGroups = MakeGroups();

// The two characters for each twelve bits.
constexpr std::array<char, 2 * 4096> MakePairs() {
    std::array<char, 2 * 4096> pairs{};
    for (unsigned i = 0; i < 4096; ++i) {
        pairs[2 * i] = kAlphabet[i >> 6];
        pairs[2 * i + 1] = kAlphabet[i & 63];
    }
    return pairs;
}

constexpr std::array<char, 2 * 4096> kPairs = MakePairs();

unsigned char Octet(char c) {
    return static_cast<unsigned char>(c);
}

unsigned char LowByte(std::uint32_t bits) {
    return static_cast<unsigned char>(bits & 0xFF);
}

} // namespace

CBase64::~CBase64() = default;

std::string CBase64::Encode(unsigned char const* lpEncoding, std::uint32_t length) {
    std::string text;
    Encode(lpEncoding, length, text);
    return text;
}

std::string& CBase64::Encode(unsigned char const* lpEncoding, std::uint32_t length, std::string& text) {
    ZV_ASSERT(lpEncoding != 0); // NOLINT(modernize-use-nullptr): the assertion's text
    text.clear();
    if (lpEncoding == nullptr)
        return text;
    text.resize(detail::CheckedSize((std::uint64_t{length} + 2) / 3 * 4), '=');
    char* out = text.data();
    unsigned char const* in = lpEncoding;
    std::uint32_t left = length;
    for (; left >= 3; left -= 3, in += 3, out += 4) {
        std::uint32_t const bits = std::uint32_t{in[0]} << 16 | std::uint32_t{in[1]} << 8 | in[2];
        std::memcpy(out, &kPairs[2 * (bits >> 12)], 2);
        std::memcpy(out + 2, &kPairs[2 * (bits & 0xFFF)], 2);
    }
    if (left > 0) {
        std::uint32_t const bits = std::uint32_t{in[0]} << 16 | (left == 2 ? std::uint32_t{in[1]} << 8 : 0);
        std::memcpy(out, &kPairs[2 * (bits >> 12)], 2);
        if (left == 2)
            out[2] = kAlphabet[bits >> 6 & 63];
    }
    return text;
}

std::uint32_t CBase64::Decode(char const* szDecoding, unsigned char* lpOutput) {
    ZV_ASSERT(szDecoding != 0); // NOLINT(modernize-use-nullptr): the assertion's text
    ZV_ASSERT(lpOutput != 0);   // NOLINT(modernize-use-nullptr): the assertion's text
    if (szDecoding == nullptr || lpOutput == nullptr)
        return 0;
    return detail::DecodeBase64(szDecoding, lpOutput);
}

namespace detail {

std::uint32_t DecodeBase64(std::string_view text, unsigned char* lpOutput) {
    char const* in = text.data();
    char const* const end = in + text.size();
    unsigned char* out = lpOutput;
    std::uint32_t store = 0; // its low `bits` bits are still to be put out
    unsigned bits = 0;
    while (in != end) {
        if (bits == 0) { // plain groups of four
            for (; end - in >= 4; in += 4, out += 3) {
                std::uint32_t const group = kGroups[0][Octet(in[0])] | kGroups[1][Octet(in[1])] |
                                            kGroups[2][Octet(in[2])] | kGroups[3][Octet(in[3])];
                if (group >= kNoGroup)
                    break;
                out[0] = LowByte(group >> 16);
                out[1] = LowByte(group >> 8);
                out[2] = LowByte(group);
            }
            if (in == end)
                break;
        }
        char const c = *in++;
        if (c == '\0')
            break;
        std::uint32_t const next = kValues[Octet(c)];
        if (next == kInvalid)
            return 0;
        if (next == kSkipped)
            continue;
        store = store << 6 | next;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            *out++ = LowByte(store >> bits);
        }
    }
    return static_cast<std::uint32_t>(out - lpOutput);
}

} // namespace detail

} // namespace ZvXmlLib16
