// A natural number of any size: storage, and what takes time in proportion to its length.
#include "zvxmllib/values/numbers/Magnitude.h"

#include "zvxmllib/values/numbers/MagnitudeArithmetic.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace ZvXmlLib16::detail {

using Limb = Magnitude::Limb;

namespace {

constexpr unsigned kDigitsOfLimb = Magnitude::kDigitsOfLimb;
constexpr Limb kPowers[kDigitsOfLimb + 1] = {1,      10,      100,      1000,      10000,
                                             100000, 1000000, 10000000, 100000000, 1000000000};

} // namespace

Magnitude::Magnitude(Magnitude const& other) : m_size(other.m_size), m_capacity(kInPlace), m_inPlace{} {
    if (other.m_capacity == kInPlace) {
        std::memcpy(m_inPlace, other.m_inPlace, sizeof m_inPlace);
        return;
    }
    if (m_size > kInPlace) {
        m_owned = new Limb[m_size];
        m_capacity = m_size;
    }
    std::copy_n(other.Limbs(), m_size, Limbs());
}

Magnitude& Magnitude::operator=(Magnitude const& other) {
    if (this != &other)
        *this = Magnitude(other);
    return *this;
}

Magnitude Magnitude::OfSize(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    Magnitude result;
    if (size > kInPlace) {
        result.m_owned = new Limb[size];
        result.m_capacity = static_cast<std::uint32_t>(size);
    }
    result.m_size = static_cast<std::uint32_t>(size);
    return result;
}

void Magnitude::Clean() noexcept {
    Limb const* const limbs = Limbs();
    while (m_size > 0 && limbs[m_size - 1] == 0)
        --m_size;
}

int Compare(Magnitude const& a, Magnitude const& b) noexcept {
    if (a.Size() != b.Size())
        return a.Size() < b.Size() ? -1 : 1;
    for (std::size_t i = a.Size(); i-- > 0;)
        if (a.Limbs()[i] != b.Limbs()[i])
            return a.Limbs()[i] < b.Limbs()[i] ? -1 : 1;
    return 0;
}

Magnitude Add(Magnitude const& a, Magnitude const& b) {
    if (a.Size() < b.Size())
        return Add(b, a);
    Magnitude sum = Magnitude::OfSize(a.Size() + 1);
    Limb* const out = sum.Limbs();
    Limb carry = 0;
    for (std::size_t i = 0; i < a.Size(); ++i) {
        Limb const digit = a.Limbs()[i] + (i < b.Size() ? b.Limbs()[i] : 0) + carry;
        carry = digit >= Magnitude::kBase ? 1 : 0;
        out[i] = digit - (carry != 0 ? Magnitude::kBase : 0);
    }
    out[a.Size()] = carry;
    sum.Clean();
    return sum;
}

Magnitude Subtract(Magnitude const& a, Magnitude const& b) {
    Magnitude difference = Magnitude::OfSize(a.Size());
    Limb* const out = difference.Limbs();
    Limb borrow = 0;
    for (std::size_t i = 0; i < a.Size(); ++i) {
        Limb const taken = (i < b.Size() ? b.Limbs()[i] : 0) + borrow;
        borrow = a.Limbs()[i] < taken ? 1 : 0;
        out[i] = a.Limbs()[i] - taken + (borrow != 0 ? Magnitude::kBase : 0);
    }
    difference.Clean();
    return difference;
}

Magnitude ShiftLeft(Magnitude const& a, std::size_t digits) {
    if (a.IsZero())
        return Magnitude();
    std::size_t const zeros = digits / kDigitsOfLimb;
    std::uint64_t const factor = kPowers[digits % kDigitsOfLimb];
    Magnitude shifted = Magnitude::OfSize(zeros + a.Size() + 1);
    Limb* out = std::fill_n(shifted.Limbs(), zeros, Limb{0});
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < a.Size(); ++i) {
        carry += a.Limbs()[i] * factor;
        *out++ = static_cast<Limb>(carry % Magnitude::kBase);
        carry /= Magnitude::kBase;
    }
    *out = static_cast<Limb>(carry);
    shifted.Clean();
    return shifted;
}

Division SplitAt(Magnitude const& a, std::size_t digits) {
    std::size_t const whole = digits / kDigitsOfLimb;
    if (whole >= a.Size())
        return {Magnitude(), a};
    Limb const divisor = kPowers[digits % kDigitsOfLimb];
    Limb const factor = kPowers[kDigitsOfLimb - digits % kDigitsOfLimb]; // of what comes from the limb above
    std::size_t const size = a.Size() - whole;
    Division result{Magnitude::OfSize(size), Magnitude::OfSize(whole + 1)};
    Limb const* const in = a.Limbs() + whole;
    Limb* const high = result.quotient.Limbs();
    for (std::size_t i = 0; i < size; ++i) {
        Limb const above = i + 1 < size ? in[i + 1] % divisor : 0;
        high[i] = in[i] / divisor + (above != 0 ? above * factor : 0);
    }
    *std::copy_n(a.Limbs(), whole, result.remainder.Limbs()) = in[0] % divisor;
    result.quotient.Clean();
    result.remainder.Clean();
    return result;
}

Magnitude Pow10(std::size_t digits) {
    return ShiftLeft(Magnitude(1), digits);
}

} // namespace ZvXmlLib16::detail
