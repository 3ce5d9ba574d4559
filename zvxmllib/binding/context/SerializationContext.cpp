// CSerializationContext, the options of one serialisation or one read.
#include "zvxmllib/binding/context/SerializationContext.h"

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/collections/Attribute.h"

namespace ZvXmlLib16 {

namespace {

CAttributeCol* Share(CAttributeCol* attributes) noexcept {
    if (attributes != nullptr)
        attributes->AddRef();
    return attributes;
}

} // namespace

CSerializationContext::CSerializationContext() = default;

CSerializationContext::CSerializationContext(CSerializationContext const& other) : CSerializationContext() {
    *this = other;
}

CSerializationContext& CSerializationContext::operator=(CSerializationContext const& other) {
    if (this == &other)
        return *this;
    m_json = other.m_json;
    m_fastInfoset = other.m_fastInfoset;
    m_defaultNamespaceUri = other.m_defaultNamespaceUri;
    m_namespaceAliases = other.m_namespaceAliases;
    m_processingInstructions = other.m_processingInstructions;
    m_inLineSchema = other.m_inLineSchema;
    m_indentChars = other.m_indentChars;
    m_schemaType = other.m_schemaType;
    m_writeTypeAttribute = other.m_writeTypeAttribute;
    m_ignoreInvalidCollectionCounts = other.m_ignoreInvalidCollectionCounts;
    m_ignoreMissingChoice = other.m_ignoreMissingChoice;
    m_ignoreMissingMandatoryElements = other.m_ignoreMissingMandatoryElements;
    m_ignoreUnknownElements = other.m_ignoreUnknownElements;
    m_ignoreUnknownAttributes = other.m_ignoreUnknownAttributes;
    m_ignoreNamespaces = other.m_ignoreNamespaces;
    m_noOptionalAttributeDefaultOutput = other.m_noOptionalAttributeDefaultOutput;
    m_writeDefaultElementValues = other.m_writeDefaultElementValues;
    m_stripCDATA = other.m_stripCDATA;
    CAttributeCol* const old = m_additionalRootAttributes.exchange(Share(other.m_additionalRootAttributes));
    if (old != nullptr)
        old->Release();
    return *this;
}

CSerializationContext::~CSerializationContext() {
    if (CAttributeCol* const attributes = m_additionalRootAttributes)
        attributes->Release();
}

// Never destroyed: objects of other static storage may be written when the process ends.
CSerializationContext& CSerializationContext::GetDefaultContext() {
    static CSerializationContext& context = *new CSerializationContext;
    return context;
}

CSmartPtr<CAttributeCol> CSerializationContext::GetAdditionalRootAttributes() const {
    CAttributeCol* attributes = m_additionalRootAttributes.load(std::memory_order_acquire);
    if (attributes != nullptr)
        return attributes;
    CSmartPtr<CAttributeCol> const made(new CAttributeCol("", kAnyNamespace, ""));
    if (!m_additionalRootAttributes.compare_exchange_strong(attributes, made))
        return attributes; // another thread was faster
    return Share(made);
}

std::string CSerializationContext::GetDefaultNamespaceURI() const {
    return m_defaultNamespaceUri;
}

void CSerializationContext::SetDefaultNamespaceURI(char const* uri) {
    m_defaultNamespaceUri = uri == nullptr ? "" : uri;
}

std::string CSerializationContext::GetInLineSchema() const {
    return m_inLineSchema;
}

void CSerializationContext::SetInLineSchema(char const* schema) {
    m_inLineSchema = schema == nullptr ? "" : schema;
}

void CSerializationContext::SetIgnoreMissingMandatoryElements(bool ignore) {
    if (ignore && m_ignoreUnknownElements)
        FailIgnoreMissingExcluded();
    m_ignoreMissingMandatoryElements = ignore;
}

void CSerializationContext::SetIgnoreUnknownElements(bool ignore) {
    if (ignore && m_ignoreMissingMandatoryElements)
        FailIgnoreUnknownExcluded();
    m_ignoreUnknownElements = ignore;
}

std::string CSerializationContext::GetIndentChars() const {
    return m_indentChars;
}

void CSerializationContext::SetIndentChars(char const* indent) {
    std::string chars = indent == nullptr ? "" : indent;
    if (chars.find_first_not_of(" \t") != std::string::npos)
        FailIndentCharacter();
    m_indentChars = std::move(chars);
}

} // namespace ZvXmlLib16
