// CXmlTextWriter, XML text.
#include "zvxmllib/xml/XmlTextWriter.h"

#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/XmlNamespaces.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_registration("CXmlTextWriter");

constexpr std::size_t kFlushLength = 4096; // characters
constexpr std::string_view kCDataStart = "<![CDATA[";

// What a byte needs in escaped text. The end of the text is a byte like any other.
enum class Escape : unsigned char { kNone, kEnd, kLineFeed, kDrop, kQuote, kAmpersand, kLess, kGreater };
using EscapeTable = std::array<Escape, 256>;

constexpr EscapeTable MakeEscapeTable(bool isAttribute) {
    EscapeTable table{};
    table['\0'] = Escape::kEnd;
    table['\n'] = Escape::kLineFeed;
    table['\r'] = Escape::kDrop;
    table['&'] = Escape::kAmpersand;
    table['<'] = Escape::kLess;
    table['>'] = Escape::kGreater;
    if (isAttribute)
        table['"'] = Escape::kQuote;
    return table;
}

constexpr EscapeTable kTextTable = MakeEscapeTable(false);
constexpr EscapeTable kAttributeTable = MakeEscapeTable(true);

// Bytes are looked at one by one, since every byte of a multi-byte character is above 127, and handed on
// in runs.
void AppendEscaped(CTextStream& sink, char const* text, EscapeTable const& table, std::string_view lineFeed) {
    for (char const* run = text;;) {
        char const* end = run;
        while (table[static_cast<unsigned char>(*end)] == Escape::kNone)
            ++end;
        if (end != run)
            sink.Append(run, static_cast<std::size_t>(end - run));
        switch (table[static_cast<unsigned char>(*end)]) {
        case Escape::kLineFeed:
            sink.Append(lineFeed.data(), lineFeed.size());
            break;
        case Escape::kQuote:
            sink.Append("&quot;", 6);
            break;
        case Escape::kAmpersand:
            sink.Append("&amp;", 5);
            break;
        case Escape::kLess:
            sink.Append("&lt;", 4);
            break;
        case Escape::kGreater:
            sink.Append("&gt;", 4);
            break;
        case Escape::kDrop:
            break;
        case Escape::kNone:
        case Escape::kEnd:
            return;
        }
        run = end + 1;
    }
}

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

} // namespace

CXmlTextWriter::CXmlTextWriter(CTextStream* sink) : CXmlWriter(s_registration), m_sink(sink) {}

CXmlTextWriter::~CXmlTextWriter() = default;

void CXmlTextWriter::Open() {
    CXmlWriter::Open();
    m_sink->Open();
}

// The sink is closed first, so that a document that is not complete gives its file back, too.
void CXmlTextWriter::Close() {
    m_sink->Close();
    CXmlWriter::Close();
}

void CXmlTextWriter::SetEOLType(EOLType eol) {
    if (eol != EOLType_CRLF && eol != EOLType_LF)
        FailInvalidEol();
    m_eolType = eol;
    m_eol = eol == EOLType_CRLF ? "\r\n" : "\n";
}

void CXmlTextWriter::SetIndentChars(char const* indent) {
    m_indent = indent == nullptr ? "" : indent;
    m_indents.clear();
}

void CXmlTextWriter::WriteDeclaration() {
    m_sink->Append("<?xml version=\"1.0\"");
    if (m_sink->GetEncoding() == XmlEncoding_UTF8)
        m_sink->Append(" encoding=\"UTF-8\"");
    else if (m_sink->GetEncoding() == XmlEncoding_UTF16)
        m_sink->Append(" encoding=\"UTF-16\"");
    m_sink->Append("?>");
    AppendEndOfLine();
    FlushIfLarge();
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
    CXmlWriterContext& context = PushContext();
    std::string_view alias; // empty for no prefix
    bool isDeclarationDue = false;
    if (!ns.empty() && ns != context.GetDefaultNamespace()) {
        std::string const* const known = context.FindAlias(ns);
        isDeclarationDue = known == nullptr;
        alias = isDeclarationDue ? GenerateAlias(context, ns) : *known;
    }
    AppendIndent(context.m_depth);
    AppendStartTag(context.m_depth, name, alias);
    if (isDeclarationDue) {
        m_sink->Append(' ');
        AppendDeclaration(alias, ns);
    }
    if (isRoot)
        AppendRootDeclarations();
    FlushIfLarge();
}

