// The library's own conversions between UTF-8 and UTF-16.
#include "zvxmllib/foundation/Utf16.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace ZvXmlLib16 {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

constexpr char32_t JoinSurrogates(char16_t high, char16_t low) {
    return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00);
}

constexpr std::size_t Utf8Size(char32_t codePoint) {
    return codePoint < 0x80 ? 1U : codePoint < 0x800 ? 2U : codePoint < 0x10000 ? 3U : 4U;
}

char Octet(char32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

void PutUtf8(char32_t c, std::size_t size, char* output) noexcept {
    switch (size) {
    case 1:
        output[0] = Octet(c);
        return;
    case 2:
        output[0] = Octet(0xC0 | c >> 6);
        output[1] = Octet(0x80 | (c & 0x3F));
        return;
    case 3:
        output[0] = Octet(0xE0 | c >> 12);
        output[1] = Octet(0x80 | (c >> 6 & 0x3F));
        output[2] = Octet(0x80 | (c & 0x3F));
        return;
    default:
        output[0] = Octet(0xF0 | c >> 18);
        output[1] = Octet(0x80 | (c >> 12 & 0x3F));
        output[2] = Octet(0x80 | (c >> 6 & 0x3F));
        output[3] = Octet(0x80 | (c & 0x3F));
    }
}

struct Decoded {
    char32_t codePoint;
    std::size_t size; // octets consumed
    bool valid;
};

// The sequence at the start of the octets, of which there is at least one. A malformed one consumes the
// longest prefix of a well-formed sequence (Unicode, table 3-7), so each gives one replacement.
Decoded DecodeUtf8(unsigned char const* p, std::size_t available) noexcept {
    unsigned char const lead = p[0];
    if (lead < 0x80)
        return {lead, 1, true};
    if (lead < 0xC2 || lead > 0xF4)
        return {kReplacement, 1, false};
    std::size_t const size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // The second octet rules out overlong forms, surrogates and values above U+10FFFF.
    unsigned char const low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char const high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (available < 2 || p[1] < low || p[1] > high)
        return {kReplacement, 1, false};
    char32_t codePoint = lead & (0x7FU >> size);
    codePoint = codePoint << 6 | (p[1] & 0x3FU);
    for (std::size_t i = 2; i < size; ++i) {
        if (i >= available || (p[i] & 0xC0) != 0x80)
            return {kReplacement, i, false};
        codePoint = codePoint << 6 | (p[i] & 0x3FU);
    }
    return {codePoint, size, true};
}

unsigned char const* Octets(std::string_view text) noexcept {
    return reinterpret_cast<unsigned char const*>(text.data());
}

bool AreEightAscii(unsigned char const* p) noexcept {
    std::uint64_t word;
    std::memcpy(&word, p, 8);
    return (word & 0x8080808080808080U) == 0;
}

bool Are32Ascii(unsigned char const* p) noexcept {
    std::uint64_t words[4];
    std::memcpy(words, p, sizeof words);
    return ((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080U) == 0;
}

// Counts octets below 128 at the start, eight at a time; up to seven more may follow.
std::size_t AsciiRun(unsigned char const* p, std::size_t length) noexcept {
    std::size_t i = 0;
    while (i + 32 <= length && Are32Ascii(p + i))
        i += 32;
    while (i + 8 <= length && AreEightAscii(p + i))
        i += 8;
    return i;
}

// What a validator of UTF-8 expects next. A state is the place, in bits, of its successor within the entry
// of an octet, so that a step is one shift.
enum Utf8State : std::uint64_t {
    kStart = 0,     // a sequence may begin or the text end
    kMalformed = 6, // for good
    kOneMore = 12,  // octets 80 to BF
    kTwoMore = 18,
    kThreeMore = 24,
    kAfterE0 = 30, // A0 to BF: nothing overlong
    kAfterED = 36, // 80 to 9F: no surrogate
    kAfterF0 = 42, // 90 to BF: nothing overlong
    kAfterF4 = 48, // 80 to 8F: nothing above U+10FFFF
};
constexpr std::uint64_t kStateMask = 63;

constexpr std::uint64_t NextState(Utf8State state, unsigned octet) {
    auto const expect = [octet](unsigned low, unsigned high, Utf8State next) {
        return octet >= low && octet <= high ? next : kMalformed;
    };
    switch (state) {
    case kStart:
        return octet < 0x80    ? kStart
               : octet == 0xE0 ? kAfterE0
               : octet == 0xED ? kAfterED
               : octet == 0xF0 ? kAfterF0
               : octet == 0xF4 ? kAfterF4
               : octet < 0xC2  ? kMalformed
               : octet < 0xE0  ? kOneMore
               : octet < 0xF0  ? kTwoMore
                               : expect(0xF1, 0xF3, kThreeMore);
    case kOneMore:
        return expect(0x80, 0xBF, kStart);
    case kTwoMore:
        return expect(0x80, 0xBF, kOneMore);
    case kThreeMore:
        return expect(0x80, 0xBF, kTwoMore);
    case kAfterE0:
        return expect(0xA0, 0xBF, kOneMore);
    case kAfterED:
        return expect(0x80, 0x9F, kOneMore);
    case kAfterF0:
        return expect(0x90, 0xBF, kTwoMore);
    case kAfterF4:
        return expect(0x80, 0x8F, kTwoMore);
    case kMalformed:
        break;
    }
    return kMalformed;
}

constexpr std::array<std::uint64_t, 256> MakeTransitions() {
    std::array<std::uint64_t, 256> transitions{};
    for (unsigned octet = 0; octet < 256; ++octet) {
        for (Utf8State const state :
             {kStart, kMalformed, kOneMore, kTwoMore, kThreeMore, kAfterE0, kAfterED, kAfterF0, kAfterF4})
            transitions[octet] |= NextState(state, octet) << state;
    }
    return transitions;
}

constexpr std::array<std::uint64_t, 256> kTransitions = MakeTransitions();

// Calls `put(char16_t)` for each unit of the text as UTF-16.
template <class Put>
void ForEachUnit(std::string_view utf8, Put put) noexcept {
    unsigned char const* const p = Octets(utf8);
    for (std::size_t i = 0; i < utf8.size();) {
        for (std::size_t const end = i + AsciiRun(p + i, utf8.size() - i); i < end; ++i)
            put(p[i]);
        if (i == utf8.size())
            return;
        Decoded const next = DecodeUtf8(p + i, utf8.size() - i);
        i += next.size;
        if (next.codePoint < 0x10000) {
            put(static_cast<char16_t>(next.codePoint));
        } else {
            put(static_cast<char16_t>(0xD800 + ((next.codePoint - 0x10000) >> 10)));
            put(static_cast<char16_t>(0xDC00 + (next.codePoint & 0x3FF)));
        }
    }
}

} // namespace

std::size_t ConvertUtf16ToUtf8(char16_t const* input, std::size_t units, char* output, std::size_t capacity) {
    std::size_t used = 0;
    for (std::size_t i = 0; i < units; ++i) {
        char32_t codePoint = input[i];
        if (IsHighSurrogate(codePoint) || IsLowSurrogate(codePoint)) {
            bool const paired = IsHighSurrogate(codePoint) && i + 1 < units && IsLowSurrogate(input[i + 1]);
            if (!paired)
                return output == nullptr ? 0 : used;
            codePoint = JoinSurrogates(input[i], input[i + 1]);
            ++i;
        }
        std::size_t const size = Utf8Size(codePoint);
        if (output != nullptr) {
            if (size > capacity - used)
                return used;
            PutUtf8(codePoint, size, output + used);
        }
        used += size;
    }
    return used;
}

std::string ConvertUtf16ToUtf8(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t codePoint = text[i];
        if (IsHighSurrogate(codePoint) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            codePoint = JoinSurrogates(text[i], text[i + 1]);
            ++i;
        } else if (IsHighSurrogate(codePoint) || IsLowSurrogate(codePoint)) {
            codePoint = kReplacement;
        }
        char sequence[4];
        std::size_t const size = Utf8Size(codePoint);
        PutUtf8(codePoint, size, sequence);
        result.append(sequence, size);
    }
    return result;
}

