// CXmlTextWriter, XML text.
#include "zvxmllib/xml/XmlTextWriter.h"

#include "zvxmllib/foundation/ByteSearch.h"
#include "zvxmllib/values/text/TextParts.h"
#include "zvxmllib/writers/Failures.h"

#include <algorithm>
#include <array>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_xmlTextWriterInstances("CXmlTextWriter");

constexpr std::string_view kCDataStart = "<![CDATA[";
constexpr std::string_view kLineFeedInAttribute = "&#xA;";
constexpr std::array<std::string_view, 6> kEntities = {"&amp;", "&lt;", "&gt;", "&quot;", "&#xD;", "&#x9;"};

// The escapes of the format are indices into kEntities.
constexpr CTextWriter::EscapeTable MakeEscapeTable(bool isAttribute) {
    CTextWriter::EscapeTable table{};
    table['\0'] = CTextWriter::kEndOfText;
    table['\n'] = CTextWriter::kLineFeed;
    table['\r'] = CTextWriter::kDropped;
    table['&'] = CTextWriter::kFirstOfFormat;
    table['<'] = CTextWriter::kFirstOfFormat + 1;
    table['>'] = CTextWriter::kFirstOfFormat + 2;
    if (isAttribute)
        table['"'] = CTextWriter::kFirstOfFormat + 3;
    return table;
}

constexpr CTextWriter::EscapeTable kTextTable = MakeEscapeTable(false);
constexpr CTextWriter::EscapeTable kAttributeTable = MakeEscapeTable(true);

constexpr CTextWriter::EscapeTable MakeExactTable(bool isAttribute) {
    CTextWriter::EscapeTable table = MakeEscapeTable(isAttribute);
    table['\r'] = CTextWriter::kFirstOfFormat + 4;
    if (isAttribute)
        table['\t'] = CTextWriter::kFirstOfFormat + 5;
    return table;
}

constexpr CTextWriter::EscapeTable kExactTextTable = MakeExactTable(false);
constexpr CTextWriter::EscapeTable kExactAttributeTable = MakeExactTable(true);

} // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream* sink)
    : CXmlTextWriter(s_xmlTextWriterInstances, sink, {kTextTable, kAttributeTable}) {}

CXmlTextWriter::CXmlTextWriter(Registration& registration, CTextStream* sink, Escapes escapes)
    : CTextWriter(registration, sink), m_escapes(escapes) {}

CXmlTextWriter::Escapes CXmlTextWriter::ExactEscapes() noexcept {
    return {kExactTextTable, kExactAttributeTable};
}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::WriteDeclaration() {
    m_sink->Append("<?xml version=\"1.0\"");
    std::string const encoding = GetEncodingName();
    if (!encoding.empty())
        m_sink->Append(" encoding=\"" + encoding + '"');
    m_sink->Append("?>");
    AppendEndOfLine();
    FlushIfLarge();
}

std::string CXmlTextWriter::GetEncodingName() const {
    XmlEncoding const encoding = m_sink->GetEncoding();
    return encoding == XmlEncoding_UTF8 ? "UTF-8" : encoding == XmlEncoding_UTF16 ? "UTF-16" : "";
}

void CXmlTextWriter::WriteDirective(std::string const& text) {
    if (m_pContext != nullptr)
        FailDirectiveInsideElement();
    m_sink->Append(text);
    AppendEndOfLine();
    FlushIfLarge();
}

void CXmlTextWriter::WriteComment(std::string const& text) {
    m_sink->Append("<!--");
    AppendEscapedText(text);
    m_sink->Append("-->");
    AppendEndOfLine();
    FlushIfLarge();
}

void CXmlTextWriter::WriteProcessingInstruction(std::string const& text) {
    m_sink->Append(text);
    AppendEndOfLine();
    AppendEndOfLine();
    FlushIfLarge();
}

void CXmlTextWriter::WriteInlineSchema(std::string const& text) {
    m_sink->Append(' ');
    AppendEndOfLine();
    m_sink->Append(text);
    AppendEndOfLine();
    FlushIfLarge();
}

void CXmlTextWriter::WriteRawLine(std::string const& text) {
    m_sink->Append(text);
    if (m_formatted)
        AppendEndOfLine();
}

