// Arithmetic of magnitudes. Results are new values; an argument may be used twice in one call.
#pragma once

#include "zvxmllib/values/numbers/Magnitude.h"

#include <cstddef>

namespace ZvXmlLib16::detail {

// -1, 0 or 1.
int Compare(Magnitude const& a, Magnitude const& b) noexcept;
Magnitude Add(Magnitude const& a, Magnitude const& b);
// a is not less than b.
Magnitude Subtract(Magnitude const& a, Magnitude const& b);
Magnitude Multiply(Magnitude const& a, Magnitude const& b);

struct Division {
    Magnitude quotient;
    Magnitude remainder;
};
// b is not 0.
Division Divide(Magnitude const& a, Magnitude const& b);

// The largest number whose square is not above a.
Magnitude SquareRoot(Magnitude const& a);

// Times 10 to the power of `digits`.
Magnitude ShiftLeft(Magnitude const& a, std::size_t digits);
// By 10 to the power of `digits`.
Division SplitAt(Magnitude const& a, std::size_t digits);
Magnitude Pow10(std::size_t digits);

// 1 for zero.
std::size_t CountDigits(Magnitude const& a) noexcept;
// a is not 0.
std::size_t CountTrailingZeros(Magnitude const& a) noexcept;
// Writes CountDigits(a) characters, and returns the place after them.
char* PrintDigits(Magnitude const& a, char* out) noexcept;

} // namespace ZvXmlLib16::detail
