// CNamespaceAliasMap, namespace URI to alias.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <map>
#include <string>

namespace ZvXmlLib16 {

// Ordered by the bytes of the URI. A namespace has one alias; two namespaces may have the same one.
class ZV_API CNamespaceAliasMap {
public:
    CNamespaceAliasMap();
    CNamespaceAliasMap(CNamespaceAliasMap const&);
    CNamespaceAliasMap& operator=(CNamespaceAliasMap const&);
    virtual ~CNamespaceAliasMap();

    // The alias comes first. Replaces an earlier alias of the namespace.
    void Add(char const* alias, char const* ns);
    void RemoveNamespace(char const* ns);
    // Empty for an unknown namespace, for which it leaves an entry with an empty alias in the map.
    std::string GetAliasFromNamespace(char const* ns);
    // The smallest namespace with this alias; throws CZvException if there is none.
    std::string GetNamespaceFromAlias(char const* alias);
    bool DoesNamespaceExist(char const* ns) const;
    bool DoesAliasExist(char const* alias) const;
    int GetNamespaceCount() const;
    // `index` from 0, below the count, in the order of the URIs.
    std::string GetNamespaceAt(int index);

    // The entries themselves, for iteration.
    std::map<std::string, std::string> const& GetEntries() const noexcept { return m_aliases; }

private:
    std::map<std::string, std::string> m_aliases;
};

} // namespace ZvXmlLib16