std::u16string ConvertUtf8ToUtf16(std::string_view utf8) {
    std::u16string result(CountUtf16Units(utf8), u'\0');
    ConvertUtf8ToUtf16(utf8, result.data());
    return result;
}

std::size_t ConvertUtf8ToUtf16(std::string_view utf8, char16_t* output) noexcept {
    char16_t* end = output;
    ForEachUnit(utf8, [&end](char16_t unit) { *end++ = unit; });
    return static_cast<std::size_t>(end - output);
}

void ConvertUtf8ToUtf16Bytes(std::string_view utf8, unsigned char* output) noexcept {
    ForEachUnit(utf8, [&output](char16_t unit) {
        *output++ = static_cast<unsigned char>(unit & 0xFF);
        *output++ = static_cast<unsigned char>(unit >> 8);
    });
}

std::size_t CountUtf16Units(std::string_view utf8) noexcept {
    unsigned char const* const p = Octets(utf8);
    std::size_t units = 0;
    if (IsValidUtf8(utf8)) { // a unit for each lead, a second one for each sequence of four
        for (std::size_t i = 0; i < utf8.size(); ++i)
            units += ((p[i] & 0xC0U) != 0x80U ? 1U : 0U) + (p[i] >= 0xF0U ? 1U : 0U);
        return units;
    }
    for (std::size_t i = 0; i < utf8.size();) {
        std::size_t const plain = AsciiRun(p + i, utf8.size() - i);
        units += plain;
        i += plain;
        if (i < utf8.size()) {
            Decoded const next = DecodeUtf8(p + i, utf8.size() - i);
            units += next.codePoint < 0x10000 ? 1 : 2;
            i += next.size;
        }
    }
    return units;
}

