#include "zvxmllib/fastinfoset/IndexMap.h"

#include "zvxmllib/fastinfoset/NameText.h"
#include "zvxmllib/foundation/XmlNamespaces.h"

namespace ZvXmlLib16 {
namespace detail {

namespace {

constexpr std::size_t kFirstSlots = 32;
constexpr std::size_t kTextOfSlot = 4; // bytes, a guess
constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15U;

// Differs between processes if addresses do, so that nobody can prepare texts that share a slot.
std::uint64_t Seed() noexcept {
    return reinterpret_cast<std::uintptr_t>(&kMultiplier);
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) noexcept {
    hash = (hash ^ word) * kMultiplier;
    return hash ^ hash >> 32U;
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

std::uint64_t IndexMap::Hash(QName const& name) noexcept {
    return Mix(Mix(Hash(name.localName), Hash(name.namespaceName)), Hash(name.prefix));
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
        if (Equals(key, GetText(m_slots[at].index)))
            return m_slots[at].index;
    }
    return 0;
}

void IndexMap::Add(std::string_view text, std::uint64_t hash) {
    if (!MakeRoom())
        return;
    m_texts += text;
    AddEnd(hash);
}

void IndexMap::Add(QName const& name, std::uint64_t hash) {
    if (!MakeRoom())
        return;
    m_texts += name.localName;
    m_texts += kNameSeparator;
    m_texts += name.namespaceName;
    m_texts += kNameSeparator;
    m_texts += name.prefix;
    AddEnd(hash);
}

// False if the map is full.
bool IndexMap::MakeRoom() {
    if (GetCount() == kMostEntries)
        return false;
    if (2 * m_ends.size() >= m_slots.size())
        Grow();
    return true;
}

void IndexMap::AddEnd(std::uint64_t hash) {
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
    m_slots.resize(old.empty() ? kFirstSlots : 4 * old.size());
    m_ends.reserve(m_slots.size() / 2);
    m_texts.reserve(kTextOfSlot * m_slots.size());
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
