// IndexMap, which finds the index of a text seen before in a document, and the seven maps of a writer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {
namespace detail {

// Texts numbered from 1 in the order in which they were added, found by their hash with open addressing, so
// the cost of a text does not grow with the map. All texts are stored one after the other, so copying the map
// copies three blocks.
class IndexMap {
public:
    // The greatest number of entries (X.891, 7.13.7).
    static constexpr std::uint32_t kMostEntries = std::uint32_t{1} << 20U;

    // A qualified name is the text of its local name, namespace and prefix with the byte 1 between them.
    struct QName {
        std::string_view localName;
        std::string_view namespaceName;
        std::string_view prefix;
    };

    // A text and a name have one hash in all maps of the process.
    static std::uint64_t Hash(std::string_view text) noexcept;
    static std::uint64_t Hash(QName const& name) noexcept;

    // 0 if it is missing.
    std::uint32_t Find(std::string_view text) const noexcept { return Find(text, Hash(text)); }
    std::uint32_t Find(std::string_view text, std::uint64_t hash) const noexcept;
    std::uint32_t Find(QName const& name, std::uint64_t hash) const noexcept;

    // Adds a text that is missing; a full map stays unchanged.
    void Add(std::string_view text, std::uint64_t hash);
    void Add(QName const& name, std::uint64_t hash);

    std::uint32_t GetCount() const noexcept { return static_cast<std::uint32_t>(m_ends.size()); }
    // The text of an index, valid until the map changes.
    std::string_view GetText(std::uint32_t index) const noexcept {
        std::size_t const begin = index == 1 ? 0 : m_ends[index - 2];
        return {m_texts.data() + begin, m_ends[index - 1] - begin};
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t index = 0; // 0 for none
    };

    template <class Key>
    std::uint32_t FindKey(Key const& key, std::uint64_t hash) const noexcept;
    bool MakeRoom();
    void AddEnd(std::uint64_t hash);
    void Enter(Slot slot) noexcept;
    void Grow();

    std::string m_texts;
    std::vector<std::size_t> m_ends; // of the texts
    std::vector<Slot> m_slots;       // a power of two of them, at most half of them taken
};

// What a document that is being written refers to by index. A new one has what X.891 gives every document.
struct IndexMaps {
    IndexMaps();

    IndexMap attributeNames;
    IndexMap attributeValues;
    IndexMap elementNames;
    IndexMap characterChunks;
    IndexMap localNames;
    IndexMap namespaceNames;
    IndexMap prefixNames;
};

} // namespace detail
} // namespace ZvXmlLib16
