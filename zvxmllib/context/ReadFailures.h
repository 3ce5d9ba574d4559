// What a reading that goes on behind failures has found.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// One failure of reading: the path of the element or attribute, its place as CZvException tells it, and the
// message with those of its causes.
struct ZV_API CReadFailure {
    std::string path;         // as CZvException::GetPath
    std::uint64_t line = 0;   // from 1; 0 where it is not known
    std::uint64_t column = 0; // from 1; 0 where it is not known
    std::string message;      // as CZvException::GetFullMessage
};

namespace detail {

// The failures of one reading, up to a limit. Belongs to a context, and to one reader at a time.
class ZV_API FailureNotes {
public:
    void SetLimit(std::size_t limit) noexcept { m_limit = limit; }
    std::size_t GetLimit() const noexcept { return m_limit; }
    std::vector<CReadFailure> const& GetList() const noexcept { return m_list; }

    // Forgets those of the reading before.
    void Begin();
    // False, with nothing noted, where none are wanted or no more.
    bool Takes() const noexcept { return m_list.size() < m_limit; }
    // `thrown` is the exception that reading ends with if this is the first. True if reading may go on.
    bool Note(CReadFailure failure, std::exception_ptr const& thrown);
    // For what was read by way of another text: the places are those of that text, which nobody sees. Calls
    // `move(line, column)` to change them.
    template <class Move>
    void MovePlaces(Move move) {
        for (CReadFailure& failure : m_list)
            move(failure.line, failure.column);
    }
    // Throws the first, if there is one.
    void ThrowFirst() const;

private:
    std::size_t m_limit = 0;
    std::vector<CReadFailure> m_list;
    std::exception_ptr m_first;
};

} // namespace detail

} // namespace ZvXmlLib16
