// The memory that the program and its libraries have taken from the allocator.
#pragma once

#include <cstddef>

namespace bench {

// In bytes, with what the allocator adds to each block.
std::size_t MemoryInUse() noexcept;

// The most memory that this process ever held, in bytes; 0 where the system does not tell.
std::size_t PeakMemory();

} // namespace bench
