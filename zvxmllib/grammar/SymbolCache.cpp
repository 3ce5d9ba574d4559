#include "zvxmllib/grammar/SymbolCache.h"

#include <cstdint>

namespace ZvXmlLib16::grammar {

ElementName SymbolCache::NameOf(CXmlElement const& element) {
    std::string const& name = element.GetLocalName();
    std::string const& ns = element.GetNamespaceURI();
    Entry& entry = m_entries[(reinterpret_cast<std::uintptr_t>(&name) >> 4) % kEntries];
    if (entry.name != &name || entry.ns != &ns)
        entry = {&name, &ns, m_grammar.FindSymbol(name, ns)};
    return {entry.symbol, name, ns};
}

} // namespace ZvXmlLib16::grammar
