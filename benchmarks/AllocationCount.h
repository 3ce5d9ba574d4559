// How often the program and its libraries have asked for memory by operator new.
#pragma once

#include <cstddef>

namespace bench {

std::size_t AllocationCount() noexcept;

} // namespace bench
