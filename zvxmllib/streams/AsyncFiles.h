// The two switches for large files, for the whole process.
#pragma once

#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

// With true, ToXmlFile and ToJsonFile without compression write the file while the text is being made, so
// that only a few kilobytes of it are in memory; a failure leaves what was written. False at first.
ZV_API void AsyncToXmlFile(bool async) noexcept;

// With true, loading a file parses one chunk of it while the next is being read, so that a document of any
// size can go through the callback of CXmlDocument in little memory. Such a file must be XML text: compressed
// ones and Fast Infoset are recognised in strict contexts alone, where they are read whole, and after a
// failure the document is empty. False at first.
ZV_API void AsyncFromXmlFile(bool async) noexcept;

// Both take effect when an operation starts, and may be set by any thread.
ZV_API bool IsAsyncToXmlFile() noexcept;
ZV_API bool IsAsyncFromXmlFile() noexcept;

} // namespace ZvXmlLib16
