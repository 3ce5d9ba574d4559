// CJsonContext, the JSON options of one serialisation or one read.
#include "zvxmllib/json/JsonContext.h"

#include "zvxmllib/context/SerializationContext.h"

namespace ZvXmlLib16 {

CJsonContext::CJsonContext() = default;
CJsonContext::CJsonContext(CJsonContext const& other) = default;
CJsonContext& CJsonContext::operator=(CJsonContext const& other) = default;
CJsonContext::~CJsonContext() = default;

std::string CJsonContext::GetRootElementName() const {
    return m_rootElementName;
}

void CJsonContext::SetRootElementName(char const* name) {
    m_rootElementName = name == nullptr ? "" : name;
}

CJsonContext& CSerializationContext::GetJsonContext() const {
    return m_json.Get();
}

} // namespace ZvXmlLib16
