// Every failure of the streams. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/streams/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailUnknownEncoding() {
    throw CZvException("Unknown Encoding, select UTF-8 (contact our support team)");
}

void FailWriteFile(char const* fileName, int error) {
    throw CZvException(FormatString("Failed to write data to the file [%s] error [0x%08X]", fileName,
                                    static_cast<unsigned int>(error)));
}

void FailOverlappedWrite(int error) {
    throw CZvException(
        FormatString("Failed to write data to the file. Error [0x%08X]", static_cast<unsigned int>(error)));
}

void FailDecompressionLimit(std::uint64_t limit) {
    throw CZvException(
        FormatString("Failed to decompress data. The result is larger than the limit of %llu bytes",
                     static_cast<unsigned long long>(limit)));
}

void FailCompress(int code) {
    throw CZvException(FormatString("Failed to compress data. [Error Code: %d]", code));
}

void FailDecompress(int code) {
    throw CZvException(FormatString("Failed to decompress data. [Error Code: %d]", code));
}

} // namespace ZvXmlLib16
