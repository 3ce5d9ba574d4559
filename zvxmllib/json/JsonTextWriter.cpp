// CJsonTextWriter, JSON text.
#include "zvxmllib/json/JsonTextWriter.h"

#include "zvxmllib/json/Failures.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/XmlNamespaces.h"

#include <array>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_registration("CJsonTextWriter");

constexpr std::size_t kFlushLength = 4096; // characters
constexpr std::int32_t kRootDepth = 1;     // the braces of the document stand at depth 0

constexpr std::string_view kAttributeMark = "@";
constexpr std::string_view kTextName = "#text";

// What a byte needs in an escaped string: nothing, a letter behind a backslash, or one of these. The end of
// the text is a byte like any other.
enum : char { kPlain = 0, kEnd = 1, kLineFeed = 2, kDrop = 3, kHexadecimal = 4 };
using EscapeTable = std::array<char, 256>;

constexpr EscapeTable MakeEscapeTable() {
    EscapeTable table{};
    for (std::size_t control = 1; control < 0x20; ++control)
        table[control] = kHexadecimal;
    table['\0'] = kEnd;
    table['\n'] = kLineFeed;
    table['\r'] = kDrop;
    table['\b'] = 'b';
    table['\t'] = 't';
    table['\f'] = 'f';
    table['"'] = '"';
    table['\\'] = '\\';
    return table;
}

constexpr EscapeTable kEscapeTable = MakeEscapeTable();

// Types whose lexical forms are those of JSON, or close to them: NaN and INF are not.
constexpr bool StandsBare(ItemType type) {
    return (type >= ItemType_i1 && type <= ItemType_r8) ||
           (type >= ItemType_boolean && type <= ItemType_integer);
}

} // namespace

CJsonTextWriter::CJsonTextWriter(CTextStream* sink) : CXmlWriter(s_registration), m_sink(sink) {}

CJsonTextWriter::~CJsonTextWriter() = default;

void CJsonTextWriter::Open() {
    CXmlWriter::Open();
    m_sink->Open();
}

// The sink is closed first, so that a document that is not complete gives its file back, too.
void CJsonTextWriter::Close() {
    m_sink->Close();
    CXmlWriter::Close();
}

void CJsonTextWriter::SetEOLType(EOLType eol) {
    if (eol != EOLType_CRLF && eol != EOLType_LF)
        FailInvalidEol();
    m_eolType = eol;
    m_eol = eol == EOLType_CRLF ? "\r\n" : "\n";
    m_lineBreak.clear();
}

void CJsonTextWriter::SetIndentChars(char const* indent) {
    m_indent = indent == nullptr ? "" : indent;
    m_lineBreak.clear();
}

void CJsonTextWriter::WriteDocumentStart() {
    m_sink->Append('{');
    if (m_formatted)
        m_sink->Append(m_eol.data(), m_eol.size());
    FlushIfLarge();
}

void CJsonTextWriter::WriteDocumentEnd() {
    AppendLineBreak(0);
    m_sink->Append('}');
}

// Comments are no JSON; the reader takes them all the same.
void CJsonTextWriter::WriteComment(std::string const& text) {
    m_sink->Append("/* ", 3);
    AppendEscaped(text.c_str());
    m_sink->Append(" */", 3);
    m_sink->Append(m_eol.data(), m_eol.size());
    FlushIfLarge();
}

void CJsonTextWriter::WriteProcessingInstruction(std::string const&) {}

void CJsonTextWriter::WriteInlineSchema(std::string const&) {}

void CJsonTextWriter::WriteElementStart(std::string const& name, std::string const& ns) {
    bool const isRoot = m_pContext == nullptr;
    bool hasName = true;
    if (isRoot) {
        BeginRoot();
    } else {
        if (m_pContext->m_collectionState == CollectionState_Ended)
            CloseAnyArray();
        hasName = m_pContext->m_collectionState != CollectionState_ArrayOpen;
        BeginMember();
        PushContext();
    }
    m_bObjectPending = true;
    m_hasScalar = false;
    if (hasName) {
        if (!IsFull() || ns.empty() || ns == m_pContext->GetDefaultNamespace())
            AppendName(name);
        else
            AppendPrefixedName(name, ns);
    }
    if (isRoot && IsFull())
        AppendRootDeclarations();
    FlushIfLarge();
}

