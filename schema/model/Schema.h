// A schema with its components resolved, and where each of them stands in its source.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "zvxmllib/grammar/GrammarRows.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16::schema {

// Where a component comes from.
struct Source {
    Position position;
    std::string documentation;
};

// A model group as it is used: the name of the group definition that it refers to, empty for one in place.
struct GroupSource {
    Source source;
    std::string name;
    std::string ns;
};

// How many rows of each kind.
struct RowCounts {
    std::uint32_t simpleTypes = 0;
    std::uint32_t complexTypes = 0;
    std::uint32_t elements = 0;
};

// The rows of a grammar with what the schema tools need beyond them: vectors of the same length as the rows.
// Owns the texts. Rows stand in the order in which they were resolved; GlobalsInOrder gives that of the
// source.
class Schema {
public:
    Schema() = default;
    Schema(Schema const&) = delete;
    Schema& operator=(Schema const&) = delete;

    // A copy of the text that lives as long as the schema, once for equal ones.
    char const* Keep(std::string const& text);

    // The rows as they are now: valid until one is added.
    grammar::GrammarRows GetRows() const noexcept;

    std::vector<grammar::SimpleTypeRow> simpleTypes;
    std::vector<Source> simpleTypeSources;
    std::vector<grammar::FacetRow> facets;
    std::vector<Source> facetSources;
    std::vector<grammar::ComplexTypeRow> complexTypes;
    std::vector<Source> complexTypeSources;
    std::vector<grammar::ElementRow> elements;
    std::vector<Source> elementSources;
    std::vector<grammar::AttributeRow> attributes;
    std::vector<Source> attributeSources;
    std::vector<grammar::WildcardRow> wildcards;
    std::vector<grammar::ParticleRow> particles;
    std::vector<GroupSource> particleSources;
    std::vector<grammar::IdentityRow> identities;
    std::vector<std::uint32_t> indexes;
    std::vector<char const*> texts;
    grammar::Range globalAttributes;
    std::vector<char const*> notations;

    std::vector<std::string> targetNamespaces; // of the schemas of the user
    std::vector<std::uint32_t> globalElements; // in the order of the source
    std::vector<grammar::TypeId> globalTypes;
    // Global elements that documents begin with; without a list those of `targetNamespaces`.
    std::optional<std::vector<std::uint32_t>> documentElements;

    // Where the rows end that stand in sets generated before: these sets have rows of the same numbers. One
    // for each set, each with those ahead of it.
    std::vector<RowCounts> before;
    RowCounts CountForeign() const { return before.empty() ? RowCounts() : before.back(); }
    RowCounts CountAll() const {
        return {static_cast<std::uint32_t>(simpleTypes.size()),
                static_cast<std::uint32_t>(complexTypes.size()), static_cast<std::uint32_t>(elements.size())};
    }
    // Tells apart sets of rows that generated classes cannot share: the names and types of as many of them.
    std::uint32_t HashRows(RowCounts const& counts) const;

private:
    std::deque<std::string> m_kept;
    std::unordered_map<std::string_view, char const*> m_known;
};

} // namespace ZvXmlLib16::schema
