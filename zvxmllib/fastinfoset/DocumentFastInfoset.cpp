// Recognition of Fast Infoset by the document.
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/fastinfoset/FastInfosetReader.h"

namespace ZvXmlLib16 {

bool CXmlDocument::IsFastInfoset(unsigned char const* data, std::size_t length) noexcept {
    return CFastInfosetReader::IsFastInfoset(data, length);
}

bool CXmlDocument::ParseFastInfoset(unsigned char const* data, std::size_t length) {
    // The context makes its Fast Infoset options at first use: not for XML text.
    if (!CFastInfosetReader::IsFastInfoset(data, length))
        return false;
    CFastInfosetReader reader(m_pContext->GetFIContext(), *this);
    return reader.Parse(data, length);
}

} // namespace ZvXmlLib16
