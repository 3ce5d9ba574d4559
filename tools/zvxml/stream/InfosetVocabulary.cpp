// The octets of a Fast Infoset document, its strings, and the tables through which it refers to earlier ones.
#include "InfosetVocabulary.h"

#include "zvxmllib/fastinfoset/EncodedValues.h"
#include "zvxmllib/fastinfoset/FInfoDeclarations.h"
#include "zvxmllib/fastinfoset/InfosetChecks.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/foundation/XmlNamespaces.h"

#include <algorithm>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr std::size_t kMostEntries = std::size_t{1} << 20U; // X.891, 7.13.7
constexpr std::uint8_t kEnd = 0xF0;
constexpr std::uint8_t kEmptyValue = 0xFF;
constexpr std::uint32_t kCdataAlgorithm = 10;
constexpr std::string_view kEmpty;

// A single octet may stand for any text that stood in the document before.
constexpr std::uint64_t kLeastFromIndices = std::uint64_t{256} << 20U;
constexpr std::uint64_t kFromIndicesPerOctet = 1024;

enum Kind : unsigned { kUtf8, kUtf16, kRestrictedAlphabet, kAlgorithm };

std::size_t LengthOfPreamble(std::string_view start) noexcept {
    std::size_t begin = 0;
    for (std::string_view const declaration : kFInfoDeclarations)
        if (start.substr(0, declaration.size()) == declaration)
            begin = declaration.size();
    return start.substr(begin, kFInfoMagic.size()) == kFInfoMagic ? begin + kFInfoMagic.size() : 0;
}

void RequireText(std::string_view utf8) {
    for (char const c : utf8) {
        if (static_cast<signed char>(c) < 0x20)
            return InfosetChecks::RequireText(utf8);
    }
}

} // namespace

bool IsFastInfoset(std::string_view start) noexcept {
    return LengthOfPreamble(start) != 0;
}

void OctetReader::SkipPreamble() {
    for (std::size_t left = LengthOfPreamble(m_input.GetStart()); left != 0; --left)
        ReadOctet();
}

bool OctetReader::ReadPiece() {
    m_before += m_piece.size();
    m_piece = m_input.Read();
    m_at = 0;
    return !m_piece.empty();
}

void OctetReader::ReadOctets(std::uint64_t length, std::string& octets) {
    octets.clear();
    while (length != 0) {
        if (IsAtEnd())
            FailInputEnd();
        auto const part =
            static_cast<std::size_t>(std::min(length, static_cast<std::uint64_t>(m_piece.size() - m_at)));
        octets.append(m_piece, m_at, part);
        m_at += part;
        length -= part;
    }
}

InfosetVocabulary::InfosetVocabulary(OctetReader& octets) : m_octets(octets) {
    prefixes.entries.emplace_back("xml");
    uris.entries.emplace_back(kXmlNamespace);
}

// 0 a v n u c s r: additional data, initial vocabulary, notations, unparsed entities, character encoding
// scheme, standalone, version.
void InfosetVocabulary::ReadHeader() {
    std::uint8_t const parts = m_octets.ReadOctet();
    if ((parts & 0x40) != 0) {
        for (std::uint32_t left = m_octets.ReadSequenceLength(); left != 0; --left) {
            SkipOctetString();
            SkipOctetString();
        }
    }
    if ((parts & 0x20) != 0)
        ReadVocabulary();
    if ((parts & 0x10) != 0)
        ReadNotations();
    if ((parts & 0x08) != 0)
        ReadUnparsedEntities();
    if ((parts & 0x04) != 0)
        SkipOctetString();
    if ((parts & 0x02) != 0)
        m_octets.ReadOctet();
    if ((parts & 0x01) != 0)
        ReadText(m_work);
}

// 110000 s p: name, system identifier, public identifier. No length ahead, but an end.
void InfosetVocabulary::ReadNotations() {
    std::uint8_t octet = 0;
    while (((octet = m_octets.ReadOctet()) & 0xFC) == 0xC0) {
        ReadPart(otherNames, true);
        ReadPart(otherUris, (octet & 0x02) != 0);
        ReadPart(otherUris, (octet & 0x01) != 0);
    }
    if (octet != kEnd)
        FailDocumentItem();
}

// 1101000 p: name, system identifier, public identifier, notation.
void InfosetVocabulary::ReadUnparsedEntities() {
    std::uint8_t octet = 0;
    while (((octet = m_octets.ReadOctet()) & 0xFE) == 0xD0) {
        ReadPart(otherNames, true);
        ReadPart(otherUris, true);
        ReadPart(otherUris, (octet & 0x01) != 0);
        ReadPart(otherNames, true);
    }
    if (octet != kEnd)
        FailDocumentItem();
}

