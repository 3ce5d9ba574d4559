#include "schema/frontend/Resolver.h"

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

bool IsGroup(OutlineNode const& node) {
    return node.IsSchema("group") || node.IsSchema("sequence") || node.IsSchema("choice") ||
           node.IsSchema("all");
}

ParticleKind KindOf(OutlineNode const& node) {
    return node.IsSchema("choice") ? ParticleKind::kChoice
           : node.IsSchema("all")  ? ParticleKind::kAll
                                   : ParticleKind::kSequence;
}

} // namespace

// The content comes later: by Complete.
TypeId Resolver::AddComplexType(Place const& place, std::string const& name) {
    auto const row = static_cast<std::uint32_t>(m_schema.complexTypes.size());
    ComplexTypeRow type{};
    type.name = m_schema.Keep(name);
    type.ns = m_schema.Keep(place.document->targetNamespace);
    type.base = kAnyType;
    type.derivation = kRestriction;
    type.isAbstract = place.node->IsTrue("abstract");
    type.block = DerivationsOf(place, "block", "blockDefault");
    type.content = Content::kEmpty;
    type.particle = kNone;
    type.attributeWildcard = kNone;
    m_schema.complexTypes.push_back(type);
    m_schema.complexTypeSources.push_back(SourceOf(place));
    m_complexTypes.emplace_back(State::kNew, place);
    m_types.emplace(place.Key(), ComplexTypeId(row));
    return ComplexTypeId(row);
}

void Resolver::Complete(std::uint32_t type) {
    auto const [state, place] = m_complexTypes[type];
    if (state == State::kInWork)
        Error(place, "the type is derived from itself");
    if (state != State::kNew)
        return;
    m_complexTypes[type].first = State::kInWork;
    Fill(type, place);
    m_complexTypes[type].first = State::kComplete;
}

void Resolver::Fill(std::uint32_t type, Place const& place) {
    bool const isMixed = place.node->IsTrue("mixed");
    OutlineNode const* const simple = place.node->Child("simpleContent");
    OutlineNode const* const complex = place.node->Child("complexContent");
    OutlineNode const* const content = simple != nullptr ? simple : complex;
    if (content == nullptr) {
        FillAttributes(type, place);
        ExtendContent(type, ContentParticle(place), isMixed);
        return;
    }
    OutlineNode const* const extension = content->Child("extension");
    OutlineNode const* const restriction = content->Child("restriction");
    if (extension == nullptr && restriction == nullptr)
        return Error(place, "the type says nothing");
    Place const derivation = place.Of(extension != nullptr ? *extension : *restriction);
    TypeId const base = TypeOf(derivation, derivation.node->Get("base"), true);
    if (IsComplex(base) && base != kAnyType)
        Complete(ComplexTypeRowOf(base));
    m_schema.complexTypes[type].base = base;
    m_schema.complexTypes[type].derivation = extension != nullptr ? kExtension : kRestriction;
    FillAttributes(type, derivation);
    if (simple != nullptr)
        FillSimpleContent(type, derivation);
    else
        FillComplexContent(type, derivation,
                           content->Find("mixed") != nullptr ? content->IsTrue("mixed") : isMixed);
}

void Resolver::FillSimpleContent(std::uint32_t type, Place const& derivation) {
    TypeId const base = m_schema.complexTypes[type].base;
    std::uint32_t simple = static_cast<std::uint32_t>(BuiltIn::kAnySimpleType);
    if (!IsComplex(base))
        simple = static_cast<std::uint32_t>(base);
    else if (base != kAnyType && m_schema.complexTypes[ComplexTypeRowOf(base)].content == Content::kSimple)
        simple = m_schema.complexTypes[ComplexTypeRowOf(base)].simpleType;
    if (derivation.node->IsSchema("restriction")) {
        OutlineNode const* const inner = derivation.node->Child("simpleType");
        if (inner != nullptr)
            simple = static_cast<std::uint32_t>(TypeAt(derivation.Of(*inner), {}));
        simple = RestrictSimpleType(derivation, derivation, simple, {});
    }
    m_schema.complexTypes[type].content = Content::kSimple;
    m_schema.complexTypes[type].simpleType = simple;
}

void Resolver::FillComplexContent(std::uint32_t type, Place const& derivation, bool isMixed) {
    std::uint32_t const own = ContentParticle(derivation);
    TypeId const base = m_schema.complexTypes[type].base;
    if (derivation.node->IsSchema("restriction") || !IsComplex(base))
        return ExtendContent(type, own, isMixed);
    ComplexTypeRow inherited{};
    inherited.content = Content::kMixed;
    inherited.particle = kNone;
    if (base == kAnyType)
        inherited.particle = AnyParticle();
    else
        inherited = m_schema.complexTypes[ComplexTypeRowOf(base)];
    ComplexTypeRow& row = m_schema.complexTypes[type];
    if (own == kNone && (!isMixed || inherited.content != Content::kEmpty)) {
        row.content = inherited.content;
        row.simpleType = inherited.simpleType;
        row.particle = inherited.particle;
        return;
    }
    if (own == kNone || inherited.particle == kNone)
        return ExtendContent(type, own, isMixed);
    ParticleList both;
    for (std::uint32_t const part : {inherited.particle, own}) {
        both.rows.push_back(m_schema.particles[part]);
        both.sources.push_back(m_schema.particleSources[part]);
    }
    Range const children = KeepParticles(both);
    ExtendContent(type,
                  KeepParticle({ParticleKind::kSequence, 1, 1, children.first, children.count},
                               {SourceOf(derivation), {}, {}}),
                  isMixed);
}

