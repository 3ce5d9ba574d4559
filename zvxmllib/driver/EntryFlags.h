// Flags beside the entries of a table. Header only.
#pragma once

#include <array>
#include <cstddef>
#include <memory>

namespace ZvXmlLib16::detail {

// One flag for each entry of a table, without an allocation for tables of ordinary size.
class EntryFlags {
public:
    explicit EntryFlags(std::size_t count) {
        if (count > m_few.size())
            m_many = std::make_unique<bool[]>(count);
    }
    bool& operator[](std::size_t index) { return m_many != nullptr ? m_many[index] : m_few[index]; }

private:
    std::array<bool, 64> m_few{};
    std::unique_ptr<bool[]> m_many;
};

template <class Entry>
std::size_t CountEntries(Entry* const* table) {
    std::size_t count = 0;
    while (table[count] != nullptr)
        ++count;
    return count;
}

} // namespace ZvXmlLib16::detail
