// Texts to and from the parser library, and its failures.
#pragma once

#include "schema/diagnostics/Diagnostics.h"

#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/util/XMLString.hpp>

#include <string>

namespace ZvXmlLib16::schema {

std::string ToUtf8(XMLCh const* text);
std::string ToUtf8(XMLCh const* text, std::size_t length);

// A text for the parser, released with this object.
class XercesText {
public:
    explicit XercesText(std::string const& utf8);
    XercesText(XercesText const&) = delete;
    XercesText& operator=(XercesText const&) = delete;
    ~XercesText();

    XMLCh const* Get() const noexcept { return m_text; }

private:
    XMLCh* m_text;
};

// Tells what the parser finds.
class XercesErrors : public xercesc::ErrorHandler {
public:
    // `file` stands in place of the system's identifier where that is empty. Both are borrowed.
    XercesErrors(Diagnostics& diagnostics, std::string file)
        : m_diagnostics(diagnostics), m_file(std::move(file)) {}

    void warning(xercesc::SAXParseException const&) override {}
    void error(xercesc::SAXParseException const& failure) override;
    void fatalError(xercesc::SAXParseException const& failure) override { error(failure); }
    void resetErrors() override {}

private:
    Diagnostics& m_diagnostics;
    std::string m_file;
};

} // namespace ZvXmlLib16::schema
