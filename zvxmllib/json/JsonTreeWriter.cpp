#include "zvxmllib/json/JsonTreeWriter.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <algorithm>
#include <array>

namespace ZvXmlLib16 {

namespace {

constexpr std::string_view kDeclaration = "xmlns";
constexpr std::string_view kCDataMark = "<![CDATA[";
constexpr std::size_t kMostAttributes = 64; // each is compared with all others

CInstanceMonitor::Registration s_jsonTreeWriterInstances("CJsonTreeWriter");

// The document must go through XML text. Not a failure: it never leaves Fill.
struct NotPlain {};

// How the parser treats a byte of a text.
enum ByteKind : unsigned char { kPlain = 0, kBeyondAscii = 1, kTab = 2, kRefused = 4 };

constexpr std::array<unsigned char, 256> MakeByteKinds() {
    std::array<unsigned char, 256> kinds{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        kinds[byte] = kRefused; // carriage returns too: they are dropped in some places only
    for (std::size_t byte = 0x80; byte < 0x100; ++byte)
        kinds[byte] = kBeyondAscii;
    kinds['\n'] = kPlain;
    kinds['\t'] = kTab; // becomes a blank in an attribute
    return kinds;
}

constexpr std::array<unsigned char, 256> kByteKinds = MakeByteKinds();

// U+FFFE and U+FFFF are no characters of XML.
bool HasNoncharacter(std::string_view utf8) {
    return utf8.find("\xEF\xBF\xBE") != std::string_view::npos ||
           utf8.find("\xEF\xBF\xBF") != std::string_view::npos;
}

void RequirePlain(std::string_view text, unsigned refused) {
    unsigned kinds = 0;
    for (char const c : text)
        kinds |= kByteKinds[static_cast<unsigned char>(c)];
    if ((kinds & refused) != 0)
        throw NotPlain();
    if ((kinds & kBeyondAscii) != 0 && (!IsValidUtf8(text) || HasNoncharacter(text)))
        throw NotPlain();
}

constexpr bool IsPlainNameStart(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

constexpr bool IsPlainNameCharacter(char c) noexcept {
    return IsPlainNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

void RequirePlainName(std::string_view name) {
    if (name.empty() || !IsPlainNameStart(name[0]) ||
        !std::all_of(name.begin(), name.end(), IsPlainNameCharacter))
        throw NotPlain();
}

// xmlns, or with a prefix behind it.
bool IsDeclaration(std::string_view name) {
    return name.substr(0, kDeclaration.size()) == kDeclaration &&
           (name.size() == kDeclaration.size() || name[kDeclaration.size()] == ':');
}

} // namespace

bool CJsonTreeWriter::Fill(CXmlDocument& document, std::string_view json, CSerializationContext const& ctx) {
    // A listener must hear every event once, and here events may come twice.
    if (!IsLocalTextUtf8() || ctx.GetSchemaType() == SchemaType_NoNamespaces || IsDebugTraceEnabled())
        return false;
    document.MakeTree();
    try {
        CJsonTreeWriter writer(document);
        CJsonTextReader::Convert(json, ctx, writer, document.m_tree.get());
        return true;
    } catch (NotPlain const&) {
        document.Cleanup();
        return false;
    }
}

CJsonTreeWriter::CJsonTreeWriter(CXmlDocument& document)
    : CXmlWriter(s_jsonTreeWriterInstances), m_doc(document), m_tree(document.m_tree.get()) {
    m_prefixes.emplace("", "");
    m_prefixes.emplace("xml", kXmlNamespace);
}

CJsonTreeWriter::~CJsonTreeWriter() = default;

void CJsonTreeWriter::Close() {
    if (!m_hasRoot || !m_open.empty())
        throw NotPlain();
    m_tree->SettleCounts();
}

void CJsonTreeWriter::WriteComment(std::string const&) {
    throw NotPlain();
}

void CJsonTreeWriter::WriteProcessingInstruction(std::string const&) {
    throw NotPlain();
}

void CJsonTreeWriter::WriteInlineSchema(std::string const&) {
    throw NotPlain();
}

void CJsonTreeWriter::WriteTypeAttribute(std::string const&, std::string const&, ItemType) {
    throw NotPlain();
}

void CJsonTreeWriter::WriteNilAttribute() {
    throw NotPlain();
}

void CJsonTreeWriter::WriteElementStart(std::string const& name, std::string const&) {
    if (m_open.empty()) {
        if (m_hasRoot)
            throw NotPlain();
        m_hasRoot = m_isRootDue = true;
        m_rootName = name;
    } else {
        FinishRootStart();
        OpenElement& parent = m_open.back();
        AppendBreak(m_isBreakDue || parent.isStartTagOpen, m_open.size());
        parent = {false, true};
        m_tree->AddElement(NameOf(m_elementNames, name, false));
        m_attributes.clear();
    }
    m_open.push_back({true, false});
}

void CJsonTreeWriter::WriteElementValue(std::string const& text, ItemType, bool) {
    if (m_open.empty())
        throw NotPlain();
    FinishRootStart();
    if (text.empty())
        return;
    RequirePlain(text, kRefused);
    if (text[0] == '<' && text.compare(0, kCDataMark.size(), kCDataMark) == 0)
        throw NotPlain();
    AppendBreak(m_isBreakDue, 0);
    m_open.back().isStartTagOpen = false;
    m_tree->AppendTextExcludingCR(text);
}

void CJsonTreeWriter::WriteElementEnd() {
    if (m_open.empty())
        throw NotPlain();
    FinishRootStart();
    if (m_open.back().hasChildren)
        AppendBreak(m_isBreakDue, m_open.size() - 1);
    m_tree->EndElement();
    m_open.pop_back();
    m_isBreakDue = true;
}

void CJsonTreeWriter::WriteAttribute(std::string const& name, std::string const&, std::string const& value,
                                     ItemType) {
    if (m_open.empty() || !m_open.back().isStartTagOpen)
        throw NotPlain();
    RequirePlain(value, kRefused | kTab);
    if (m_isRootDue)
        m_rootAttributes.emplace_back(name, value);
    else
        AddAttribute(name, value);
}

// The declarations of a start tag apply to its own names.
void CJsonTreeWriter::FinishRootStart() {
    if (!m_isRootDue)
        return;
    m_isRootDue = false;
    for (auto const& [name, value] : m_rootAttributes) {
        if (IsDeclaration(name))
            Declare(name, value);
    }
    m_tree->AddElement(NameOf(m_elementNames, m_rootName, false));
    for (auto const& [name, value] : m_rootAttributes) {
        if (!IsDeclaration(name))
            AddAttribute(name, value);
    }
}

void CJsonTreeWriter::Declare(std::string const& attributeName, std::string const& uri) {
    bool const isDefault = attributeName.size() == kDeclaration.size();
    std::string const prefix = isDefault ? "" : attributeName.substr(kDeclaration.size() + 1);
    if (!isDefault) {
        RequirePlainName(prefix);
        if (prefix == "xml" || prefix == kDeclaration || uri.empty())
            throw NotPlain();
    }
    // The parser joins URI and name by this character.
    if (uri == kXmlNamespace || uri == kXmlnsNamespace || uri.find('|') != std::string::npos)
        throw NotPlain();
    if (!m_doc.m_namespaces.emplace(prefix, std::make_shared<std::string const>(uri)).second)
        throw NotPlain();
    m_prefixes[prefix] = uri;
}

void CJsonTreeWriter::AddAttribute(std::string const& name, std::string const& value) {
    detail::XmlName const* const known = NameOf(m_attributeNames, name, true);
    if (m_attributes.size() == kMostAttributes ||
        std::find(m_attributes.begin(), m_attributes.end(), known) != m_attributes.end())
        throw NotPlain();
    m_attributes.push_back(known);
    m_tree->AddElementAttribute(known, value);
}

// An attribute without a prefix is in no namespace.
detail::XmlName const* CJsonTreeWriter::NameOf(Names& names, std::string const& text, bool isAttribute) {
    if (detail::XmlName const* const known = names.Find(text))
        return known;
    if (isAttribute && IsDeclaration(text))
        throw NotPlain();
    std::size_t const colon = text.find(':');
    std::string_view prefix;
    std::string_view local = text;
    if (colon != std::string::npos) {
        prefix = local.substr(0, colon);
        local.remove_prefix(colon + 1);
        RequirePlainName(prefix);
    }
    RequirePlainName(local);
    auto const found = m_prefixes.find(prefix);
    if (found == m_prefixes.end())
        throw NotPlain();
    bool const hasNamespace = !isAttribute || colon != std::string::npos;
    detail::NameTable& table = m_tree->GetNames();
    std::string_view const uri = hasNamespace ? std::string_view(found->second) : std::string_view();
    return names.Add(text, table.FindByParts(table.Keep(uri), table.Keep(local)));
}

void CJsonTreeWriter::AppendBreak(bool isDue, std::size_t depth) {
    m_isBreakDue = false;
    if (m_breaks.size() <= depth)
        m_breaks.resize(depth + 1, '\t');
    std::string_view const lineBreak(m_breaks.data(), depth + 1);
    std::string_view const text = isDue ? lineBreak : lineBreak.substr(1);
    if (!text.empty())
        m_tree->AppendTextExcludingCR(text);
}

detail::XmlName const* CJsonTreeWriter::Names::Follow(Entry& entry) noexcept {
    if (m_last != nullptr)
        m_last->likelyNext = &entry;
    m_last = &entry;
    return entry.name;
}

detail::XmlName const* CJsonTreeWriter::Names::Find(std::string const& text) {
    if (m_last != nullptr && m_last->likelyNext != nullptr && m_last->likelyNext->text == text) {
        m_last = m_last->likelyNext;
        return m_last->name;
    }
    auto const found = m_byText.find(text);
    return found == m_byText.end() ? nullptr : Follow(*found->second);
}

detail::XmlName const* CJsonTreeWriter::Names::Add(std::string const& text, detail::XmlName const* name) {
    Entry& entry = m_entries.emplace_back(Entry{text, name, nullptr});
    m_byText.emplace(entry.text, &entry);
    return Follow(entry);
}

} // namespace ZvXmlLib16
