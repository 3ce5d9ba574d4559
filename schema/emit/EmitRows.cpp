#include "schema/emit/EmitRows.h"

#include "schema/emit/CppText.h"

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

std::string Number(std::uint32_t number) {
    return number == kNone ? "kNone" : std::to_string(number);
}

std::string Of(Range const& range) {
    return "{" + std::to_string(range.first) + ", " + std::to_string(range.count) + "}";
}

template <class Enumerator>
std::string Of(char const* type, Enumerator value) {
    return std::string(type) + "{" + std::to_string(static_cast<unsigned>(value)) + "}";
}

std::string Of(bool value) {
    return value ? "true" : "false";
}

// Appends the array and its entry in GrammarRows.
template <class Row, class ToText>
void EmitArray(std::string& text, std::string& entries, char const* type, char const* name,
               Rows<Row> const& rows, ToText toText) {
    if (rows.count == 0) {
        entries += "    {},\n";
        return;
    }
    text += std::string("constexpr ") + type + " " + name + "[] = {\n";
    for (Row const& row : rows)
        text += "    " + toText(row) + ",\n";
    text += "};\n\n";
    entries += std::string("    {") + name + ", " + std::to_string(rows.count) + "},\n";
}

std::string Join(std::initializer_list<std::string> parts) {
    std::string text = "{";
    for (std::string const& part : parts)
        text += (text.size() == 1 ? "" : ", ") + part;
    return text + "}";
}

} // namespace

std::string EmitRows(GrammarRows const& rows) {
    std::string text;
    std::string entries;
    EmitArray(text, entries, "SimpleTypeRow", "kSimpleTypes", rows.simpleTypes, [](SimpleTypeRow const& row) {
        return Join({Literal(row.name), Literal(row.ns), Of("Variety", row.variety), Number(row.base),
                     Number(row.item), Of(row.members), Of(row.facets), std::to_string(row.final_)});
    });
    EmitArray(text, entries, "FacetRow", "kFacets", rows.facets, [](FacetRow const& row) {
        return Join({Of("Facet", row.facet), Literal(row.value)});
    });
    EmitArray(text, entries, "ComplexTypeRow", "kComplexTypes", rows.complexTypes,
              [](ComplexTypeRow const& row) {
                  return Join({Literal(row.name), Literal(row.ns), std::to_string(row.base),
                               std::to_string(row.derivation), Of(row.isAbstract), std::to_string(row.block),
                               Of("Content", row.content), std::to_string(row.simpleType),
                               Number(row.particle), Of(row.attributes), Number(row.attributeWildcard)});
              });
    EmitArray(text, entries, "ElementRow", "kElements", rows.elements, [](ElementRow const& row) {
        return Join({Literal(row.name), Literal(row.ns), std::to_string(row.type), Of(row.isGlobal),
                     Of(row.isNillable), Of(row.isAbstract), Of("ValueConstraint", row.constraint),
                     Literal(row.value), std::to_string(row.block), Number(row.head), Of(row.identities)});
    });
    EmitArray(text, entries, "AttributeRow", "kAttributes", rows.attributes, [](AttributeRow const& row) {
        return Join({Literal(row.name), Literal(row.ns), std::to_string(row.type), Of(row.isRequired),
                     Of("ValueConstraint", row.constraint), Literal(row.value)});
    });
    EmitArray(text, entries, "WildcardRow", "kWildcards", rows.wildcards, [](WildcardRow const& row) {
        return Join({Of(row.isNegated), Of(row.namespaces), Of("ProcessContents", row.processContents)});
    });
    EmitArray(text, entries, "ParticleRow", "kParticles", rows.particles, [](ParticleRow const& row) {
        return Join({Of("ParticleKind", row.kind), std::to_string(row.minOccurs),
                     row.maxOccurs == kUnbounded ? "kUnbounded" : std::to_string(row.maxOccurs),
                     std::to_string(row.first), std::to_string(row.count)});
    });
    EmitArray(text, entries, "IdentityRow", "kIdentities", rows.identities, [](IdentityRow const& row) {
        return Join({Of("IdentityKind", row.kind), Literal(row.name), Literal(row.ns), Number(row.refer),
                     Literal(row.selector), Of(row.fields)});
    });
    EmitArray(text, entries, "std::uint32_t", "kIndexes", rows.indexes,
              [](std::uint32_t index) { return std::to_string(index); });
    EmitArray(text, entries, "char const* const", "kTexts", rows.texts,
              [](char const* row) { return Literal(row); });
    entries += "    " + Of(rows.globalAttributes) + ",\n";
    std::string notations;
    EmitArray(text, notations, "char const* const", "kNotations", rows.notations,
              [](char const* row) { return Literal(row); });
    return text + "constexpr GrammarRows kRows = {\n" + entries + notations + "};\n";
}

} // namespace ZvXmlLib16::schema
