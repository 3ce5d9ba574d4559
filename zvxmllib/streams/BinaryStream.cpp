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

void CBinaryStream::Append(CBinaryData const& data) {
    // `data` may share the bytes of this stream.
    CBinaryData const kept(data); // NOLINT(performance-unnecessary-copy-initialization)
    Append(kept.GetData(), kept.GetLength());
}

CBinaryData CBinaryStream::GetData() const {
    GiveUpRoom();
    return m_data;
}

void CBinaryStream::MakeRoom(std::uint32_t least) {
    GiveUpRoom();
    std::uint32_t room = 0;
    m_room = m_next = m_data.BeginAppend(least, room);
    m_end = m_room + room;
}

void CBinaryStream::GiveUpRoom() const noexcept {
    if (m_next != m_room)
        m_data.EndAppend(static_cast<std::uint32_t>(m_next - m_room));
    m_room = m_next = m_end = nullptr;
}

} // namespace ZvXmlLib16
