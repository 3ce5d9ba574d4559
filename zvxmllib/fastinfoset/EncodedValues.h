// The text of values that are written under an encoding algorithm (X.891, clause 10).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Appends the values to the text, with a blank between two of them. Algorithms 1 to 9: the tenth is text as
// it is. Throws CZvException for octets that are no values of the algorithm, and for any other number.
void AppendEncodedValues(std::uint32_t algorithm, std::string_view octets, std::string& text);

} // namespace ZvXmlLib16
