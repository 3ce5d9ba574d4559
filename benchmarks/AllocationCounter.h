// Counts the bytes that live in memory got by new, in the program and in the library.
#pragma once

#include <cstddef>

namespace bench {

// As they were asked for, without what the allocator adds.
std::size_t LiveBytes() noexcept;

} // namespace bench
