// CFastInfosetReader: the document, its elements and their names.
//
//   element      0 a nnnnnn   a: attributes follow; the name begins on the third bit. 111000 there: namespace
//                             attributes come first, the name begins the octet behind them
//   attribute    0 nnnnnnn    the name begins on the second bit, the value the next octet
//   namespace    110011 p n   prefix, namespace name
//   chunk        10 cccccc    an index on the fourth bit, or a text
//   instruction  11100001
//   comment      11100010
//   reference    110010 s p  to an entity that was not expanded
//   end          1111, two of them 11111111
#include "zvxmllib/fastinfoset/FastInfosetReader.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/fastinfoset/FInfoDeclarations.h"
#include "zvxmllib/fastinfoset/InfosetChecks.h"
#include "zvxmllib/fastinfoset/Octets.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/text/TextParts.h"

#include <algorithm>
#include <memory>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_fastInfosetReaderInstances("CFastInfosetReader");

// A single octet may stand for any text that stood in the document before.
constexpr std::uint64_t kLeastTextFromIndices = std::uint64_t{256} << 20U;
constexpr std::uint64_t kTextFromIndicesPerOctet = 1024;

constexpr std::size_t kMostQNames = std::size_t{1} << 20U;

// The octets up to the header of the document, 0 if there is none.
std::size_t LengthOfPreamble(std::string_view input) noexcept {
    auto const* const declaration =
        std::find_if(kFInfoDeclarations.begin(), kFInfoDeclarations.end(),
                     [input](std::string_view text) { return detail::StartsWith(input, text); });
    std::size_t const begin = declaration == kFInfoDeclarations.end() ? 0 : declaration->size();
    std::size_t const end = begin + kFInfoMagic.size();
    return detail::StartsWith(input.substr(begin), kFInfoMagic) && input.size() > end ? end : 0;
}

std::string_view View(unsigned char const* data, std::size_t length) noexcept {
    return {reinterpret_cast<char const*>(data), length};
}

// Instances are counted when the load ends, however it ends.
class CountsSettler {
public:
    explicit CountsSettler(detail::XmlTree& tree) noexcept : m_tree(tree) {}
    CountsSettler(CountsSettler const&) = delete;
    CountsSettler& operator=(CountsSettler const&) = delete;
    ~CountsSettler() { m_tree.SettleCounts(); }

private:
    detail::XmlTree& m_tree;
};

} // namespace

CFastInfosetReader::CFastInfosetReader(CFastInfosetContext const& context, CXmlDocument& document)
    : CInstanceMonitor(s_fastInfosetReaderInstances), m_context(context), m_doc(document) {}

CFastInfosetReader::~CFastInfosetReader() = default;

bool CFastInfosetReader::IsFastInfoset(unsigned char const* data, std::size_t length) noexcept {
    return LengthOfPreamble(View(data, length)) != 0;
}

bool CFastInfosetReader::Parse(unsigned char const* data, std::size_t length) {
    std::string_view input = View(data, length);
    std::size_t const preamble = LengthOfPreamble(input);
    if (preamble == 0)
        return false;
    input.remove_prefix(preamble);
    m_isAsciiOnly = IsASCIIOnly();
    m_isLocalUtf8 = IsLocalTextUtf8();
    m_isTraced = IsDebugTraceEnabled();
    m_textLeft = std::max(kLeastTextFromIndices, kTextFromIndicesPerOctet * length);

    m_doc.m_tree = std::make_unique<detail::XmlTree>(m_doc, false);
    m_tree = m_doc.m_tree.get();
    m_noText = m_tree->GetNames().Keep({});
    CountsSettler const settler(*m_tree);
    if (m_doc.m_pContext->GetStrict()) {
        m_tree->KeepTextPlaces();
        m_scopes = &m_tree->KeepScopes();
        m_checks = std::make_unique<InfosetChecks>(m_tree->GetNames());
        m_vocabulary = std::make_unique<ReadVocabulary>(); // until the document names another one
    } else {
        m_vocabulary = std::make_unique<ReadVocabulary>(m_context, *m_tree);
    }
    // Most texts are in the tree as they are here.
    std::string_view const kept = m_doc.m_borrowsInput ? input : m_tree->KeepText(input);
    m_in = OctetInput(reinterpret_cast<unsigned char const*>(kept.data()), kept.size());
    m_length = length;
    if (!m_doc.m_pContext->GetKeepPositions()) {
        ParseDocument();
        return true;
    }
    m_tree->KeepPositions(*this);
    try {
        ParseDocument();
    } catch (CZvException& failure) {
        failure.SetPosition(0, GetOctet());
        throw;
    }
    return true;
}

void CFastInfosetReader::ParseDocument() {
    ParseDocumentHeader();
    ParseDocumentChildren();
}

detail::NodePosition CFastInfosetReader::GetPosition() const {
    return {0, m_itemOctet};
}

