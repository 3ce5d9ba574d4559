// JSON text to the bytes of an XML document, for CXmlDocument.
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/json/JsonInput.h"
#include "zvxmllib/json/JsonTextReader.h"

namespace ZvXmlLib16 {

CBinaryData CXmlDocument::LoadJsonFile(char const* fileName) {
    Cleanup();
    return CJsonTextReader::ConvertToXml(JsonInput::OfFile(fileName, m_pContext->GetStrict()).GetText(),
                                         *m_pContext);
}

CBinaryData CXmlDocument::LoadJson(char const* text) {
    Cleanup();
    return CJsonTextReader::ConvertToXml(JsonInput::OfText(text, m_pContext->GetStrict()).GetText(),
                                         *m_pContext);
}

CBinaryData CXmlDocument::LoadJson(wchar_t const* text) {
    Cleanup();
    return CJsonTextReader::ConvertToXml(JsonInput::OfText(text, m_pContext->GetStrict()).GetText(),
                                         *m_pContext);
}

CBinaryData CXmlDocument::LoadJson(char16_t const* text) {
    Cleanup();
    return CJsonTextReader::ConvertToXml(JsonInput::OfText(text, m_pContext->GetStrict()).GetText(),
                                         *m_pContext);
}

CBinaryData CXmlDocument::LoadJsonStream(unsigned char const* data, std::uint32_t length) {
    Cleanup();
    return CJsonTextReader::ConvertToXml(JsonInput::OfBytes(data, length, m_pContext->GetStrict()).GetText(),
                                         *m_pContext);
}

bool CXmlDocument::IsJson(unsigned char const* data, std::uint32_t length) {
    return data != nullptr && JsonInput::IsJson(data, length);
}

} // namespace ZvXmlLib16
