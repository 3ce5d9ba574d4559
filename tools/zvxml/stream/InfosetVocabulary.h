// The octets of a Fast Infoset document, its strings, and the tables through which it refers to earlier ones.
#pragma once

#include "ByteInput.h"

#include "zvxmllib/fastinfoset/OctetInput.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace zvxml {

// The octets, in pieces. Throws CZvException at the end, as the numbers do.
class OctetReader : public ZvXmlLib16::OctetNumbers<OctetReader> {
public:
    // `input` is borrowed.
    explicit OctetReader(ByteInput& input) : m_input(input) {}

    // The octets up to the header of the document.
    void SkipPreamble();
    std::uint8_t ReadOctet() {
        if (IsAtEnd())
            ZvXmlLib16::FailInputEnd();
        return static_cast<std::uint8_t>(m_piece[m_at++]);
    }
    // Replaces `octets`. The length is not believed before they are there.
    void ReadOctets(std::uint64_t length, std::string& octets);
    bool IsAtEnd() { return m_at == m_piece.size() && !ReadPiece(); }
    // So many octets are read.
    std::uint64_t GetCount() const noexcept { return m_before + m_at; }

private:
    bool ReadPiece();

    ByteInput& m_input;
    std::string_view m_piece;
    std::size_t m_at = 0;
    std::uint64_t m_before = 0;
};

// True for content that begins like a document.
bool IsFastInfoset(std::string_view start) noexcept;

class InfosetVocabulary {
public:
    // Strings stay where they are.
    struct Table {
        char const* content; // for messages
        std::deque<std::string> entries{};
    };
    struct QName {
        std::string qualified;
        std::string const* uri;
    };

    // By the numbers of its parts, 0 for none.
    struct NameEntry {
        std::uint32_t prefix = 0;
        std::uint32_t uri = 0;
        std::uint32_t local = 0;
        bool isMade = false;
        QName name{};
    };
    struct NameTable {
        char const* content;
        std::deque<NameEntry> entries{};
    };

    // Borrowed.
    explicit InfosetVocabulary(OctetReader& octets);
    InfosetVocabulary(InfosetVocabulary const&) = delete;
    InfosetVocabulary& operator=(InfosetVocabulary const&) = delete;

    // The vocabulary of the document is taken in, and the rest of the header read over.
    void ReadHeader();
    // `octet` is the one in which the name begins.
    QName const& ReadElementName(std::uint8_t octet);
    QName const& ReadAttributeName(std::uint8_t octet);
    // A string that identifies something: it gets a number. The empty one if it is not there.
    std::string const* ReadPart(Table& table, bool isThere);
    // These are valid until the next call with the same room.
    std::string_view ReadAttributeValue(std::string& room) { return ReadValue(values, room); }
    std::string_view ReadText(std::string& room) { return ReadValue(otherStrings, room); }
    std::string_view ReadChunk(std::uint8_t octet, std::string& room);

    // prefix:local {namespace}
    std::string Describe(NameEntry const& entry) const;

    Table prefixes{"prefixes"};
    Table uris{"namespace names"};
    Table locals{"local names"};
    Table otherNames{"other names"};
    Table otherUris{"other URIs"};
    Table values{"attribute values"};
    Table chunks{"character chunks"};
    Table otherStrings{"other strings"};
    NameTable elements{"element names"};
    NameTable attributes{"attribute names"};

private:
    void ReadVocabulary();
    void ReadNotations();
    void ReadUnparsedEntities();
    void ReadNameEntry(NameTable& table);
    QName const& ReadName(NameTable& table, std::uint8_t octet);
    QName const& NameAt(NameTable& table, std::uint32_t index);
    QName const& Make(NameEntry& entry) const;
    void AddPart(Table& table, std::uint8_t octet);
    std::uint32_t ReadPartIndex(Table& table);
    std::string const& At(Table const& table, std::uint32_t index) const;
    std::string_view ReadValue(Table& table, std::string& room);
    std::string_view TextAt(Table const& table, std::uint32_t index);
    void ReadEncoded5(std::uint8_t octet, std::string& text);
    void ReadEncoded7(std::uint8_t octet, std::string& text);
    void Decode(unsigned kind, std::uint32_t index, std::string& text);
    void SkipOctetString();

    OctetReader& m_octets;
    std::string m_work;
    std::uint64_t m_fromIndices = 0; // octets of text that indices have stood for
};

} // namespace zvxml
