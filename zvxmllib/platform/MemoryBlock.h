// A block of memory that is filled from front to back; a large one uses large pages where the system has
// them, which saves a page fault for every few kilobytes.
#pragma once

#include <cstddef>
#include <memory>

namespace ZvXmlLib16::platform {

struct MemoryBlockDeleter {
    void operator()(char* data) const noexcept;
};
using MemoryBlock = std::unique_ptr<char[], MemoryBlockDeleter>;

// From this size on, blocks use large pages; sizes should then be multiples of it.
inline constexpr std::size_t kLargePage = 2 * 1024 * 1024;

// Not initialised, aligned for every type. Throws std::bad_alloc.
MemoryBlock AllocateBlock(std::size_t size);

} // namespace ZvXmlLib16::platform
