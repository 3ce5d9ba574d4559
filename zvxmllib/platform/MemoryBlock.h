// Blocks of memory that are filled from front to back. Large ones of AllocateBlock use large pages where the
// system has them, which saves a page fault for every few kilobytes.
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

struct ReturnedBlockDeleter {
    std::size_t mapped = 0; // 0 for a block of the allocator
    void operator()(char* data) const noexcept;
};
using ReturnedBlock = std::unique_ptr<char[], ReturnedBlockDeleter>;

// From this size on, a block that is freed goes back to the system at once; the allocator might keep it.
inline constexpr std::size_t kReturnedSize = std::size_t{1024} * 1024;

// Not initialised, aligned for every type. Throws std::bad_alloc. A larger block than kReturnedSize takes
// memory as it is written to.
ReturnedBlock AllocateReturnedBlock(std::size_t size);

// Large pages for what lies in whole ones of this memory, of which nothing has been written yet.
void PreferLargePages(void* data, std::size_t size) noexcept;

} // namespace ZvXmlLib16::platform
