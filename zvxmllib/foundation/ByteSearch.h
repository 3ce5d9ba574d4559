// Finding the end of a run of plain bytes: 16 at a time where the machine can, one by one elsewhere.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ZvXmlLib16::detail {

// What PlainBytes counts as plain besides, as a sum.
inline constexpr unsigned kBreaks = 1; // tab and line feed
inline constexpr unsigned kBeyondAscii = 2;

// Bytes that end a run: the characters listed, control characters, and what lies beyond ASCII. All others are
// plain, and so are those of `alsoPlain`.
template <unsigned alsoPlain, char... stops>
struct PlainBytes {
    static constexpr bool EndsRun(unsigned char byte) noexcept {
        if ((alsoPlain & kBreaks) != 0 && (byte == '\t' || byte == '\n'))
            return false;
        return byte < 0x20 || ((alsoPlain & kBeyondAscii) == 0 && byte >= 0x80) ||
               ((byte == static_cast<unsigned char>(stops)) || ...);
    }

    // The first byte from `at` on that ends the run, `end` if there is none.
    static char const* FindEnd(char const* at, char const* end) noexcept {
#ifdef __SSE2__
        for (; end - at >= 16; at += 16) {
            unsigned const found = EndsOf(Load16(at));
            if (found != 0)
                return at + __builtin_ctz(found);
        }
#endif
        while (at != end && !kEndsRun[static_cast<unsigned char>(*at)])
            ++at;
        return at;
    }

    // Whether all bytes are plain: for short texts, which are mostly so.
    static bool AreAll(std::string_view text) noexcept {
#ifdef __SSE2__
        char const* const begin = text.data();
        char const* const end = begin + text.size();
        if (text.size() >= 16) {
            for (char const* at = begin; at < end - 16; at += 16) {
                if (EndsOf(Load16(at)) != 0)
                    return false;
            }
            return EndsOf(Load16(end - 16)) == 0;
        }
        // The two ends overlap.
        if (text.size() >= 8)
            return EndsOf(_mm_unpacklo_epi64(Load8(begin), Load8(end - 8))) == 0;
        if (text.size() >= 4)
            return EndsOf(_mm_unpacklo_epi64(Load4(begin), Load4(end - 4))) == 0;
#endif
        return std::none_of(text.begin(), text.end(),
                            [](char c) { return kEndsRun[static_cast<unsigned char>(c)]; });
    }

private:
    static constexpr std::array<bool, 256> MakeTable() noexcept {
        std::array<bool, 256> table{};
        for (std::size_t byte = 0; byte < table.size(); ++byte)
            table[byte] = EndsRun(static_cast<unsigned char>(byte));
        return table;
    }
    static constexpr std::array<bool, 256> kEndsRun = MakeTable();

#ifdef __SSE2__
    static __m128i Load16(char const* at) noexcept {
        return _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
    }
    static __m128i Load8(char const* at) noexcept {
        return _mm_loadl_epi64(reinterpret_cast<__m128i const*>(at));
    }
    // Four bytes twice.
    static __m128i Load4(char const* at) noexcept {
        int four;
        std::memcpy(&four, at, sizeof four);
        return _mm_set1_epi32(four);
    }
    static __m128i Equal(__m128i bytes, char character) noexcept {
        return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(character));
    }
    // A bit for each byte that ends the run.
    static unsigned EndsOf(__m128i bytes) noexcept {
        // As signed numbers, what lies beyond ASCII is below the blank, too.
        __m128i ends = (alsoPlain & kBeyondAscii) == 0
                           ? _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20))
                           : _mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(0x1F)), bytes);
        if ((alsoPlain & kBreaks) != 0)
            ends = _mm_andnot_si128(_mm_or_si128(Equal(bytes, '\t'), Equal(bytes, '\n')), ends);
        return static_cast<unsigned>(_mm_movemask_epi8((ends | ... | Equal(bytes, stops))));
    }
#endif
};

} // namespace ZvXmlLib16::detail
