// Writes Fast Infoset (ITU-T X.891).
//
//   element      0 a nnnnnn   a: attributes follow; 111000: declarations come first, and the name begins an
//   octet declaration  110011 p n   prefix, namespace name; an end behind the last one attribute    0 nnnnnnn
//   the name on the second bit, then the value; an end behind the last one chunk        10 cccccc    an index
//   on the fourth bit, or a text instruction  11100001     target, data comment      11100010     text end
//   1111; two of them are 11111111
#include "Losses.h"
#include "Sinks.h"

#include "zvxmllib/fastinfoset/FInfoDeclarations.h"
#include "zvxmllib/fastinfoset/IndexMap.h"
#include "zvxmllib/fastinfoset/OctetOutput.h"

#include <string>

using namespace ZvXmlLib16;
using ZvXmlLib16::detail::IndexMap;

namespace zvxml {

namespace {

constexpr unsigned kEnd = 0xF0;
constexpr unsigned kDoubleEnd = 0xFF;
constexpr unsigned kEmptyValue = 0xFF;
constexpr unsigned kIndex = 0x80;
constexpr unsigned kIntoTable = 0x40;
constexpr std::size_t kLongestChunk = std::size_t{1} << 20U;

// What OctetOutput takes for a sink.
class OctetSink {
public:
    explicit OctetSink(ByteOutput& output) : m_output(output) {}
    void Append(unsigned char octet) { m_output.Append(static_cast<char>(octet)); }
    void Append(unsigned char const* octets, std::uint32_t length) {
        m_output.Append({reinterpret_cast<char const*>(octets), length});
    }

private:
    ByteOutput& m_output;
};

class InfosetSink final : public Receiver {
public:
    InfosetSink(ByteOutput& output, bool hasDeclaration, std::size_t addLength, Losses& losses)
        : m_sink(output), m_out(m_sink), m_addLength(addLength), m_losses(losses) {
        if (hasDeclaration)
            m_out.WriteOctets(kFInfoDeclarations[FInfoDecl_Version10 - 1]);
        m_out.WriteOctets(kFInfoMagic);
        m_out.WriteOctet(0); // nothing in the header
    }

    void Start(StartTag const& tag) override;
    void Text(std::string_view text) override {
        if (m_text.size() + text.size() > kLongestChunk)
            WriteText();
        m_text += text;
    }
    void End(std::string_view) override {
        WriteText();
        WriteEnd();
    }
    void Comment(std::string_view text) override {
        BeginItem();
        m_out.WriteOctet(0xE2);
        WriteLiteral(text);
    }
    void Instruction(std::string_view target, std::string_view data) override {
        BeginItem();
        m_out.WriteOctet(0xE1);
        WriteIdentifier(m_targets, target);
        WriteLiteral(data);
    }
    void Type(DocumentType const&) override { m_losses.Add(Loss::kType); }
    void Finish() override {
        WriteEnd(); // of the document
        FlushEnd();
    }

private:
    void WriteEnd() {
        if (m_hasEnd)
            m_out.WriteOctet(kDoubleEnd);
        m_hasEnd = !m_hasEnd;
    }
    void FlushEnd() {
        if (m_hasEnd)
            m_out.WriteOctet(kEnd);
        m_hasEnd = false;
    }
    void BeginItem() {
        WriteText();
        FlushEnd();
    }
    void WriteText();
    void WriteIdentifier(IndexMap& map, std::string_view text);
    // 0 if the name is new, and has to be written by WriteNameParts.
    std::uint32_t FindName(IndexMap& map, Name const& name);
    void WriteNameParts(Name const& name);
    void WriteAttribute(Attribute const& attribute);
    void WriteLiteral(std::string_view text) {
        text.empty() ? m_out.WriteOctet(kEmptyValue) : m_out.WriteOctetsBit5(0, text);
    }
    static unsigned PartsOf(Name const& name) {
        return (name.prefix.empty() ? 0U : 2U) | (name.uri.empty() ? 0U : 1U);
    }

