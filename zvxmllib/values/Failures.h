// Every failure of the value types. The texts are a contract with callers.
#pragma once

#include <cstdint>

namespace ZvXmlLib16 {

[[noreturn]] void FailAppendToSharedData(std::uint32_t holders);
[[noreturn]] void FailReleaseSharedData(std::uint32_t holders);
[[noreturn]] void FailHexLength();
[[noreturn]] void FailHexDigit(char digit);
[[noreturn]] void FailDataIndex(std::uint32_t index);
[[noreturn]] void FailWhitespaceRule();

} // namespace ZvXmlLib16