// 000 e r a p n l o u v c s E A, a bit for each table that is there.
void InfosetVocabulary::ReadVocabulary() {
    unsigned const high = m_octets.ReadOctet();
    unsigned const tables = high << 8 | m_octets.ReadOctet();
    if ((tables & 0xE000) != 0)
        FailDocumentItem();
    if ((tables & 0x1000) != 0) {
        m_octets.ReadOctets(m_octets.ReadLength2(m_octets.ReadOctet()), m_work);
        FailExternalVocabulary(m_work);
    }
    auto const readItems = [&](unsigned table, auto read) {
        if ((tables & table) == 0)
            return;
        for (std::uint32_t left = m_octets.ReadSequenceLength(); left != 0; --left)
            read();
    };
    auto const readParts = [&](unsigned bit, Table& table) {
        readItems(bit, [&] { AddPart(table, m_octets.ReadOctet()); });
    };
    auto const readTexts = [&](unsigned bit, Table& table) {
        readItems(bit, [&] { ReadEncoded5(m_octets.ReadOctet(), table.entries.emplace_back()); });
    };
    readItems(0x0800, [&] { SkipOctetString(); }); // alphabets and algorithms are not known where they stand
    readItems(0x0400, [&] { SkipOctetString(); });
    readParts(0x0200, prefixes);
    readParts(0x0100, uris);
    readParts(0x0080, locals);
    readParts(0x0040, otherNames);
    readParts(0x0020, otherUris);
    readTexts(0x0010, values);
    readTexts(0x0008, chunks);
    readTexts(0x0004, otherStrings);
    readItems(0x0002, [&] { ReadNameEntry(elements); });
    readItems(0x0001, [&] { ReadNameEntry(attributes); });
}

// 000000 p n: the numbers of prefix and namespace, as far as they are there, and of the local name.
void InfosetVocabulary::ReadNameEntry(NameTable& table) {
    std::uint8_t const parts = m_octets.ReadOctet();
    if (parts > 0x03)
        FailDocumentItem();
    if (parts == 0x02)
        FailPrefixWithoutNamespace();
    NameEntry entry;
    if ((parts & 0x02) != 0)
        entry.prefix = m_octets.ReadInteger2(m_octets.ReadOctet());
    if ((parts & 0x01) != 0)
        entry.uri = m_octets.ReadInteger2(m_octets.ReadOctet());
    entry.local = m_octets.ReadInteger2(m_octets.ReadOctet());
    table.entries.push_back(std::move(entry));
}

InfosetVocabulary::QName const& InfosetVocabulary::ReadElementName(std::uint8_t octet) {
    return (octet & 0x3C) == 0x3C ? ReadName(elements, octet)
                                  : NameAt(elements, m_octets.ReadInteger3(octet));
}

InfosetVocabulary::QName const& InfosetVocabulary::ReadAttributeName(std::uint8_t octet) {
    return (octet & 0x78) == 0x78 ? ReadName(attributes, octet)
                                  : NameAt(attributes, m_octets.ReadInteger2(octet));
}

InfosetVocabulary::QName const& InfosetVocabulary::ReadName(NameTable& table, std::uint8_t octet) {
    bool const hasPrefix = (octet & 0x02) != 0;
    bool const hasUri = (octet & 0x01) != 0;
    if (hasPrefix && !hasUri)
        FailPrefixWithoutNamespace();
    if (table.entries.size() >= kMostEntries)
        FailIndexBeyondTable(static_cast<std::uint32_t>(kMostEntries + 1), table.content);
    NameEntry entry;
    entry.prefix = hasPrefix ? ReadPartIndex(prefixes) : 0;
    entry.uri = hasUri ? ReadPartIndex(uris) : 0;
    entry.local = ReadPartIndex(locals);
    return Make(table.entries.emplace_back(std::move(entry)));
}

InfosetVocabulary::QName const& InfosetVocabulary::NameAt(NameTable& table, std::uint32_t index) {
    if (index > table.entries.size())
        FailIndexBeyondTable(index, table.content);
    return Make(table.entries[index - 1]);
}

InfosetVocabulary::QName const& InfosetVocabulary::Make(NameEntry& entry) const {
    if (!entry.isMade) {
        std::string const& prefix = At(prefixes, entry.prefix);
        std::string const& local = At(locals, entry.local);
        entry.name.qualified = prefix.empty() ? local : prefix + ':' + local;
        entry.name.uri = &At(uris, entry.uri);
        entry.isMade = true;
    }
    return entry.name;
}

std::string InfosetVocabulary::Describe(NameEntry const& entry) const {
    NameEntry copy = entry;
    QName const& name = Make(copy);
    return name.uri->empty() ? name.qualified : name.qualified + " {" + *name.uri + '}';
}

