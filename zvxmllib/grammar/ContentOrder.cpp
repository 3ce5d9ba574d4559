#include "zvxmllib/grammar/ContentOrder.h"

#include <unordered_map>

namespace ZvXmlLib16::grammar {

ContentOrders::ContentOrders(Grammar const& grammar)
    : m_grammar(grammar), m_known(new Known[grammar.GetRows().complexTypes.count + 1]()) {}

std::vector<ContentEntry> const& ContentOrders::Of(TypeId type) const {
    if (!IsComplex(type))
        return Make(type);
    Known& known = m_known[static_cast<std::size_t>(kAnyType - type)];
    Entries const* entries = known.load(std::memory_order_acquire);
    if (entries == nullptr) {
        entries = &Make(type);
        known.store(entries, std::memory_order_release);
    }
    return *entries;
}

ContentOrders::Entries const& ContentOrders::Make(TypeId type) const {
    std::lock_guard<std::recursive_mutex> const lock(m_lock);
    auto const known = m_types.find(type);
    if (known != m_types.end())
        return known->second;
    Entries entries;
    if (type == kAnyType)
        entries.push_back({kNone, kNone, true, true});
    else if (IsComplex(type)) {
        std::uint32_t const particle = m_grammar.GetRows().complexTypes[ComplexTypeRowOf(type)].particle;
        if (particle != kNone)
            entries = OfParticle(particle);
    }
    return m_types.emplace(type, std::move(entries)).first->second;
}

ContentOrders::Entries ContentOrders::OfParticle(std::uint32_t particle) const {
    ParticleRow const& row = m_grammar.GetRows().particles[particle];
    Entries entries;
    if (row.kind == ParticleKind::kElement)
        entries.push_back({m_grammar.SymbolOf(row.first), row.first, false, false});
    else if (row.kind == ParticleKind::kWildcard)
        entries.push_back({kNone, kNone, false, false});
    else
        entries = OfGroup(row);
    for (ContentEntry& entry : entries) {
        entry.isRepeatable = entry.isRepeatable || row.maxOccurs > 1;
        if (row.maxOccurs > 1)
            entry.laterBehind.clear();
        entry.isOptional = entry.isOptional || row.minOccurs == 0;
        if (row.kind == ParticleKind::kChoice && row.maxOccurs > 1)
            entry.choice = particle;
    }
    return entries;
}

namespace {

// `part` comes once more, behind `last`.
void AddLaterPlace(ContentEntry& entry, ContentEntry const& part, bool isChoice, Symbol last) {
    auto const isOnceAPlace = [](ContentEntry const& of) {
        return !of.isRepeatable || !of.laterBehind.empty();
    };
    if (isChoice || !isOnceAPlace(entry) || !isOnceAPlace(part)) {
        entry.laterBehind.clear();
        return;
    }
    entry.laterBehind.push_back(last);
    entry.laterBehind.insert(entry.laterBehind.end(), part.laterBehind.begin(), part.laterBehind.end());
}

} // namespace

// One occurrence of the group.
ContentOrders::Entries const& ContentOrders::OfGroup(ParticleRow const& group) const {
    Key const key{group.first, group.count, group.kind};
    auto const known = m_groups.find(key);
    if (known != m_groups.end())
        return known->second;
    bool const isChoice = group.kind == ParticleKind::kChoice;
    Entries entries;
    std::unordered_map<Symbol, std::size_t> places;
    std::vector<std::uint32_t> branches; // of an entry: how many branches of the choice have it for certain
    for (std::uint32_t child = group.first; child < group.first + group.count; ++child) {
        for (ContentEntry const& part : OfParticle(child)) {
            auto const [place, isNew] = places.try_emplace(part.symbol, entries.size());
            if (isNew) {
                entries.push_back(part);
                branches.push_back(part.isOptional ? 0 : 1);
                continue;
            }
            ContentEntry& entry = entries[place->second];
            AddLaterPlace(entry, part, isChoice, entries.back().symbol);
            entry.isRepeatable = entry.isRepeatable || part.isRepeatable || !isChoice;
            entry.isOptional = entry.isOptional && part.isOptional;
            if (entry.choice != part.choice)
                entry.choice = kNone;
            branches[place->second] += part.isOptional ? 0 : 1;
        }
    }
    for (std::size_t i = 0; isChoice && i < entries.size(); ++i)
        entries[i].isOptional = branches[i] < group.count;
    return m_groups.emplace(key, std::move(entries)).first->second;
}

} // namespace ZvXmlLib16::grammar
