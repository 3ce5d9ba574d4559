// CZVCriticalSection, a recursive lock.
#include "zvxmllib/foundation/CriticalSection.h"

namespace {

thread_local char t_identity; // its address identifies this thread

} // namespace

CZVCriticalSection::~CZVCriticalSection() = default;

void CZVCriticalSection::Enter() {
    if (m_owner.load(std::memory_order_relaxed) != &t_identity) {
        m_mutex.lock();
        m_owner.store(&t_identity, std::memory_order_relaxed);
    }
    ++m_entries;
}

void CZVCriticalSection::Leave() {
    if (--m_entries != 0)
        return;
    m_owner.store(nullptr, std::memory_order_relaxed);
    m_mutex.unlock();
}
