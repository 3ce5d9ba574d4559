// Counts the bytes that live in memory got by new: each block remembers its size in front of it.
#include "benchmarks/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> liveBytes{0};
constexpr std::size_t kHead = alignof(std::max_align_t);

void* Allocate(std::size_t size) {
    void* const block = std::malloc(size + kHead);
    if (block == nullptr)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    liveBytes.fetch_add(size, std::memory_order_relaxed);
    return static_cast<char*>(block) + kHead;
}

void Free(void* memory) noexcept {
    if (memory == nullptr)
        return;
    void* const block = static_cast<char*>(memory) - kHead;
    liveBytes.fetch_sub(*static_cast<std::size_t*>(block), std::memory_order_relaxed);
    std::free(block);
}

} // namespace

namespace bench {

std::size_t LiveBytes() noexcept {
    return liveBytes.load(std::memory_order_relaxed);
}

} // namespace bench

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
