// CTextStream, the text sink: local text in, bytes of the chosen encoding out.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/streams/StringBuffer.h"

#include <string>

namespace ZvXmlLib16 {

// The sink of the text writers. Belongs to the thread of the serialisation.
class CTextStream : public CInstanceMonitor {
public:
    explicit CTextStream(XmlEncoding encoding);
    ~CTextStream() override;

    virtual void Open();
    virtual void Close();
    virtual void Flush();

    void Append(char c) { m_buffer.Append(c); }
    void Append(char const* text) { m_buffer.Append(text); }
    void Append(std::string const& text) { m_buffer.Append(text); }
    void Append(char const* text, std::size_t length) { m_buffer.Append(text, length); }

    // As those of CStringBuffer.
    char* GetRoom(std::size_t length) noexcept { return m_buffer.GetRoom(length); }
    void Take(std::size_t length) noexcept { m_buffer.Take(length); }

    // Whether Flush does something here. True at first; who owns a sink in memory may say that it does not.
    bool NeedsFlush() const noexcept { return m_needsFlush; }
    void SetNeedsFlush(bool needsFlush) noexcept { m_needsFlush = needsFlush; }

    // The number of characters held.
    std::size_t GetLength() const noexcept { return m_buffer.GetLength(); }
    XmlEncoding GetEncoding() const noexcept { return m_encoding; }
    // The whole text, owned by the sink and valid until the next change.
    char const* GetText() { return m_buffer.GetBuffer(); }

    // Moves the text out; the sink is empty afterwards.
    std::string TakeText();
    // The same as bytes of the encoding, without a byte order mark. Throws CZvException for XmlEncoding_None
    // and unknown values.
    CBinaryData GetEncodedData();

protected:
    CTextStream(Registration& registration, XmlEncoding encoding);

    CStringBuffer m_buffer;
    XmlEncoding m_encoding;

private:
    bool m_needsFlush = true;
};

} // namespace ZvXmlLib16