    OctetSink m_sink;
    BasicOctetOutput<OctetSink> m_out;
    std::size_t const m_addLength;
    Losses& m_losses;
    detail::IndexMaps m_maps;
    IndexMap m_targets;
    std::string m_text;
    bool m_hasEnd = false; // an end that the next one may join
};

void InfosetSink::WriteText() {
    if (m_text.empty())
        return;
    FlushEnd();
    bool const isShort = m_text.size() < m_addLength;
    std::uint64_t const hash = isShort ? IndexMap::Hash(m_text) : 0;
    std::uint32_t const index = isShort ? m_maps.characterChunks.Find(m_text, hash) : 0;
    if (index != 0) {
        m_out.WriteIntegerBit4(0xA0, index);
    } else {
        bool const isAdded = isShort && m_maps.characterChunks.GetCount() < IndexMap::kMostEntries;
        m_out.WriteOctetsBit7(isAdded ? 0x90 : 0x80, m_text);
        if (isAdded)
            m_maps.characterChunks.Add(m_text, hash);
    }
    m_text.clear();
}

void InfosetSink::WriteIdentifier(IndexMap& map, std::string_view text) {
    std::uint64_t const hash = IndexMap::Hash(text);
    std::uint32_t const index = map.Find(text, hash);
    if (index != 0)
        return m_out.WriteIntegerBit2(kIndex, index);
    m_out.WriteLengthBit2(0, text.size());
    m_out.WriteOctets(text);
    map.Add(text, hash);
}

std::uint32_t InfosetSink::FindName(IndexMap& map, Name const& name) {
    IndexMap::QName const key{name.local, name.uri, name.prefix};
    std::uint64_t const hash = IndexMap::Hash(key);
    std::uint32_t const index = map.Find(key, hash);
    if (index == 0)
        map.Add(key, hash);
    return index;
}

void InfosetSink::WriteNameParts(Name const& name) {
    if (!name.prefix.empty())
        WriteIdentifier(m_maps.prefixNames, name.prefix);
    if (!name.uri.empty())
        WriteIdentifier(m_maps.namespaceNames, name.uri);
    WriteIdentifier(m_maps.localNames, name.local);
}

void InfosetSink::Start(StartTag const& tag) {
    BeginItem();
    unsigned const attributes = tag.attributes.empty() ? 0 : 0x40;
    unsigned current = attributes;
    if (!tag.declarations.empty()) {
        m_out.WriteOctet(0x38 | attributes);
        for (Declaration const& declaration : tag.declarations) {
            m_out.WriteOctet(0xCC | (declaration.prefix.empty() ? 0U : 2U) |
                             (declaration.uri.empty() ? 0U : 1U));
            if (!declaration.prefix.empty())
                WriteIdentifier(m_maps.prefixNames, declaration.prefix);
            if (!declaration.uri.empty())
                WriteIdentifier(m_maps.namespaceNames, declaration.uri);
        }
        m_out.WriteOctet(kEnd);
        current = 0;
    }
    if (std::uint32_t const index = FindName(m_maps.elementNames, tag.name)) {
        m_out.WriteIntegerBit3(current, index);
    } else {
        m_out.WriteOctet(current | 0x3C | PartsOf(tag.name));
        WriteNameParts(tag.name);
    }
    for (Attribute const& attribute : tag.attributes)
        WriteAttribute(attribute);
    if (attributes != 0)
        m_out.WriteOctet(kEnd);
}

void InfosetSink::WriteAttribute(Attribute const& attribute) {
    if (std::uint32_t const index = FindName(m_maps.attributeNames, attribute.name)) {
        m_out.WriteIntegerBit2(0, index);
    } else {
        m_out.WriteOctet(0x78 | PartsOf(attribute.name));
        WriteNameParts(attribute.name);
    }
    std::string_view const value = attribute.value;
    bool const isShort = !value.empty() && value.size() < m_addLength;
    IndexMap& values = m_maps.attributeValues;
    std::uint64_t const hash = isShort ? IndexMap::Hash(value) : 0;
    if (std::uint32_t const index = isShort ? values.Find(value, hash) : 0)
        return m_out.WriteIntegerBit2(kIndex, index);
    if (!isShort || values.GetCount() == IndexMap::kMostEntries)
        return WriteLiteral(value);
    m_out.WriteOctetsBit5(kIntoTable, value);
    values.Add(value, hash);
}

} // namespace

std::unique_ptr<Receiver> MakeInfosetSink(ByteOutput& output, bool hasDeclaration, std::size_t addLength,
                                          Losses& losses) {
    return std::make_unique<InfosetSink>(output, hasDeclaration, addLength, losses);
}

} // namespace zvxml
