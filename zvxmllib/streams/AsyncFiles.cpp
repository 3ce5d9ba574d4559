// The two switches for large files, for the whole process.
#include "zvxmllib/streams/AsyncFiles.h"

#include <atomic>

namespace ZvXmlLib16 {

namespace {

std::atomic<bool> asyncTo{false};
std::atomic<bool> asyncFrom{false};

} // namespace

void AsyncToXmlFile(bool async) noexcept {
    asyncTo.store(async, std::memory_order_relaxed);
}

void AsyncFromXmlFile(bool async) noexcept {
    asyncFrom.store(async, std::memory_order_relaxed);
}

bool IsAsyncToXmlFile() noexcept {
    return asyncTo.load(std::memory_order_relaxed);
}

bool IsAsyncFromXmlFile() noexcept {
    return asyncFrom.load(std::memory_order_relaxed);
}

} // namespace ZvXmlLib16