// Anything after the root is ignored unless the document is checked.
void CFastInfosetReader::ParseDocumentChildren() {
    for (;;) {
        std::uint8_t const octet = m_in.ReadOctet();
        if (octet < 0x80) {
            if (m_checks != nullptr) {
                ParseRoot<Mode::kChecked>(octet);
                return ParseEpilog();
            }
            return m_tree->GetPositions() == nullptr ? ParseRoot<Mode::kUsual>(octet)
                                                     : ParseRoot<Mode::kLocated>(octet);
        }
        if (octet == detail::kEnd || octet == detail::kDoubleEnd)
            FailNoRootElement();
        if (octet == detail::kProcessingInstruction)
            SkipProcessingInstruction();
        else if (octet == detail::kComment)
            SkipNonIdentifyingString();
        else if ((octet & 0xFC) == 0xC4)
            RequireEnd(SkipDocumentType(octet));
        else if (m_checks != nullptr)
            FailDocumentItem();
    }
}

// Instructions and comments, the end of the document, and the end of the input.
void CFastInfosetReader::ParseEpilog() {
    while (!m_hasEnded) {
        std::uint8_t const octet = m_in.ReadOctet();
        if (octet == detail::kProcessingInstruction)
            SkipProcessingInstruction();
        else if (octet == detail::kComment)
            SkipNonIdentifyingString();
        else if (octet == detail::kEnd)
            m_hasEnded = true;
        else
            FailDocumentItem();
    }
    if (m_in.GetLeft() != 0)
        FailDataBehindDocument();
}

// What ends a list of items, if the document is checked.
void CFastInfosetReader::RequireEnd(std::uint8_t octet) const {
    if (m_checks != nullptr && octet != detail::kEnd)
        FailDocumentItem();
}

template <CFastInfosetReader::Mode mode>
void CFastInfosetReader::ParseRoot(std::uint8_t octet) {
    if (StartElement<mode>(octet))
        EndElement<mode>();
    else
        ParseContent<mode>();
}

// The root and every other element that has not ended are open: no other state is needed.
template <CFastInfosetReader::Mode mode>
void CFastInfosetReader::ParseContent() {
    while (m_tree->HasOpenElement()) {
        std::uint8_t const octet = m_in.ReadOctet();
        if (octet < 0x80) {
            if (StartElement<mode>(octet))
                EndElement<mode>();
        } else if (octet < 0xC0) {
            ParseCharacterChunk(octet);
        } else if (octet == detail::kEnd) {
            EndElement<mode>();
        } else if (octet == detail::kDoubleEnd) {
            EndElement<mode>();
            if (m_tree->HasOpenElement())
                EndElement<mode>();
            else
                m_hasEnded = true; // the second end is that of the document
        } else if (octet == detail::kProcessingInstruction) {
            SkipProcessingInstruction();
        } else if (octet == detail::kComment) {
            SkipNonIdentifyingString();
        } else if ((octet & 0xFC) == 0xC8) {
            SkipEntityReference(octet);
        } else {
            FailElementItem();
        }
    }
}

// True if the element ended with its attributes, as other producers write it.
template <CFastInfosetReader::Mode mode>
bool CFastInfosetReader::StartElement(std::uint8_t octet) {
    if constexpr (mode != Mode::kUsual)
        m_itemOctet = GetOctet();
    bool const hasAttributes = (octet & 0x40) != 0;
    if constexpr (mode == Mode::kChecked)
        m_checks->OpenElement();
    if ((octet & 0x3C) == 0x38)
        octet = ParseNamespaceAttributes();
    QNames& names = m_vocabulary->elementNames;
    detail::XmlName const* const name =
        (octet & 0x3C) == 0x3C ? ParseQName(octet, names) : QNameAt<mode>(names, m_in.ReadInteger3(octet));
    if (m_isTraced)
        Trace(m_tree->HasOpenElement() ? "New Elm" : "New Root Elm", *name);
    CXmlElement const* const element = m_tree->AddElement(name);
    if constexpr (mode == Mode::kChecked)
        m_scopes->AddElement(element);
    if (!hasAttributes)
        return false;
    while ((octet = m_in.ReadOctet()) < 0x80)
        ParseAttribute<mode>(octet);
    if constexpr (mode == Mode::kChecked) {
        m_checks->EndAttributes();
        if (octet != detail::kDoubleEnd && octet != detail::kEnd)
            FailElementItem();
    }
    return octet == detail::kDoubleEnd;
}

template <CFastInfosetReader::Mode mode>
void CFastInfosetReader::EndElement() {
    CXmlElement const* const element = m_tree->EndElement();
    if constexpr (mode == Mode::kChecked)
        m_checks->CloseElement();
    if (m_isTraced)
        DebugTrace("End Elm: %s::%s\n", element->GetNamespaceURI().c_str(), element->GetLocalName().c_str());
}

void CFastInfosetReader::Trace(char const* what, detail::XmlName const& name) const {
    DebugTrace("%s: %s::%s\n", what, name.namespaceUri->c_str(), name.localName->c_str());
}

