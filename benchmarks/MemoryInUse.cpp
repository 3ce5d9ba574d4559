// The memory that the program and its libraries have taken from the allocator.
#include "benchmarks/MemoryInUse.h"

#include <fstream>
#include <string>

#include <malloc.h>

namespace bench {

std::size_t MemoryInUse() noexcept {
    struct mallinfo2 const info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::size_t PeakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stoul(line.substr(6)) << 10U;
    return 0;
}

void ReleaseFreeMemory() noexcept {
    ::malloc_trim(0);
}

std::size_t ResetPeakMemory() {
    std::ofstream("/proc/self/clear_refs") << "5";
    return PeakMemory();
}

} // namespace bench
