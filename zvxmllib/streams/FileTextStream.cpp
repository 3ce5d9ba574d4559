// CFileTextStream, a text sink that writes its file while the writer works.
#include "zvxmllib/streams/FileTextStream.h"

#include "zvxmllib/streams/ByteOrderMark.h"
#include "zvxmllib/streams/Failures.h"

#include <cerrno>

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration fileTextStreamRegistration("CFileTextStream");

} // namespace

CFileTextStream::CFileTextStream(char const* fileName, XmlEncoding encoding, bool writesMark,
                                 platform::FileMode mode)
    : CTextStream(fileTextStreamRegistration, encoding), m_fileName(fileName == nullptr ? "" : fileName),
      m_writesMark(writesMark), m_mode(mode) {}

CFileTextStream::~CFileTextStream() = default;

void CFileTextStream::Open() {
    CTextStream::Open();
    m_filePos = 0;
    if (!m_file.Create(m_fileName.c_str(), m_mode))
        FailWriteFile(m_fileName.c_str(), m_file.Error());
    if (m_writesMark && HasByteOrderMark(m_encoding))
        m_file.StartWrite(kByteOrderMark, sizeof kByteOrderMark, 0);
}

void CFileTextStream::Flush() {
    if (m_buffer.GetLength() == 0)
        return;
    if (!m_file.IsOpen())
        FailOverlappedWrite(EBADF);
    WaitForWrite();
    m_pendingData = GetEncodedData();
    m_file.StartWrite(m_pendingData.GetData(), m_pendingData.GetLength(), m_filePos);
}

void CFileTextStream::Close() {
    Flush();
    WaitForWrite();
    if (!m_file.Commit())
        FailOverlappedWrite(m_file.Error());
}

void CFileTextStream::WaitForWrite() {
    std::size_t count = 0;
    bool const isWritten = m_file.Wait(count);
    m_filePos += count;
    if (isWritten)
        return;
    int const error = m_file.Error();
    m_file.Close();
    FailOverlappedWrite(error);
}

} // namespace ZvXmlLib16
