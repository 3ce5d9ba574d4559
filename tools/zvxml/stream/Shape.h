// What a sink must know of an element before it writes it, and only what follows tells: a bit for each
// element.
#pragma once

#include "Events.h"
#include "Losses.h"

#include "zvxmllib/json/JsonContext.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

namespace zvxml {

// Elements are numbered from 0 in the order of their start tags. One octet holds eight of them.
class Shape {
public:
    std::uint64_t AddElement() {
        if (m_count % 64 == 0)
            m_bits.push_back(0);
        return m_count++;
    }
    void Mark(std::uint64_t element) {
        m_bits[static_cast<std::size_t>(element / 64)] |= std::uint64_t{1} << element % 64;
    }
    bool IsMarked(std::uint64_t element) const {
        return (m_bits[static_cast<std::size_t>(element / 64)] >> element % 64 & 1U) != 0;
    }

private:
    std::deque<std::uint64_t> m_bits;
    std::uint64_t m_count = 0;
};

// True for a text that is only white space.
bool IsBlank(std::string_view text) noexcept;

// Marks the elements that hold elements and no text but white space, where xml:space does not keep that.
std::unique_ptr<Receiver> MakeXmlShape(Shape& shape);

// Marks the first of neighbours with one name, which JSON has as an array. Throws DocumentError for what JSON
// has no place for: text ahead of a child, and a name that comes again later; comments and the like are
// losses.
std::unique_ptr<Receiver> MakeJsonShape(Shape& shape, ZvXmlLib16::JsonRoundTrip mode, Source const& source,
                                        Losses& losses);

// The name of an element or attribute in JSON, without its mark.
inline std::string_view JsonName(Name const& name, ZvXmlLib16::JsonRoundTrip mode) {
    return mode == ZvXmlLib16::JsonRoundTrip_Full ? name.qualified : name.local;
}
// Whether xml:space keeps the white space in an element; `isInherited` says so of the one around it.
bool KeepsSpace(StartTag const& tag, bool isInherited);
// Whether an element is nil, and so is null in JSON.
bool IsNil(StartTag const& tag);

} // namespace zvxml
