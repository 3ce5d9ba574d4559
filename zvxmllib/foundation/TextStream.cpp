// CTextStream, the text sink.
#include "zvxmllib/foundation/TextStream.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration textStreamRegistration("CTextStream");

} // namespace

CTextStream::CTextStream(XmlEncoding encoding) : CTextStream(textStreamRegistration, encoding) {}

CTextStream::CTextStream(Registration& registration, XmlEncoding encoding)
    : CInstanceMonitor(registration), m_encoding(encoding) {}

CTextStream::~CTextStream() = default;

void CTextStream::Open() {
    m_buffer.Reset();
}

// Nothing to do in memory; they exist so that a writer can treat all text sinks alike.
void CTextStream::Close() {}

void CTextStream::Flush() {}

} // namespace ZvXmlLib16
