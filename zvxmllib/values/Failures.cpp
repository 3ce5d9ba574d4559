// Every failure of the value types. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/values/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Functions.h"

namespace ZvXmlLib16 {

void FailAppendToSharedData(std::uint32_t holders) {
    throw CZvException(FormatString("Failed to append. [RefCount=%d]", static_cast<int>(holders)));
}

void FailReleaseSharedData(std::uint32_t holders) {
    throw CZvException(FormatString("Failed to release data. [RefCount=%d]", static_cast<int>(holders)));
}

void FailHexLength() {
    throw CZvException("Invalid length in hex string");
}

void FailHexDigit(char digit) {
    throw CZvException(FormatString("Invalid char in hex string [%c]", digit));
}

void FailDataIndex(std::uint32_t index) {
    throw CZvException(FormatString("Index Out of range [%d]", static_cast<int>(index)));
}

void FailWhitespaceRule() {
    throw CZvException("Unknown WhitespaceRule");
}

} // namespace ZvXmlLib16