void CJsonTextWriter::WriteElementValue(std::string const& text, ItemType type, bool) {
    if (m_pContext == nullptr)
        FailValueOutsideElement();
    CloseAnyArray();
    if (m_bObjectPending) {
        if (m_hasScalar)
            FailContentAfterScalar();
        m_hasScalar = true;
    } else {
        BeginMember();
        AppendName(m_roundTrip == JsonRoundTrip_None ? std::string_view() : kTextName);
    }
    AppendScalar(text, type);
}

void CJsonTextWriter::WriteElementEnd() {
    if (m_pContext == nullptr)
        FailEndOutsideElement();
    CloseAnyArray();
    if (!m_bObjectPending) {
        AppendLineBreak(m_pContext->m_depth);
        m_sink->Append('}');
    } else if (!m_hasScalar) {
        m_sink->Append("null", 4);
    }
    PopContext();
    m_bObjectPending = false; // the parent has this member, so it is an object
}

void CJsonTextWriter::WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                                     ItemType type) {
    if (m_pContext == nullptr)
        FailAttributeAfterContent();
    CloseAnyArray();
    BeginMember();
    if (m_roundTrip == JsonRoundTrip_None)
        AppendName(name);
    else
        AppendMarkedName(kAttributeMark, IsFull() && !ns.empty() ? AliasOf(ns) : std::string_view(), name);
    AppendScalar(value, type);
}

void CJsonTextWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) {
    if (!IsFull())
        return;
    if (m_pContext == nullptr)
        FailAttributeAfterContent();
    bool const hasAlias = !ns.empty() && ns != m_pContext->GetDefaultNamespace();
    WriteAttribute("type", SchemaInstanceNamespace(), hasAlias ? AliasOf(ns) + ':' + typeName : typeName,
                   type);
}

// An element without a value is null in any case.
void CJsonTextWriter::WriteNilAttribute() {}

// Bound collections can be written by themselves, and have more than one root then.
void CJsonTextWriter::BeginRoot() {
    if (m_hasRoot) {
        m_sink->Append(',');
        AppendLineBreak(kRootDepth);
    } else if (m_formatted) {
        std::string_view const lineBreak = LineBreak(kRootDepth);
        m_sink->Append(lineBreak.data() + m_eol.size(), lineBreak.size() - m_eol.size());
    }
    m_hasRoot = true;
    PushContext().m_depth = kRootDepth;
}

// What stands ahead of a member of the current element.
void CJsonTextWriter::BeginMember() {
    if (m_bObjectPending) {
        if (m_hasScalar)
            FailContentAfterScalar();
        OpenArrayIfDue();
        m_sink->Append('{');
        m_bObjectPending = false;
    } else {
        m_sink->Append(',');
    }
    AppendLineBreak(m_pContext->m_depth + 1);
}

// The first item of a collection that turns out to be an object makes an array of it.
void CJsonTextWriter::OpenArrayIfDue() {
    CXmlWriterContext* const parent = m_pContext->m_parent;
    if (parent == nullptr || parent->m_collectionState != CollectionState_Announced)
        return;
    parent->m_collectionState = CollectionState_ArrayOpen;
    parent->m_arrayOpen = true;
    m_sink->Append('[');
    ++m_openArrays;
    AppendLineBreak(m_pContext->m_depth);
}

void CJsonTextWriter::CloseAnyArray() {
    if (m_pContext->m_arrayOpen)
        CloseOpenArray();
}

void CJsonTextWriter::CloseOpenArray() {
    m_pContext->m_collectionState = CollectionState_None;
    m_pContext->m_arrayOpen = false;
    AppendLineBreak(m_pContext->m_depth);
    m_sink->Append(']');
    --m_openArrays;
}

// The end of line and the indent behind it. Valid until the next call.
std::string_view CJsonTextWriter::LineBreak(std::int32_t depth) {
    std::size_t const length =
        m_eol.size() + static_cast<std::size_t>(depth + m_openArrays) * m_indent.size();
    if (m_lineBreak.empty())
        m_lineBreak = m_eol;
    while (m_lineBreak.size() < length)
        m_lineBreak += m_indent;
    return std::string_view(m_lineBreak).substr(0, length);
}

