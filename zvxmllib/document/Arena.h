// Storage for many small objects that are freed together: a bump allocator with marks.
#pragma once

#include "zvxmllib/platform/MemoryBlock.h"

#include <cstddef>
#include <vector>

namespace ZvXmlLib16 {

// Hands out memory from chunks that grow in size. Objects are not freed one by one: Rewind releases
// everything after a mark and keeps the chunks for reuse; the destructor frees everything. Belongs to one
// thread. Destructors of the objects inside are not run.
class Arena {
public:
    // A place in the order of allocation.
    struct Mark {
        std::size_t chunk;
        char* top;
    };

    // A chunk has a quarter of the size of all chunks before it, within `smallestChunk` and `largestChunk`.
    Arena(std::size_t smallestChunk, std::size_t largestChunk) noexcept
        : m_smallestChunk(smallestChunk), m_largestChunk(largestChunk) {}
    Arena(Arena const&) = delete;
    Arena& operator=(Arena const&) = delete;

    // `alignment` is a power of two, at most that of std::max_align_t.
    char* Allocate(std::size_t size, std::size_t alignment) {
        std::size_t const padding = Padding(alignment);
        if (size + padding > static_cast<std::size_t>(m_end - m_top))
            return AllocateInNextChunk(size);
        char* const result = m_top + padding;
        m_top = result + size;
        return result;
    }

    // Lengthens the allocation that ends at `end` by `size` bytes in place, if it is the last one and there
    // is room. Returns true if it did.
    bool TryExtend(char const* end, std::size_t size) noexcept {
        if (end == nullptr || end != m_top || size > static_cast<std::size_t>(m_end - m_top))
            return false;
        m_top += size;
        return true;
    }

    // True if nothing was allocated after `end`.
    bool IsTop(char const* end) const noexcept { return end == m_top; }

    Mark GetMark() const noexcept { return {m_current, m_top}; }
    // Releases everything allocated since the mark.
    void Rewind(Mark const& mark) noexcept;
    // Releases the allocations from `begin` on, which are in the current chunk.
    void RewindTo(char* begin) noexcept { m_top = begin; }

private:
    struct Chunk {
        platform::MemoryBlock data;
        std::size_t size;
    };

    std::size_t Padding(std::size_t alignment) const noexcept {
        return (alignment - reinterpret_cast<std::size_t>(m_top)) & (alignment - 1);
    }
    char* AllocateInNextChunk(std::size_t size);
    void Enter(std::size_t chunk) noexcept;

    std::vector<Chunk> m_chunks;
    std::size_t m_current = 0; // the chunk in use, once there is one
    char* m_top = nullptr;
    char* m_end = nullptr;
    std::size_t m_capacity = 0; // of all chunks
    std::size_t const m_smallestChunk;
    std::size_t const m_largestChunk;
};

} // namespace ZvXmlLib16
