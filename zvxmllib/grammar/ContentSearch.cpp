#include "zvxmllib/grammar/ContentSearch.h"

namespace ZvXmlLib16::grammar {

bool ContentSearch::Find(std::uint32_t particle) {
    std::size_t const end = m_count;
    bool const isFound = EndsOf(particle, 0).count(end) != 0 && Derive(particle, 0, end);
    return isFound && m_work <= kMostWork;
}

void ContentSearch::Report(IContentReceiver& receiver) const {
    for (Step const& step : m_steps) {
        ParticleRow const& row = RowOf(step.particle);
        if (step.what == What::kBegin)
            receiver.OnGroupBegin(step.particle);
        else if (step.what == What::kEnd)
            receiver.OnGroupEnd(step.particle);
        else if (row.kind == ParticleKind::kWildcard)
            receiver.OnWildcard(step.child, step.particle);
        else
            receiver.OnElement(step.child, step.particle,
                               m_grammar.Accept(row.first, m_names[step.child].symbol));
    }
}

// Where the particle, begun at a child, can end.
ContentSearch::Ends const& ContentSearch::EndsOf(std::uint32_t particle, std::size_t start) {
    auto const known = m_ends.find({particle, start});
    if (known != m_ends.end())
        return known->second;
    ParticleRow const& row = RowOf(particle);
    std::uint32_t const least = LeastOf(row);
    Ends ends;
    Ends current{start};
    for (std::size_t count = 0; !current.empty() && count <= m_count + least; ++count) {
        if (count >= least)
            ends.insert(current.begin(), current.end());
        if (count >= row.maxOccurs)
            break;
        Ends next;
        for (std::size_t const at : current) {
            if (!CountWork())
                break;
            for (std::size_t const end : OnceEndsOf(particle, at)) {
                if (end != at) // an empty occurrence leads nowhere
                    next.insert(end);
            }
        }
        current = std::move(next);
    }
    return m_ends.emplace(Key{particle, start}, std::move(ends)).first->second;
}

ContentSearch::Ends const& ContentSearch::OnceEndsOf(std::uint32_t particle, std::size_t start) {
    auto const known = m_onceEnds.find({particle, start});
    if (known != m_onceEnds.end())
        return known->second;
    ParticleRow const& row = RowOf(particle);
    Ends ends;
    if (row.kind == ParticleKind::kElement || row.kind == ParticleKind::kWildcard) {
        if (start < m_count && m_grammar.Begins(row, m_names[start]))
            ends.insert(start + 1);
    } else if (row.kind == ParticleKind::kSequence) {
        ends.insert(start);
        for (std::uint32_t child = row.first; child < row.first + row.count && CountWork(); ++child) {
            Ends next;
            for (std::size_t const at : ends) {
                Ends const& more = EndsOf(child, at);
                next.insert(more.begin(), more.end());
            }
            ends = std::move(next);
        }
    } else {
        // An all group is no part of another group, and so never ambiguous.
        for (std::uint32_t child = row.first; child < row.first + row.count && CountWork(); ++child) {
            Ends const& more = EndsOf(child, start);
            ends.insert(more.begin(), more.end());
        }
    }
    return m_onceEnds.emplace(Key{particle, start}, std::move(ends)).first->second;
}

bool ContentSearch::Derive(std::uint32_t particle, std::size_t start, std::size_t end) {
    std::set<std::pair<std::size_t, std::size_t>> failed;
    return DeriveFrom(particle, 0, start, end, failed);
}

// The occurrences from the one with this number on. What fails leaves no steps.
bool ContentSearch::DeriveFrom(std::uint32_t particle, std::size_t count, std::size_t start, std::size_t end,
                               std::set<std::pair<std::size_t, std::size_t>>& failed) {
    ParticleRow const& row = RowOf(particle);
    if (start == end && count >= LeastOf(row))
        return true;
    if (count >= row.maxOccurs || failed.count({count, start}) != 0 || !CountWork())
        return false;
    Ends const ends = OnceEndsOf(particle, start);
    for (std::size_t const next : ends) {
        if (next == start || next > end)
            continue;
        std::size_t const steps = m_steps.size();
        if (DeriveOnce(particle, start, next) && DeriveFrom(particle, count + 1, next, end, failed))
            return true;
        m_steps.resize(steps);
    }
    failed.emplace(count, start);
    return false;
}

bool ContentSearch::DeriveOnce(std::uint32_t particle, std::size_t start, std::size_t end) {
    ParticleRow const& row = RowOf(particle);
    if (row.kind == ParticleKind::kElement || row.kind == ParticleKind::kWildcard) {
        m_steps.push_back({What::kTake, particle, start});
        return end == start + 1;
    }
    m_steps.push_back({What::kBegin, particle, start});
    bool isDone = false;
    if (row.kind == ParticleKind::kSequence) {
        std::set<std::pair<std::size_t, std::size_t>> failed;
        isDone = DeriveSequence(row.first, row.first + row.count, start, end, failed);
    } else {
        for (std::uint32_t child = row.first; child < row.first + row.count && !isDone; ++child)
            isDone = EndsOf(child, start).count(end) != 0 && Derive(child, start, end);
    }
    m_steps.push_back({What::kEnd, particle, start});
    return isDone;
}

bool ContentSearch::DeriveSequence(std::uint32_t child, std::uint32_t last, std::size_t start,
                                   std::size_t end, std::set<std::pair<std::size_t, std::size_t>>& failed) {
    if (child == last)
        return start == end;
    if (failed.count({child, start}) != 0 || !CountWork())
        return false;
    Ends const ends = EndsOf(child, start);
    for (std::size_t const next : ends) {
        std::size_t const steps = m_steps.size();
        if (next <= end && Derive(child, start, next) && DeriveSequence(child + 1, last, next, end, failed))
            return true;
        m_steps.resize(steps);
    }
    failed.emplace(child, start);
    return false;
}

} // namespace ZvXmlLib16::grammar
