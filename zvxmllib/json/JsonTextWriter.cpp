// CJsonTextWriter, JSON text.
#include "zvxmllib/json/JsonTextWriter.h"

#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonValue.h"
#include "zvxmllib/json/MemberNames.h"
#include "zvxmllib/writers/Failures.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_jsonTextWriterInstances("CJsonTextWriter");

constexpr std::int32_t kRootDepth = 1; // the braces of the document stand at depth 0

// An escape of the format is the letter after the backslash, or this value: four hexadecimal digits.
constexpr unsigned char kHexadecimal = CTextWriter::kFirstOfFormat;

constexpr CTextWriter::EscapeTable MakeEscapeTable() {
    CTextWriter::EscapeTable table{};
    for (std::size_t control = 1; control < 0x20; ++control)
        table[control] = kHexadecimal;
    table['\0'] = CTextWriter::kEndOfText;
    table['\n'] = CTextWriter::kLineFeed;
    table['\r'] = CTextWriter::kDropped;
    table['\b'] = 'b';
    table['\t'] = 't';
    table['\f'] = 'f';
    table['"'] = '"';
    table['\\'] = '\\';
    return table;
}

constexpr CTextWriter::EscapeTable kEscapeTable = MakeEscapeTable();

} // namespace

CJsonTextWriter::CJsonTextWriter(CTextStream* sink) : CTextWriter(s_jsonTextWriterInstances, sink) {}

CJsonTextWriter::~CJsonTextWriter() = default;

void CJsonTextWriter::WriteDocumentStart() {
    m_sink->Append('{');
    if (m_formatted)
        AppendEndOfLine();
    FlushIfLarge();
}

void CJsonTextWriter::WriteDocumentEnd() {
    AppendBreak(0);
    m_sink->Append('}');
}

// Comments are not JSON, but the reader accepts them.
void CJsonTextWriter::WriteComment(std::string const& text) {
    m_sink->Append("/* ", 3);
    AppendEscaped(text);
    m_sink->Append(" */", 3);
    AppendEndOfLine();
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
        AppendName(m_roundTrip == JsonRoundTrip_None ? std::string_view() : detail::kTextName);
    }
    AppendScalar(text, type);
}

void CJsonTextWriter::WriteElementEnd() {
    if (m_pContext == nullptr)
        FailEndOutsideElement();
    CloseAnyArray();
    if (!m_bObjectPending) {
        AppendBreak(m_pContext->m_depth);
        m_sink->Append('}');
    } else if (!m_hasScalar) {
        m_sink->Append("null", 4);
    }
    PopContext();
    m_bObjectPending = false; // the parent has this member, so it is an object
}

void CJsonTextWriter::WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                                     ItemType type) {
    CJsonTextWriter::RequireOpenStartTag();
    CloseAnyArray();
    BeginMember();
    if (m_roundTrip == JsonRoundTrip_None)
        AppendName(name);
    else
        AppendMarkedName(std::string_view(&detail::kAttributeMark, 1),
                         IsFull() && !ns.empty() ? AliasOf(ns) : std::string_view(), name);
    AppendScalar(value, type);
}

void CJsonTextWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) {
    if (IsFull())
        CTextWriter::WriteTypeAttribute(ns, typeName, type);
}

// An element without a value becomes null anyway.
void CJsonTextWriter::WriteNilAttribute() {}

// An object takes attributes at any time.
void CJsonTextWriter::RequireOpenStartTag() const {
    if (m_pContext == nullptr)
        FailAttributeAfterContent();
}

// A bound collection can be written on its own, and then has more than one root.
void CJsonTextWriter::BeginRoot() {
    if (m_hasRoot) {
        m_sink->Append(',');
        AppendBreak(kRootDepth);
    } else {
        AppendIndent(kRootDepth);
    }
    m_hasRoot = true;
    PushContext().m_depth = kRootDepth;
}

// Writes what precedes a member of the current element.
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
    AppendBreak(m_pContext->m_depth + 1);
}

// The first item that turns out to be an object makes an array of the collection.
void CJsonTextWriter::OpenArrayIfDue() {
    CXmlWriterContext* const parent = m_pContext->m_parent;
    if (parent == nullptr || parent->m_collectionState != CollectionState_Announced)
        return;
    parent->m_collectionState = CollectionState_ArrayOpen;
    parent->m_arrayOpen = true;
    m_sink->Append('[');
    ++m_openArrays;
    AppendBreak(m_pContext->m_depth);
}

void CJsonTextWriter::CloseAnyArray() {
    if (m_pContext->m_arrayOpen)
        CloseOpenArray();
}

void CJsonTextWriter::CloseOpenArray() {
    m_pContext->m_collectionState = CollectionState_None;
    m_pContext->m_arrayOpen = false;
    AppendBreak(m_pContext->m_depth);
    m_sink->Append(']');
    --m_openArrays;
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
    AppendEscaped(text);
    m_sink->Append('"');
}

// A line feed becomes a real line end, which other JSON readers refuse.
void CJsonTextWriter::AppendEscaped(std::string const& text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    CTextWriter::AppendEscaped(text.c_str(), kEscapeTable, m_eol,
                               [&](char const* byte, unsigned char escape) {
                                   if (escape == kHexadecimal) {
                                       m_sink->Append("\\u00", 4);
                                       m_sink->Append(kDigits[static_cast<unsigned char>(*byte) >> 4U]);
                                       m_sink->Append(kDigits[static_cast<unsigned char>(*byte) & 0xFU]);
                                   } else {
                                       m_sink->Append('\\');
                                       m_sink->Append(static_cast<char>(escape));
                                   }
                               });
}

std::string const& CJsonTextWriter::AliasOf(std::string const& ns) const {
    std::string const* const alias = m_pContext->FindAlias(ns);
    if (alias == nullptr)
        FailUnknownNamespace(ns);
    return *alias;
}

} // namespace ZvXmlLib16
