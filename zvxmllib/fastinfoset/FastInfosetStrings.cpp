// CFastInfosetReader: strings and their encodings.
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/fastinfoset/EncodedValues.h"
#include "zvxmllib/fastinfoset/FastInfosetReader.h"
#include "zvxmllib/fastinfoset/InfosetChecks.h"
#include "zvxmllib/fastinfoset/Octets.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/text/TextParts.h"

#include <algorithm>
#include <cstring>

namespace ZvXmlLib16 {

namespace {

// Neither zero, nor carriage return, nor above 127: eight octets at once. Exact as long as it says true.
template <class Word>
bool ArePlain(char const* octets) noexcept {
    constexpr Word kOnes = static_cast<Word>(0x0101010101010101U);
    constexpr Word kHighs = static_cast<Word>(kOnes * 0x80U);
    Word word;
    std::memcpy(&word, octets, sizeof word);
    return ((word | (word - kOnes) | ((word ^ (kOnes * '\r')) - kOnes)) & kHighs) == 0;
}

// True for text that is the same in every local encoding and needs no change.
bool IsPlain(std::string_view text) noexcept {
    char const* p = text.data();
    char const* const end = p + text.size();
    if (text.size() < 4)
        return std::all_of(p, end, [](char c) { return c != '\0' && c != '\r' && (c & 0x80) == 0; });
    if (text.size() < 8)
        return ArePlain<std::uint32_t>(p) && ArePlain<std::uint32_t>(end - 4);
    for (; end - p > 8; p += 8) {
        if (!ArePlain<std::uint64_t>(p))
            return false;
    }
    return ArePlain<std::uint64_t>(end - 8);
}

} // namespace

// Returns the entry of the string in the table, where a literal goes.
std::uint32_t CFastInfosetReader::ReadIdentifyingString(NameParts& table) {
    std::uint8_t const octet = m_in.ReadOctet();
    if (octet >= 0x80) {
        std::uint32_t const index = m_in.ReadInteger2(octet);
        if (index > table.entries.size())
            FailIndexBeyondTable(index, table.content);
        return index;
    }
    AddNamePart(table, m_in.ReadOctets(m_in.ReadLength2(octet)));
    return static_cast<std::uint32_t>(table.entries.size());
}

void CFastInfosetReader::AddNamePart(NameParts& table, std::string_view utf8) {
    if (m_checks != nullptr) {
        bool const isUri = &table == &m_vocabulary->namespaceNames;
        isUri ? InfosetChecks::RequireText(utf8) : InfosetChecks::RequireName(utf8);
    }
    table.entries.push_back({detail::UpToNul(DecodeUtf8(utf8))});
}

// 0 for the empty string.
std::uint32_t CFastInfosetReader::ReadOptionalIndex(std::uint8_t octet) {
    if (octet == detail::kEmptyValue)
        return 0;
    try {
        return m_in.ReadInteger2(octet);
    } catch (CZvException const&) {
        FailOptionalIndex();
    }
}

std::string_view CFastInfosetReader::ReadAttributeValue() {
    Strings& values = m_vocabulary->attributeValues;
    std::uint8_t const octet = m_in.ReadOctet();
    if (octet >= 0x80) {
        std::uint32_t const index = ReadOptionalIndex(octet);
        return index == 0 ? std::string_view() : TextAt(values, index);
    }
    std::string_view const value = Decode(ReadEncodedString5(octet));
    if ((octet & 0x40) != 0)
        values.entries.push_back(value);
    return value;
}

std::string_view CFastInfosetReader::TextAt(Strings const& table, std::uint32_t index) {
    if (index > table.entries.size())
        FailIndexBeyondTable(index, table.content);
    std::string_view const text = table.entries[index - 1];
    Charge(text.size());
    return text;
}

// For text that an index stands for, which is copied or looked at.
void CFastInfosetReader::Charge(std::size_t octets) {
    if (octets > m_textLeft)
        FailTextFromIndices();
    m_textLeft -= octets;
}

// An index of eight bits stands across two octets, and the length begins behind it.
CFastInfosetReader::EncodedString CFastInfosetReader::ReadEncodedString5(std::uint8_t octet) {
    EncodedString encoded{octet >> 4 & 3U, 0, {}};
    if (encoded.discriminant >= detail::kAlphabetString) {
        std::uint8_t const next = m_in.ReadOctet();
        encoded.index = ((octet & 0x0FU) << 4 | next >> 4) + 1;
        octet = next;
    }
    encoded.octets = m_in.ReadOctets(m_in.ReadLength5(octet));
    return encoded;
}

CFastInfosetReader::EncodedString CFastInfosetReader::ReadEncodedString7(std::uint8_t octet) {
    EncodedString encoded{octet >> 2 & 3U, 0, {}};
    if (encoded.discriminant >= detail::kAlphabetString) {
        std::uint8_t const next = m_in.ReadOctet();
        encoded.index = ((octet & 0x03U) << 6 | next >> 2) + 1;
        octet = next;
    }
    encoded.octets = m_in.ReadOctets(m_in.ReadLength7(octet));
    return encoded;
}

// What all of these return lies in the tree.
std::string_view CFastInfosetReader::Decode(EncodedString const& encoded) {
    switch (encoded.discriminant) {
    case detail::kUtf8String:
        return DecodeText(encoded.octets);
    case detail::kUtf16String:
        return DecodeUtf16(encoded.octets);
    case detail::kAlphabetString:
        return DecodeRestrictedAlphabet(encoded.octets, encoded.index);
    default:
        return DecodeAlgorithm(encoded.octets, encoded.index);
    }
}

// Most texts of elements are plain, and need nothing at all.
std::string_view CFastInfosetReader::DecodeElementText(EncodedString const& encoded) {
    if (encoded.discriminant == detail::kUtf8String && m_checks == nullptr && IsPlain(encoded.octets))
        return encoded.octets;
    return AsElementText(Decode(encoded));
}

std::string_view CFastInfosetReader::DecodeText(std::string_view utf8) {
    if (m_checks != nullptr)
        InfosetChecks::RequireText(utf8);
    return DecodeUtf8(utf8);
}

std::string_view CFastInfosetReader::DecodeUtf8(std::string_view octets) {
    if (IsPlain(octets) || m_isAsciiOnly)
        return octets;
    if (m_isLocalUtf8 && octets.find('\0') == std::string_view::npos && IsValidUtf8(octets))
        return octets;
    return m_tree->KeepText(
        Utf8ToLocal(octets.data(), octets.size(), m_work.data(), m_work.size(), nullptr, 0));
}

// High octet first. Half a unit at the end is as malformed as half a pair of surrogates.
std::string_view CFastInfosetReader::DecodeUtf16(std::string_view octets) {
    m_units.clear();
    for (std::size_t i = 0; i + 1 < octets.size(); i += 2)
        m_units += static_cast<char16_t>(static_cast<unsigned char>(octets[i]) << 8 |
                                         static_cast<unsigned char>(octets[i + 1]));
    if (octets.size() % 2 != 0)
        m_units += m_checks == nullptr ? u'\uFFFD' : u'\xD800';
    if (m_checks != nullptr)
        InfosetChecks::RequireText(m_units);
    return m_tree->KeepText(Utf16ToLocal(m_units.data(), m_units.size()));
}

std::string_view CFastInfosetReader::DecodeRestrictedAlphabet(std::string_view octets,
                                                              std::uint32_t alphabet) {
    if (alphabet > kRestrictedAlphabets.size())
        FailUnknownAlphabet(alphabet);
    m_text.clear();
    AppendRestrictedText(kRestrictedAlphabets[alphabet - 1], alphabet, octets, m_text);
    return m_tree->KeepText(m_text);
}

std::string_view CFastInfosetReader::DecodeAlgorithm(std::string_view octets, std::uint32_t algorithm) {
    if (algorithm == detail::kCdataAlgorithm)
        return DecodeText(octets);
    m_text.clear();
    AppendEncodedValues(algorithm, octets, m_text);
    return m_tree->KeepText(m_text);
}

// Where the document is kept to the letter, there is no zero, and a carriage return is a character like any
// other.
std::string_view CFastInfosetReader::AsElementText(std::string_view text) {
    constexpr std::string_view kDropped("\r\0", 2);
    if (IsPlain(text) || m_checks != nullptr || text.find_first_of(kDropped) == std::string_view::npos)
        return text;
    return m_tree->KeepText(ElementText(text));
}

} // namespace ZvXmlLib16
