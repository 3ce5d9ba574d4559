// CFastInfosetWriter, a Fast Infoset document (X.891).
//
//   element      0 a nnnnnn   a: attributes follow; the name begins on the third bit. 111000 there: namespace
//                             attributes come first, the name begins the octet behind them
//   attribute    0 nnnnnnn    the name begins on the second bit, the value the next octet
//   namespace    110011 p n   prefix, namespace name
//   chunk        10 cccccc    an index on the fourth bit, or a text
//   end          1111, of the namespace attributes, the attributes, the element and the document; of two of
//                the last kinds 11111111
#include "zvxmllib/fastinfoset/FastInfosetWriter.h"

#include "zvxmllib/fastinfoset/EncodedValues.h"
#include "zvxmllib/fastinfoset/FInfoDeclarations.h"
#include "zvxmllib/fastinfoset/Failures.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"
#include "zvxmllib/fastinfoset/Octets.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/Failures.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_fastInfosetWriterInstances("CFastInfosetWriter");

constexpr unsigned kHasAttributes = 0x40;
constexpr unsigned kNamespacesFollow = 0x38;
constexpr unsigned kDeclarationOctet = 0xCC;
constexpr unsigned kAddAttributeValue = 0x40;
constexpr unsigned kChunk = 0x80;
constexpr unsigned kAddChunk = 0x10;
constexpr unsigned kChunkIndex = 0xA0;

constexpr std::uint32_t kAlgorithms = 10;

} // namespace

CFastInfosetWriter::CFastInfosetWriter(CFastInfosetContext& context, CBinaryStream& sink)
    : CXmlWriter(s_fastInfosetWriterInstances), m_context(context), m_out(sink),
      m_isTraced(IsDebugTraceEnabled()) {
    if (context.GetUseGeneratedVocabulary())
        m_vocabulary = context.GetVocabulary()->m_maps;
}

CFastInfosetWriter::~CFastInfosetWriter() = default;

void CFastInfosetWriter::WriteDocumentHead(FInfoDecl declaration) {
    if (declaration < FInfoDecl_None || declaration > FInfoDecl_Version11StandaloneNo)
        FailDeclaration();
    if (declaration != FInfoDecl_None)
        m_out.WriteOctets(kFInfoDeclarations[static_cast<std::size_t>(declaration) - 1]);
    m_out.WriteOctets(kFInfoMagic);
    if (!m_context.GetUseGeneratedVocabulary()) {
        m_out.WriteOctet(0x00);
    } else {
        std::string const given = m_context.GetExternalVocabularyURI();
        std::string room;
        std::string_view uri = AsUtf8(given, room);
        if (uri.empty())
            uri = kDefaultVocabularyUri;
        m_out.WriteOctets(
            std::string_view("\x20\x10\x00", 3)); // an initial vocabulary, of it the external one
        m_out.WriteLengthBit2(0x00, uri.size());
        m_out.WriteOctets(uri);
    }
}

void CFastInfosetWriter::WriteDocumentTerminator() {
    m_out.WriteOctet(m_bTerminatorPending ? detail::kDoubleEnd : detail::kEnd);
    m_bTerminatorPending = false;
}

void CFastInfosetWriter::WriteComment(std::string const&) {}

void CFastInfosetWriter::WriteProcessingInstruction(std::string const&) {
    WritePendingElement(false);
}

void CFastInfosetWriter::WriteInlineSchema(std::string const&) {}

// The first octet of an element says whether attributes follow, so its head is held back until that is known.
void CFastInfosetWriter::WriteElementStart(std::string const& name, std::string const& ns) {
    BeginHere(name, ns);
    NameHere(name, ns);
}

void CFastInfosetWriter::BeginElement(std::string const& name, std::string const& ns) {
    BeginHere(name, ns);
}

void CFastInfosetWriter::NameElement(std::string const& name, std::string const& ns) {
    NameHere(name, ns);
}

inline void CFastInfosetWriter::BeginHere(std::string const& name, std::string const& ns) {
    WritePendingElement(false);
    WritePendingTerminator();
    if (m_pContext != nullptr) {
        ++m_pContext->m_childCount;
        CloseStartTag();
    }
    if (m_isTraced)
        TraceStart(name, ns);
    PushContext();
    m_isPending = true;
}

inline void CFastInfosetWriter::NameHere(std::string const& name, std::string const& ns) {
    bool const hasPrefix = !ns.empty() && !detail::Equals(ns, m_pContext->GetDefaultNamespace());
    IndexMap::QName const qname{name, ns, hasPrefix ? AliasOf(ns) : std::string_view()};
    m_pendingIndex = m_elementNames.Find(qname);
    if (m_pendingIndex == 0) {
        m_pendingName = qname.localName;
        m_pendingNamespace = qname.namespaceName;
        m_pendingPrefix = qname.prefix;
    }
}

