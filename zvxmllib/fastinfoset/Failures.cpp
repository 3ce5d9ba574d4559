// The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/fastinfoset/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailEncodingOfItemType(std::uint32_t itemType) {
    throw CZvInvalidParamException(
        FormatString("Item type [%u] has no Fast Infoset encoding.", static_cast<unsigned>(itemType)));
}

void FailDeclaration() {
    throw CZvException("Invalid FastInfoset declaration.");
}

void FailEmptyName() {
    throw CZvException("Failed to write FastInfoset. A name is empty.");
}

void FailWrittenUtf16() {
    throw CZvException(
        "Failed to write FastInfoset. Unsupported Feature UTF16BE in EncodedCharacterStringBit5.");
}

void FailWrittenAlphabet(std::uint32_t index) {
    throw CZvException(FormatString("Failed to write FastInfoset. Invalid Restricted Alphabet value [%d]",
                                    static_cast<int>(index)));
}

void FailWrittenAlgorithm(std::uint32_t index) {
    throw CZvException(FormatString("Failed to write FastInfoset. Invalid Encoding Algorithm value [%d]",
                                    static_cast<int>(index)));
}

void FailWrittenEncoding(char const* function) {
    throw CZvException(FormatString("Failed to write FastInfoset. Unknown encoding in %s.", function));
}

void FailWrittenAlphabetSize() {
    throw CZvException("Failed to write FastInfoset. Invalid Restricted Alphabet. Alphabet must contain "
                       "between 2 and 2^20 characters.");
}

void FailWrittenAlphabetBits() {
    throw CZvException("Failed to write FastInfoset. Unsupported Feature in AppendRestrictedAlphabetString.");
}

void FailWrittenCharacter() {
    throw CZvException("Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.");
}

void FailInputEnd() {
    throw CZvException("Failed to parse FastInfoset. Unexpected End of File.");
}

void FailElementItem() {
    throw CZvException("Failed to parse FastInfoset. Invalid Encoding of Element type.");
}

void FailPrefixWithoutNamespace() {
    throw CZvException("Failed to parse FastInfoset. Invalid QName type Prefix without Namespace.");
}

void FailLengthForm(char const* bit) {
    throw CZvException(FormatString(
        "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the %s bit of an octet.", bit));
}

void FailOptionalIndex() {
    throw CZvException("Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 type  on the "
                       "second bit of an octet.");
}

void FailIntegerForm(char const* bit) {
    throw CZvException(
        FormatString("Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the %s "
                     "bit of an octet.",
                     bit));
}

void FailReadAlphabetSize() {
    throw CZvException("Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Alphabet must "
                       "contain between 2 and 2^20 characters.");
}

void FailIndexBeyondTable(std::uint32_t index, char const* table) {
    throw CZvException(FormatString("Failed to parse FastInfoset. Index [%u] is beyond the table of %s.",
                                    static_cast<unsigned>(index), table));
}

void FailUnknownAlphabet(std::uint32_t index) {
    throw CZvException(FormatString("Failed to parse FastInfoset. Unknown Restricted Alphabet [%u].",
                                    static_cast<unsigned>(index)));
}

void FailPlaceInAlphabet(std::uint32_t place, std::uint32_t alphabet) {
    throw CZvException(
        FormatString("Failed to parse FastInfoset. Character [%u] is beyond the Restricted Alphabet [%u].",
                     static_cast<unsigned>(place), static_cast<unsigned>(alphabet)));
}

void FailNoRootElement() {
    throw CZvException("Failed to parse FastInfoset. The document has no element.");
}

void FailTextFromIndices() {
    throw CZvException("Failed to parse FastInfoset. Too much text from indices.");
}

void FailEncodedLength(char const* type) {
    throw CZvException(FormatString("Invalid value for %s byte encoding.", type));
}

void FailUnknownAlgorithm() {
    throw CZvException("Unknown byte encoding.");
}

} // namespace ZvXmlLib16
