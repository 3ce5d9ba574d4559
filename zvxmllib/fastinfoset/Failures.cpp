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

void FailReadName(std::string const& name) {
    throw CZvException(FormatString("Failed to parse FastInfoset. Invalid name [%s].", name.c_str()));
}

void FailReadCharacter(char32_t character) {
    throw CZvException(FormatString("Failed to parse FastInfoset. Invalid character [U+%04X].",
                                    static_cast<unsigned>(character)));
}

void FailReadCharacterNotLocal(char32_t character) {
    throw CZvException(FormatString(
        "Failed to parse FastInfoset. The character [U+%04X] can not be expressed in the local encoding.",
        static_cast<unsigned>(character)));
}

void FailReadUtf8() {
    throw CZvException("Failed to parse FastInfoset. Invalid UTF-8.");
}

void FailReadUtf16() {
    throw CZvException("Failed to parse FastInfoset. Invalid UTF-16.");
}

void FailReadTwin(std::string const& attribute) {
    throw CZvException(
        FormatString("Failed to parse FastInfoset. Duplicate attribute [%s].", attribute.c_str()));
}

void FailReadDeclaration(std::string const& prefix) {
    throw CZvException(
        FormatString("Failed to parse FastInfoset. Invalid declaration of prefix [%s].", prefix.c_str()));
}

void FailUndeclaredPrefix(std::string const& prefix) {
    throw CZvException(
        FormatString("Failed to parse FastInfoset. The prefix [%s] is not declared.", prefix.c_str()));
}

void FailExternalVocabulary(std::string const& uri) {
    throw CZvException(
        FormatString("Failed to parse FastInfoset. Unknown external vocabulary [%s].", uri.c_str()));
}

void FailUnexpandedEntity(std::string const& name) {
    throw CZvException(FormatString("Failed to parse FastInfoset. Unexpanded entity [%s].", name.c_str()));
}

void FailDocumentItem() {
    throw CZvException("Failed to parse FastInfoset. Invalid Encoding of Document type.");
}

void FailDataBehindDocument() {
    throw CZvException("Failed to parse FastInfoset. Data behind the document.");
}

void FailEncodedLength(char const* type) {
    throw CZvException(FormatString("Invalid value for %s byte encoding.", type));
}

void FailUnknownAlgorithm() {
    throw CZvException("Unknown byte encoding.");
}

} // namespace ZvXmlLib16
