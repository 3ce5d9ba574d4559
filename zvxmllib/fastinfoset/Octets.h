// The octets of a Fast Infoset document that stand for themselves, and how a character string is encoded
// (X.891, clause 7 and annex C).
#pragma once

#include <cstdint>

namespace ZvXmlLib16::detail {

inline constexpr std::uint8_t kEnd = 0xF0;
inline constexpr std::uint8_t kDoubleEnd = 0xFF;
inline constexpr std::uint8_t kProcessingInstruction = 0xE1;
inline constexpr std::uint8_t kComment = 0xE2;
inline constexpr std::uint8_t kEmptyValue = 0xFF;

enum StringEncoding : unsigned { kUtf8String, kUtf16String, kAlphabetString, kAlgorithmString };

inline constexpr std::uint32_t kCdataAlgorithm = 10;

} // namespace ZvXmlLib16::detail