void CFastInfosetWriter::WriteElementValue(std::string const& text, ItemType type, bool) {
    if (m_pContext == nullptr)
        FailValueOutsideElement();
    WritePendingElement(false);
    CloseStartTag();
    WritePendingTerminator();
    if (m_isTraced)
        DebugTrace("Elm Val: %s\n", text.c_str());
    if (!text.empty())
        WriteCharacterChunk(text, m_context.GetElementMaxAddLength(), type);
}

// The end is held back: two ends in a row share one octet.
void CFastInfosetWriter::WriteElementEnd() {
    if (m_pContext == nullptr)
        FailEndOutsideElement();
    WritePendingElement(false);
    CloseStartTag();
    if (m_bTerminatorPending)
        m_out.WriteOctet(detail::kDoubleEnd);
    m_bTerminatorPending = !m_bTerminatorPending;
    if (m_isTraced)
        TraceEnd();
    PopContext();
}

void CFastInfosetWriter::WriteAttribute(std::string const& name, std::string const& ns,
                                        std::string const& value, ItemType type) {
    RequireOpenStartTag();
    WriteNamedAttribute(ns.empty() ? std::string_view() : AliasOf(ns), name, ns, value, type);
}

void CFastInfosetWriter::WriteNamedAttribute(std::string_view alias, std::string const& name,
                                             std::string const& ns, std::string const& value, ItemType type) {
    if (m_isTraced) {
        if (ns.empty())
            DebugTrace("Add Att: ::%s\n", name.c_str());
        else
            DebugTrace("Add Att: %s %s::%s\n", std::string(alias).c_str(), ns.c_str(), name.c_str());
        DebugTrace("Att Val: %s\n", value.c_str());
    }
    WriteAttributeQName(0x00, {name, ns, alias});
    WriteAttributeValue(value, m_context.GetAttributeMaxAddLength(), type);
}

void CFastInfosetWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName,
                                            ItemType type) {
    RequireOpenStartTag();
    if (ns.empty() || ns == m_pContext->GetDefaultNamespace()) {
        WriteAttribute("type", SchemaInstanceNamespace(), typeName, type);
        return;
    }
    std::string value(AliasOf(ns));
    value += ':';
    value += typeName;
    WriteAttribute("type", SchemaInstanceNamespace(), value, type);
}

void CFastInfosetWriter::WriteNilAttribute() {
    RequireOpenStartTag();
    WriteAttribute("nil", SchemaInstanceNamespace(), "true", ItemType_boolean);
}

void CFastInfosetWriter::TraceStart(std::string const& name, std::string const& ns) {
    DebugTrace(m_pContext == nullptr ? "Root Elm: %s::%s\n" : "New Elm: %s::%s\n", ns.c_str(), name.c_str());
    m_tracedNames.emplace_back(ns, name);
}

void CFastInfosetWriter::TraceEnd() {
    auto const& [ns, name] = m_tracedNames.back();
    DebugTrace("End Elm: %s::%s\n", ns.c_str(), name.c_str());
    m_tracedNames.pop_back();
}

void CFastInfosetWriter::RequireOpenStartTag() {
    WritePendingElement(true);
    if (m_pContext == nullptr || !m_pContext->m_startTagOpen)
        FailAttributeAfterContent();
}

void CFastInfosetWriter::CloseStartTag() {
    if (m_pContext->m_startTagOpen && m_pContext->m_hasAttributes)
        m_out.WriteOctet(detail::kEnd);
    m_pContext->m_startTagOpen = false;
}

void CFastInfosetWriter::WritePendingTerminator() {
    if (m_bTerminatorPending)
        m_out.WriteOctet(detail::kEnd);
    m_bTerminatorPending = false;
}

void CFastInfosetWriter::WritePendingElement(bool hasAttributes) {
    if (!m_isPending)
        return;
    unsigned current = BeginHead(hasAttributes);
    if (m_pContext->m_depth == 0) {
        current = BeginDeclarations(current);
        WriteGivenDeclarations();
        EndDeclarations();
    }
    WriteElementQName(current);
}

unsigned CFastInfosetWriter::BeginHead(bool hasAttributes) {
    m_isPending = false;
    // No other attribute can follow.
    m_pContext->m_hasAttributes = hasAttributes;
    m_pContext->m_startTagOpen = hasAttributes;
    return hasAttributes ? kHasAttributes : 0x00;
}

