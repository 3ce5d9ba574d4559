#include "zvxmllib/fastinfoset/IndexMap.h"

#include "zvxmllib/writers/XmlNamespaces.h"

#include <cstring>

namespace ZvXmlLib16 {
namespace detail {

namespace {

constexpr std::size_t kFirstSlots = 32;
constexpr char kSeparator = '\1';
constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15U;

// Differs from process to process where addresses do, so that nobody prepares texts that meet in one slot.
std::uint64_t Seed() noexcept {
    return reinterpret_cast<std::uintptr_t>(&kMultiplier);
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) noexcept {
    hash = (hash ^ word) * kMultiplier;
    return hash ^ hash >> 32U;
}

template <class Word>
std::uint64_t WordAt(char const* p) noexcept {
    Word word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

bool Equals(std::string_view key, char const* text, std::size_t length) noexcept {
    return key.size() == length && std::memcmp(key.data(), text, length) == 0;
}

bool Equals(IndexMap::QName const& key, char const* text, std::size_t length) noexcept {
    std::size_t const namespaceBegin = key.localName.size() + 1;
    std::size_t const prefixBegin = namespaceBegin + key.namespaceName.size() + 1;
    return prefixBegin + key.prefix.size() == length && text[namespaceBegin - 1] == kSeparator &&
           text[prefixBegin - 1] == kSeparator && Equals(key.localName, text, key.localName.size()) &&
           Equals(key.namespaceName, text + namespaceBegin, key.namespaceName.size()) &&
           Equals(key.prefix, text + prefixBegin, key.prefix.size());
}

} // namespace

// Eight bytes at a time; the last eight may overlap those before.
std::uint64_t IndexMap::Hash(std::string_view text) noexcept {
    char const* p = text.data();
    std::size_t const length = text.size();
    std::uint64_t hash = Seed() + length * kMultiplier;
    if (length >= 8) {
        char const* const last = p + length - 8;
        for (; p < last; p += 8)
            hash = Mix(hash, WordAt<std::uint64_t>(p));
        return Mix(hash, WordAt<std::uint64_t>(last));
    }
    if (length >= 4)
        return Mix(hash, WordAt<std::uint32_t>(p) << 32U | WordAt<std::uint32_t>(p + length - 4));
    if (length == 0)
        return hash;
    return Mix(hash, WordAt<std::uint8_t>(p) << 16U | WordAt<std::uint8_t>(p + length / 2) << 8U |
                         WordAt<std::uint8_t>(p + length - 1));
}

std::uint64_t IndexMap::Hash(QName const& name, std::uint64_t namespaceHash) noexcept {
    return Mix(Mix(namespaceHash, Hash(name.localName)), Hash(name.prefix));
}

std::uint32_t IndexMap::Find(std::string_view text, std::uint64_t hash) const noexcept {
    return FindKey(text, hash);
}

std::uint32_t IndexMap::Find(QName const& name, std::uint64_t hash) const noexcept {
    return FindKey(name, hash);
}

template <class Key>
std::uint32_t IndexMap::FindKey(Key const& key, std::uint64_t hash) const noexcept {
    if (m_slots.empty())
        return 0;
    std::size_t const mask = m_slots.size() - 1;
    std::uint32_t const shortHash = static_cast<std::uint32_t>(hash);
    for (std::size_t at = hash & mask; m_slots[at].index != 0; at = (at + 1) & mask) {
        if (m_slots[at].hash != shortHash)
            continue;
        std::string_view const text = GetText(m_slots[at].index);
        if (Equals(key, text.data(), text.size()))
            return m_slots[at].index;
    }
    return 0;
}

std::string_view IndexMap::GetText(std::uint32_t index) const noexcept {
    std::size_t const begin = index == 1 ? 0 : m_ends[index - 2];
    return std::string_view(m_texts).substr(begin, m_ends[index - 1] - begin);
}

void IndexMap::Add(std::string_view text, std::uint64_t hash) {
    if (GetCount() == kMostEntries)
        return;
    m_texts += text;
    AddEnd(hash);
}

void IndexMap::Add(QName const& name, std::uint64_t hash) {
    if (GetCount() == kMostEntries)
        return;
    m_texts += name.localName;
    m_texts += kSeparator;
    m_texts += name.namespaceName;
    m_texts += kSeparator;
    m_texts += name.prefix;
    AddEnd(hash);
}

void IndexMap::AddEnd(std::uint64_t hash) {
    if (2 * m_ends.size() >= m_slots.size())
        Grow();
    m_ends.push_back(m_texts.size());
    Enter({static_cast<std::uint32_t>(hash), GetCount()});
}

void IndexMap::Enter(Slot slot) noexcept {
    std::size_t const mask = m_slots.size() - 1;
    std::size_t at = slot.hash & mask;
    while (m_slots[at].index != 0)
        at = (at + 1) & mask;
    m_slots[at] = slot;
}

void IndexMap::Grow() {
    std::vector<Slot> const old = std::move(m_slots);
    m_slots.assign(old.empty() ? kFirstSlots : 4 * old.size(), Slot{0, 0});
    for (Slot const& slot : old) {
        if (slot.index != 0)
            Enter(slot);
    }
}

IndexMaps::IndexMaps() {
    prefixNames.Add("xml", IndexMap::Hash("xml"));
    namespaceNames.Add(kXmlNamespace, IndexMap::Hash(kXmlNamespace));
}

} // namespace detail
} // namespace ZvXmlLib16
