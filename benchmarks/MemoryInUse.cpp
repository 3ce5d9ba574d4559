// The memory that the program and its libraries have taken from the allocator.
#include "benchmarks/MemoryInUse.h"

#include <malloc.h>

namespace bench {

std::size_t MemoryInUse() noexcept {
    struct mallinfo2 const info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace bench
