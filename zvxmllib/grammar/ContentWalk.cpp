#include "zvxmllib/grammar/ContentWalk.h"

#include "zvxmllib/grammar/ContentSearch.h"
#include "zvxmllib/grammar/LexicalForms.h"

#include <algorithm>

namespace ZvXmlLib16::grammar {

namespace {

constexpr std::size_t kMostExpected = 5; // names in a message
constexpr unsigned kMostDepth = 20;

} // namespace

bool ContentWalk::Walk(std::uint32_t particle, ElementName const* names, std::size_t count,
                       ContentFault& fault) {
    m_names = names;
    m_count = count;
    m_current = 0;
    m_message.clear();
    m_skipped.clear();
    if (particle != kNone && m_grammar.IsAmbiguous(particle)) {
        ContentSearch search(m_grammar, names, count);
        if (search.Find(particle)) {
            search.Report(m_receiver);
            return true;
        }
    }
    bool const fits = particle == kNone || Take(particle);
    if (fits && IsAtEnd())
        return true;
    if (fits)
        Miss(kNone);
    fault.child = m_current;
    fault.message = m_message;
    return false;
}

void ContentWalk::Advance() {
    m_skipped.clear();
    ++m_current;
}

// As many occurrences as there are. False with m_message if there are not enough.
bool ContentWalk::Take(std::uint32_t particle) {
    ParticleRow const& row = m_grammar.GetRows().particles[particle];
    if (row.kind == ParticleKind::kElement)
        return TakeElements(particle, row);
    std::uint32_t count = 0;
    while (count < row.maxOccurs && CanBegin(row)) {
        std::size_t const before = m_current;
        if (row.kind == ParticleKind::kWildcard) {
            m_receiver.OnWildcard(m_current, particle);
            Advance();
        } else {
            m_receiver.OnGroupBegin(particle);
            bool const isDone = TakeOnce(particle);
            m_receiver.OnGroupEnd(particle);
            if (!isDone)
                return false;
        }
        ++count;
        if (m_current == before)
            break;
    }
    if (count < row.maxOccurs)
        m_skipped.push_back(particle);
    return count >= row.minOccurs || m_grammar.IsEmptiable(row) || Miss(particle);
}

bool ContentWalk::TakeElements(std::uint32_t particle, ParticleRow const& row) {
    std::uint32_t count = 0;
    for (; count < row.maxOccurs && !IsAtEnd(); ++count) {
        std::uint32_t const declaration = m_grammar.Accept(row.first, Name().symbol);
        if (declaration == kNone)
            break;
        m_receiver.OnElement(m_current, particle, declaration);
        Advance();
    }
    if (count < row.maxOccurs)
        m_skipped.push_back(particle);
    return count >= row.minOccurs || Miss(particle);
}

bool ContentWalk::TakeOnce(std::uint32_t particle) {
    ParticleRow const& row = m_grammar.GetRows().particles[particle];
    if (row.kind == ParticleKind::kAll)
        return TakeAll(row);
    if (row.kind == ParticleKind::kChoice) {
        std::uint32_t const child = IsAtEnd() ? kNone : m_grammar.ChildFor(row, Name());
        return child == kNone || Take(child);
    }
    for (std::uint32_t child = row.first; child < row.first + row.count; ++child) {
        if (!Take(child))
            return false;
    }
    return true;
}

bool ContentWalk::TakeAll(ParticleRow const& group) {
    std::vector<bool> isTaken(group.count, false);
    while (!IsAtEnd()) {
        std::uint32_t const child = m_grammar.ChildFor(group, Name());
        if (child == kNone || isTaken[child - group.first])
            break;
        isTaken[child - group.first] = true;
        if (!Take(child))
            return false;
    }
    for (std::uint32_t i = 0; i < group.count; ++i) {
        if (!isTaken[i] && !m_grammar.IsEmptiable(m_grammar.GetRows().particles[group.first + i]))
            return Miss(group.first + i);
    }
    return true;
}

// The message for the current child, or the end, where the particle is due or, for kNone, nothing is.
bool ContentWalk::Miss(std::uint32_t particle) {
    std::vector<std::string> names;
    for (std::uint32_t const skipped : m_skipped)
        AddExpected(skipped, names, 0);
    if (particle != kNone)
        AddExpected(particle, names, 0);
    m_message = IsAtEnd() ? std::string("An element is missing")
                          : "The element " + Quote(Name().name) + " is not expected here";
    for (std::size_t i = 0; i < names.size(); ++i)
        m_message += (i == 0 ? "; expected is " : " or ") + names[i];
    m_message += ".";
    return false;
}

// The names that a particle begins with.
void ContentWalk::AddExpected(std::uint32_t particle, std::vector<std::string>& names, unsigned depth) const {
    if (names.size() >= kMostExpected || depth == kMostDepth)
        return;
    ParticleRow const& row = m_grammar.GetRows().particles[particle];
    if (row.kind == ParticleKind::kElement || row.kind == ParticleKind::kWildcard) {
        std::string const name = row.kind == ParticleKind::kElement
                                     ? Quote(m_grammar.GetRows().elements[row.first].name)
                                     : "an element of another namespace";
        if (std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
        return;
    }
    for (std::uint32_t child = row.first; child < row.first + row.count; ++child) {
        AddExpected(child, names, depth + 1);
        if (row.kind == ParticleKind::kSequence &&
            !m_grammar.IsEmptiable(m_grammar.GetRows().particles[child]))
            return;
    }
}

} // namespace ZvXmlLib16::grammar
