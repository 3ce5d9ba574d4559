// CBinaryStream, the byte sink in memory.
#pragma once

#include "zvxmllib/foundation/MemoryLeakHelp.h"
#include "zvxmllib/values/BinaryData.h"

#include <cstdint>

namespace ZvXmlLib16 {

// The sink of the writers of binary forms. Belongs to the thread of the serialisation.
class CBinaryStream : public CInstanceMonitor {
public:
    CBinaryStream();
    explicit CBinaryStream(CBinaryData const& data);
    ~CBinaryStream() override;

    void Append(unsigned char byte) { m_data.Append(byte); }
    void Append(CBinaryData const& data) { m_data.Append(data); }
    void Append(unsigned char const* bytes, std::uint32_t length) { m_data.Append(bytes, length); }

    // A handle on the bytes so far.
    CBinaryData GetData() const { return m_data; }

protected:
    explicit CBinaryStream(Registration& registration);
    CBinaryStream(Registration& registration, CBinaryData const& data);

    CBinaryData m_data;
};

} // namespace ZvXmlLib16
