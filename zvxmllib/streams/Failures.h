// Every failure of the streams. The texts are a contract with callers.
#pragma once

namespace ZvXmlLib16 {

[[noreturn]] void FailUnknownEncoding();
// `error` is the system's error number.
[[noreturn]] void FailWriteFile(char const* fileName, int error);
// `code` is the result of zlib.
[[noreturn]] void FailCompress(int code);

} // namespace ZvXmlLib16
