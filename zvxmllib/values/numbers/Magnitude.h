// A natural number of any size, nine decimal digits to a limb: the magnitude of a CBigInteger.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ZvXmlLib16::detail {

// Limbs to the base 10^9, least significant first, the topmost not 0; zero has none. Up to four limbs (36
// digits: any value of 64 bits, any fraction that CDecimal keeps by default) are stored in the object itself,
// so the numbers of ordinary documents allocate nothing. With a power of ten as base, text is a matter of
// copying, and decimal shifts are cheap. Internal: applications use CBigInteger.
class Magnitude {
public:
    using Limb = std::uint32_t;
    static constexpr Limb kBase = 1000000000;
    static constexpr unsigned kDigitsOfLimb = 9;

    constexpr Magnitude() noexcept : m_size(0), m_capacity(kInPlace), m_inPlace{} {}
    explicit Magnitude(unsigned long long value) noexcept : Magnitude() { Set(value); }
    // Borrows limbs that live as long as the program; copies own theirs. For constants.
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

    // Uninitialised limbs: write them all before anything else, then call Clean.
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
    // Without a branch on the value, since lengths are unpredictable.
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

    // Both leave a value that must be overwritten.
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