void Resolver::ExtendContent(std::uint32_t type, std::uint32_t own, bool isMixed) {
    ComplexTypeRow& row = m_schema.complexTypes[type];
    row.particle = own;
    row.content = isMixed ? Content::kMixed : own == kNone ? Content::kEmpty : Content::kElementOnly;
}

// Index of the particle of a type or derivation; kNone for content without elements.
std::uint32_t Resolver::ContentParticle(Place const& place) {
    ParticleList list;
    for (auto const& child : place.node->children) {
        if (IsGroup(*child))
            AddParticle(place.Of(*child), list);
    }
    if (list.rows.empty())
        return kNone;
    ParticleRow const& row = list.rows.front();
    bool const isOptionalChoice = row.kind == ParticleKind::kChoice && row.minOccurs == 0;
    if (row.count == 0 && (row.kind != ParticleKind::kChoice || isOptionalChoice))
        return kNone;
    return KeepParticle(row, list.sources.front());
}

std::uint32_t Resolver::KeepParticle(ParticleRow const& row, GroupSource source) {
    m_schema.particles.push_back(row);
    m_schema.particleSources.push_back(std::move(source));
    return static_cast<std::uint32_t>(m_schema.particles.size() - 1);
}

Range Resolver::KeepParticles(ParticleList const& particles) {
    Range const range{static_cast<std::uint32_t>(m_schema.particles.size()),
                      static_cast<std::uint32_t>(particles.rows.size())};
    m_schema.particles.insert(m_schema.particles.end(), particles.rows.begin(), particles.rows.end());
    m_schema.particleSources.insert(m_schema.particleSources.end(), particles.sources.begin(),
                                    particles.sources.end());
    return range;
}

void Resolver::AddParticle(Place const& place, ParticleList& particles) {
    OutlineNode const& node = *place.node;
    ParticleRow row{ParticleKind::kElement, OccursOf(place, "minOccurs"), OccursOf(place, "maxOccurs"), 0, 0};
    if (row.maxOccurs == 0)
        return;
    if (node.IsSchema("element"))
        return AddElementParticle(place, particles, row);
    GroupSource source{SourceOf(place), {}, {}};
    if (node.IsSchema("any")) {
        row.kind = ParticleKind::kWildcard;
        row.first = WildcardAt(place);
    } else if (IsGroup(node)) {
        Place group = place;
        if (node.IsSchema("group")) {
            Definition const* const definition = FindDefinition(place, Space::kGroup, node.Get("ref"), true);
            if (definition == nullptr)
                return;
            group = PlaceOf(*definition);
            source.name = definition->node->Get("name");
            source.ns = definition->document->targetNamespace;
            OutlineNode const* model = nullptr;
            for (char const* kind : {"sequence", "choice", "all"})
                model = model == nullptr ? definition->node->Child(kind) : model;
            if (model == nullptr)
                return;
            group = group.Of(*model);
        }
        Group const& content = GroupAt(group);
        row.kind = content.kind;
        row.first = content.children.first;
        row.count = content.children.count;
        if (row.count == 0 && row.kind != ParticleKind::kChoice)
            return;
    } else {
        return; // annotations
    }
    particles.rows.push_back(row);
    particles.sources.push_back(std::move(source));
}

void Resolver::AddElementParticle(Place const& place, ParticleList& particles, ParticleRow row) {
    std::string const* const reference = place.node->Find("ref");
    if (reference == nullptr) {
        row.first = ElementAt(place, false);
    } else {
        Definition const* const definition = FindDefinition(place, Space::kElement, *reference, false);
        if (definition == nullptr)
            return;
        row.first = ElementAt(PlaceOf(*definition), true);
    }
    particles.rows.push_back(row);
    particles.sources.push_back({SourceOf(place), {}, {}});
}

// Of a sequence, choice or all: its children, kept once.
Resolver::Group const& Resolver::GroupAt(Place const& place) {
    auto const [found, isNew] = m_groups.try_emplace(place.Key(), Group{KindOf(*place.node), {}, true});
    if (!isNew) {
        if (found->second.isOpen)
            Error(place, "the group contains itself");
        return found->second;
    }
    ParticleList list;
    for (auto const& child : place.node->children)
        AddParticle(place.Of(*child), list);
    Group& group = found->second;
    group.children = KeepParticles(list);
    group.isOpen = false;
    return group;
}

// Any elements at all, as anyType has them.
std::uint32_t Resolver::AnyParticle() {
    std::uint32_t const wildcard = KeepWildcard(true, {}, ProcessContents::kLax);
    return KeepParticle({ParticleKind::kWildcard, 0, kUnbounded, wildcard, 0}, {});
}

} // namespace ZvXmlLib16::schema
