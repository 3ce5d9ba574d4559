// CZVCriticalSection, a recursive lock.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <mutex>

// Mutual exclusion that the owning thread may enter again; as many Leave as Enter. One of static storage is
// constant-initialised, so it can be used by the constructors of other static objects.
class ZV_API CZVCriticalSection {
public:
    constexpr CZVCriticalSection() noexcept {}
    CZVCriticalSection(CZVCriticalSection const&) = delete;
    CZVCriticalSection& operator=(CZVCriticalSection const&) = delete;
    virtual ~CZVCriticalSection();

    void Enter();
    void Leave();

private:
    std::mutex m_mutex; // the standard's recursive one need not be constant-initialised
    std::atomic<void const*> m_owner{nullptr};
    unsigned m_entries = 0; // of the owner
};

namespace ZvXmlLib16 {
using ::CZVCriticalSection;
}
