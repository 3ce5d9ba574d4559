#include "zvxmllib/driver/UnknownScan.h"

#include "zvxmllib/document/XmlElement.h"

#include <utility>

namespace ZvXmlLib16 {

namespace {

thread_local UnknownScan* t_innermost = nullptr;

} // namespace

UnknownScan::UnknownScan(CXmlElement const& parent) noexcept : m_parent(parent), m_outer(t_innermost) {
    t_innermost = this;
}

UnknownScan::~UnknownScan() {
    t_innermost = m_outer;
}

UnknownScan* UnknownScan::Of(CXmlElement const* parent) noexcept {
    return t_innermost != nullptr && &t_innermost->m_parent == parent ? t_innermost : nullptr;
}

bool UnknownScan::IsExhausted(Entry const& entry, CXmlElement const* cursor, bool& answer) const {
    if (m_notes == nullptr || cursor == nullptr)
        return false;
    auto const found = m_notes->exhausted.find(&entry);
    if (found == m_notes->exhausted.end() || found->second.takings != m_takings ||
        m_notes->numbers.at(cursor) < found->second.from)
        return false;
    answer = found->second.answer;
    return true;
}

UnknownScan::Offer UnknownScan::BeginOffer(CXmlElement const* cursor) noexcept {
    m_reachedEnd = false;
    return {cursor, m_takings};
}

void UnknownScan::EndOffer(Offer const& offer, Entry const& entry, CXmlElement const* cursor, bool answer) {
    bool const passedToEnd = std::exchange(m_passedToEnd, false);
    if (cursor != offer.cursor) {
        if (!passedToEnd)
            ++m_takings;
        return;
    }
    if (!m_reachedEnd || m_takings != offer.takings || cursor == nullptr)
        return;
    if (m_notes == nullptr) {
        m_notes = std::make_unique<Notes>();
        for (CXmlElement const* child = m_parent.GetFirstElement(); child != nullptr;
             child = child->GetNextSiblingElement())
            m_notes->numbers.emplace(child, m_notes->numbers.size());
    }
    m_notes->exhausted[&entry] = {m_notes->numbers.at(cursor), m_takings, answer};
}

} // namespace ZvXmlLib16
