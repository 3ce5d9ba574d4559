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

} // namespace ZvXmlLib16::platform
