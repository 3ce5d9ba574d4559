// The names of a document's elements as symbols of a grammar.
#pragma once

#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/grammar/Grammar.h"

#include <cstddef>
#include <string>

namespace ZvXmlLib16::grammar {

// Belongs to one document.
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

} // namespace ZvXmlLib16::grammar
