// CBinaryStream, the byte sink in memory.
#pragma once

#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ZvXmlLib16 {

// The sink of the writers of binary forms. Belongs to the thread of the serialisation.
class CBinaryStream : public CInstanceMonitor {
public:
    CBinaryStream();
    explicit CBinaryStream(CBinaryData const& data);
    ~CBinaryStream() override;

    void Append(unsigned char byte) {
        if (m_next == m_end)
            MakeRoom(1);
        *m_next++ = byte;
    }
    void Append(CBinaryData const& data);
    void Append(unsigned char const* bytes, std::uint32_t length) {
        if (length > static_cast<std::size_t>(m_end - m_next))
            MakeRoom(length);
        if (length != 0)
            std::memcpy(m_next, bytes, length);
        m_next += length;
    }

    // A handle on the bytes so far.
    CBinaryData GetData() const;

protected:
    explicit CBinaryStream(Registration& registration);
    CBinaryStream(Registration& registration, CBinaryData const& data);

private:
    void MakeRoom(std::uint32_t least);
    // What was written into the room becomes part of the data, and no room is left.
    void GiveUpRoom() const noexcept;

    // The room follows the data, and becomes part of it before anybody sees it.
    mutable CBinaryData m_data;
    mutable unsigned char* m_room = nullptr;
    mutable unsigned char* m_next = nullptr;
    mutable unsigned char* m_end = nullptr;
};

} // namespace ZvXmlLib16
