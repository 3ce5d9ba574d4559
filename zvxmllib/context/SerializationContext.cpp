// CSerializationContext, the options of one serialisation or one read.
#include "zvxmllib/context/SerializationContext.h"

#include "zvxmllib/context/Failures.h"

namespace ZvXmlLib16 {

CSerializationContext::CSerializationContext() = default;

CSerializationContext::CSerializationContext(CSerializationContext const& other) = default;

CSerializationContext& CSerializationContext::operator=(CSerializationContext const& other) = default;

CSerializationContext::~CSerializationContext() = default;

// Never destroyed: objects of other static storage may be written when the process ends.
CSerializationContext& CSerializationContext::GetDefaultContext() {
    static CSerializationContext& context = *new CSerializationContext;
    return context;
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

// Nothing is touched without a limit: several readers may share the context then.
void CSerializationContext::TakeFailures(CSerializationContext const& copy) const {
    if (GetFailureLimit() != 0)
        m_failures = copy.m_failures;
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
