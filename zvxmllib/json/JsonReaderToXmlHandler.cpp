#include "zvxmllib/json/JsonReaderToXmlHandler.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/MemberNames.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <string_view>

namespace ZvXmlLib16 {

namespace {

std::string const kNoNamespace; // aliases stay part of the names
std::string const kTrue = "true";
std::string const kFalse = "false";

} // namespace

CJsonReaderToXmlHandler::CJsonReaderToXmlHandler(CXmlWriter& writer, JsonRoundTrip roundTrip,
                                                 IErrorPathProvider const& errorPath)
    : m_writer(writer), m_errorPath(errorPath), m_isRoundTrip(roundTrip != JsonRoundTrip_None) {}

CJsonReaderToXmlHandler::~CJsonReaderToXmlHandler() = default;

void CJsonReaderToXmlHandler::StartDocument() {}

void CJsonReaderToXmlHandler::EndDocument() {}

void CJsonReaderToXmlHandler::OnName(std::string const& name) {
    if (name.empty())
        FailEmptyName(m_errorPath.GetErrorPath());
    if (m_isRoundTrip && name == detail::kTextName) {
        m_bTextMember = true;
        m_bInAttribute = false;
    } else if (m_isRoundTrip && name[0] == detail::kAttributeMark) {
        m_bInAttribute = true;
        m_strCurrentName.assign(name, 1, std::string::npos);
    } else {
        StartElement(name);
    }
}

void CJsonReaderToXmlHandler::OnString(std::string const& value) {
    WriteValue(value);
}

void CJsonReaderToXmlHandler::OnNumber(std::string const& text) {
    WriteValue(text);
}

void CJsonReaderToXmlHandler::OnBool(bool value) {
    WriteValue(value ? kTrue : kFalse);
}

// Writes an empty element; for an attribute, nothing.
void CJsonReaderToXmlHandler::OnNull() {
    StartArrayItemIfDue();
    WriteDueElementStart();
    EndItem();
}

// An object after a name belongs to the element that the name has started; each further object of an array
// starts an element with the array's name.
void CJsonReaderToXmlHandler::StartObject() {
    if (m_strCurrentName.empty() && !m_arrayStack.empty())
        StartElement(m_arrayStack.back());
    WriteDueElementStart();
}

// A root with a given name and no value is still due.
void CJsonReaderToXmlHandler::EndObject() {
    WriteDueElementStart();
    if (!m_bTextMember)
        EndItem();
    m_bTextMember = false;
}

void CJsonReaderToXmlHandler::StartArray() {
    if (m_strCurrentName.empty())
        FailArrayWithoutName(m_errorPath.GetErrorPath());
    m_arrayStack.push_back(m_strCurrentName);
    ++m_emptyArrays;
}

void CJsonReaderToXmlHandler::EndArray() {
    m_arrayStack.pop_back();
    if (m_emptyArrays != 0 && --m_emptyArrays == 0)
        DropEmptyArray();
}

// The first item of an array is the element that the name has started, so an empty array writes nothing,
// whatever the name stood for. Only the root is written anyway, empty. Inside an array an empty one is not an
// item: the name waits for the next.
void CJsonReaderToXmlHandler::DropEmptyArray() {
    bool const isText = !m_isStartDue && !m_bInAttribute;
    m_bInAttribute = false;
    if (isText) {
        m_bTextMember = false; // no text has ended the element
    } else if (m_isStartDue && m_openElements == 1 && !m_bTextMember) {
        WriteDueElementStart();
        EndItem();
    } else if (m_isStartDue) {
        m_isStartDue = false;
        --m_openElements;
    }
    m_strCurrentName.clear();
}

// The start tag is written once it is certain that the element has an item.
void CJsonReaderToXmlHandler::StartElement(std::string const& name) {
    m_bInAttribute = false;
    m_strCurrentName = name;
    ++m_openElements;
    m_isStartDue = true;
}

void CJsonReaderToXmlHandler::StartArrayItemIfDue() {
    if (m_strCurrentName.empty() && !m_bTextMember && !m_arrayStack.empty())
        StartElement(m_arrayStack.back());
}

void CJsonReaderToXmlHandler::WriteDueElementStart() {
    m_emptyArrays = 0;
    if (!m_isStartDue)
        return;
    m_isStartDue = false;
    try {
        m_writer.WriteElementStart(m_strCurrentName, kNoNamespace);
    } catch (CZvException const&) {
        FailElementName(m_strCurrentName);
    }
}

void CJsonReaderToXmlHandler::WriteValue(std::string const& text) {
    StartArrayItemIfDue();
    WriteDueElementStart();
    if (m_bInAttribute) {
        try {
            m_writer.WriteAttribute(m_strCurrentName, kNoNamespace, text, ItemType_string);
        } catch (CZvException const&) {
            FailAttributeValue(text);
        }
    } else {
        try {
            m_writer.WriteElementValue(text, ItemType_string, false);
        } catch (CZvException const&) {
            FailElementValue(text);
        }
    }
    EndItem();
}

// The value of an attribute leaves its element open.
void CJsonReaderToXmlHandler::EndItem() {
    m_strCurrentName.clear();
    if (m_bInAttribute) {
        m_bInAttribute = false;
    } else if (m_openElements != 0) {
        --m_openElements;
        m_writer.WriteElementEnd();
    }
}

} // namespace ZvXmlLib16
