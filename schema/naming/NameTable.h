// The names that components were given before, so that they stay when the schema grows.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/naming/Names.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace ZvXmlLib16::schema {

// Components by their paths:
//
//   class type {urn:a}Party/{urn:a}contact = CPartyContact       an anonymous type within a named one
//   property type {urn:a}Party/@id = Id
//   enum type {urn:a}Unit = Unit
//   value type {urn:a}Unit="m/s" = MS
//   document {urn:a}party = Party
//
// As text, one line for each, sorted by the path; empty lines and those that begin with # count for nothing.
class NameTable {
public:
    // Errors have the line.
    void Read(std::string const& file, std::string_view text, Diagnostics& diagnostics);
    // All names that were read or taken.
    std::string Write() const;

    // The name that was read for this path. Otherwise the first free one that no component beside it was
    // given.
    std::string Take(NameScope& names, std::string const& path, std::string const& name,
                     char const* separator = "");
    // The name that was read, or null.
    std::string const* Find(std::string const& path) const;
    // Whether a component that this path stands beside was given the name.
    bool IsGiven(std::string const& path, std::string const& name) const;
    void Keep(std::string const& path, std::string const& name);

private:
    void ReadLine(std::string_view line, Position const& position, Diagnostics& diagnostics);

    std::map<std::string, std::string> m_given;
    std::set<std::pair<std::string, std::string>> m_givenBeside;
    std::map<std::string, std::string> m_all;
};

// The path of an enumerator: its text without what ends a line.
std::string PathOfValue(std::string const& enumeration, std::string_view text);

} // namespace ZvXmlLib16::schema
