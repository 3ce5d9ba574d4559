// CFileBinaryStream, finished bytes to a file.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/platform/File.h"
#include "zvxmllib/streams/BinaryStream.h"

#include <string>

namespace ZvXmlLib16 {

// Collects bytes in memory; the file is touched by WriteToFile alone.
class CFileBinaryStream : public CBinaryStream {
public:
    // With a 16-bit encoding the file begins with a byte order mark. The bytes are already encoded, and
    // bytes that are not text of that encoding (compressed ones) take XmlEncoding_None. A null name is an
    // empty one.
    CFileBinaryStream(char const* fileName, XmlEncoding encoding);
    CFileBinaryStream(char const* fileName, XmlEncoding encoding, CBinaryData const& data);
    ~CFileBinaryStream() override;

    // Creates the file, or overwrites or replaces an existing one. Throws CZvException with the system's
    // error number; after a failed overwriting, what was written stays.
    void WriteToFile(platform::FileMode mode = platform::FileMode::kOverwrite);

private:
    std::string m_fileName;
    XmlEncoding m_encoding;
};

} // namespace ZvXmlLib16
