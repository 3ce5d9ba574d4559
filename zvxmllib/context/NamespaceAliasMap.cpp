// CNamespaceAliasMap, namespace URI to alias.
#include "zvxmllib/context/NamespaceAliasMap.h"

#include "zvxmllib/context/Failures.h"
#include "zvxmllib/foundation/TextOrEmpty.h"

#include <algorithm>
#include <iterator>

namespace ZvXmlLib16 {

namespace {

std::map<std::string, std::string>::const_iterator
FindAlias(std::map<std::string, std::string> const& aliases, char const* alias) {
    return std::find_if(
        aliases.begin(), aliases.end(),
        [text = detail::TextOrEmpty(alias)](auto const& entry) { return entry.second == text; });
}

} // namespace

CNamespaceAliasMap::CNamespaceAliasMap() = default;
CNamespaceAliasMap::CNamespaceAliasMap(CNamespaceAliasMap const&) = default;
CNamespaceAliasMap& CNamespaceAliasMap::operator=(CNamespaceAliasMap const&) = default;
CNamespaceAliasMap::~CNamespaceAliasMap() = default;

void CNamespaceAliasMap::Add(char const* alias, char const* ns) {
    m_aliases[detail::TextOrEmpty(ns)] = detail::TextOrEmpty(alias);
}

void CNamespaceAliasMap::RemoveNamespace(char const* ns) {
    m_aliases.erase(detail::TextOrEmpty(ns));
}

// Callers rely on the entry that this leaves behind.
std::string CNamespaceAliasMap::GetAliasFromNamespace(char const* ns) {
    return m_aliases[detail::TextOrEmpty(ns)];
}

std::string CNamespaceAliasMap::GetNamespaceFromAlias(char const* alias) {
    auto const found = FindAlias(m_aliases, alias);
    if (found == m_aliases.end())
        FailAliasNotFound(detail::TextOrEmpty(alias));
    return found->first;
}

bool CNamespaceAliasMap::DoesNamespaceExist(char const* ns) const {
    return m_aliases.count(detail::TextOrEmpty(ns)) != 0;
}

bool CNamespaceAliasMap::DoesAliasExist(char const* alias) const {
    return FindAlias(m_aliases, alias) != m_aliases.end();
}

int CNamespaceAliasMap::GetNamespaceCount() const {
    return static_cast<int>(m_aliases.size());
}

std::string CNamespaceAliasMap::GetNamespaceAt(int index) {
    return std::next(m_aliases.begin(), index)->first;
}

} // namespace ZvXmlLib16
