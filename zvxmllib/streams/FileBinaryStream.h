// CFileBinaryStream, finished bytes to a file.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/platform/File.h"
#include "zvxmllib/streams/BinaryStream.h"

#include <string>

namespace ZvXmlLib16 {

// Collects bytes in memory; only WriteToFile touches the file.
class CFileBinaryStream : public CBinaryStream {
public:
    // With a 16-bit encoding the file begins with a byte order mark. The bytes are already encoded; pass
    // XmlEncoding_None for bytes that are not text (compressed ones). A null name counts as empty.
    CFileBinaryStream(char const* fileName, XmlEncoding encoding);
    CFileBinaryStream(char const* fileName, XmlEncoding encoding, CBinaryData const& data);
    ~CFileBinaryStream() override;

    // Creates the file, or overwrites or replaces an existing one. Throws CZvException with the system's
    // error number; after a failed overwrite, what was written stays.
    void WriteToFile(platform::FileMode mode = platform::FileMode::kOverwrite);

private:
    std::string m_fileName;
    XmlEncoding m_encoding;
};

} // namespace ZvXmlLib16
