#include "zvxmllib/driver/UnknownScan.h"

#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/ElementInfoBase.h"

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

UnknownScan::Walk::Walk(UnknownScan* scan) noexcept : m_scan(scan) {
    if (scan != nullptr)
        m_outerBegin = std::exchange(scan->m_begin, scan->m_takings);
}

UnknownScan::Walk::~Walk() {
    if (m_scan != nullptr)
        m_scan->m_begin = m_outerBegin;
}

void UnknownScan::EndOffer(bool hasMoved) noexcept {
    bool const passedToEnd = std::exchange(m_passedToEnd, false);
    if (hasMoved && !passedToEnd)
        CountTaking();
}

bool UnknownScan::Holds(Refusals const& refusals, Entry const& entry,
                        CXmlGeneratedClass const& object) const noexcept {
    if (entry.RepeatsRefusals())
        return true;
    if (refusals.isOfEmpty || IsObjectEmpty())
        return refusals.isOfEmpty && IsObjectEmpty();
    return refusals.takings == m_takings && refusals.object == &object;
}

CXmlElement* UnknownScan::PassRefused(Entry const& entry, CXmlGeneratedClass const& object,
                                      CXmlElement* cursor) const {
    if (m_notes == nullptr || cursor == nullptr)
        return cursor;
    auto const found = m_notes->refusals.find(&entry);
    if (found == m_notes->refusals.end() || !Holds(found->second, entry, object))
        return cursor;
    Refusals const& refusals = found->second;
    std::size_t const number = m_notes->numbers.at(cursor);
    return number >= refusals.first && number < refusals.last ? refusals.lastChild : cursor;
}

void UnknownScan::NoteRefused(Entry const& entry, CXmlGeneratedClass const& object, CXmlElement const& first,
                              CXmlElement& last) {
    if (m_notes == nullptr) {
        m_notes = std::make_unique<Notes>();
        for (CXmlElement const* child = m_parent.GetFirstElement(); child != nullptr;
             child = child->GetNextSiblingElement())
            m_notes->numbers.emplace(child, m_notes->numbers.size());
    }
    std::size_t number = m_notes->numbers.at(&first);
    auto const before = m_notes->refusals.find(&entry);
    if (before != m_notes->refusals.end() && number > before->second.first &&
        number <= before->second.last + 1 && Holds(before->second, entry, object))
        number = before->second.first; // what was known goes on
    m_notes->refusals[&entry] = {number,         m_notes->numbers.at(&last), &last, m_takings, &object,
                                 IsObjectEmpty()};
}

} // namespace ZvXmlLib16