void CXmlTextWriter::WriteElementValue(std::string const& text, ItemType, bool isDefault) {
    if (m_pContext == nullptr)
        FailValueOutsideElement();
    if (text.empty() || (isDefault && !m_writeDefaultElementValues))
        return;
    if (m_pContext->m_startTagOpen)
        CloseStartTag();
    if (StartsWith(text, kCDataStart))
        m_sink->Append(text);
    else
        AppendEscapedText(text);
    FlushIfLarge();
}

void CXmlTextWriter::WriteElementEnd() {
    if (m_pContext == nullptr)
        FailEndOutsideElement();
    if (m_pContext->m_startTagOpen) {
        m_sink->Append("/>", 2);
    } else {
        if (m_pContext->m_childCount != 0)
            AppendIndent(m_pContext->m_depth);
        // As written at the start, whatever has become of the scope since.
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
    RequireOpenStartTag();
    m_sink->Append(' ');
    // An attribute without a prefix is in no namespace, whatever the default namespace is.
    if (!ns.empty()) {
        std::string const* alias = m_pContext->FindAlias(ns);
        if (alias == nullptr) {
            alias = &GenerateAlias(*m_pContext, ns);
            AppendDeclaration(*alias, ns);
            m_sink->Append(' ');
        }
        m_sink->Append(alias->data(), alias->size());
        m_sink->Append(':');
    }
    m_sink->Append(name);
    m_sink->Append("=\"", 2);
    AppendEscapedAttribute(value);
    m_sink->Append('"');
    FlushIfLarge();
}

void CXmlTextWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) {
    RequireOpenStartTag();
    if (ns.empty() || ns == m_pContext->GetDefaultNamespace()) {
        WriteAttribute("type", SchemaInstanceNamespace(), typeName, type);
        return;
    }
    std::string const* alias = m_pContext->FindAlias(ns);
    if (alias == nullptr) {
        alias = &GenerateAlias(*m_pContext, ns);
        m_sink->Append(' ');
        AppendDeclaration(*alias, ns);
        m_sink->Append(' ');
    }
    std::string const value = *alias + ':' + typeName;
    WriteAttribute("type", SchemaInstanceNamespace(), value, type);
}

void CXmlTextWriter::WriteNilAttribute() {
    RequireOpenStartTag();
    WriteAttribute("nil", SchemaInstanceNamespace(), "true", ItemType_boolean);
}

void CXmlTextWriter::RequireOpenStartTag() const {
    if (m_pContext == nullptr || !m_pContext->m_startTagOpen)
        FailAttributeAfterContent();
}

void CXmlTextWriter::CloseStartTag() {
    m_pContext->m_startTagOpen = false;
    m_sink->Append('>');
}

void CXmlTextWriter::AppendEndOfLine() {
    m_sink->Append(m_eol.data(), m_eol.size());
}

void CXmlTextWriter::AppendIndent(std::int32_t depth) {
    std::size_t const length = m_formatted ? static_cast<std::size_t>(depth) * m_indent.size() : 0;
    if (length == 0)
        return;
    while (m_indents.size() < length)
        m_indents += m_indent;
    m_sink->Append(m_indents.data(), length);
}

// The end tag is made here, and the start tag taken from it.
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

void CXmlTextWriter::AppendEscapedText(std::string const& text) {
    AppendEscaped(*m_sink, text.c_str(), kTextTable, m_eol);
}

void CXmlTextWriter::AppendEscapedAttribute(std::string const& text) {
    AppendEscaped(*m_sink, text.c_str(), kAttributeTable, "&#xA;");
}

void CXmlTextWriter::AppendDeclaration(std::string_view alias, std::string const& ns) {
    m_sink->Append("xmlns", 5);
    if (!alias.empty()) {
        m_sink->Append(':');
        m_sink->Append(alias.data(), alias.size());
    }
    m_sink->Append("=\"", 2);
    m_sink->Append(ns);
    m_sink->Append('"');
}

// What is known before the root. An alias made for the root itself is only in its own scope.
void CXmlTextWriter::AppendRootDeclarations() {
    if (!m_defaultNamespace.empty()) {
        m_sink->Append(' ');
        AppendDeclaration({}, m_defaultNamespace);
    }
    for (auto const& [ns, alias] : m_namespaceMap) {
        if (alias.empty() || BeginsWithXmlNamespace(ns))
            continue;
        m_sink->Append(' ');
        AppendDeclaration(alias, ns);
    }
}

void CXmlTextWriter::FlushIfLarge() {
    if (m_sink->GetLength() >= kFlushLength)
        m_sink->Flush();
}

} // namespace ZvXmlLib16
