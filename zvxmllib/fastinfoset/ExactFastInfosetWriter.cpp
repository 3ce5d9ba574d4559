// CExactFastInfosetWriter, Fast Infoset documents that stand for themselves.
#include "zvxmllib/fastinfoset/ExactFastInfosetWriter.h"

#include "zvxmllib/fastinfoset/EncodedValues.h"
#include "zvxmllib/fastinfoset/RestrictedAlphabet.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/WriterChecks.h"

namespace ZvXmlLib16 {

CExactFastInfosetWriter::CExactFastInfosetWriter(CFastInfosetContext& context, CBinaryStream& sink)
    : CFastInfosetWriter(context, sink) {}

CExactFastInfosetWriter::~CExactFastInfosetWriter() = default;

void CExactFastInfosetWriter::AddNamespaceAlias(std::string const& alias, std::string const& ns) {
    CFastInfosetWriter::AddNamespaceAlias(alias, ns);
    if (IsPending() && !alias.empty())
        Require(alias, ns);
}

void CExactFastInfosetWriter::DeclareOnNextElement(std::string const& alias, std::string const& ns) {
    m_kept.Add(alias, ns);
}

void CExactFastInfosetWriter::WriteComment(std::string const& text) {
    WriteHead();
    WriteCommentItem(text);
}

void CExactFastInfosetWriter::WriteProcessingInstruction(std::string const& text) {
    XmlInstruction const instruction = RequireInstruction(text);
    WriteHead();
    WriteInstructionItem(instruction.target, instruction.data);
}

void CExactFastInfosetWriter::WriteElementStart(std::string const& name, std::string const& ns) {
    WriteHead();
    bool const isRoot = m_pContext == nullptr;
    if (isRoot)
        m_kept.ReplaceGiven(m_namespaceMap, m_defaultNamespace);
    BeginElement(name, ns);
    ++m_element;
    if (isRoot)
        DeclareGiven(!ns.empty());
    for (auto const& declaration : m_kept.Enter(*m_pContext, ns, m_inForce))
        Require(declaration.alias, declaration.ns);
    NameElement(name, ns);
    if (ns.empty() && !m_pContext->GetDefaultNamespace().empty())
        m_pContext->SetDefaultNamespace("");
    bool const hasPrefix = ns != m_pContext->GetDefaultNamespace();
    Require(hasPrefix ? AliasOf(ns) : std::string_view(), ns);
}

void CExactFastInfosetWriter::WriteElementValue(std::string const& text, ItemType type, bool isDefault) {
    WriteHead();
    CFastInfosetWriter::WriteElementValue(text, type, isDefault);
}

void CExactFastInfosetWriter::WriteElementEnd() {
    WriteHead();
    std::int32_t const depth = m_pContext == nullptr ? 0 : m_pContext->m_depth;
    CFastInfosetWriter::WriteElementEnd();
    m_inForce.EndElement(depth);
}

void CExactFastInfosetWriter::WriteAttribute(std::string const& name, std::string const& ns,
                                             std::string const& value, ItemType type) {
    RequirePending();
    std::string_view const alias = ns.empty() ? std::string_view() : AliasOf(ns);
    if (!ns.empty())
        Require(alias, ns);
    if (m_attributeCount == m_attributes.size())
        m_attributes.emplace_back();
    Attribute& attribute = m_attributes[m_attributeCount++];
    attribute.alias = alias;
    attribute.name = name;
    attribute.ns = ns;
    attribute.value = value;
    attribute.type = type;
}

void CExactFastInfosetWriter::WriteTypeAttribute(std::string const& ns, std::string const& typeName,
                                                 ItemType type) {
    RequirePending();
    std::string value;
    if (!ns.empty() && ns != m_pContext->GetDefaultNamespace()) {
        value = AliasOf(ns);
        Require(value, ns);
        value += ':';
    } else {
        Require({}, ns);
    }
    WriteAttribute("type", SchemaInstanceNamespace(), value.append(typeName), type);
}

void CExactFastInfosetWriter::WriteNilAttribute() {
    WriteAttribute("nil", SchemaInstanceNamespace(), "true", ItemType_boolean);
}

void CExactFastInfosetWriter::RequirePending() const {
    if (!IsPending())
        FailAttributeAfterContent();
}

void CExactFastInfosetWriter::WriteHead() {
    if (!IsPending())
        return;
    unsigned current = BeginHead(m_attributeCount != 0);
    if (!m_declarations.empty()) {
        current = BeginDeclarations(current);
        for (Declaration const& declaration : m_declarations)
            WriteDeclaration(declaration.prefix, declaration.ns);
        EndDeclarations();
        m_declarations.clear();
    }
    WriteElementQName(current);
    for (std::size_t i = 0; i < m_attributeCount; ++i) {
        Attribute const& a = m_attributes[i];
        WriteNamedAttribute(a.alias, a.name, a.ns, a.value, a.type);
    }
    m_attributeCount = 0;
}

// What is known before the root, used or not: a value may need it.
void CExactFastInfosetWriter::DeclareGiven(bool rootHasNamespace) {
    if (rootHasNamespace && !m_defaultNamespace.empty())
        Require({}, m_defaultNamespace);
    for (auto const& [ns, alias] : m_namespaceMap) {
        if (!alias.empty())
            Require(alias, ns);
    }
}

// Declares the prefix on the element whose head is held back, unless it is known to stand for `ns`.
void CExactFastInfosetWriter::Require(std::string_view prefix, std::string const& ns) {
    PrefixesInForce::Binding& binding = m_inForce.At(prefix);
    if (binding.ns != ns) {
        if (binding.neededBy == m_element)
            FailAliasOfTwo(std::string(prefix), binding.ns, ns);
        m_declarations.push_back({std::string(prefix), ns});
        m_inForce.Declare(prefix, ns, m_pContext->m_depth);
    }
    binding.neededBy = m_element;
}

CExactFastInfosetWriter::EncodedString CExactFastInfosetWriter::Encode(std::string const& text, ItemType type,
                                                                       char const* function) {
    auto const encoding = EncodingOf(type);
    bool const isAlgorithm = encoding.type == CFastInfosetContext::EncodingType_Algorithm;
    bool const isAlphabet = encoding.type == CFastInfosetContext::EncodingType_RestrictedAlphabet &&
                            encoding.index - 1 < kRestrictedAlphabets.size();
    if (isAlphabet && text.find_first_not_of(kRestrictedAlphabets[encoding.index - 1]) != std::string::npos)
        return EncodeAsText(text);
    if (!isAlgorithm)
        return CFastInfosetWriter::Encode(text, type, function);
    constexpr std::uint32_t kAlgorithms = 10;
    if (encoding.index - 1 >= kAlgorithms)
        return CFastInfosetWriter::Encode(text, type, function); // which fails
    try {
        EncodedString const encoded = CFastInfosetWriter::Encode(text, type, function);
        if (ComesBack(encoded, text))
            return encoded;
    } catch (CZvException const&) {
        // The algorithm has no room for the value.
    }
    return EncodeAsText(text);
}

bool CExactFastInfosetWriter::ComesBack(EncodedString const& encoded, std::string const& text) {
    constexpr std::uint32_t kCdata = 10;
    if (encoded.index == kCdata)
        return true;
    m_decoded.clear();
    if (!encoded.octets.empty())
        AppendEncodedValues(encoded.index, encoded.octets, m_decoded);
    return m_decoded == text;
}

} // namespace ZvXmlLib16
