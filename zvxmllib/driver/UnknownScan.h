// What is known of the children of one element while unknown ones are passed over.
#pragma once

#include "zvxmllib/foundation/Forward.h"

#include <cstddef>
#include <memory>
#include <unordered_map>

namespace ZvXmlLib16 {

// A nested group that passes over unknown elements asks its entry for one child after the other, up to the
// last one, and it begins anew at each child where those around it ask it. With groups in groups the time
// would grow with a power of the number of children. So the scan notes which children an entry has refused,
// and a group that comes there again goes on behind them. That holds where a second look would have the same
// outcome: what a class or a value answers depends on the children alone, since Init clears an object before
// each reading; what a collection answers depends on its items, too.
//
// One object lives while an element with unknown children allowed is read; the innermost is found by its
// thread.
class UnknownScan {
public:
    using Entry = ZvXmlLib16Data::CElementInfo;

    explicit UnknownScan(CXmlElement const& parent) noexcept;
    UnknownScan(UnknownScan const&) = delete;
    UnknownScan& operator=(UnknownScan const&) = delete;
    ~UnknownScan();

    // The scan of the children of `parent`, null where there is none.
    static UnknownScan* Of(CXmlElement const* parent) noexcept;

    // Lives while the entries of one object are offered the cursor, from its Init on; `scan` may be null.
    class Walk {
    public:
        explicit Walk(UnknownScan* scan) noexcept;
        Walk(Walk const&) = delete;
        Walk& operator=(Walk const&) = delete;
        ~Walk();

    private:
        UnknownScan* const m_scan;
        std::size_t m_outerBegin = 0;
    };

    // The cursor, or the last of those children that the entry of `object` is known to refuse from there on.
    // It is asked about that one again, so that it leaves behind what it would have left.
    CXmlElement* PassRefused(Entry const& entry, CXmlGeneratedClass const& object, CXmlElement* cursor) const;
    // The entry has refused the children from `first` on, up to `last`.
    void NoteRefused(Entry const& entry, CXmlGeneratedClass const& object, CXmlElement const& first,
                     CXmlElement& last);

    // Some entry has read something.
    void CountTaking() noexcept { ++m_takings; }
    std::size_t GetTakings() const noexcept { return m_takings; }
    // An entry that moves the cursor to the end and takes nothing tells so before it answers.
    void PassToEnd() noexcept { m_passedToEnd = true; }
    // After each offer of the cursor to an entry.
    void EndOffer(bool hasMoved) noexcept;

private:
    struct Refusals {
        std::size_t first; // numbers of children
        std::size_t last;
        CXmlElement* lastChild;
        std::size_t takings; // so far
        CXmlGeneratedClass const* object;
        bool isOfEmpty; // nothing had been read into the object
    };
    struct Notes {
        std::unordered_map<CXmlElement const*, std::size_t> numbers; // of the children, in document order
        std::unordered_map<Entry const*, Refusals> refusals;
    };

    bool IsObjectEmpty() const noexcept { return m_begin == m_takings; }
    bool Holds(Refusals const& refusals, Entry const& entry, CXmlGeneratedClass const& object) const noexcept;

    CXmlElement const& m_parent;
    UnknownScan* const m_outer;
    std::size_t m_takings = 0;
    std::size_t m_begin = 0;    // m_takings when the innermost walk began
    bool m_passedToEnd = false; // by the entry that was offered the cursor last
    std::unique_ptr<Notes> m_notes;
};

} // namespace ZvXmlLib16
