// A natural number of any size, nine decimal digits to a limb: what CBigInteger holds beside its sign.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ZvXmlLib16::detail {

// Limbs to the base 10^9, least significant first, the topmost not 0; zero has none. Up to four limbs (36
// digits: any value of 64 bits, any fraction that CDecimal keeps by default) stand in the object itself, so
// the numbers of ordinary documents allocate nothing. A power of ten as base makes text a matter of copying,
// and shifts by decimal digits cheap. Part of the library's inside: applications see CBigInteger.
class Magnitude {
public:
    using Limb = std::uint32_t;
    static constexpr Limb kBase = 1000000000;
    static constexpr unsigned kDigitsOfLimb = 9;

    constexpr Magnitude() noexcept : m_size(0), m_capacity(kInPlace), m_inPlace{} {}
    explicit Magnitude(unsigned long long value) noexcept : Magnitude() { Set(value); }
    // Borrows limbs that live as long as the program; copies of it own theirs. For constants.
    template <std::size_t size>
    constexpr explicit Magnitude(Limb const (&limbs)[size]) noexcept
        : m_size(size), m_capacity(kBorrowed), m_borrowed(limbs) {}
    Magnitude(Magnitude const& other);
    Magnitude(Magnitude&& other) noexcept : Magnitude() { TakeFrom(other); }
    Magnitude& operator=(Magnitude const& other);
    Magnitude& operator=(Magnitude&& other) noexcept {
        if (this != &other) {
            Release();
            TakeFrom(other);
        }
        return *this;
    }
    ~Magnitude() { Release(); }

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
    // Without a branch on the value, as the lengths of numbers cannot be foreseen.
    void Set(unsigned long long value) noexcept {
        unsigned long long const upper = value / kBase;
        Release();
        m_capacity = kInPlace;
        m_inPlace[0] = static_cast<Limb>(value % kBase);
        m_inPlace[1] = static_cast<Limb>(upper % kBase);
        m_inPlace[2] = static_cast<Limb>(upper / kBase);
        m_size = static_cast<std::uint32_t>(value != 0) + static_cast<std::uint32_t>(upper != 0) +
                 static_cast<std::uint32_t>(upper >= kBase);
    }
    // Removes leading zeros.
    void Clean() noexcept;

private:
    static constexpr std::uint32_t kInPlace = 4;
    static constexpr std::uint32_t kBorrowed = 0;

    // Both leave a value that is about to be overwritten.
    void Release() noexcept {
        if (m_capacity > kInPlace)
            delete[] m_owned;
    }
    void TakeFrom(Magnitude& other) noexcept {
        m_size = other.m_size;
        m_capacity = other.m_capacity;
        if (m_capacity == kInPlace)
            std::memcpy(m_inPlace, other.m_inPlace, sizeof m_inPlace);
        else if (m_capacity == kBorrowed)
            m_borrowed = other.m_borrowed;
        else
            m_owned = other.m_owned;
        other.m_size = 0;
        other.m_capacity = kInPlace;
    }

    std::uint32_t m_size;
    std::uint32_t m_capacity; // kInPlace, kBorrowed, or the length of an array of its own
    union {
        Limb m_inPlace[kInPlace];
        Limb* m_owned;
        Limb const* m_borrowed;
    };
};

} // namespace ZvXmlLib16::detail
