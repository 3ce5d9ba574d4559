#include "schema/frontend/XercesText.h"

#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/TransService.hpp>

#include <utility>

namespace ZvXmlLib16::schema {

std::string ToUtf8(XMLCh const* text) {
    return text == nullptr ? std::string() : ToUtf8(text, xercesc::XMLString::stringLen(text));
}

std::string ToUtf8(XMLCh const* text, std::size_t length) {
    std::string utf8;
    utf8.reserve(length);
    for (std::size_t i = 0; i < length; ++i) {
        std::uint32_t c = text[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < length)
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
        if (c < 0x80) {
            utf8 += static_cast<char>(c);
        } else if (c < 0x800) {
            utf8 += {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
        } else if (c < 0x10000) {
            utf8 += {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
                     static_cast<char>(0x80 | (c & 0x3F))};
        } else {
            utf8 += {static_cast<char>(0xF0 | (c >> 18)), static_cast<char>(0x80 | ((c >> 12) & 0x3F)),
                     static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
        }
    }
    return utf8;
}

XercesText::XercesText(std::string const& utf8)
    : m_text(xercesc::TranscodeFromStr(reinterpret_cast<XMLByte const*>(utf8.data()), utf8.size(), "UTF-8")
                 .adopt()) {}

XercesText::~XercesText() {
    xercesc::XMLString::release(&m_text);
}

void XercesErrors::error(xercesc::SAXParseException const& failure) {
    std::string file = ToUtf8(failure.getSystemId());
    m_diagnostics.Error({file.empty() ? m_file : std::move(file),
                         static_cast<unsigned>(failure.getLineNumber()),
                         static_cast<unsigned>(failure.getColumnNumber())},
                        ToUtf8(failure.getMessage()));
}

} // namespace ZvXmlLib16::schema
