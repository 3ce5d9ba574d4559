// Where schema documents lie. Nothing is ever fetched from a network.
#pragma once

#include "schema/diagnostics/Diagnostics.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace ZvXmlLib16::schema {

// Says which file a location means: the mappings of the user first, then OASIS XML catalogs (1.1: uri,
// system, public, rewriteURI, rewriteSystem, group, nextCatalog), then the location itself, which is a file:
// URI or a path from the folder of the document that names it.
class SchemaFiles {
public:
    // `from` is a URI, a location as it is written, or a namespace.
    void Map(std::string from, std::string file);
    // Tells errors of a catalog that cannot be used.
    void AddCatalog(std::string const& file, Diagnostics& diagnostics);

    // The path of the file; none if there is no such regular file. `location` may be empty.
    std::optional<std::string> Find(std::string const& ns, std::string const& location,
                                    std::string const& base) const;

    // The whole file; none if it cannot be read or is no regular file.
    static std::optional<std::string> Read(std::string const& file);

private:
    void AddCatalog(std::string const& file, Diagnostics& diagnostics, unsigned depth);
    std::string const* FindMapped(std::string const& from) const;

    std::map<std::string, std::string> m_mapped; // of the user
    std::map<std::string, std::string> m_catalog;
    std::set<std::string> m_catalogFiles;                        // read already
    std::vector<std::pair<std::string, std::string>> m_rewrites; // start of a URI, what replaces it
};

} // namespace ZvXmlLib16::schema
