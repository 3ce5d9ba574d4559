// The limit of decompression, for the whole process.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>

namespace ZvXmlLib16 {

// The most bytes that a compressed document may hold; reading one that holds more throws CZvException. At
// first, and at most, 0xFFFFFFFF: a document of 4 GiB and more cannot be held. A program that reads what
// strangers send sets it to what its documents need: a few kilobytes can hold gigabytes. May be set at any
// time, by any thread.
ZV_API void SetDecompressionLimit(std::uint64_t bytes) noexcept;
ZV_API std::uint64_t GetDecompressionLimit() noexcept;

} // namespace ZvXmlLib16
