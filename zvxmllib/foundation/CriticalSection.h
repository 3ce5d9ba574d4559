// CZVCriticalSection, a recursive lock.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <mutex>

// The owning thread may enter again; each Enter needs a Leave. A static one is constant-initialised, so
// constructors of other static objects can use it.
class ZV_API CZVCriticalSection {
public:
    constexpr CZVCriticalSection() noexcept {}
    CZVCriticalSection(CZVCriticalSection const&) = delete;
    CZVCriticalSection& operator=(CZVCriticalSection const&) = delete;
    virtual ~CZVCriticalSection();

    // Waits until no other thread is inside.
    void Enter();
    // Only by the thread that is inside.
    void Leave();

private:
    std::mutex m_mutex; // std::recursive_mutex need not be constant-initialised
    std::atomic<void const*> m_owner{nullptr};
    unsigned m_entries = 0; // of the owner
};

namespace ZvXmlLib16 {
using ::CZVCriticalSection;
}
