// CZVCriticalSection, a recursive lock.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <mutex>

// Mutual exclusion that the owning thread may enter again; as many Leave as Enter.
class ZV_API CZVCriticalSection {
public:
    CZVCriticalSection();
    CZVCriticalSection(CZVCriticalSection const&) = delete;
    CZVCriticalSection& operator=(CZVCriticalSection const&) = delete;
    virtual ~CZVCriticalSection();

    void Enter();
    void Leave();

private:
    std::recursive_mutex m_mutex;
};

namespace ZvXmlLib16 {
using ::CZVCriticalSection;
}
