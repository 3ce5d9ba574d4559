// What is known of the children of one element while unknown ones are passed over.
#pragma once

#include "zvxmllib/foundation/Forward.h"

#include <cstddef>
#include <memory>
#include <unordered_map>

namespace ZvXmlLib16 {

// A nested group that passes over unknown elements looks at all children up to the last one, and it is
// offered the cursor again and again while those around it move on; with groups in groups the time would grow
// with a power of the number of children. But a group that came to the end and took nothing takes nothing
// from any later cursor either. So that is noted, and the entry of the group is not asked again until another
// entry has taken something.
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

    // Whether the entry is known to take nothing from this cursor on; `answer` is what it answers then.
    bool IsExhausted(Entry const& entry, CXmlElement const* cursor, bool& answer) const;

    // Around each offer of the cursor to an entry.
    struct Offer {
        CXmlElement const* cursor;
        std::size_t takings;
    };
    Offer BeginOffer(CXmlElement const* cursor) noexcept;
    void EndOffer(Offer const& offer, Entry const& entry, CXmlElement const* cursor, bool answer);

    // An entry that moves the cursor to the end and takes nothing tells so before it answers.
    void PassToEnd() noexcept { m_passedToEnd = true; }
    // Each group tells at its end whether it was a sequence that came to the last child.
    void EndGroup(bool reachedEnd) noexcept { m_reachedEnd = reachedEnd; }

private:
    struct Exhausted {
        std::size_t from; // the number of a child
        std::size_t
            takings; // so far; what is taken later may change what groups that are filled already need
        bool answer;
    };
    struct Notes {
        std::unordered_map<CXmlElement const*, std::size_t> numbers; // of the children, in document order
        std::unordered_map<Entry const*, Exhausted> exhausted;
    };

    CXmlElement const& m_parent;
    UnknownScan* const m_outer;
    std::size_t m_takings = 0;  // offers that moved the cursor
    bool m_reachedEnd = false;  // by the group that ended last
    bool m_passedToEnd = false; // by the entry that was offered the cursor last
    std::unique_ptr<Notes> m_notes;
};

} // namespace ZvXmlLib16
