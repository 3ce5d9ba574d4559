// CFastInfosetReader: what the tree has no place for, and the header of the document above all.
//
//   0 a v n u c s r   additional data, initial vocabulary, notations, unparsed entities, character encoding
//                     scheme, standalone, version; what is there follows in this order
#include "zvxmllib/fastinfoset/FastInfosetReader.h"
#include "zvxmllib/fastinfoset/Octets.h"

namespace ZvXmlLib16 {

namespace {

enum HeaderPart : std::uint8_t {
    kAdditionalData = 0x40,
    kInitialVocabulary = 0x20,
    kNotations = 0x10,
    kUnparsedEntities = 0x08,
    kCharacterEncoding = 0x04,
    kStandalone = 0x02,
    kVersion = 0x01,
};

// Of the two octets that tell what is in an initial vocabulary.
constexpr unsigned kExternalVocabulary = 0x1000;
constexpr unsigned kOctetStrings = 0x0FE0;   // seven tables, from alphabets to other URIs
constexpr unsigned kEncodedStrings = 0x001C; // attribute values, chunks, other strings
constexpr unsigned kNameSurrogates = 0x0003; // elements, attributes

unsigned CountBits(unsigned bits) noexcept {
    unsigned count = 0;
    for (; bits != 0; bits &= bits - 1)
        ++count;
    return count;
}

} // namespace

void CFastInfosetReader::ParseDocumentHeader() {
    std::uint8_t const parts = m_in.ReadOctet();
    if ((parts & kAdditionalData) != 0) {
        for (std::uint32_t left = m_in.ReadSequenceLength(); left != 0; --left) {
            SkipOctetString();
            SkipOctetString();
        }
    }
    if ((parts & kInitialVocabulary) != 0)
        m_checks == nullptr ? ParseInitialVocabulary() : TakeInitialVocabulary();
    if ((parts & kNotations) != 0)
        RequireEnd(SkipNotations());
    if ((parts & kUnparsedEntities) != 0)
        RequireEnd(SkipUnparsedEntities());
    if ((parts & kCharacterEncoding) != 0)
        SkipOctetString();
    if ((parts & kStandalone) != 0)
        m_in.ReadOctet();
    if ((parts & kVersion) != 0)
        SkipNonIdentifyingString();
}

// The tables of the document do not enter the working vocabulary, which was settled by the context.
void CFastInfosetReader::ParseInitialVocabulary() {
    unsigned const high = m_in.ReadOctet();
    unsigned const tables = high << 8 | m_in.ReadOctet();
    if ((tables & kExternalVocabulary) != 0)
        SkipOctetString();
    SkipItems(tables & kOctetStrings, &CFastInfosetReader::SkipOctetString);
    SkipItems(tables & kEncodedStrings, &CFastInfosetReader::SkipEncodedString);
    SkipItems(tables & kNameSurrogates, &CFastInfosetReader::SkipNameSurrogate);
}

// One sequence for each bit of `parts`. A count that is too large ends with the input.
void CFastInfosetReader::SkipItems(unsigned parts, void (CFastInfosetReader::*skip)()) {
    for (unsigned tables = CountBits(parts); tables != 0; --tables) {
        for (std::uint32_t left = m_in.ReadSequenceLength(); left != 0; --left)
            (this->*skip)();
    }
}

// 110000 s p: name, system identifier, public identifier. No length ahead, the first other octet ends them.
std::uint8_t CFastInfosetReader::SkipNotations() {
    std::uint8_t octet = 0;
    while (((octet = m_in.ReadOctet()) & 0xFC) == 0xC0)
        SkipIdentifyingStrings(1 + CountBits(octet & 0x03U));
    return octet;
}

// 1101000 p: name, system identifier, public identifier, notation. Ended as the notations are.
std::uint8_t CFastInfosetReader::SkipUnparsedEntities() {
    std::uint8_t octet = 0;
    while (((octet = m_in.ReadOctet()) & 0xFE) == 0xD0)
        SkipIdentifyingStrings(3 + (octet & 0x01U));
    return octet;
}

void CFastInfosetReader::SkipProcessingInstruction() {
    SkipIdentifyingString();
    SkipNonIdentifyingString();
}

// 110001 s p: the identifiers, instructions, an end.
std::uint8_t CFastInfosetReader::SkipDocumentType(std::uint8_t octet) {
    SkipIdentifyingStrings(CountBits(octet & 0x03U));
    while ((octet = m_in.ReadOctet()) == detail::kProcessingInstruction)
        SkipProcessingInstruction();
    return octet;
}

// 110010 s p: the name, the identifiers. What it stands for would be missing.
void CFastInfosetReader::SkipEntityReference(std::uint8_t octet) {
    if (m_checks != nullptr)
        FailUnexpandedEntity(std::string(SkipIdentifyingString()));
    SkipIdentifyingStrings(1 + CountBits(octet & 0x03U));
}

void CFastInfosetReader::SkipIdentifyingStrings(unsigned count) {
    for (; count != 0; --count)
        SkipIdentifyingString();
}

// Its table is none of those that the tree needs, so an index is not looked up, and the answer is empty then.
std::string_view CFastInfosetReader::SkipIdentifyingString() {
    std::uint8_t const octet = m_in.ReadOctet();
    if (octet < 0x80)
        return m_in.ReadOctets(m_in.ReadLength2(octet));
    m_in.ReadInteger2(octet);
    return {};
}

void CFastInfosetReader::SkipNonIdentifyingString() {
    std::uint8_t const octet = m_in.ReadOctet();
    if (octet >= 0x80)
        ReadOptionalIndex(octet);
    else
        ReadEncodedString5(octet);
}

void CFastInfosetReader::SkipOctetString() {
    m_in.ReadOctets(m_in.ReadLength2(m_in.ReadOctet()));
}

void CFastInfosetReader::SkipEncodedString() {
    ReadEncodedString5(m_in.ReadOctet());
}

// 000000 p n: the indices of prefix and namespace, as far as they are there, and of the local name.
void CFastInfosetReader::SkipNameSurrogate() {
    for (unsigned left = 1 + CountBits(m_in.ReadOctet() & 0x03U); left != 0; --left)
        m_in.ReadInteger2(m_in.ReadOctet());
}

} // namespace ZvXmlLib16
