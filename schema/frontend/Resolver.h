// From the documents of a schema set to its components.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/frontend/SchemaSet.h"
#include "schema/model/Schema.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZvXmlLib16::schema {

// Resolves references, groups, derivation and defaults of a set that has passed the check for schemas. What
// is missing all the same is told as an error.
class Resolver {
public:
    // All are borrowed.
    Resolver(SchemaSet const& set, Schema& schema, Diagnostics& diagnostics);

    void ResolveAll();

private:
    void ResolveGlobals(std::size_t first, std::size_t end);
    // A node in its document.
    struct Place {
        SchemaDocument const* document;
        OutlineNode const* node;
        Definition const* redefined; // what the names of a redefinition mean inside it, null elsewhere

        Place Of(OutlineNode const& child) const { return {document, &child, redefined}; }
        std::pair<SchemaDocument const*, OutlineNode const*> Key() const { return {document, node}; }
    };
    template <class Part>
    using PlaceMap = std::map<std::pair<SchemaDocument const*, OutlineNode const*>, Part>;

    // The attributes of a complex type, while it is put together.
    struct AttributeSet {
        std::vector<grammar::AttributeRow> rows;
        std::vector<Source> sources;
        std::vector<QName> prohibited;
        std::uint32_t wildcard = grammar::kNone;
        std::vector<std::uint32_t> groupWildcards;
    };
    struct Group {
        grammar::ParticleKind kind;
        grammar::Range children;
        bool isOpen;
    };
    struct ParticleList {
        std::vector<grammar::ParticleRow> rows;
        std::vector<GroupSource> sources;
    };
    enum class State : std::uint8_t { kNew, kInWork, kComplete };

    static Place PlaceOf(Definition const& definition) {
        return {definition.document, definition.node, definition.redefined};
    }
    void Error(Place const& place, std::string text);
    Source SourceOf(Place const& place) const;
    // Null, with an error told, if there is none. Inside a redefinition its own name means what it redefines,
    // where `mayRedefine` is set.
    Definition const* FindDefinition(Place const& place, Space space, std::string const& reference,
                                     bool mayRedefine);
    std::string ValueOf(Place const& place, grammar::TypeId type, std::string const& text) const;
    std::uint8_t DerivationsOf(Place const& place, char const* attribute, char const* otherwise) const;
    std::uint32_t OccursOf(Place const& place, char const* attribute) const;

    // ResolverTypes.cpp
    grammar::TypeId TypeOf(Place const& place, std::string const& reference, bool mayRedefine);
    grammar::TypeId TypeAt(Place const& place, std::string const& name);
    std::uint32_t SimpleTypeOf(Place const& place, std::string const& reference, bool mayRedefine);
    std::uint32_t ResolveSimpleType(Place const& place, std::string const& name);
    std::uint32_t AddSimpleType(Place const& place, std::string const& name, grammar::SimpleTypeRow row);
    std::uint32_t ResolveRestriction(Place const& type, Place const& restriction, std::string const& name);
    std::uint32_t RestrictSimpleType(Place const& type, Place const& restriction, std::uint32_t base,
                                     std::string const& name);
    grammar::Range AddFacets(Place const& restriction, std::uint32_t base);
    grammar::Variety VarietyOf(std::uint32_t type) const;
    bool IsQName(std::uint32_t type) const;
    bool HasQNameMember(std::uint32_t type) const;

    // ResolverContent.cpp
    grammar::TypeId AddComplexType(Place const& place, std::string const& name);
    void Complete(std::uint32_t type);
    void Fill(std::uint32_t type, Place const& place);
    void FillSimpleContent(std::uint32_t type, Place const& derivation);
    void FillComplexContent(std::uint32_t type, Place const& derivation, bool isMixed);
    void ExtendContent(std::uint32_t type, std::uint32_t own, bool isMixed);
    std::uint32_t ContentParticle(Place const& place);
    std::uint32_t KeepParticle(grammar::ParticleRow const& row, GroupSource source);
    grammar::Range KeepParticles(ParticleList const& particles);
    void AddParticle(Place const& place, ParticleList& particles);
    void AddElementParticle(Place const& place, ParticleList& particles, grammar::ParticleRow row);
    Group const& GroupAt(Place const& place);
    std::uint32_t AnyParticle();

    // ResolverAttributes.cpp
    void FillAttributes(std::uint32_t type, Place const& derivation);
    AttributeSet InheritedAttributes(grammar::TypeId base);
    void CollectAttributes(Place const& place, AttributeSet& set, unsigned depth);
    void CollectAttribute(Place const& place, AttributeSet& set);
    grammar::AttributeRow AttributeAt(Place const& place, bool isGlobal);
    void SetConstraint(Place const& place, grammar::TypeId type, grammar::ValueConstraint& constraint,
                       char const*& value) const;
    void AddGlobalAttributes();
    std::uint32_t WildcardAt(Place const& place);
    std::uint32_t WildcardOf(AttributeSet const& set);
    std::uint32_t Intersect(std::uint32_t left, std::uint32_t right,
                            grammar::ProcessContents processContents);
    std::uint32_t Unite(std::uint32_t left, std::uint32_t right, grammar::ProcessContents processContents);
    std::vector<std::string> NamespacesOf(std::uint32_t wildcard) const;
    std::uint32_t KeepWildcard(bool isNegated, std::vector<std::string> const& namespaces,
                               grammar::ProcessContents processContents);

    // ResolverElements.cpp
    std::uint32_t ElementAt(Place const& place, bool isGlobal);
    grammar::TypeId ElementType(Place const& place);
    void ResolveConstraints();
    grammar::Range AddIdentities(Place const& place);
    std::string PathOf(Place const& place, std::string const& xpath);
    void LinkKeyReferences();

    SchemaSet const& m_set;
    Schema& m_schema;
    Diagnostics& m_diagnostics;
    PlaceMap<grammar::TypeId> m_types;
    PlaceMap<std::uint32_t> m_elements;
    PlaceMap<Group> m_groups;
    PlaceMap<std::uint32_t> m_identities;
    std::vector<std::pair<State, Place>> m_complexTypes; // by row
    std::vector<std::pair<std::uint32_t, Place>> m_keyReferences;
    unsigned m_depth = 0; // of simple types one within the other
};

} // namespace ZvXmlLib16::schema
