#include "zvxmllib/writers/PrefixesInForce.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/Failures.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace ZvXmlLib16 {

PrefixesInForce::PrefixesInForce() {
    At("xml").ns = kXmlNamespace;
}

PrefixesInForce::Bindings::value_type& PrefixesInForce::Entry(std::string_view prefix) {
    auto const found = m_bindings.find(prefix);
    return found != m_bindings.end() ? *found : *m_bindings.emplace(prefix, Binding()).first;
}

PrefixesInForce::Binding& PrefixesInForce::Declare(std::string_view prefix, std::string const& ns,
                                                   std::int32_t depth) {
    auto& [name, binding] = Entry(prefix);
    m_hidden.push_back({depth, name, std::move(binding.ns)});
    binding.ns = ns;
    return binding;
}

bool PrefixesInForce::IsNew(std::string const& alias, std::string const& ns) {
    if (alias.empty()) // counts as none
        return false;
    std::string const& known = At(alias).ns;
    if (!known.empty() && known != ns)
        FailAliasOfTwo(alias, known, ns);
    return known.empty();
}

void PrefixesInForce::EndElement(std::int32_t depth) {
    for (; !m_hidden.empty() && m_hidden.back().depth == depth; m_hidden.pop_back())
        At(m_hidden.back().prefix).ns = std::move(m_hidden.back().ns);
}

void KeptDeclarations::ReplaceGiven(CXmlWriter::NamespaceMap& aliases, std::string& defaultNamespace) {
    if (m_next.empty())
        return;
    std::set<std::string_view> own;
    for (Declaration const& declaration : m_next)
        own.insert(declaration.alias);
    if (own.count({}) != 0)
        defaultNamespace.clear();
    for (auto given = aliases.begin(); given != aliases.end();)
        given = own.count(given->second) != 0 ? aliases.erase(given) : std::next(given);
}

void KeptDeclarations::DropRepeated() {
    if (m_next.size() < 2)
        return;
    std::map<std::string, std::string> known;
    auto const isKnown = [&known](Declaration const& declaration) {
        auto const [entry, isNew] = known.emplace(declaration.alias, declaration.ns);
        if (entry->second != declaration.ns)
            FailAliasOfTwo(declaration.alias, entry->second, declaration.ns);
        return !isNew;
    };
    m_next.erase(std::remove_if(m_next.begin(), m_next.end(), isKnown), m_next.end());
}

// An alias that gets another meaning is none for its old one.
std::vector<KeptDeclarations::Declaration> const&
KeptDeclarations::Enter(CXmlWriter::CXmlWriterContext& context, std::string const& elementNs,
                        PrefixesInForce& inForce) {
    m_entered.clear();
    DropRepeated();
    for (Declaration& declaration : m_next) {
        auto const& [alias, ns] = declaration;
        bool const movesElement = alias.empty() && !ns.empty() && elementNs.empty();
        if (movesElement || (alias.empty() ? context.GetDefaultNamespace() : inForce.At(alias).ns) == ns)
            continue;
        if (alias.empty()) {
            context.SetDefaultNamespace(ns);
        } else {
            std::string const& before = inForce.At(alias).ns;
            std::string const* const aliasBefore = context.FindAlias(before);
            if (aliasBefore != nullptr && *aliasBefore == alias)
                context.SetNamespaceMapValue(before, {});
            context.SetNamespaceMapValue(ns, alias);
        }
        m_entered.push_back(std::move(declaration));
    }
    m_next.clear();
    return m_entered;
}

} // namespace ZvXmlLib16
