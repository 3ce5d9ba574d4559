// The child elements of a complex type: which there can be, in what order, and how many.
#pragma once

#include "zvxmllib/grammar/Grammar.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <tuple>
#include <vector>

namespace ZvXmlLib16::grammar {

// The elements of one name.
struct ContentEntry {
    Symbol symbol = kNone;             // kNone for what wildcards take
    std::uint32_t declaration = kNone; // of the first particle
    bool isRepeatable = false;         // there can be several
    bool isOptional = false;           // there can be none
    std::uint32_t choice = kNone;      // the particle of the outermost repeatable choice that they are in
    // Where the name stands once in each of several places of a sequence (a, b, a): what the second one, and
    // all further ones, stand behind.
    std::vector<Symbol> laterBehind{};
};

// Made for one grammar; any number of threads may ask at once.
class ContentOrders {
public:
    // `grammar` is borrowed.
    explicit ContentOrders(Grammar const& grammar);

    // In the order of the schema. Empty for simple types; anyType has wildcards. Valid as long as this
    // object.
    std::vector<ContentEntry> const& Of(TypeId type) const;

private:
    using Entries = std::vector<ContentEntry>;
    using Known = std::atomic<Entries const*>;
    using Key = std::tuple<std::uint32_t, std::uint32_t, ParticleKind>;

    Entries const& Make(TypeId type) const;
    Entries OfParticle(std::uint32_t particle) const;
    Entries const& OfGroup(ParticleRow const& group) const;

    Grammar const& m_grammar;
    mutable std::recursive_mutex m_lock;
    mutable std::map<TypeId, Entries> m_types;
    // By complex type; null for what nobody has asked for. Those that are known are read without the lock.
    std::unique_ptr<Known[]> const m_known;
    mutable std::map<Key, Entries> m_groups;
};

} // namespace ZvXmlLib16::grammar
