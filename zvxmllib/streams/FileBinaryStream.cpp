// CFileBinaryStream, finished bytes to a file.
#include "zvxmllib/streams/FileBinaryStream.h"

#include "zvxmllib/streams/ByteOrderMark.h"
#include "zvxmllib/streams/Failures.h"

namespace ZvXmlLib16 {

namespace {

CInstanceMonitor::Registration fileBinaryStreamRegistration("CFileBinaryStream");

} // namespace

CFileBinaryStream::CFileBinaryStream(char const* fileName, XmlEncoding encoding)
    : CFileBinaryStream(fileName, encoding, CBinaryData()) {}

CFileBinaryStream::CFileBinaryStream(char const* fileName, XmlEncoding encoding, CBinaryData const& data)
    : CBinaryStream(fileBinaryStreamRegistration, data), m_fileName(fileName != nullptr ? fileName : ""),
      m_encoding(encoding) {}

CFileBinaryStream::~CFileBinaryStream() = default;

void CFileBinaryStream::WriteToFile(platform::FileMode mode) {
    CBinaryData const data = GetData();
    platform::File file;
    bool const written =
        file.Create(m_fileName.c_str(), mode) &&
        (!HasByteOrderMark(m_encoding) || file.Write(kByteOrderMark, sizeof kByteOrderMark)) &&
        file.Write(data.GetData(), data.GetLength()) && file.Commit();
    if (!written)
        FailWriteFile(m_fileName.c_str(), file.Error());
}

} // namespace ZvXmlLib16