unsigned CFastInfosetWriter::BeginDeclarations(unsigned current) {
    m_out.WriteOctet(current | kNamespacesFollow);
    return 0x00; // the name begins an octet of its own
}

void CFastInfosetWriter::WriteDeclaration(std::string_view prefix, std::string_view ns) {
    m_out.WriteOctet(kDeclarationOctet | (prefix.empty() ? 0x00U : 0x02U) | (ns.empty() ? 0x00U : 0x01U));
    if (!prefix.empty())
        WriteIdentifyingString(prefix, m_vocabulary.prefixNames);
    if (!ns.empty())
        WriteIdentifyingString(ns, m_vocabulary.namespaceNames);
}

void CFastInfosetWriter::EndDeclarations() {
    m_out.WriteOctet(detail::kEnd);
}

// Writes the declarations known before the root. There is always an entry: the XML namespace, which needs no
// declaration.
void CFastInfosetWriter::WriteGivenDeclarations() {
    if (!m_defaultNamespace.empty())
        WriteDeclaration({}, m_defaultNamespace);
    for (auto const& [ns, alias] : m_namespaceMap) {
        if (!alias.empty() && !BeginsWithXmlNamespace(ns))
            WriteDeclaration(alias, ns);
    }
}

// A generated alias needs no declaration: a qualified name carries prefix and namespace.
std::string_view CFastInfosetWriter::AliasOf(std::string const& ns) {
    std::string const* const known = m_pContext->FindAlias(ns);
    return known != nullptr ? *known : GenerateAlias(*m_pContext, ns);
}

void CFastInfosetWriter::WriteElementQName(unsigned current) {
    if (m_pendingIndex != 0)
        m_out.WriteIntegerBit3(current, m_pendingIndex);
    else
        WriteLiteralQName(current | 0x3C, {m_pendingName, m_pendingNamespace, m_pendingPrefix},
                          m_elementNames);
}

void CFastInfosetWriter::WriteAttributeQName(unsigned current, IndexMap::QName const& name) {
    if (std::uint32_t const index = m_attributeNames.Find(name))
        m_out.WriteIntegerBit2(current, index);
    else
        WriteLiteralQName(current | 0x78, name, m_attributeNames);
}

void CFastInfosetWriter::WriteLiteralQName(unsigned current, IndexMap::QName const& name, Names& names) {
    m_out.WriteOctet(current | (name.prefix.empty() ? 0x00U : 0x02U) |
                     (name.namespaceName.empty() ? 0x00U : 0x01U));
    if (!name.prefix.empty())
        WriteIdentifyingString(name.prefix, m_vocabulary.prefixNames);
    if (!name.namespaceName.empty())
        WriteIdentifyingString(name.namespaceName, m_vocabulary.namespaceNames);
    WriteIdentifyingString(name.localName, m_vocabulary.localNames);
    names.Add(name);
}

std::uint32_t CFastInfosetWriter::Names::LookUp(IndexMap::QName const& name) {
    std::uint32_t const index = map.Find(name, IndexMap::Hash(name));
    if (index != 0)
        NoteNext(index);
    return index;
}

void CFastInfosetWriter::Names::Add(IndexMap::QName const& name) {
    std::uint32_t const count = map.GetCount();
    map.Add(name, IndexMap::Hash(name));
    if (map.GetCount() != count)
        NoteNext(map.GetCount());
}

void CFastInfosetWriter::Names::NoteNext(std::uint32_t index) {
    if (likelyNext.size() <= map.GetCount())
        likelyNext.resize(2 * map.GetCount() + 16);
    likelyNext[last] = index;
    last = index;
}

void CFastInfosetWriter::WriteIdentifyingString(std::string_view text, IndexMap& table) {
    std::uint64_t const hash = IndexMap::Hash(text);
    if (std::uint32_t const index = table.Find(text, hash))
        return m_out.WriteIntegerBit2(0x80, index);
    std::string_view const octets = AsUtf8(text, m_octets);
    if (octets.empty())
        FailEmptyName();
    m_out.WriteLengthBit2(0x00, octets.size());
    m_out.WriteOctets(octets);
    table.Add(text, hash);
}

void CFastInfosetWriter::WriteNonIdentifyingString(std::string_view text) {
    if (text.empty())
        return m_out.WriteOctet(detail::kEmptyValue);
    EncodedCharacterStringBit5(0x00, {detail::kUtf8String, 0, AsUtf8(text, m_octets)});
}

void CFastInfosetWriter::BeginItem() {
    if (m_pContext != nullptr)
        CloseStartTag();
    WritePendingTerminator();
}

void CFastInfosetWriter::WriteCommentItem(std::string_view text) {
    BeginItem();
    m_out.WriteOctet(detail::kComment);
    WriteNonIdentifyingString(text);
}

