// Fast Infoset as a source of events. The forms of the items stand in InfosetSink.cpp.
#include "InfosetSource.h"

#include "InfosetVocabulary.h"
#include "TagBuilder.h"

#include "zvxmllib/fastinfoset/InfosetChecks.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr std::uint8_t kEnd = 0xF0;
constexpr std::uint8_t kDoubleEnd = 0xFF;
constexpr std::uint8_t kInstruction = 0xE1;
constexpr std::uint8_t kComment = 0xE2;

class InfosetSource final : public Source {
public:
    explicit InfosetSource(ByteInput& input) : m_input(input) {}

    void Read(Receiver& receiver) override;
    Place GetPlace() const override { return {0, m_octets->GetCount()}; }
    InfosetVocabulary const* GetVocabulary() const override { return m_tables ? &*m_tables : nullptr; }

private:
    void ReadDocument();
    void ReadEpilog();
    void ReadItem(std::uint8_t octet);
    void ReadElement(std::uint8_t octet);
    std::uint8_t ReadDeclarations();
    void SendStart();
    void EndElement();
    void ReadInstruction();
    void ReadType(std::uint8_t octet);

    ByteInput& m_input;
    Receiver* m_receiver = nullptr;
    std::optional<OctetReader> m_octets;
    std::optional<InfosetVocabulary> m_tables;
    TagBuilder m_tags;
    std::vector<InfosetVocabulary::QName const*> m_open;
    std::vector<std::pair<std::string const*, std::string const*>> m_declarations;
    std::vector<InfosetVocabulary::QName const*> m_names;
    std::vector<std::string> m_values; // of the attributes, some for their room
    std::string m_text;
    bool m_hasEnded = false; // the octet that ended the root ended the document, too
};

void InfosetSource::Read(Receiver& receiver) {
    m_receiver = &receiver;
    m_input.Rewind();
    m_octets.emplace(m_input);
    m_tables.emplace(*m_octets);
    m_tags = TagBuilder();
    m_open.clear();
    m_hasEnded = false;
    try {
        ReadDocument();
    } catch (CZvException const& e) {
        throw DocumentError(e.GetMessage(), GetPlace());
    } catch (DocumentError const& e) {
        throw DocumentError(e.what(), e.GetPlace().column == 0 ? GetPlace() : e.GetPlace());
    }
    receiver.Finish();
}

void InfosetSource::ReadDocument() {
    m_octets->SkipPreamble();
    m_tables->ReadHeader();
    for (bool hasRoot = false; !hasRoot;) {
        std::uint8_t const octet = m_octets->ReadOctet();
        hasRoot = octet < 0x80;
        if (hasRoot)
            ReadElement(octet);
        else if (octet == kInstruction)
            ReadInstruction();
        else if (octet == kComment)
            m_receiver->Comment(m_tables->ReadText(m_text));
        else if ((octet & 0xFC) == 0xC4)
            ReadType(octet);
        else if (octet == kEnd || octet == kDoubleEnd)
            FailNoRootElement();
        else
            FailDocumentItem();
    }
    while (!m_open.empty())
        ReadItem(m_octets->ReadOctet());
    ReadEpilog();
}

void InfosetSource::ReadEpilog() {
    while (!m_hasEnded) {
        std::uint8_t const octet = m_octets->ReadOctet();
        if (octet == kInstruction)
            ReadInstruction();
        else if (octet == kComment)
            m_receiver->Comment(m_tables->ReadText(m_text));
        else if (octet == kEnd)
            m_hasEnded = true;
        else
            FailDocumentItem();
    }
    if (!m_octets->IsAtEnd())
        FailDataBehindDocument();
}

