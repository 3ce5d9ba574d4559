// CTextWriter, the common base of the writers of text formats.
#include "zvxmllib/writers/TextWriter.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/Failures.h"

namespace ZvXmlLib16 {

CTextWriter::CTextWriter(Registration& registration, CTextStream* sink)
    : CXmlWriter(registration), m_sink(sink) {}

CTextWriter::~CTextWriter() = default;

void CTextWriter::Open() {
    CXmlWriter::Open();
    m_sink->Open();
}

// The sink is closed first, so that the file is released even if the document is incomplete.
void CTextWriter::Close() {
    m_sink->Close();
    CXmlWriter::Close();
}

void CTextWriter::Begin(bool formatted, EOLType eol, CSerializationContext const& ctx) {
    Open();
    SetFormatted(formatted);
    SetIndentChars(ctx.GetIndentChars().c_str());
    SetEOLType(eol);
}

void CTextWriter::SetEOLType(EOLType eol) {
    if (eol != EOLType_CRLF && eol != EOLType_LF)
        FailInvalidEol();
    m_eolType = eol;
    m_eol = eol == EOLType_CRLF ? "\r\n" : "\n";
    m_lineBreak.clear();
}

void CTextWriter::SetIndentChars(char const* indent) {
    m_indent = indent == nullptr ? "" : indent;
    m_lineBreak.clear();
}

void CTextWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) {
    RequireOpenStartTag();
    bool const hasAlias = !ns.empty() && ns != m_pContext->GetDefaultNamespace();
    WriteAttribute("type", SchemaInstanceNamespace(), hasAlias ? AliasForType(ns) + ':' + typeName : typeName,
                   type);
}

void CTextWriter::WriteNilAttribute() {
    RequireOpenStartTag();
    WriteAttribute("nil", SchemaInstanceNamespace(), "true", ItemType_boolean);
}

void CTextWriter::AppendRootDeclarations() {
    if (!m_defaultNamespace.empty())
        AppendDeclaration({}, m_defaultNamespace);
    for (auto const& [ns, alias] : m_namespaceMap) {
        if (!alias.empty() && !IsKnownUndeclared(ns))
            AppendDeclaration(alias, ns);
    }
}

bool CTextWriter::IsKnownUndeclared(std::string const& ns) const {
    return BeginsWithXmlNamespace(ns);
}

void CTextWriter::LengthenLineBreak(std::size_t length) {
    if (m_lineBreak.empty())
        m_lineBreak = m_eol;
    while (m_lineBreak.size() < length)
        m_lineBreak += m_indent;
}

} // namespace ZvXmlLib16
