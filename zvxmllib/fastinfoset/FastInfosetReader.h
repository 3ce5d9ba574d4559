// CFastInfosetReader, from a Fast Infoset document (X.891) to the tree.
#pragma once

#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/fastinfoset/OctetInput.h"
#include "zvxmllib/fastinfoset/ReadVocabulary.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {
class PrefixScopes;
class XmlTree;
struct XmlName;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

class InfosetChecks;

// Reads one document, of this library or of another producer. What the tree has no place for (comments,
// processing instructions, the document type, the whole header) is skipped; texts and names lie in the tree's
// storage, those that are referred to by index once. With a strict context the document must stand for one of
// XML, and its own vocabulary is taken in. Nothing recurses. Belongs to the thread of the load.
class CFastInfosetReader : public CInstanceMonitor, private IPositionSource {
public:
    // True if the input starts like a document. Examines only the first octets.
    static bool IsFastInfoset(unsigned char const* data, std::size_t length) noexcept;

    // Both are borrowed and outlive the reader.
    CFastInfosetReader(CFastInfosetContext const& context, CXmlDocument& document);
    CFastInfosetReader(CFastInfosetReader const&) = delete;
    CFastInfosetReader& operator=(CFastInfosetReader const&) = delete;
    ~CFastInfosetReader() override;

    // Builds the document's tree from this input and returns true; returns false and does nothing if it is
    // not Fast Infoset. Throws CZvException; the tree then holds what was read.
    bool Parse(unsigned char const* data, std::size_t length);

    // The tables as they are after Parse; null before. The texts in them end with the document's tree.
    ReadVocabulary const* GetVocabulary() const noexcept { return m_vocabulary.get(); }

private:
    using Strings = ReadVocabulary::Strings;
    using NameParts = ReadVocabulary::NameParts;
    using QNames = ReadVocabulary::QNames;
    // An encoded string: its octets, and what they mean.
    struct EncodedString {
        unsigned discriminant;
        std::uint32_t index; // of the alphabet or the algorithm
        std::string_view octets;
    };

    detail::NodePosition GetPosition() const override;
    // The number of the octet read last.
    std::uint64_t GetOctet() const noexcept { return m_length - m_in.GetLeft(); }

    // InitialVocabulary.cpp: the tables of the document, where they are taken in.
    void TakeInitialVocabulary();
    void TakeExternalVocabulary();
    void TakeNamePart(NameParts& table);
    void TakeText(Strings& table);
    void TakeNameSurrogate(QNames& table);

    // FastInfosetHeader.cpp: what is skipped.
    void ParseDocumentHeader();
    void ParseInitialVocabulary();
    std::uint8_t SkipNotations(); // the octet that ended them, as the next two
    std::uint8_t SkipUnparsedEntities();
    void SkipItems(unsigned parts, void (CFastInfosetReader::*skip)());
    void SkipOctetString();
    void SkipEncodedString();
    void SkipNameSurrogate();
    void SkipProcessingInstruction();
    std::uint8_t SkipDocumentType(std::uint8_t octet);
    void SkipEntityReference(std::uint8_t octet);
    std::string_view SkipIdentifyingString();
    void SkipIdentifyingStrings(unsigned count);
    void SkipNonIdentifyingString();

    void ParseDocument();
    void ParseDocumentChildren();
    void ParseEpilog();
    void RequireEnd(std::uint8_t octet) const;
    // Usual, with the place of each node, or with m_checks and the places.
    enum class Mode { kUsual, kLocated, kChecked };
    template <Mode mode>
    void ParseRoot(std::uint8_t octet);
    template <Mode mode>
    void ParseContent();
    template <Mode mode>
    bool StartElement(std::uint8_t octet);
    template <Mode mode>
    void EndElement();
    template <Mode mode>
    void ParseAttribute(std::uint8_t octet);
    template <Mode mode>
    detail::XmlName const* QNameAt(QNames& table, std::uint32_t index);
    void ParseCharacterChunk(std::uint8_t octet);
    std::uint8_t ParseNamespaceAttributes();
    void DeclareInScope(std::string const* prefix, std::string const* uri);
    void RequireDeclared(ReadVocabulary::QName const& entry);
    std::string const* SharedText(NameParts& table, std::uint32_t index);
    detail::XmlName const* ParseQName(std::uint8_t octet, QNames& table);
    detail::XmlName const* Resolve(ReadVocabulary::QName const& entry);
    void Trace(char const* what, detail::XmlName const& name) const;

    // FastInfosetStrings.cpp
    std::uint32_t ReadIdentifyingString(NameParts& table);
    void AddNamePart(NameParts& table, std::string_view utf8);
    std::uint32_t ReadOptionalIndex(std::uint8_t octet);
    std::string_view ReadAttributeValue();
    EncodedString ReadEncodedString5(std::uint8_t octet);
    EncodedString ReadEncodedString7(std::uint8_t octet);
    std::string_view TextAt(Strings const& table, std::uint32_t index);
    void Charge(std::size_t octets);
    std::string_view Decode(EncodedString const& encoded);
    std::string_view DecodeText(std::string_view utf8);
    std::string_view DecodeUtf8(std::string_view octets);
    std::string_view DecodeUtf16(std::string_view octets);
    std::string_view DecodeAlgorithm(std::string_view octets, std::uint32_t algorithm);
    std::string_view DecodeRestrictedAlphabet(std::string_view octets, std::uint32_t alphabet);
    std::string_view AsElementText(std::string_view text);
    std::string_view DecodeElementText(EncodedString const& encoded);

    CFastInfosetContext const& m_context;
    CXmlDocument& m_doc;
    detail::XmlTree* m_tree = nullptr; // the document's, once there is one
    std::size_t m_length = 0;          // of the input
    std::uint64_t m_itemOctet = 0;     // where the element or attribute begins
    OctetInput m_in;                   // a copy of the input, in the storage of the tree
    std::unique_ptr<ReadVocabulary> m_vocabulary;
    std::unique_ptr<InfosetChecks> m_checks;  // null where the document is taken as it is
    detail::PrefixScopes* m_scopes = nullptr; // the tree's, likewise
    std::string const* m_noText = nullptr;    // what the tree keeps of the empty text
    std::uint64_t m_textLeft = 0;             // octets that indices may still stand for
    std::string m_text;                       // for what has to be put together
    std::u16string m_units;
    std::array<char16_t, 512> m_work{}; // spares the conversion of short texts an allocation
    bool m_isAsciiOnly = false;         // decided once for the document, as are the next two
    bool m_isLocalUtf8 = false;
    bool m_isTraced = false;
    bool m_hasEnded = false; // the octet that ended the root ended the document, too
};

} // namespace ZvXmlLib16