void CJsonTextWriter::AppendLineBreak(std::int32_t depth) {
    if (!m_formatted)
        return;
    std::string_view const lineBreak = LineBreak(depth);
    m_sink->Append(lineBreak.data(), lineBreak.size());
}

void CJsonTextWriter::AppendName(std::string_view name) {
    m_sink->Append('"');
    m_sink->Append(name.data(), name.size());
    m_sink->Append("\": ", 3);
}

void CJsonTextWriter::AppendMarkedName(std::string_view mark, std::string_view alias, std::string_view name) {
    m_sink->Append('"');
    m_sink->Append(mark.data(), mark.size());
    if (!alias.empty()) {
        m_sink->Append(alias.data(), alias.size());
        m_sink->Append(':');
    }
    m_sink->Append(name.data(), name.size());
    m_sink->Append("\": ", 3);
}

// Of the current element.
void CJsonTextWriter::AppendPrefixedName(std::string const& name, std::string const& ns) {
    CXmlWriterContext& context = *m_pContext;
    if (std::string const* const alias = context.FindAlias(ns)) {
        AppendMarkedName({}, *alias, name);
        return;
    }
    if (context.m_parent != nullptr)
        FailUnknownNamespace(ns);
    std::string const& alias = GenerateAlias(context, ns);
    AppendMarkedName({}, alias, name);
    AppendDeclaration(alias, ns);
}

// What is known before the root. An alias made for the root itself is only in its own scope.
void CJsonTextWriter::AppendRootDeclarations() {
    if (!m_defaultNamespace.empty())
        AppendDeclaration({}, m_defaultNamespace);
    for (auto const& [ns, alias] : m_namespaceMap) {
        if (!alias.empty() && !BeginsWithXmlNamespace(ns))
            AppendDeclaration(alias, ns);
    }
}

// For an empty alias that of the default namespace.
void CJsonTextWriter::AppendDeclaration(std::string_view alias, std::string const& ns) {
    BeginMember();
    if (alias.empty())
        AppendName("@xmlns");
    else
        AppendMarkedName("@xmlns:", {}, alias);
    m_sink->Append('"');
    m_sink->Append(ns.data(), ns.size());
    m_sink->Append('"');
}

void CJsonTextWriter::AppendScalar(std::string const& text, ItemType type) {
    if (StandsBare(type)) {
        m_sink->Append(text);
        return;
    }
    m_sink->Append('"');
    AppendEscaped(text.c_str());
    m_sink->Append('"');
}

// Bytes are looked at one by one, since every byte of a multi-byte character is above 127, and handed on
// in runs. A line feed becomes a real end of line, which other readers of JSON refuse.
void CJsonTextWriter::AppendEscaped(char const* text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (char const* run = text;;) {
        char const* end = run;
        while (kEscapeTable[static_cast<unsigned char>(*end)] == kPlain)
            ++end;
        if (end != run)
            m_sink->Append(run, static_cast<std::size_t>(end - run));
        char const escape = kEscapeTable[static_cast<unsigned char>(*end)];
        switch (escape) {
        case kEnd:
            return;
        case kLineFeed:
            m_sink->Append(m_eol.data(), m_eol.size());
            break;
        case kDrop:
            break;
        case kHexadecimal:
            m_sink->Append("\\u00", 4);
            m_sink->Append(kDigits[static_cast<unsigned char>(*end) >> 4U]);
            m_sink->Append(kDigits[static_cast<unsigned char>(*end) & 0xFU]);
            break;
        default:
            m_sink->Append('\\');
            m_sink->Append(escape);
        }
        run = end + 1;
    }
}

std::string const& CJsonTextWriter::AliasOf(std::string const& ns) const {
    std::string const* const alias = m_pContext->FindAlias(ns);
    if (alias == nullptr)
        FailUnknownNamespace(ns);
    return *alias;
}

void CJsonTextWriter::FlushIfLarge() {
    if (m_sink->GetLength() >= kFlushLength)
        m_sink->Flush();
}

} // namespace ZvXmlLib16