void CFastInfosetReader::ParseCharacterChunk(std::uint8_t octet) {
    Strings& chunks = m_vocabulary->characterChunks;
    if ((octet & 0x20) != 0)
        return m_tree->AppendKeptText(TextAt(chunks, m_in.ReadInteger4(octet)));
    std::string_view const text = DecodeElementText(ReadEncodedString7(octet));
    if ((octet & 0x10) != 0)
        chunks.entries.push_back(text);
    m_tree->AppendKeptText(text);
}

template <CFastInfosetReader::Mode mode>
void CFastInfosetReader::ParseAttribute(std::uint8_t octet) {
    if constexpr (mode != Mode::kUsual)
        m_itemOctet = GetOctet();
    QNames& names = m_vocabulary->attributeNames;
    detail::XmlName const* const name =
        (octet & 0x78) == 0x78 ? ParseQName(octet, names) : QNameAt<mode>(names, m_in.ReadInteger2(octet));
    if constexpr (mode == Mode::kChecked)
        m_checks->AddAttribute(name);
    m_tree->AddKeptAttribute(name, ReadAttributeValue());
}

// Returns the octet in which the name begins.
std::uint8_t CFastInfosetReader::ParseNamespaceAttributes() {
    std::uint8_t octet = 0;
    while (((octet = m_in.ReadOctet()) & 0xFC) == 0xCC) {
        NameParts& prefixes = m_vocabulary->prefixNames;
        std::uint32_t const prefixIndex = (octet & 0x02) == 0 ? 0 : ReadIdentifyingString(prefixes);
        std::string_view const prefix =
            prefixIndex == 0 ? std::string_view() : prefixes.entries[prefixIndex - 1].text;
        Charge(prefix.size());
        NameParts& uris = m_vocabulary->namespaceNames;
        std::string const* const uri =
            SharedText(uris, (octet & 0x01) == 0 ? 0 : ReadIdentifyingString(uris));
        // The string lives as long as the tree, which ends with these declarations.
        m_doc.m_namespaces[std::string(prefix)] = {std::shared_ptr<void>(), uri};
        if (m_checks != nullptr)
            DeclareInScope(SharedText(prefixes, prefixIndex), uri);
    }
    RequireEnd(octet);
    return m_in.ReadOctet();
}

void CFastInfosetReader::DeclareInScope(std::string const* prefix, std::string const* uri) {
    m_checks->Declare(prefix, uri);
    m_scopes->Declare(prefix, uri);
}

detail::XmlName const* CFastInfosetReader::ParseQName(std::uint8_t octet, QNames& table) {
    bool const hasPrefix = (octet & 0x02) != 0;
    bool const hasNamespace = (octet & 0x01) != 0;
    if (hasPrefix && !hasNamespace)
        FailPrefixWithoutNamespace();
    ReadVocabulary::QName entry{};
    if (hasPrefix)
        entry.prefix = ReadIdentifyingString(m_vocabulary->prefixNames);
    if (hasNamespace)
        entry.namespaceName = ReadIdentifyingString(m_vocabulary->namespaceNames);
    entry.localName = ReadIdentifyingString(m_vocabulary->localNames);
    entry.name = Resolve(entry);
    if (table.entries.size() < kMostQNames)
        table.entries.push_back(entry);
    if (m_checks != nullptr)
        RequireDeclared(entry);
    return entry.name;
}

template <CFastInfosetReader::Mode mode>
detail::XmlName const* CFastInfosetReader::QNameAt(QNames& table, std::uint32_t index) {
    if (index > table.entries.size())
        FailIndexBeyondTable(index, table.content);
    ReadVocabulary::QName& entry = table.entries[index - 1];
    if (entry.name == nullptr)
        entry.name = Resolve(entry);
    if constexpr (mode == Mode::kChecked)
        RequireDeclared(entry);
    return entry.name;
}

void CFastInfosetReader::RequireDeclared(ReadVocabulary::QName const& entry) {
    m_checks->RequireDeclared(SharedText(m_vocabulary->prefixNames, entry.prefix), entry.name->namespaceUri);
}

detail::XmlName const* CFastInfosetReader::Resolve(ReadVocabulary::QName const& entry) {
    return m_tree->GetNames().FindByParts(SharedText(m_vocabulary->namespaceNames, entry.namespaceName),
                                          SharedText(m_vocabulary->localNames, entry.localName));
}

// The text of the entry, or the empty one for index 0.
std::string const* CFastInfosetReader::SharedText(NameParts& table, std::uint32_t index) {
    if (index > table.entries.size())
        FailIndexBeyondTable(index, table.content);
    if (index == 0)
        return m_noText;
    ReadVocabulary::NamePart& part = table.entries[index - 1];
    if (part.shared == nullptr)
        part.shared = m_tree->GetNames().Keep(part.text);
    return part.shared;
}

} // namespace ZvXmlLib16
