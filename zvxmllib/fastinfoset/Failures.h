// Every message of the Fast Infoset subsystem.
#pragma once

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// Options.
[[noreturn]] void FailEncodingOfItemType(std::uint32_t itemType);

// Writing. `function` is the encoder that found it.
[[noreturn]] void FailDeclaration();
[[noreturn]] void FailEmptyName();
[[noreturn]] void FailWrittenUtf16();
[[noreturn]] void FailWrittenAlphabet(std::uint32_t index);
[[noreturn]] void FailWrittenAlgorithm(std::uint32_t index);
[[noreturn]] void FailWrittenEncoding(char const* function);
[[noreturn]] void FailWrittenAlphabetSize();
[[noreturn]] void FailWrittenAlphabetBits();
[[noreturn]] void FailWrittenCharacter();

// Reading. `bit` is where a form begins: "second".
[[noreturn]] void FailInputEnd();
[[noreturn]] void FailElementItem();
[[noreturn]] void FailPrefixWithoutNamespace();
[[noreturn]] void FailLengthForm(char const* bit);
[[noreturn]] void FailOptionalIndex();
[[noreturn]] void FailIntegerForm(char const* bit);
[[noreturn]] void FailReadAlphabetSize();
// `table` is what it holds: "attribute values".
[[noreturn]] void FailIndexBeyondTable(std::uint32_t index, char const* table);
[[noreturn]] void FailUnknownAlphabet(std::uint32_t index);
[[noreturn]] void FailPlaceInAlphabet(std::uint32_t place, std::uint32_t alphabet);
[[noreturn]] void FailNoRootElement();
[[noreturn]] void FailTextFromIndices();

// Reading, where a document must stand for one of XML.
[[noreturn]] void FailReadName(std::string const& name);
[[noreturn]] void FailReadCharacter(char32_t character);
[[noreturn]] void FailReadCharacterNotLocal(char32_t character);
[[noreturn]] void FailReadUtf8();
[[noreturn]] void FailReadUtf16();
[[noreturn]] void FailReadTwin(std::string const& attribute);
[[noreturn]] void FailReadDeclaration(std::string const& prefix);
[[noreturn]] void FailUndeclaredPrefix(std::string const& prefix);
[[noreturn]] void FailExternalVocabulary(std::string const& uri);
[[noreturn]] void FailUnexpandedEntity(std::string const& name);
[[noreturn]] void FailDocumentItem();
[[noreturn]] void FailDataBehindDocument();

// Values under encoding algorithms. `type` is the algorithm's: "SHORT".
[[noreturn]] void FailEncodedLength(char const* type);
[[noreturn]] void FailUnknownAlgorithm();

} // namespace ZvXmlLib16
