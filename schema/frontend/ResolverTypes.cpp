#include "schema/frontend/Resolver.h"
#include "zvxmllib/grammar/BuiltInNames.h"

#include <sstream>

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

constexpr unsigned kMostTypesDeep = 1000; // of simple types that are made of each other
constexpr auto kAnySimpleTypeId = static_cast<std::uint32_t>(BuiltIn::kAnySimpleType);

} // namespace

TypeId Resolver::TypeOf(Place const& place, std::string const& reference, bool mayRedefine) {
    QName const name = m_set.Resolve(*place.document, *place.node, reference);
    BuiltIn builtIn{};
    if (name.ns == kSchemaNamespace) {
        if (name.name == "anyType")
            return kAnyType;
        if (FindBuiltIn(name.name, builtIn))
            return static_cast<TypeId>(builtIn);
    }
    Definition const* const definition = FindDefinition(place, Space::kType, reference, mayRedefine);
    return definition == nullptr ? kAnyType : TypeAt(PlaceOf(*definition), definition->node->Get("name"));
}

// Of a simpleType or complexType element.
TypeId Resolver::TypeAt(Place const& place, std::string const& name) {
    auto const known = m_types.find(place.Key());
    if (known != m_types.end())
        return known->second;
    if (!place.node->IsSchema("simpleType"))
        return AddComplexType(place, name);
    if (m_depth == kMostTypesDeep) {
        Error(place,
              "simple types refer to each other more than " + std::to_string(kMostTypesDeep) + " times");
        return static_cast<TypeId>(kAnySimpleTypeId);
    }
    ++m_depth;
    auto const type = static_cast<TypeId>(ResolveSimpleType(place, name));
    --m_depth;
    m_types.emplace(place.Key(), type);
    return type;
}

std::uint32_t Resolver::SimpleTypeOf(Place const& place, std::string const& reference, bool mayRedefine) {
    TypeId const type = TypeOf(place, reference, mayRedefine);
    if (!IsComplex(type))
        return static_cast<std::uint32_t>(type);
    Error(place, "[" + reference + "] is no simple type");
    return kAnySimpleTypeId;
}

std::uint32_t Resolver::AddSimpleType(Place const& place, std::string const& name, SimpleTypeRow row) {
    row.name = m_schema.Keep(name);
    row.ns = m_schema.Keep(place.document->targetNamespace);
    row.final_ = DerivationsOf(place, "final", "finalDefault");
    m_schema.simpleTypes.push_back(row);
    m_schema.simpleTypeSources.push_back(SourceOf(place));
    return kBuiltInCount + static_cast<std::uint32_t>(m_schema.simpleTypes.size() - 1);
}

std::uint32_t Resolver::ResolveSimpleType(Place const& place, std::string const& name) {
    for (auto const& child : place.node->children) {
        Place const part = place.Of(*child);
        if (child->IsSchema("restriction"))
            return ResolveRestriction(place, part, name);
        if (child->IsSchema("list")) {
            SimpleTypeRow row{"", "", Variety::kList, kAnySimpleTypeId, kNone, {}, {}, 0};
            OutlineNode const* const inner = child->Child("simpleType");
            row.item = inner != nullptr ? static_cast<std::uint32_t>(TypeAt(part.Of(*inner), {}))
                                        : SimpleTypeOf(part, child->Get("itemType"), false);
            return AddSimpleType(place, name, row);
        }
        if (child->IsSchema("union")) {
            std::vector<std::uint32_t> members;
            std::istringstream words(child->Get("memberTypes"));
            for (std::string word; words >> word;)
                members.push_back(SimpleTypeOf(part, word, false));
            for (auto const& inner : child->children) {
                if (inner->IsSchema("simpleType"))
                    members.push_back(static_cast<std::uint32_t>(TypeAt(part.Of(*inner), {})));
            }
            SimpleTypeRow row{"", "", Variety::kUnion, kAnySimpleTypeId, kNone, {}, {}, 0};
            row.members = {static_cast<std::uint32_t>(m_schema.indexes.size()),
                           static_cast<std::uint32_t>(members.size())};
            m_schema.indexes.insert(m_schema.indexes.end(), members.begin(), members.end());
            return AddSimpleType(place, name, row);
        }
    }
    Error(place, "the simple type says nothing");
    return kAnySimpleTypeId;
}

std::uint32_t Resolver::ResolveRestriction(Place const& type, Place const& restriction,
                                           std::string const& name) {
    OutlineNode const* const inner = restriction.node->Child("simpleType");
    std::uint32_t const base = inner != nullptr
                                   ? static_cast<std::uint32_t>(TypeAt(restriction.Of(*inner), {}))
                                   : SimpleTypeOf(restriction, restriction.node->Get("base"), true);
    return RestrictSimpleType(type, restriction, base, name);
}

std::uint32_t Resolver::RestrictSimpleType(Place const& type, Place const& restriction, std::uint32_t base,
                                           std::string const& name) {
    SimpleTypeRow row{"", "", VarietyOf(base), base, kNone, {}, {}, 0};
    row.facets = AddFacets(restriction, base);
    return AddSimpleType(type, name, row);
}

Range Resolver::AddFacets(Place const& restriction, std::uint32_t base) {
    Range range{static_cast<std::uint32_t>(m_schema.facets.size()), 0};
    for (auto const& child : restriction.node->children) {
        Facet facet{};
        if (child->ns != kSchemaNamespace || !FindFacet(child->name, facet))
            continue;
        std::string value = child->Get("value");
        if (facet == Facet::kEnumeration)
            value = ValueOf(restriction.Of(*child), static_cast<TypeId>(base), value);
        m_schema.facets.push_back({facet, m_schema.Keep(value)});
        m_schema.facetSources.push_back(SourceOf(restriction.Of(*child)));
        ++range.count;
    }
    return range;
}

Variety Resolver::VarietyOf(std::uint32_t type) const {
    if (type >= kBuiltInCount)
        return m_schema.simpleTypes[type - kBuiltInCount].variety;
    auto const builtIn = static_cast<BuiltIn>(type);
    return builtIn == BuiltIn::kNMTOKENS || builtIn == BuiltIn::kIDREFS || builtIn == BuiltIn::kENTITIES
               ? Variety::kList
               : Variety::kAtomic;
}

// Whether its values are qualified names, or lists of them.
bool Resolver::IsQName(std::uint32_t type) const {
    while (type >= kBuiltInCount) {
        SimpleTypeRow const& row = m_schema.simpleTypes[type - kBuiltInCount];
        type = row.item != kNone ? row.item : row.base;
    }
    return static_cast<BuiltIn>(type) == BuiltIn::kQName || static_cast<BuiltIn>(type) == BuiltIn::kNOTATION;
}

// Whether it is a union with a member of such a type, or a list of those.
bool Resolver::HasQNameMember(std::uint32_t type) const {
    while (type >= kBuiltInCount) {
        SimpleTypeRow const& row = m_schema.simpleTypes[type - kBuiltInCount];
        for (std::uint32_t i = 0; i < row.members.count; ++i) {
            std::uint32_t const member = m_schema.indexes[row.members.first + i];
            if (IsQName(member) || HasQNameMember(member))
                return true;
        }
        type = row.item != kNone ? row.item : row.base;
    }
    return false;
}

} // namespace ZvXmlLib16::schema