std::string const& InfosetVocabulary::At(Table const& table, std::uint32_t index) const {
    static std::string const none;
    if (index > table.entries.size())
        FailIndexBeyondTable(index, table.content);
    return index == 0 ? none : table.entries[index - 1];
}

void InfosetVocabulary::AddPart(Table& table, std::uint8_t octet) {
    if (octet >= 0x80)
        FailDocumentItem();
    m_octets.ReadOctets(m_octets.ReadLength2(octet), m_work);
    bool const isUri = &table == &uris || &table == &otherUris;
    isUri ? RequireText(m_work) : InfosetChecks::RequireName(m_work);
    if (table.entries.size() >= kMostEntries)
        FailIndexBeyondTable(static_cast<std::uint32_t>(kMostEntries + 1), table.content);
    table.entries.push_back(m_work);
}

std::uint32_t InfosetVocabulary::ReadPartIndex(Table& table) {
    std::uint8_t const octet = m_octets.ReadOctet();
    if (octet >= 0x80) {
        std::uint32_t const index = m_octets.ReadInteger2(octet);
        At(table, index);
        return index;
    }
    AddPart(table, octet);
    return static_cast<std::uint32_t>(table.entries.size());
}

std::string const* InfosetVocabulary::ReadPart(Table& table, bool isThere) {
    return &At(table, isThere ? ReadPartIndex(table) : 0);
}

std::string_view InfosetVocabulary::TextAt(Table const& table, std::uint32_t index) {
    std::string const& text = At(table, index);
    m_fromIndices += text.size();
    if (m_fromIndices > std::max(kLeastFromIndices, kFromIndicesPerOctet * m_octets.GetCount()))
        FailTextFromIndices();
    return text;
}

std::string_view InfosetVocabulary::ReadValue(Table& table, std::string& room) {
    std::uint8_t const octet = m_octets.ReadOctet();
    if (octet == kEmptyValue)
        return kEmpty;
    if (octet >= 0x80)
        return TextAt(table, m_octets.ReadInteger2(octet));
    ReadEncoded5(octet, room);
    if ((octet & 0x40) != 0 && table.entries.size() < kMostEntries)
        table.entries.push_back(room);
    return room;
}

std::string_view InfosetVocabulary::ReadChunk(std::uint8_t octet, std::string& room) {
    if ((octet & 0x20) != 0)
        return TextAt(chunks, m_octets.ReadInteger4(octet));
    ReadEncoded7(octet, room);
    if ((octet & 0x10) != 0 && chunks.entries.size() < kMostEntries)
        chunks.entries.push_back(room);
    return room;
}

// The number of an alphabet or algorithm stands across two octets, and the length begins behind it.
void InfosetVocabulary::ReadEncoded5(std::uint8_t octet, std::string& text) {
    unsigned const kind = octet >> 4 & 3U;
    std::uint32_t index = 0;
    if (kind >= kRestrictedAlphabet) {
        std::uint8_t const next = m_octets.ReadOctet();
        index = ((octet & 0x0FU) << 4 | next >> 4) + 1;
        octet = next;
    }
    m_octets.ReadOctets(m_octets.ReadLength5(octet), text);
    Decode(kind, index, text);
}

void InfosetVocabulary::ReadEncoded7(std::uint8_t octet, std::string& text) {
    unsigned const kind = octet >> 2 & 3U;
    std::uint32_t index = 0;
    if (kind >= kRestrictedAlphabet) {
        std::uint8_t const next = m_octets.ReadOctet();
        index = ((octet & 0x03U) << 6 | next >> 2) + 1;
        octet = next;
    }
    m_octets.ReadOctets(m_octets.ReadLength7(octet), text);
    Decode(kind, index, text);
}

// From octets to text, in place.
void InfosetVocabulary::Decode(unsigned kind, std::uint32_t index, std::string& text) {
    if (kind == kUtf8 || (kind == kAlgorithm && index == kCdataAlgorithm))
        return RequireText(text);
    m_work.swap(text);
    text.clear();
    if (kind == kAlgorithm)
        return AppendEncodedValues(index, m_work, text);
    if (kind == kRestrictedAlphabet) {
        if (index > kRestrictedAlphabets.size())
            FailUnknownAlphabet(index);
        return AppendRestrictedText(kRestrictedAlphabets[index - 1], index, m_work, text);
    }
    if (m_work.size() % 2 != 0)
        FailReadUtf16();
    std::u16string units;
    for (std::size_t i = 0; i < m_work.size(); i += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(m_work[i]) << 8 |
                                       static_cast<unsigned char>(m_work[i + 1]));
    InfosetChecks::RequireText(units);
    text = ConvertUtf16ToUtf8(units);
}

void InfosetVocabulary::SkipOctetString() {
    m_octets.ReadOctets(m_octets.ReadLength2(m_octets.ReadOctet()), m_work);
}

} // namespace zvxml
