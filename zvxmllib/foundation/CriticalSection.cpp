// CZVCriticalSection, a recursive lock.
#include "zvxmllib/foundation/CriticalSection.h"

CZVCriticalSection::CZVCriticalSection() = default;

CZVCriticalSection::~CZVCriticalSection() = default;

void CZVCriticalSection::Enter() {
    m_mutex.lock();
}

void CZVCriticalSection::Leave() {
    m_mutex.unlock();
}
