// The limit of decompression, for the whole process.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>

namespace ZvXmlLib16 {

// The most bytes that a compressed document may hold; reading one that holds more throws CZvException. The
// initial value and the maximum are 0xFFFFFFFF: a document of 4 GiB or more does not fit. A program that
// reads untrusted input should set it to what its documents need, since a few kilobytes can expand to
// gigabytes. May be set at any time, by any thread.
ZV_API void SetDecompressionLimit(std::uint64_t bytes) noexcept;
ZV_API std::uint64_t GetDecompressionLimit() noexcept;

} // namespace ZvXmlLib16
