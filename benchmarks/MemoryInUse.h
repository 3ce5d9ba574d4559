// The memory that the program and its libraries have taken from the allocator.
#pragma once

#include <cstddef>

namespace bench {

// In bytes, with what the allocator adds to each block.
std::size_t MemoryInUse() noexcept;

// The peak memory of this process in bytes; 0 if unknown.
std::size_t PeakMemory();

// Gives what the allocator keeps for later back to the system.
void ReleaseFreeMemory() noexcept;
// From now on PeakMemory tells of what comes; returns what is in use.
std::size_t ResetPeakMemory();

} // namespace bench
