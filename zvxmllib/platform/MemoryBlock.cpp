#include "zvxmllib/platform/MemoryBlock.h"

#include <cstdlib>
#include <new>

#include <sys/mman.h>

namespace ZvXmlLib16::platform {

void MemoryBlockDeleter::operator()(char* data) const noexcept {
    std::free(data);
}

MemoryBlock AllocateBlock(std::size_t size) {
    bool const isLarge = size >= kLargePage;
    std::size_t const whole = (size + kLargePage - 1) / kLargePage * kLargePage;
    void* const data = isLarge ? std::aligned_alloc(kLargePage, whole) : std::malloc(size);
    if (data == nullptr)
        throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
    if (isLarge)
        ::madvise(data, whole, MADV_HUGEPAGE); // advice only, so the result is ignored
#endif
    return MemoryBlock(static_cast<char*>(data));
}

void ReturnedBlockDeleter::operator()(char* data) const noexcept {
    if (mapped != 0)
        ::munmap(data, mapped);
    else
        std::free(data);
}

void PreferLargePages(void* data, std::size_t size) noexcept {
#ifdef MADV_HUGEPAGE
    char* const begin = static_cast<char*>(data);
    std::size_t const before = (kLargePage - reinterpret_cast<std::size_t>(begin) % kLargePage) % kLargePage;
    if (before < size && size - before >= kLargePage)
        ::madvise(begin + before, (size - before) / kLargePage * kLargePage, MADV_HUGEPAGE);
#endif
}

ReturnedBlock AllocateReturnedBlock(std::size_t size) {
    if (size < kReturnedSize) {
        char* const data = static_cast<char*>(std::malloc(size));
        if (data == nullptr)
            throw std::bad_alloc();
        return ReturnedBlock(data);
    }
    int flags = MAP_PRIVATE | MAP_ANONYMOUS;
#ifdef MAP_POPULATE
    // All pages at once for a block that is full soon; a larger one takes them as it is written to.
    if (size == kReturnedSize)
        flags |= MAP_POPULATE;
#endif
    void* const data = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, flags, -1, 0);
    if (data == MAP_FAILED)
        throw std::bad_alloc();
    if (size > kReturnedSize)
        PreferLargePages(data, size);
    return ReturnedBlock(static_cast<char*>(data), {size});
}

} // namespace ZvXmlLib16::platform
