// A natural number of any size: product, quotient and square root.
#include "zvxmllib/values/numbers/MagnitudeArithmetic.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace ZvXmlLib16::detail {

using Limb = Magnitude::Limb;

namespace {

constexpr std::uint64_t kBase = Magnitude::kBase;

// Below so many limbs the schoolbook is faster.
constexpr std::size_t kKaratsuba = 40;

// to[0..size) += limbs[0..count), count <= size; what is carried out of the top is returned.
Limb AddTo(Limb* to, std::size_t size, Limb const* limbs, std::size_t count) {
    Limb carry = 0;
    for (std::size_t i = 0; i < size && (i < count || carry != 0); ++i) {
        Limb const sum = to[i] + (i < count ? limbs[i] : 0) + carry;
        carry = sum >= kBase ? 1 : 0;
        to[i] = sum - (carry != 0 ? Magnitude::kBase : 0);
    }
    return carry;
}

// from[0..size) -= limbs[0..count), which is not more than it.
void SubtractFrom(Limb* from, std::size_t size, Limb const* limbs, std::size_t count) {
    Limb borrow = 0;
    for (std::size_t i = 0; i < size && (i < count || borrow != 0); ++i) {
        Limb const taken = (i < count ? limbs[i] : 0) + borrow;
        borrow = from[i] < taken ? 1 : 0;
        from[i] = from[i] - taken + (borrow != 0 ? Magnitude::kBase : 0);
    }
}

// out[0..aSize + bSize), which overlaps neither factor.
void MultiplyBySchoolbook(Limb const* a, std::size_t aSize, Limb const* b, std::size_t bSize, Limb* out) {
    std::fill_n(out, aSize + bSize, Limb{0});
    for (std::size_t i = 0; i < aSize; ++i) {
        std::uint64_t const factor = a[i];
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < bSize; ++j) {
            std::uint64_t const product = factor * b[j] + out[i + j] + carry;
            carry = product / kBase;
            out[i + j] = static_cast<Limb>(product - carry * kBase);
        }
        out[i + bSize] = static_cast<Limb>(carry);
    }
}

// Two factors of one size. With a = a1 * B + a0 and b alike, a * b is z2 * B^2 + z1 * B + z0 with z0 = a0 *
// b0, z2 = a1 * b1 and z1 = (a0 + a1) * (b0 + b1) - z0 - z2: three products of half the size for four.
void MultiplyByKaratsuba(Limb const* a, Limb const* b, std::size_t size, Limb* out, Limb* scratch) {
    if (size < kKaratsuba) {
        MultiplyBySchoolbook(a, size, b, size, out);
        return;
    }
    std::size_t const low = size / 2;
    std::size_t const high = size - low;
    std::size_t const sumSize = high + 1;
    MultiplyByKaratsuba(a, b, low, out, scratch);
    MultiplyByKaratsuba(a + low, b + low, high, out + 2 * low, scratch);

    Limb* const aSum = scratch;
    Limb* const bSum = aSum + sumSize;
    Limb* const middle = bSum + sumSize;
    std::copy_n(a + low, high, aSum);
    aSum[high] = AddTo(aSum, high, a, low);
    std::copy_n(b + low, high, bSum);
    bSum[high] = AddTo(bSum, high, b, low);
    MultiplyByKaratsuba(aSum, bSum, sumSize, middle, middle + 2 * sumSize);
    SubtractFrom(middle, 2 * sumSize, out, 2 * low);
    SubtractFrom(middle, 2 * sumSize, out + 2 * low, 2 * high);
    std::size_t middleSize = 2 * sumSize;
    while (middleSize > 0 && middle[middleSize - 1] == 0)
        --middleSize;
    AddTo(out + low, 2 * size - low, middle, middleSize);
}

// What MultiplyByKaratsuba needs: each level takes 4 * (size / 2 + 2) at most, and leaves the next one half.
std::size_t ScratchSize(std::size_t size) {
    constexpr std::size_t kForRounding = 1024; // 16 for each of at most 32 levels, and to spare
    return 4 * size + kForRounding;
}

// The longer factor goes in pieces of the size of the shorter one.
void MultiplyInPieces(Limb const* a, std::size_t aSize, Limb const* b, std::size_t bSize, Limb* out) {
    std::vector<Limb> scratch(ScratchSize(bSize));
    std::vector<Limb> product(2 * bSize);
    std::fill_n(out, aSize + bSize, Limb{0});
    for (std::size_t at = 0; at < aSize; at += bSize) {
        std::size_t const piece = std::min(bSize, aSize - at);
        if (piece == bSize)
            MultiplyByKaratsuba(a + at, b, bSize, product.data(), scratch.data());
        else if (piece < kKaratsuba)
            MultiplyBySchoolbook(a + at, piece, b, bSize, product.data());
        else
            MultiplyInPieces(b, bSize, a + at, piece, product.data());
        AddTo(out + at, aSize + bSize - at, product.data(), piece + bSize);
    }
}