void CXmlTextWriter::BeginChild() {
    if (m_pContext == nullptr)
        return;
    ++m_pContext->m_childCount;
    if (m_pContext->m_startTagOpen) {
        CloseStartTag();
        if (m_formatted)
            AppendEndOfLine();
    }
}

void CXmlTextWriter::WriteElementStart(std::string const& name, std::string const& ns) {
    BeginChild();
    bool const isRoot = m_pContext == nullptr;
    PushContext();
    AppendElementStart(name, ns, isRoot);
}

void CXmlTextWriter::AppendElementStart(std::string const& name, std::string const& ns, bool isRoot) {
    CXmlWriterContext& context = *m_pContext;
    std::string const* const known = FindElementAlias(context, ns);
    bool const isDeclarationDue = known == nullptr;
    std::string_view const alias = isDeclarationDue ? GenerateAlias(context, ns) : *known;
    AppendIndent(context.m_depth);
    AppendStartTag(context.m_depth, name, alias);
    if (isDeclarationDue)
        AppendDeclaration(alias, ns);
    if (isRoot)
        AppendRootDeclarations();
    FlushIfLarge();
}

std::string const* CXmlTextWriter::FindElementAlias(CXmlWriterContext const& context, std::string const& ns) {
    static std::string const kNoPrefix;
    return ns.empty() || ns == context.GetDefaultNamespace() ? &kNoPrefix : context.FindAlias(ns);
}

// The same bytes as from the three operations, put together in the block of the sink. What is out of the
// ordinary goes their way.
bool CXmlTextWriter::TryWriteTextElement(std::string const& name, std::string const& ns,
                                         std::string const& text, ItemType) {
    constexpr std::size_t kLongestText = 512;
    constexpr std::size_t kLongestEscape = 6;
    if (m_pContext == nullptr || text.empty() || text.size() > kLongestText || text[0] == kCDataStart[0])
        return false;
    std::string const* const alias = FindElementAlias(*m_pContext, ns);
    if (alias == nullptr)
        return false;
    std::string_view const lineBreak = m_formatted ? LineBreak(m_pContext->m_depth + 1) : std::string_view();
    std::size_t const tagLength = alias->size() + name.size() + 4; // with a colon
    char* const room = GetRoomWithoutFlush(1 + m_eol.size() + lineBreak.size() + 2 * tagLength +
                                           kLongestEscape * text.size() + 1);
    if (room == nullptr)
        return false;
    char* out = room;
    auto const put = [&out](std::string_view part) { out = std::copy(part.begin(), part.end(), out); };
    if (m_pContext->m_startTagOpen) {
        m_pContext->m_startTagOpen = false;
        *out++ = '>';
        if (m_formatted)
            put(m_eol);
    }
    if (m_formatted)
        put(lineBreak.substr(m_eol.size()));
    char* const tag = out;
    *out++ = '<';
    if (!alias->empty()) {
        put(*alias);
        *out++ = ':';
    }
    put(name);
    *out++ = '>';
    std::string_view const nameAndEnd(tag + 1, static_cast<std::size_t>(out - tag - 1));
    out = EscapeText(out, text);
    *out++ = '<';
    *out++ = '/';
    put(nameAndEnd);
    if (m_formatted)
        put(m_eol);
    m_sink->Take(static_cast<std::size_t>(out - room));
    ++m_pContext->m_childCount;
    CountContext();
    return true;
}

// As AppendEscapedText.
char* CXmlTextWriter::EscapeText(char* out, std::string const& text) const noexcept {
    auto const put = [&out](std::string_view part) { out = std::copy(part.begin(), part.end(), out); };
    if (detail::PlainBytes<detail::kBeyondAscii, '&', '<', '>'>::AreAll(text)) {
        put(text);
        return out;
    }
    for (char const c : text) {
        unsigned char const escape = m_escapes.text[static_cast<unsigned char>(c)];
        if (escape == kPlain)
            *out++ = c;
        else if (escape == kEndOfText)
            break;
        else if (escape == kLineFeed)
            put(m_eol);
        else if (escape != kDropped)
            put(kEntities[escape - kFirstOfFormat]);
    }
    return out;
}

void CXmlTextWriter::WriteElementValue(std::string const& text, ItemType, bool isDefault) {
    if (m_pContext == nullptr)
        FailValueOutsideElement();
    if (text.empty() || (isDefault && !m_writeDefaultElementValues))
        return;
    if (m_pContext->m_startTagOpen)
        CloseStartTag();
    AppendText(text);
    FlushIfLarge();
}

