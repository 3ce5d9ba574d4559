// Finding the end of a run of plain bytes: 16 at a time where the machine can, one by one elsewhere.
#pragma once

#include <array>
#include <cstddef>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace ZvXmlLib16::detail {

// Which bytes end a run: the characters listed, control characters, and what lies beyond ASCII. Tab and line
// feed are control characters, except where `passesBreaks`.
template <bool passesBreaks, char... stops>
struct PlainBytes {
    static constexpr bool EndsRun(unsigned char byte) noexcept {
        if (passesBreaks && (byte == '\t' || byte == '\n'))
            return false;
        return byte < 0x20 || byte >= 0x80 || ((byte == static_cast<unsigned char>(stops)) || ...);
    }

    // The first byte from `at` on that ends the run, `end` if there is none.
    static char const* FindEnd(char const* at, char const* end) noexcept {
#ifdef __SSE2__
        for (; end - at >= 16; at += 16) {
            __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
            int const found = _mm_movemask_epi8(EndsOf(bytes));
            if (found != 0)
                return at + __builtin_ctz(static_cast<unsigned>(found));
        }
#endif
        while (at != end && !kEndsRun[static_cast<unsigned char>(*at)])
            ++at;
        return at;
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
    static __m128i Equal(__m128i bytes, char character) noexcept {
        return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(character));
    }
    // The comparison is one of signed numbers: what lies beyond ASCII is below the blank, too.
    static __m128i EndsOf(__m128i bytes) noexcept {
        __m128i ends = _mm_cmplt_epi8(bytes, _mm_set1_epi8(0x20));
        if (passesBreaks)
            ends = _mm_andnot_si128(_mm_or_si128(Equal(bytes, '\t'), Equal(bytes, '\n')), ends);
        return (ends | ... | Equal(bytes, stops));
    }
#endif
};

} // namespace ZvXmlLib16::detail