std::string RepairUtf8(std::string_view utf8) {
    unsigned char const* const p = Octets(utf8);
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        Decoded const next = DecodeUtf8(p + i, utf8.size() - i);
        if (next.valid)
            result.append(utf8, i, next.size);
        else
            result.append("\xEF\xBF\xBD");
        i += next.size;
    }
    return result;
}

bool IsAscii(std::string_view text) noexcept {
    std::size_t i = AsciiRun(Octets(text), text.size());
    while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80)
        ++i;
    return i == text.size();
}

bool IsValidUtf8(std::string_view text) noexcept {
    unsigned char const* const p = Octets(text);
    std::uint64_t state = kStart;
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        if ((state & kStateMask) == kStart) {
            i += AsciiRun(p + i, text.size() - i);
            if (i + 8 > text.size())
                break;
        }
        for (std::size_t j = 0; j < 8; ++j)
            state = kTransitions[p[i + j]] >> (state & kStateMask);
        if ((state & kStateMask) == kMalformed)
            return false;
    }
    for (; i < text.size(); ++i)
        state = kTransitions[p[i]] >> (state & kStateMask);
    return (state & kStateMask) == kStart;
}

std::u16string UnitsFromWide(wchar_t const* text) {
    std::size_t units = 0;
    for (wchar_t const* p = text; *p != L'\0'; ++p)
        units += static_cast<char32_t>(*p) >= 0x10000 && static_cast<char32_t>(*p) < 0x110000 ? 2 : 1;
    std::u16string result;
    result.reserve(units);
    for (wchar_t const* p = text; *p != L'\0'; ++p) {
        char32_t const c = static_cast<char32_t>(*p);
        if (c < 0x10000) {
            result.push_back(static_cast<char16_t>(c));
        } else if (c < 0x110000) {
            result.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
            result.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
        } else {
            result.push_back(static_cast<char16_t>(kReplacement));
        }
    }
    return result;
}

std::size_t FindHalfSurrogate(std::u16string_view units) noexcept {
    for (std::size_t i = 0; i < units.size(); ++i) {
        bool const isHigh = units[i] >= 0xD800 && units[i] < 0xDC00;
        bool const isLow = units[i] >= 0xDC00 && units[i] < 0xE000;
        bool const isPair = isHigh && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
        if (isLow || (isHigh && !isPair))
            return i;
        i += isPair ? 1 : 0;
    }
    return units.size();
}

} // namespace ZvXmlLib16
