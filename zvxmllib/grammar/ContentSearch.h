// All ways through a content model, for the few models in which one step of foresight is not enough.
#pragma once

#include "zvxmllib/grammar/ContentWalk.h"
#include "zvxmllib/grammar/Grammar.h"

#include <cstdint>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace ZvXmlLib16::grammar {

// Finds a way of the children through a particle by where its parts can end. Gives up beyond a bound on the
// work.
class ContentSearch {
public:
    // Both are borrowed.
    ContentSearch(Grammar const& grammar, ElementName const* names, std::size_t count) noexcept
        : m_grammar(grammar), m_names(names), m_count(count) {}

    // Whether there is a way that takes all children.
    bool Find(std::uint32_t particle);
    // Tells of the way found.
    void Report(IContentReceiver& receiver) const;

private:
    enum class What { kTake, kBegin, kEnd };
    struct Step {
        What what;
        std::uint32_t particle;
        std::size_t child;
    };
    using Ends = std::set<std::size_t>;
    using Key = std::pair<std::uint32_t, std::size_t>;

    ParticleRow const& RowOf(std::uint32_t particle) const { return m_grammar.GetRows().particles[particle]; }
    std::uint32_t LeastOf(ParticleRow const& row) const noexcept {
        return m_grammar.IsEmptiable(row) ? 0 : row.minOccurs;
    }
    bool CountWork() noexcept { return ++m_work <= kMostWork; }
    Ends const& EndsOf(std::uint32_t particle, std::size_t start);
    Ends const& OnceEndsOf(std::uint32_t particle, std::size_t start);
    bool Derive(std::uint32_t particle, std::size_t start, std::size_t end);
    bool DeriveFrom(std::uint32_t particle, std::size_t count, std::size_t start, std::size_t end,
                    std::set<std::pair<std::size_t, std::size_t>>& failed);
    bool DeriveOnce(std::uint32_t particle, std::size_t start, std::size_t end);
    bool DeriveSequence(std::uint32_t child, std::uint32_t last, std::size_t start, std::size_t end,
                        std::set<std::pair<std::size_t, std::size_t>>& failed);

    static constexpr std::size_t kMostWork = 300000;

    Grammar const& m_grammar;
    ElementName const* m_names;
    std::size_t m_count;
    std::map<Key, Ends> m_ends;
    std::map<Key, Ends> m_onceEnds;
    std::vector<Step> m_steps;
    std::size_t m_work = 0;
};

} // namespace ZvXmlLib16::grammar