void CFastInfosetWriter::WriteInstructionItem(std::string_view target, std::string_view data) {
    BeginItem();
    m_out.WriteOctet(detail::kProcessingInstruction);
    WriteIdentifyingString(target, m_otherNames);
    WriteNonIdentifyingString(data);
}

void CFastInfosetWriter::WriteAttributeValue(std::string const& value, std::uint32_t maxLength,
                                             ItemType type) {
    constexpr char const* kFunction = "EncodedCharacterStringBit5";
    if (value.empty())
        return m_out.WriteOctet(detail::kEmptyValue);
    bool const isAdded = value.size() < maxLength;
    std::uint64_t hash = 0;
    if (isAdded) {
        hash = IndexMap::Hash(value);
        if (std::uint32_t const index = m_vocabulary.attributeValues.Find(value, hash))
            return m_out.WriteIntegerBit2(0x80, index);
    }
    EncodedString const string = Encode(value, type, kFunction);
    if (string.octets.empty()) // an empty string has no octet form
        return m_out.WriteOctet(detail::kEmptyValue);
    EncodedCharacterStringBit5(isAdded ? kAddAttributeValue : 0x00, string);
    if (isAdded)
        m_vocabulary.attributeValues.Add(value, hash);
}

void CFastInfosetWriter::WriteCharacterChunk(std::string const& text, std::uint32_t maxLength,
                                             ItemType type) {
    constexpr char const* kFunction = "EncodedCharacterStringBit7";
    bool const isAdded = text.size() < maxLength;
    std::uint64_t hash = 0;
    if (isAdded) {
        hash = IndexMap::Hash(text);
        if (std::uint32_t const index = m_vocabulary.characterChunks.Find(text, hash))
            return m_out.WriteIntegerBit4(kChunkIndex, index);
    }
    EncodedString const string = Encode(text, type, kFunction);
    if (string.octets.empty())
        return;
    EncodedCharacterStringBit7(isAdded ? kChunk | kAddChunk : kChunk, string);
    if (isAdded)
        m_vocabulary.characterChunks.Add(text, hash);
}

// `function` is the encoder of the string.
CFastInfosetWriter::EncodedString CFastInfosetWriter::Encode(std::string const& text, ItemType type,
                                                             char const* function) {
    CFastInfosetContext::EncodedCharacterString const encoding = EncodingOf(type);
    if (encoding.type == CFastInfosetContext::EncodingType_String)
        return EncodeAsText(text);
    m_octets.clear();
    switch (encoding.type) {
    case CFastInfosetContext::EncodingType_RestrictedAlphabet:
        if (encoding.index == 0 || encoding.index > kRestrictedAlphabets.size())
            FailWrittenAlphabet(encoding.index);
        AppendRestrictedAlphabetString(kRestrictedAlphabets[encoding.index - 1], text, m_octets);
        return {detail::kAlphabetString, encoding.index, m_octets};
    case CFastInfosetContext::EncodingType_Algorithm:
        if (encoding.index == 0 || encoding.index > kAlgorithms)
            FailWrittenAlgorithm(encoding.index);
        AppendEncodedOctets(encoding.index, text, m_octets);
        return {detail::kAlgorithmString, encoding.index, m_octets};
    default:
        FailWrittenEncoding(function);
    }
}

CFastInfosetContext::EncodedCharacterString CFastInfosetWriter::EncodingOf(ItemType type) const {
    return m_context.GetEncoding(type);
}

CFastInfosetWriter::EncodedString CFastInfosetWriter::EncodeAsText(std::string const& text) {
    if (m_context.GetDefaultStringEncoding() != 0)
        FailWrittenUtf16();
    return {detail::kUtf8String, 0, AsUtf8(text, m_octets)};
}

// The index less 1 has eight bits, which stand across two octets.
void CFastInfosetWriter::EncodedCharacterStringBit5(unsigned current, EncodedString const& string) {
    current |= string.discriminant << 4;
    if (string.discriminant >= detail::kAlphabetString) {
        m_out.WriteOctet(current | (string.index - 1) >> 4);
        current = (string.index - 1) << 4 & 0xFF;
    }
    m_out.WriteOctetsBit5(current, string.octets);
}

void CFastInfosetWriter::EncodedCharacterStringBit7(unsigned current, EncodedString const& string) {
    current |= string.discriminant << 2;
    if (string.discriminant >= detail::kAlphabetString) {
        m_out.WriteOctet(current | (string.index - 1) >> 6);
        current = (string.index - 1) << 2 & 0xFF;
    }
    m_out.WriteOctetsBit7(current, string.octets);
}

} // namespace ZvXmlLib16
