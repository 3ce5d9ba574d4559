#include "zvxmllib/context/ReadFailures.h"

#include <utility>

namespace ZvXmlLib16::detail {

void FailureNotes::Begin() {
    m_list.clear();
    m_first = nullptr;
}

bool FailureNotes::Note(CReadFailure failure, std::exception_ptr const& thrown) {
    if (m_list.empty())
        m_first = thrown;
    m_list.push_back(std::move(failure));
    return Takes();
}

void FailureNotes::ThrowFirst() const {
    if (m_first != nullptr)
        std::rethrow_exception(m_first);
}

} // namespace ZvXmlLib16::detail
