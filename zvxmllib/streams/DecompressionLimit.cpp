// The limit of decompression, for the whole process.
#include "zvxmllib/streams/DecompressionLimit.h"

#include <algorithm>
#include <atomic>
#include <limits>

namespace ZvXmlLib16 {

namespace {

constexpr std::uint64_t kGreatest = std::numeric_limits<std::uint32_t>::max();

std::atomic<std::uint64_t> limit{kGreatest};

} // namespace

void SetDecompressionLimit(std::uint64_t bytes) noexcept {
    limit.store(std::min(bytes, kGreatest), std::memory_order_relaxed);
}

std::uint64_t GetDecompressionLimit() noexcept {
    return limit.load(std::memory_order_relaxed);
}

} // namespace ZvXmlLib16
