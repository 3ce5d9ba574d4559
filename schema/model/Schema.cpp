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
