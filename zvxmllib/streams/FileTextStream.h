// CFileTextStream, a text sink that writes its file while the writer works.
#pragma once

#include "zvxmllib/platform/OverlappedFile.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// Open creates the file or empties an existing one, each Flush writes what has been appended while the writer
// makes the next portion, and Close completes the file. A sink that is not closed leaves a truncated file, or
// no file if it was to replace one. All three throw CZvException with the system's error number; after that
// the file is closed and the sink can only be destroyed.
class CFileTextStream : public CTextStream {
public:
    // With `writesMark`, text of a 16-bit encoding begins with a byte order mark. A null name counts as
    // empty.
    CFileTextStream(char const* fileName, XmlEncoding encoding, bool writesMark = true,
                    platform::FileMode mode = platform::FileMode::kOverwrite);
    ~CFileTextStream() override;

    void Open() override;
    void Close() override;
    // Returns at once if there is nothing to write.
    void Flush() override;

private:
    void WaitForWrite();

    std::string m_fileName;
    bool m_writesMark;
    platform::FileMode m_mode;
    std::uint64_t m_filePos = 0; // of the write in flight; its end once that is complete
    CBinaryData m_pendingData;   // what is being written; outlives the file
    platform::OverlappedFile m_file;
};

} // namespace ZvXmlLib16
