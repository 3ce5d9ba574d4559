// Sizes of results, summed in 64 bits: on a 32-bit machine sums of smaller ones would wrap. Header only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>

namespace ZvXmlLib16::detail {

// Converts to std::size_t. Throws std::bad_alloc if it does not fit.
inline std::size_t CheckedSize(std::uint64_t size) {
    std::size_t const checked = static_cast<std::size_t>(size);
    if (checked != size)
        throw std::bad_alloc();
    return checked;
}

// The length of binary data has 32 bits. Throws std::bad_alloc beyond them.
inline std::uint32_t CheckedLength(std::uint64_t length) {
    if (length > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    return static_cast<std::uint32_t>(length);
}

} // namespace ZvXmlLib16::detail