void InfosetSource::ReadItem(std::uint8_t octet) {
    if (octet < 0x80)
        return ReadElement(octet);
    if (octet < 0xC0)
        return m_receiver->Text(m_tables->ReadChunk(octet, m_text));
    if (octet == kEnd)
        return EndElement();
    if (octet == kInstruction)
        return ReadInstruction();
    if (octet == kComment)
        return m_receiver->Comment(m_tables->ReadText(m_text));
    if (octet != kDoubleEnd)
        FailElementItem();
    EndElement();
    if (m_open.empty())
        m_hasEnded = true; // the second end is that of the document
    else
        EndElement();
}

void InfosetSource::ReadElement(std::uint8_t octet) {
    bool const hasAttributes = (octet & 0x40) != 0;
    m_declarations.clear();
    m_names.clear();
    if ((octet & 0x3C) == 0x38)
        octet = ReadDeclarations();
    m_open.push_back(&m_tables->ReadElementName(octet));
    std::uint8_t end = 0;
    while (hasAttributes && (end = m_octets->ReadOctet()) < 0x80) {
        m_names.push_back(&m_tables->ReadAttributeName(end));
        if (m_names.size() > m_values.size())
            m_values.emplace_back();
        std::string& value = m_values[m_names.size() - 1];
        std::string_view const read = m_tables->ReadAttributeValue(value);
        if (read.data() != value.data())
            value = read;
    }
    if (hasAttributes && end != kEnd && end != kDoubleEnd)
        FailElementItem();
    SendStart();
    if (end == kDoubleEnd)
        EndElement();
}

// Returns the octet in which the name begins.
std::uint8_t InfosetSource::ReadDeclarations() {
    std::uint8_t octet = 0;
    while (((octet = m_octets->ReadOctet()) & 0xFC) == 0xCC) {
        std::string const* const prefix = m_tables->ReadPart(m_tables->prefixes, (octet & 0x02) != 0);
        std::string const* const uri = m_tables->ReadPart(m_tables->uris, (octet & 0x01) != 0);
        m_declarations.emplace_back(prefix, uri);
    }
    if (octet != kEnd)
        FailDocumentItem();
    return m_octets->ReadOctet();
}

void InfosetSource::SendStart() {
    m_tags.Begin(m_open.back()->qualified);
    for (auto const& [prefix, uri] : m_declarations)
        m_tags.Declare(*prefix, *uri);
    for (std::size_t i = 0; i < m_names.size(); ++i)
        m_tags.AddAttribute(m_names[i]->qualified, m_values[i]);
    StartTag const& tag = m_tags.Finish();
    auto const require = [](Name const& name, InfosetVocabulary::QName const& read) {
        if (name.uri != *read.uri)
            FailUndeclaredPrefix(std::string(name.prefix));
    };
    require(tag.name, *m_open.back());
    if (tag.attributes.size() != m_names.size())
        FailReadDeclaration("xmlns");
    for (std::size_t i = 0; i < m_names.size(); ++i)
        require(tag.attributes[i].name, *m_names[i]);
    m_receiver->Start(tag);
}

void InfosetSource::EndElement() {
    m_receiver->End(m_open.back()->qualified);
    m_tags.Close();
    m_open.pop_back();
}

void InfosetSource::ReadInstruction() {
    std::string const target = *m_tables->ReadPart(m_tables->otherNames, true);
    m_receiver->Instruction(target, m_tables->ReadText(m_text));
}

// Its identifiers and instructions are read over: there is no name among them.
void InfosetSource::ReadType(std::uint8_t octet) {
    if ((octet & 0x02) != 0)
        m_tables->ReadPart(m_tables->otherUris, true);
    if ((octet & 0x01) != 0)
        m_tables->ReadPart(m_tables->otherUris, true);
    while ((octet = m_octets->ReadOctet()) == kInstruction) {
        m_tables->ReadPart(m_tables->otherNames, true);
        m_tables->ReadText(m_text);
    }
    if (octet != kEnd)
        FailDocumentItem();
    m_receiver->Type({});
}

} // namespace

std::unique_ptr<Source> MakeInfosetSource(ByteInput& input) {
    return std::make_unique<InfosetSource>(input);
}

} // namespace zvxml
