// CJsonReaderToXmlHandler, which turns the events of the JSON parser into XML text.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/JsonReaderHandler.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// The reverse of the mapping of CJsonTextWriter, but it accepts more. What the writer refuses becomes a
// CZvInvalidStateException, what the mapping has no place for a CZvValidationException.
class CJsonReaderToXmlHandler : public IJsonReaderHandler {
public:
    // `writer` and `errorPath` are borrowed and outlive the handler. In JsonRoundTrip_None no name has a
    // special meaning.
    CJsonReaderToXmlHandler(CXmlWriter& writer, JsonRoundTrip roundTrip, IErrorPathProvider const& errorPath);
    ~CJsonReaderToXmlHandler() override;

    void StartDocument() override;
    void EndDocument() override;
    void OnName(std::string const& name) override;
    void OnString(std::string const& value) override;
    void OnNumber(std::string const& text) override;
    void StartObject() override;
    void EndObject() override;
    void StartArray() override;
    void EndArray() override;
    void OnBool(bool value) override;
    void OnNull() override;

private:
    void StartElement(std::string const& name);
    void StartArrayItemIfDue();
    void WriteDueElementStart();
    void WriteValue(std::string const& text);
    void EndItem();
    void DropEmptyArray();

    CXmlWriter& m_writer;
    IErrorPathProvider const& m_errorPath;
    bool const m_isRoundTrip;
    std::size_t m_openElements = 0;        // started here and not ended
    std::vector<std::string> m_arrayStack; // the names of the open arrays
    std::string m_strCurrentName;          // the last name that no value has used up; empty for none
    bool m_bInAttribute = false;           // the coming value is that of the attribute m_strCurrentName
    bool m_bTextMember = false;            // the text of the current object was seen, and ended its element
    bool m_isStartDue = false;             // the element m_strCurrentName is open here, but not yet written
    std::size_t m_emptyArrays = 0;         // nested arrays begun after the last name, without an item yet
};

} // namespace ZvXmlLib16
