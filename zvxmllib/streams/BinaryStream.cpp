// CBinaryStream, the byte sink in memory.
#include "zvxmllib/streams/BinaryStream.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration binaryStreamRegistration("CBinaryStream");

} // namespace

CBinaryStream::CBinaryStream() : CBinaryStream(binaryStreamRegistration) {}

CBinaryStream::CBinaryStream(CBinaryData const& data) : CBinaryStream(binaryStreamRegistration, data) {}

CBinaryStream::CBinaryStream(Registration& registration) : CInstanceMonitor(registration) {}

CBinaryStream::CBinaryStream(Registration& registration, CBinaryData const& data)
    : CInstanceMonitor(registration), m_data(data) {}

CBinaryStream::~CBinaryStream() = default;

} // namespace ZvXmlLib16
