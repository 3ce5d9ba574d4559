// The way of child elements through a content model.
#pragma once

#include "zvxmllib/grammar/Grammar.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ZvXmlLib16::grammar {

// Told of each child as it is placed, by its index. `particle` is the index of the particle that took it.
class IContentReceiver {
public:
    virtual void OnElement(std::size_t child, std::uint32_t particle, std::uint32_t declaration) = 0;
    virtual void OnWildcard(std::size_t child, std::uint32_t particle) = 0;
    // Around each occurrence of a group.
    virtual void OnGroupBegin(std::uint32_t particle) = 0;
    virtual void OnGroupEnd(std::uint32_t particle) = 0;

protected:
    ~IContentReceiver() = default;
};

// For a walk that only asks whether the content fits.
class NoContentReceiver : public IContentReceiver {
public:
    void OnElement(std::size_t, std::uint32_t, std::uint32_t) override {}
    void OnWildcard(std::size_t, std::uint32_t) override {}
    void OnGroupBegin(std::uint32_t) override {}
    void OnGroupEnd(std::uint32_t) override {}
};

// Where the way ends before the content does, or without what must follow.
struct ContentFault {
    std::size_t child = 0; // the one that fits nowhere; their count where something is missing at the end
    std::string message;
};

// Content models are deterministic (Part 1, 3.8.6), so one step of foresight finds the way, in time
// proportional to the children.
class ContentWalk {
public:
    // All are borrowed. Walks that do not overlap can share `room`.
    ContentWalk(Grammar const& grammar, IContentReceiver& receiver, std::vector<std::uint32_t>& room) noexcept
        : m_grammar(grammar), m_receiver(receiver), m_skipped(room) {}

    // Places all children, of which `names` is borrowed. False, with the fault, if they do not fit; those
    // ahead of it have been placed.
    bool Walk(std::uint32_t particle, ElementName const* names, std::size_t count, ContentFault& fault);

private:
    bool Take(std::uint32_t particle);
    bool TakeElements(std::uint32_t particle, ParticleRow const& row);
    bool TakeOnce(std::uint32_t particle);
    bool TakeAll(ParticleRow const& group);
    void Advance();
    bool IsAtEnd() const noexcept { return m_current == m_count; }
    bool CanBegin(ParticleRow const& row) const noexcept {
        return !IsAtEnd() && m_grammar.Begins(row, Name());
    }
    ElementName const& Name() const noexcept { return m_names[m_current]; }
    bool Miss(std::uint32_t particle);
    void AddExpected(std::uint32_t particle, std::vector<std::string>& names, unsigned depth) const;

    Grammar const& m_grammar;
    IContentReceiver& m_receiver;
    ElementName const* m_names = nullptr;
    std::size_t m_count = 0;
    std::size_t m_current = 0;
    std::vector<std::uint32_t>& m_skipped; // particles that could have taken the current child
    std::string m_message;
};

} // namespace ZvXmlLib16::grammar
