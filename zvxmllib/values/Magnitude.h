// A natural number of any size, nine decimal digits to a limb: what CBigInteger holds beside its sign.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZvXmlLib16::detail {

// Limbs to the base 10^9, least significant first, the topmost not 0; zero has none. Up to four limbs (36
// digits: any value of 64 bits, any fraction that CDecimal keeps by default) stand in the object itself, so
// the numbers of ordinary documents allocate nothing. A power of ten as base makes text a matter of copying,
// and shifts by decimal digits cheap. Part of the library's inside: applications see CBigInteger.
class ZV_API Magnitude {
public:
    using Limb = std::uint32_t;
    static constexpr Limb kBase = 1000000000;
    static constexpr unsigned kDigitsOfLimb = 9;

    constexpr Magnitude() noexcept : m_size(0), m_capacity(kInPlace), m_inPlace{} {}
    explicit Magnitude(unsigned long long value) noexcept;
    // Borrows limbs that live as long as the program; copies of it own theirs. For constants.
    template <std::size_t size>
    constexpr explicit Magnitude(Limb const (&limbs)[size]) noexcept
        : m_size(size), m_capacity(kBorrowed), m_borrowed(limbs) {}
    Magnitude(Magnitude const& other);
    Magnitude(Magnitude&& other) noexcept;
    Magnitude& operator=(Magnitude const& other);
    Magnitude& operator=(Magnitude&& other) noexcept;
    ~Magnitude();

    // Limbs that are to be written, each of them, before anything else is done; then Clean.
    static Magnitude OfSize(std::size_t size);
    // The text consists of digits; none are 0.
    static Magnitude OfDigits(std::string_view digits);

    bool IsZero() const noexcept { return m_size == 0; }
    std::size_t Size() const noexcept { return m_size; }
    Limb const* Limbs() const noexcept {
        return m_capacity == kInPlace ? m_inPlace : m_capacity == kBorrowed ? m_borrowed : m_owned;
    }
    // Not of a borrowed value.
    Limb* Limbs() noexcept { return m_capacity == kInPlace ? m_inPlace : m_owned; }
    // Removes leading zeros.
    void Clean() noexcept;

private:
    static constexpr std::uint32_t kInPlace = 4;
    static constexpr std::uint32_t kBorrowed = 0;

    bool IsOwner() const noexcept { return m_capacity > kInPlace; }
    void TakeFrom(Magnitude& other) noexcept;

    std::uint32_t m_size;
    std::uint32_t m_capacity; // kInPlace, kBorrowed, or the length of an array of its own
    union {
        Limb m_inPlace[kInPlace];
        Limb* m_owned;
        Limb const* m_borrowed;
    };
};

} // namespace ZvXmlLib16::detail
