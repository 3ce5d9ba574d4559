#include "schema/frontend/Resolver.h"

#include "zvxmllib/grammar/BuiltInNames.h"

#include <sstream>

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

struct DerivationName {
    char const* name;
    Derivation derivation;
};

constexpr DerivationName kDerivations[] = {{"extension", kExtension},
                                           {"restriction", kRestriction},
                                           {"substitution", kSubstitution},
                                           {"list", kByList},
                                           {"union", kByUnion}};

} // namespace

Resolver::Resolver(SchemaSet const& set, Schema& schema, Diagnostics& diagnostics)
    : m_set(set), m_schema(schema), m_diagnostics(diagnostics) {}

void Resolver::ResolveAll() {
    std::size_t first = 0;
    for (std::size_t const end : m_set.GetGroupEnds()) {
        ResolveGlobals(first, end);
        first = end;
        m_schema.before.push_back({static_cast<std::uint32_t>(m_schema.simpleTypes.size()),
                                   static_cast<std::uint32_t>(m_schema.complexTypes.size()),
                                   static_cast<std::uint32_t>(m_schema.elements.size())});
    }
    ResolveGlobals(first, m_set.GetGlobals().size());
    ResolveConstraints();
    AddGlobalAttributes();
    LinkKeyReferences();
}

// Those, with what they need.
void Resolver::ResolveGlobals(std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) {
        auto const& [space, definition] = m_set.GetGlobals()[i];
        if (!m_set.IsCurrent(space, *definition))
            continue;
        std::string const name = definition->node->Get("name");
        if (space == Space::kElement)
            m_schema.globalElements.push_back(ElementAt(PlaceOf(*definition), true));
        else if (space == Space::kType)
            m_schema.globalTypes.push_back(TypeAt(PlaceOf(*definition), name));
        else if (space == Space::kNotation)
            m_schema.notations.push_back(
                m_schema.Keep(QName{definition->document->targetNamespace, name}.Clark()));
    }
    // Completing a type adds others behind it.
    for (std::uint32_t type = 0; type < m_complexTypes.size(); ++type)
        Complete(type);
}

void Resolver::Error(Place const& place, std::string text) {
    m_diagnostics.Error(place.document->At(*place.node), std::move(text));
}

Source Resolver::SourceOf(Place const& place) const {
    return {place.document->At(*place.node), place.node->Documentation()};
}

Definition const* Resolver::FindDefinition(Place const& place, Space space, std::string const& reference,
                                           bool mayRedefine) {
    QName const name = m_set.Resolve(*place.document, *place.node, reference);
    Definition const* const redefined = place.redefined;
    if (mayRedefine && redefined != nullptr && redefined->node->Get("name") == name.name &&
        redefined->document->targetNamespace == name.ns)
        return redefined;
    Definition const* const found = m_set.Find(space, name);
    if (found == nullptr)
        Error(place, "there is no [" + reference + "] in the namespace [" + name.ns + "]");
    return found;
}

// Qualified names as {namespace}name, everything else as it stands. What may be one for a member of a union
// is {namespace}prefix:name, since it may be something else for another member.
std::string Resolver::ValueOf(Place const& place, TypeId type, std::string const& text) const {
    if (IsComplex(type))
        return text;
    bool const isQName = IsQName(static_cast<std::uint32_t>(type));
    if (!isQName && !HasQNameMember(static_cast<std::uint32_t>(type)))
        return text;
    bool const isList = VarietyOf(static_cast<std::uint32_t>(type)) == Variety::kList;
    if (!isQName && !isList && text.find_first_of(" \t\n\r") != std::string::npos)
        return text;
    std::istringstream words(text);
    std::string values;
    for (std::string word; words >> word;) {
        QName const name = m_set.Resolve(*place.document, *place.node, word);
        values += values.empty() ? "" : " ";
        values += isQName ? name.Clark() : name.ns.empty() ? word : "{" + name.ns + "}" + word;
    }
    return values;
}

std::uint8_t Resolver::DerivationsOf(Place const& place, char const* attribute, char const* otherwise) const {
    std::string const* text = place.node->Find(attribute);
    if (text == nullptr)
        text = place.document->root->Find(otherwise);
    std::uint8_t sum = kNoDerivation;
    std::istringstream words(text == nullptr ? std::string() : *text);
    for (std::string word; words >> word;) {
        for (DerivationName const& candidate : kDerivations) {
            if (word == candidate.name || word == "#all")
                sum = static_cast<std::uint8_t>(sum | candidate.derivation);
        }
    }
    return sum;
}

// What is beyond 32 bits counts as unbounded.
std::uint32_t Resolver::OccursOf(Place const& place, char const* attribute) const {
    std::string const* const text = place.node->Find(attribute);
    if (text == nullptr)
        return 1;
    std::uint64_t number = 0;
    for (char const c : *text) {
        if (c < '0' || c > '9')
            return *text == "unbounded" ? kUnbounded : 1;
        number = number * 10 + static_cast<std::uint64_t>(c - '0');
        if (number >= kUnbounded)
            return kUnbounded;
    }
    return static_cast<std::uint32_t>(number);
}

} // namespace ZvXmlLib16::schema