Division DivideByLimb(Magnitude const& a, Limb divisor) {
    Division result{Magnitude::OfSize(a.Size()), Magnitude()};
    std::uint64_t rest = 0;
    for (std::size_t i = a.Size(); i-- > 0;) {
        rest = rest * kBase + a.Limbs()[i];
        result.quotient.Limbs()[i] = static_cast<Limb>(rest / divisor);
        rest %= divisor;
    }
    result.quotient.Clean();
    result.remainder = Magnitude(rest);
    return result;
}

// out = in * factor, of one limb more.
void Scale(Magnitude const& in, Limb factor, Limb* out) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < in.Size(); ++i) {
        carry += std::uint64_t{in.Limbs()[i]} * factor;
        out[i] = static_cast<Limb>(carry % kBase);
        carry /= kBase;
    }
    out[in.Size()] = static_cast<Limb>(carry);
}

// The next digit of the quotient: at[0..size] is less than `divisor` times the base, and keeps what is left.
// The top limb of the divisor is at least half the base (Knuth, The Art of Computer Programming, 4.3.1 D).
Limb DivideStep(Limb* at, Limb const* divisor, std::size_t size) {
    std::uint64_t const head = at[size] * kBase + at[size - 1];
    std::uint64_t digit = head / divisor[size - 1];
    std::uint64_t rest = head % divisor[size - 1];
    while (digit >= kBase || digit * divisor[size - 2] > rest * kBase + at[size - 2]) {
        --digit;
        rest += divisor[size - 1];
        if (rest >= kBase)
            break;
    }
    std::uint64_t carry = 0;
    Limb borrow = 0;
    for (std::size_t i = 0; i <= size; ++i) {
        carry += i < size ? digit * divisor[i] : 0;
        Limb const taken = static_cast<Limb>(carry % kBase) + borrow;
        carry /= kBase;
        borrow = at[i] < taken ? 1 : 0;
        at[i] = at[i] - taken + (borrow != 0 ? Magnitude::kBase : 0);
    }
    if (borrow != 0) { // rare: the digit was one too large
        --digit;
        at[size] = (at[size] + AddTo(at, size, divisor, size)) % Magnitude::kBase;
    }
    return static_cast<Limb>(digit);
}

Magnitude SquareRootOfSmall(Magnitude const& a) {
    std::uint64_t value = 0;
    for (std::size_t i = a.Size(); i-- > 0;)
        value = value * kBase + a.Limbs()[i];
    auto root = static_cast<std::uint64_t>(std::sqrt(static_cast<double>(value))) + 1;
    while (root * root > value)
        --root;
    return Magnitude(root);
}

} // namespace

Magnitude Multiply(Magnitude const& a, Magnitude const& b) {
    if (a.Size() < b.Size())
        return Multiply(b, a);
    if (b.IsZero())
        return Magnitude();
    Magnitude product = Magnitude::OfSize(a.Size() + b.Size());
    if (b.Size() < kKaratsuba)
        MultiplyBySchoolbook(b.Limbs(), b.Size(), a.Limbs(), a.Size(), product.Limbs());
    else
        MultiplyInPieces(a.Limbs(), a.Size(), b.Limbs(), b.Size(), product.Limbs());
    product.Clean();
    return product;
}

Division Divide(Magnitude const& a, Magnitude const& b) {
    if (Compare(a, b) < 0)
        return {Magnitude(), a};
    if (b.Size() == 1)
        return DivideByLimb(a, b.Limbs()[0]);
    std::size_t const size = b.Size();
    auto const factor = static_cast<Limb>(kBase / (b.Limbs()[size - 1] + std::uint64_t{1}));
    std::vector<Limb> rest(a.Size() + 1);
    std::vector<Limb> divisor(size + 1);
    Scale(a, factor, rest.data());
    Scale(b, factor, divisor.data());

    Division result{Magnitude::OfSize(a.Size() - size + 1), Magnitude::OfSize(size)};
    for (std::size_t i = result.quotient.Size(); i-- > 0;)
        result.quotient.Limbs()[i] = DivideStep(rest.data() + i, divisor.data(), size);
    result.quotient.Clean();
    std::copy_n(rest.data(), size, result.remainder.Limbs());
    result.remainder.Clean();
    result.remainder = DivideByLimb(result.remainder, factor).quotient;
    return result;
}

// Newton's method comes down to the root from any guess above it. The guess is the root of the upper half of
// the digits, so each level of the recursion needs two or three divisions at its own length.
Magnitude SquareRoot(Magnitude const& a) {
    if (a.Size() <= 2)
        return SquareRootOfSmall(a);
    std::size_t const guessed = std::max<std::size_t>((a.Size() - 1) / 4, 1) * Magnitude::kDigitsOfLimb;
    Magnitude const head = SquareRoot(SplitAt(a, 2 * guessed).quotient);
    Magnitude root = ShiftLeft(Add(head, Magnitude(1)), guessed);
    for (;;) {
        Magnitude next = Divide(Add(root, Divide(a, root).quotient), Magnitude(2)).quotient;
        if (Compare(next, root) >= 0)
            return root;
        root = std::move(next);
    }
}

} // namespace ZvXmlLib16::detail
