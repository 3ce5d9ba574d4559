// SharedFlag, a boolean that one thread may change while others read it. Header only.
#pragma once

#include <atomic>

namespace ZvXmlLib16::detail {

// Reads and writes are atomic and order nothing else. A copy takes the value of the moment.
class SharedFlag {
public:
    SharedFlag(bool value) noexcept : m_value(value) {}
    SharedFlag(SharedFlag const& other) noexcept : m_value(other) {}
    SharedFlag& operator=(SharedFlag const& other) noexcept { return *this = static_cast<bool>(other); }
    SharedFlag& operator=(bool value) noexcept {
        m_value.store(value, std::memory_order_relaxed);
        return *this;
    }
    operator bool() const noexcept { return m_value.load(std::memory_order_relaxed); }

private:
    std::atomic<bool> m_value;
};

} // namespace ZvXmlLib16::detail
