// The generator's version, which all entry points check.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <cstdint>

namespace ZvXmlLib16 {

// The version of the library, and the one that generated code has to be made for.
inline constexpr std::int32_t kLibraryMajorVersion = 16;
inline constexpr std::int32_t kLibraryMinorVersion = 1;

// Called by generated code at its start, before the first bound object is used, with its own version.
// Entry points throw CZvException unless it is the library's: 16, 1.
ZV_API void SetGeneratorVersion(std::int32_t major, std::int32_t minor);

namespace detail {

// Shows the error box and throws CZvException if the versions differ.
void CheckGeneratorVersion();

// Shows the error box if the versions differ. Only the first call in the process does anything.
void CompareGeneratorVersion() noexcept;
extern std::atomic<bool> g_isGeneratorVersionCompared;
inline void CompareGeneratorVersionOnce() noexcept {
    if (!g_isGeneratorVersionCompared.load(std::memory_order_relaxed))
        CompareGeneratorVersion();
}

} // namespace detail

} // namespace ZvXmlLib16
