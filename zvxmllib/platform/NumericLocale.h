// Makes number formatting and parsing of the current thread independent of the process locale.
#pragma once

namespace ZvXmlLib16::platform {

// For its lifetime the calling thread uses the C locale. Costs two system-library calls; not for paths
// that run for each value.
class CNumericLocaleGuard {
public:
    CNumericLocaleGuard() noexcept;
    CNumericLocaleGuard(CNumericLocaleGuard const&) = delete;
    CNumericLocaleGuard& operator=(CNumericLocaleGuard const&) = delete;
    ~CNumericLocaleGuard();

private:
    void* m_previous;
};

} // namespace ZvXmlLib16::platform
