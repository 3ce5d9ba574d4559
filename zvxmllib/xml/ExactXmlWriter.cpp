#include "zvxmllib/xml/ExactXmlWriter.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/writers/Failures.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration s_exactXmlWriterInstances("CExactXmlWriter");

constexpr std::string_view kSectionStart = "<![CDATA[";
constexpr std::string_view kSectionEnd = "]]>";

} // namespace

CExactXmlWriter::CExactXmlWriter(CTextStream* sink, bool keepsSections)
    : CXmlTextWriter(s_exactXmlWriterInstances, sink, ExactEscapes()), m_keepsSections(keepsSections) {}

CExactXmlWriter::~CExactXmlWriter() = default;

void CExactXmlWriter::SetDefaultNamespace(std::string const& ns) {
    if (m_pContext == nullptr)
        CXmlTextWriter::SetDefaultNamespace(ns);
}

void CExactXmlWriter::AddNamespaceAlias(std::string const& alias, std::string const& ns) {
    if (m_pContext != nullptr && !m_inForce.IsNew(alias, ns))
        return;
    CXmlTextWriter::AddNamespaceAlias(alias, ns);
    if (m_pContext != nullptr) {
        RequireOpenStartTag();
        AppendDeclaration(alias, ns);
    }
}

void CExactXmlWriter::CloseOpenStartTag() {
    if (m_pContext != nullptr && m_pContext->m_startTagOpen)
        CloseStartTag();
}

void CExactXmlWriter::WriteComment(std::string const& text) {
    CloseOpenStartTag();
    m_sink->Append("<!--");
    m_sink->Append(text);
    m_sink->Append("-->");
    if (m_formatted)
        AppendEndOfLine();
    FlushIfLarge();
}

void CExactXmlWriter::WriteProcessingInstruction(std::string const& text) {
    if (m_pContext == nullptr)
        return CXmlTextWriter::WriteProcessingInstruction(text);
    CloseOpenStartTag();
    WriteRawLine(text); // line ends would be text of the element
    FlushIfLarge();
}

void CExactXmlWriter::DeclareOnNextElement(std::string const& alias, std::string const& ns) {
    m_kept.Add(alias, ns);
}

void CExactXmlWriter::WriteElementStart(std::string const& name, std::string const& ns) {
    bool const isRoot = m_pContext == nullptr;
    if (isRoot) {
        m_kept.ReplaceGiven(m_namespaceMap, m_defaultNamespace);
        if (ns.empty())
            m_defaultNamespace.clear(); // it would be the root's
    }
    BeginChild();
    CXmlWriterContext& context = PushContext();
    auto const& declarations = m_kept.Enter(context, ns, m_inForce);
    bool const hasDefault = ns.empty() && !context.GetDefaultNamespace().empty();
    if (hasDefault)
        context.SetDefaultNamespace(ns);
    AppendElementStart(name, ns, isRoot);
    for (auto const& declaration : declarations)
        AppendDeclaration(declaration.alias, declaration.ns);
    if (hasDefault)
        AppendDeclaration({}, ns);
}

void CExactXmlWriter::WriteElementEnd() {
    std::int32_t const depth = m_pContext == nullptr ? 0 : m_pContext->m_depth;
    CXmlTextWriter::WriteElementEnd();
    m_inForce.EndElement(depth);
    if (depth == m_mixedDepth) {
        m_mixedDepth = kNone;
        m_formatted = true;
        AppendEndOfLine();
    }
}

bool CExactXmlWriter::TryWriteTextElement(std::string const& name, std::string const& ns,
                                          std::string const& text, ItemType type) {
    if (m_pContext == nullptr || !m_kept.IsEmpty() ||
        (ns.empty() && !m_pContext->GetDefaultNamespace().empty()))
        return false;
    return CXmlTextWriter::TryWriteTextElement(name, ns, text, type);
}

// A name without a prefix is one of the default namespace.
void CExactXmlWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) {
    if (ns.empty() && m_pContext != nullptr && !m_pContext->GetDefaultNamespace().empty())
        FailAliasOfTwo({}, m_pContext->GetDefaultNamespace(), ns);
    CXmlTextWriter::WriteTypeAttribute(ns, typeName, type);
}

void CExactXmlWriter::BeginMixedContent() {
    if (!m_formatted)
        return;
    m_mixedDepth = m_pContext->m_depth;
    m_formatted = false;
}

std::string CExactXmlWriter::GetEncodingName() const {
    return m_sink->GetEncoding() == XmlEncoding_None ? GetLocalEncodingName()
                                                     : CXmlTextWriter::GetEncodingName();
}

bool CExactXmlWriter::IsKnownUndeclared(std::string const& ns) const {
    return ns == kXmlNamespace;
}

void CExactXmlWriter::AppendDeclaration(std::string_view alias, std::string const& ns) {
    m_sink->Append(" xmlns", 6);
    if (!alias.empty()) {
        m_sink->Append(':');
        m_sink->Append(alias.data(), alias.size());
    }
    m_sink->Append("=\"", 2);
    AppendEscapedAttribute(ns);
    m_sink->Append('"');
    m_inForce.Declare(alias, ns, m_pContext->m_depth);
}

// A section ends at the first end there is, whatever was meant. One that has a carriage return would lose it.
void CExactXmlWriter::AppendText(std::string const& text) {
    std::size_t done = 0;
    while (m_keepsSections) {
        std::size_t const start = text.find(kSectionStart, done);
        std::size_t const end = start == std::string::npos ? start : text.find(kSectionEnd, start);
        if (end == std::string::npos)
            break;
        std::string const section = text.substr(start, end + kSectionEnd.size() - start);
        AppendEscapedText(text.substr(done, start - done));
        if (section.find('\r') == std::string::npos)
            m_sink->Append(section);
        else
            AppendEscapedText(section);
        done = start + section.size();
    }
    AppendEscapedText(done == 0 ? text : text.substr(done));
}

} // namespace ZvXmlLib16