void CXmlTextWriter::AppendText(std::string const& text) {
    if (detail::StartsWith(text, kCDataStart))
        m_sink->Append(text);
    else
        AppendEscapedText(text);
}

void CXmlTextWriter::AppendEscapedAttribute(std::string const& text) {
    AppendEscaped(text, m_escapes.attribute, kLineFeedInAttribute);
}

void CXmlTextWriter::WriteElementEnd() {
    if (m_pContext == nullptr)
        FailEndOutsideElement();
    if (m_pContext->m_startTagOpen) {
        m_sink->Append("/>", 2);
    } else {
        if (m_pContext->m_childCount != 0)
            AppendIndent(m_pContext->m_depth);
        // The name as written at the start, whatever has happened to the scope since.
        std::string const& endTag = m_endTags[static_cast<std::size_t>(m_pContext->m_depth)];
        m_sink->Append(endTag.data(), endTag.size());
    }
    if (m_formatted)
        AppendEndOfLine();
    PopContext();
    FlushIfLarge();
}

void CXmlTextWriter::WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                                    ItemType) {
    CXmlTextWriter::RequireOpenStartTag();
    // An attribute without a prefix is in no namespace, whatever the default namespace is.
    if (ns.empty()) {
        m_sink->Append(' ');
    } else {
        std::string const* const known = m_pContext->FindAlias(ns);
        std::string const& alias = known != nullptr ? *known : DeclareNamespace(ns);
        m_sink->Append(' ');
        m_sink->Append(alias.data(), alias.size());
        m_sink->Append(':');
    }
    m_sink->Append(name);
    m_sink->Append("=\"", 2);
    AppendEscapedAttribute(value);
    m_sink->Append('"');
    FlushIfLarge();
}

void CXmlTextWriter::RequireOpenStartTag() const {
    if (m_pContext == nullptr || !m_pContext->m_startTagOpen)
        FailAttributeAfterContent();
}

void CXmlTextWriter::CloseStartTag() {
    m_pContext->m_startTagOpen = false;
    m_sink->Append('>');
}

// Two blanks follow a declaration: its own and that of the attribute.
std::string const& CXmlTextWriter::AliasForType(std::string const& ns) {
    if (std::string const* const known = m_pContext->FindAlias(ns))
        return *known;
    std::string const& alias = DeclareNamespace(ns);
    m_sink->Append(' ');
    return alias;
}

std::string const& CXmlTextWriter::DeclareNamespace(std::string const& ns) {
    std::string const& alias = GenerateAlias(*m_pContext, ns);
    AppendDeclaration(alias, ns);
    return alias;
}

// Makes the end tag, and takes the start tag from it.
void CXmlTextWriter::AppendStartTag(std::int32_t depth, std::string const& name, std::string_view alias) {
    std::size_t const index = static_cast<std::size_t>(depth);
    if (m_endTags.size() <= index)
        m_endTags.resize(index + 1);
    std::size_t const prefixLength = alias.empty() ? 0 : alias.size() + 1;
    std::string& endTag = m_endTags[index];
    endTag.resize(2 + prefixLength + name.size() + 1);
    char* out = endTag.data();
    *out++ = '<';
    *out++ = '/';
    if (prefixLength != 0) {
        out = std::copy(alias.begin(), alias.end(), out);
        *out++ = ':';
    }
    *std::copy(name.begin(), name.end(), out) = '>';
    m_sink->Append('<');
    m_sink->Append(endTag.data() + 2, endTag.size() - 3);
}

void CXmlTextWriter::AppendEscaped(std::string const& text, EscapeTable const& table,
                                   std::string_view lineFeed) {
    CTextWriter::AppendEscaped(text.c_str(), table, lineFeed, [this](char const*, unsigned char escape) {
        std::string_view const entity = kEntities[escape - kFirstOfFormat];
        m_sink->Append(entity.data(), entity.size());
    });
}

void CXmlTextWriter::AppendDeclaration(std::string_view alias, std::string const& ns) {
    m_sink->Append(" xmlns", 6);
    if (!alias.empty()) {
        m_sink->Append(':');
        m_sink->Append(alias.data(), alias.size());
    }
    m_sink->Append("=\"", 2);
    m_sink->Append(ns);
    m_sink->Append('"');
}

} // namespace ZvXmlLib16
