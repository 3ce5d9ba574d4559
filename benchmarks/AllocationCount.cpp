// Replaces the operators of the whole program, so it is linked only where allocations are counted.
#include "benchmarks/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> s_allocations{0};

} // namespace

void* operator new(std::size_t size) {
    s_allocations.fetch_add(1, std::memory_order_relaxed);
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

std::size_t bench::AllocationCount() noexcept {
    return s_allocations.load(std::memory_order_relaxed);
}
