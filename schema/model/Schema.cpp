#include "schema/model/Schema.h"

namespace ZvXmlLib16::schema {

namespace {

template <class Row>
grammar::Rows<Row> RowsOf(std::vector<Row> const& rows) noexcept {
    return {rows.data(), rows.size()};
}

} // namespace

char const* Schema::Keep(std::string const& text) {
    auto const known = m_known.find(text);
    if (known != m_known.end())
        return known->second;
    m_kept.push_back(text);
    std::string const& kept = m_kept.back();
    m_known.emplace(kept, kept.c_str());
    return kept.c_str();
}

std::uint32_t Schema::HashRows(RowCounts const& counts) const {
    std::uint32_t hash = 2166136261U;
    auto const add = [&hash](std::string const& text) {
        for (char const c : text)
            hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
        hash = (hash ^ 0xFFU) * 16777619U;
    };
    for (std::uint32_t i = 0; i < counts.elements; ++i) {
        for (char const* const text : {elements[i].name, elements[i].ns})
            add(text);
        add(std::to_string(elements[i].type));
    }
    for (std::uint32_t i = 0; i < counts.complexTypes; ++i) {
        grammar::ComplexTypeRow const& row = complexTypes[i];
        for (char const* const text : {row.name, row.ns})
            add(text);
        add(std::to_string(row.base) + " " + std::to_string(row.attributes.first));
        for (std::uint32_t use = 0; use < row.attributes.count; ++use) {
            add(attributes[row.attributes.first + use].name);
            add(attributes[row.attributes.first + use].ns);
        }
    }
    return hash;
}

grammar::GrammarRows Schema::GetRows() const noexcept {
    grammar::GrammarRows rows;
    rows.simpleTypes = RowsOf(simpleTypes);
    rows.facets = RowsOf(facets);
    rows.complexTypes = RowsOf(complexTypes);
    rows.elements = RowsOf(elements);
    rows.attributes = RowsOf(attributes);
    rows.wildcards = RowsOf(wildcards);
    rows.particles = RowsOf(particles);
    rows.identities = RowsOf(identities);
    rows.indexes = RowsOf(indexes);
    rows.texts = RowsOf(texts);
    rows.globalAttributes = globalAttributes;
    rows.notations = RowsOf(notations);
    return rows;
}

} // namespace ZvXmlLib16::schema
