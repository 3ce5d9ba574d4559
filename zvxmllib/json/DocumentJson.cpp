// JSON text to the bytes of an XML document and to its tree, for CXmlDocument.
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/json/JsonInput.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/json/PlainJsonReader.h"
#include "zvxmllib/json/StrictJsonReading.h"

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

void CXmlDocument::ReadJson(char const* text) {
    Cleanup();
    ParseJson(JsonInput::OfText(text, m_pContext->GetStrict()).GetText());
}

void CXmlDocument::ReadJsonStream(unsigned char const* data, std::uint32_t length) {
    Cleanup();
    ParseJson(JsonInput::OfBytes(data, length, m_pContext->GetStrict()).GetText());
}

void CXmlDocument::ParseJson(std::string_view json) {
    bool const isStrict = m_pContext->GetStrict();
#ifndef ZVXMLLIB_NO_PLAIN_READER
    if (m_pfnElementCallback == nullptr) {
        m_json = json; // for the tree to borrow
        if (PlainJsonReader::Fill(*this, m_json, *m_pContext))
            return;
        m_json = std::string();
    }
#endif
    detail::JsonPlaces places; // none where nothing is strict
    CBinaryData const xml = isStrict ? ConvertStrictJson(json, *m_pContext, places)
                                     : CJsonTextReader::ConvertToXml(json, *m_pContext);
    auto const toJson = [&places](detail::NodePosition const& inXml) { return places.Find(inXml.column); };
    try {
        LoadXmlStream(xml.GetData(), xml.GetLength());
    } catch (CZvException& failure) {
        detail::NodePosition const place = toJson({failure.GetLine(), failure.GetColumn()});
        failure.SetPosition(place.line, place.column);
        throw;
    }
    if (NodePositions* const positions = m_tree->GetPositions())
        positions->MoveAll(toJson);
}

bool CXmlDocument::IsJson(unsigned char const* data, std::uint32_t length) {
    return data != nullptr && JsonInput::IsJson(data, length);
}

} // namespace ZvXmlLib16
