// A natural number of any size: its decimal digits. Both ways take time in proportion to their count.
#include "zvxmllib/values/numbers/MagnitudeArithmetic.h"
#include "zvxmllib/values/text/NumberText.h"

#include <array>
#include <cstring>

namespace ZvXmlLib16::detail {

using Limb = Magnitude::Limb;

namespace {

constexpr std::array<char, 200> MakePairs() {
    std::array<char, 200> pairs{};
    for (unsigned i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

constexpr std::array<char, 200> kPairs = MakePairs();

Limb Digit(char c) {
    return static_cast<Limb>(c - '0');
}

Limb ReadLimb(char const* digits) {
    Limb eight = 0;
    ReadEightDigits(digits, eight);
    return eight * 10 + Digit(digits[8]);
}

void PrintFour(Limb value, char* out) {
    std::memcpy(out, &kPairs[std::size_t{2} * (value / 100)], 2);
    std::memcpy(out + 2, &kPairs[std::size_t{2} * (value % 100)], 2);
}

char* PrintWholeLimb(Limb limb, char* out) {
    Limb const high = limb / 10000;
    *out = static_cast<char>('0' + high / 10000);
    PrintFour(high % 10000, out + 1);
    PrintFour(limb % 10000, out + 5);
    return out + Magnitude::kDigitsOfLimb;
}

std::size_t CountDigitsOf(Limb limb) {
    std::size_t count = 1;
    for (; limb >= 10; limb /= 10)
        ++count;
    return count;
}

} // namespace

Magnitude Magnitude::OfDigits(std::string_view digits) {
    while (!digits.empty() && digits.front() == '0')
        digits.remove_prefix(1);
    Magnitude result = OfSize((digits.size() + Magnitude::kDigitsOfLimb - 1) / Magnitude::kDigitsOfLimb);
    Limb* out = result.Limbs();
    char const* end = digits.data() + digits.size();
    std::size_t left = digits.size();
    for (; left >= Magnitude::kDigitsOfLimb; left -= Magnitude::kDigitsOfLimb) {
        end -= Magnitude::kDigitsOfLimb;
        *out++ = ReadLimb(end);
    }
    if (left > 0) {
        Limb top = 0;
        for (char const* at = digits.data(); at != end; ++at)
            top = top * 10 + Digit(*at);
        *out = top;
    }
    return result;
}

std::size_t CountDigits(Magnitude const& a) noexcept {
    if (a.IsZero())
        return 1;
    return (a.Size() - 1) * Magnitude::kDigitsOfLimb + CountDigitsOf(a.Limbs()[a.Size() - 1]);
}

std::size_t CountTrailingZeros(Magnitude const& a) noexcept {
    Limb const* limb = a.Limbs();
    std::size_t count = 0;
    for (; *limb == 0; ++limb)
        count += Magnitude::kDigitsOfLimb;
    for (Limb rest = *limb; rest % 10 == 0; rest /= 10)
        ++count;
    return count;
}

char* PrintDigits(Magnitude const& a, char* out) noexcept {
    Limb const* const limbs = a.Limbs();
    std::size_t size = a.Size();
    Limb top = size > 0 ? limbs[--size] : 0;
    std::size_t const count = CountDigitsOf(top);
    for (char* at = out + count; at != out; top /= 10)
        *--at = static_cast<char>('0' + top % 10);
    out += count;
    while (size > 0)
        out = PrintWholeLimb(limbs[--size], out);
    return out;
}

} // namespace ZvXmlLib16::detail
