// The way of the children of an element through a content model.
#pragma once

#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/grammar/Grammar.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ZvXmlLib16::grammar {

// Told of each child as it is placed. `particle` is the index of the particle that took it.
class IContentReceiver {
public:
    virtual void OnElement(CXmlElement& child, std::uint32_t particle, std::uint32_t declaration) = 0;
    virtual void OnWildcard(CXmlElement& child, std::uint32_t particle) = 0;
    // Around each occurrence of a group.
    virtual void OnGroupBegin(std::uint32_t particle) = 0;
    virtual void OnGroupEnd(std::uint32_t particle) = 0;

protected:
    ~IContentReceiver() = default;
};

// The names of a document's elements as symbols of a grammar. Belongs to one document.
class SymbolCache {
public:
    explicit SymbolCache(Grammar const& grammar) noexcept : m_grammar(grammar) {}
    ElementName NameOf(CXmlElement const& element);

private:
    struct Entry {
        std::string const* name = nullptr; // the document keeps each name once
        std::string const* ns = nullptr;
        Symbol symbol = kNone;
    };
    static constexpr std::size_t kEntries = 256;

    Grammar const& m_grammar;
    Entry m_entries[kEntries];
};

// Where the way ends before the content does, or without what must follow.
struct ContentFault {
    CXmlElement* child = nullptr; // the one that fits nowhere; null where something is missing at the end
    std::string message;
};

// Content models are deterministic (Part 1, 3.8.6), so one step of foresight finds the way, in time
// proportional to the children.
class ContentWalk {
public:
    // All are borrowed.
    ContentWalk(Grammar const& grammar, SymbolCache& symbols, IContentReceiver& receiver) noexcept
        : m_grammar(grammar), m_symbols(symbols), m_receiver(receiver) {}

    // Places all children from `first` on. False, with the fault, if they do not fit; those ahead of the
    // fault have been placed.
    bool Walk(std::uint32_t particle, CXmlElement* first, ContentFault& fault);

private:
    bool Take(std::uint32_t particle);
    bool TakeOnce(std::uint32_t particle);
    bool TakeAll(ParticleRow const& group);
    void Advance();
    bool CanBegin(ParticleRow const& row) const noexcept {
        return m_current != nullptr && m_grammar.Begins(row, m_name);
    }
    bool Miss(std::uint32_t particle);
    void AddExpected(std::uint32_t particle, std::vector<std::string>& names, unsigned depth) const;

    Grammar const& m_grammar;
    SymbolCache& m_symbols;
    IContentReceiver& m_receiver;
    CXmlElement* m_current = nullptr;
    ElementName m_name{};
    std::vector<std::uint32_t> m_skipped; // particles that could have taken the current child
    std::string m_message;
};

} // namespace ZvXmlLib16::grammar
