// Values under the encoding algorithms (X.891, clause 10), from text to octets and back.
//
//    1 hexadecimal   the bytes
//    2 base64        the bytes
//    3 short         2 octets, signed, the high one first
//    4 int           4 octets
//    5 long          8 octets
//    6 boolean       the high half of the first octet: the unused bits of the last one; then a bit a value
//    7 float         4 octets, the high one first: the bits of IEEE 754
//    8 double        8 octets
//    9 uuid          16 octets
//   10 cdata         the text in UTF-8
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Appends the values to the text, with a blank between two of them. Algorithms 1 to 9: the tenth is text as
// it is. Throws CZvException for octets that are not values of the algorithm, and for any other number.
void AppendEncodedValues(std::uint32_t algorithm, std::string_view octets, std::string& text);

// Appends the octets of one value: a list is not split. Uses the conversions of the types, and throws what
// they throw. Throws CZvException for an unknown algorithm.
void AppendEncodedOctets(std::uint32_t algorithm, std::string const& text, std::string& octets);

// Local text in UTF-8, up to the first zero: the text itself where it is the same, else in `room`.
std::string_view AsUtf8(std::string_view text, std::string& room);

} // namespace ZvXmlLib16
