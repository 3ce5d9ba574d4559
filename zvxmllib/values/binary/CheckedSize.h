// Sizes of results, summed in 64 bits. Header only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

namespace ZvXmlLib16::detail {

// Converts to std::size_t. Throws std::bad_alloc if it does not fit.
inline std::size_t CheckedSize(std::uint64_t size) {
    std::size_t const checked = static_cast<std::size_t>(size);
    if (checked != size)
        throw std::bad_alloc();
    return checked;
}

} // namespace ZvXmlLib16::detail
