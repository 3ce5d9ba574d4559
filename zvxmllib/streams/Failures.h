// Every failure of the streams. The texts are a contract with callers.
#pragma once

#include <cstdint>

namespace ZvXmlLib16 {

[[noreturn]] void FailUnknownEncoding();
// `error` is the system's error number.
[[noreturn]] void FailWriteFile(char const* fileName, int error);
// The same for a file that is written while its text is made; the message does not name it.
[[noreturn]] void FailOverlappedWrite(int error);
[[noreturn]] void FailDecompressionLimit(std::uint64_t limit);
// `code` is the result of zlib.
[[noreturn]] void FailCompress(int code);
[[noreturn]] void FailDecompress(int code);

} // namespace ZvXmlLib16
