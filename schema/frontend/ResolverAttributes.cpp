#include "schema/frontend/Resolver.h"

#include <algorithm>
#include <sstream>

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

constexpr unsigned kMostGroupsDeep = 100; // of attribute groups, one within the other

bool HasName(AttributeRow const& row, QName const& name) {
    return name.name == row.name && name.ns == row.ns;
}

} // namespace

// The attributes of a type: its own, with those of its base.
void Resolver::FillAttributes(std::uint32_t type, Place const& derivation) {
    TypeId const base = m_schema.complexTypes[type].base;
    bool const isExtension = m_schema.complexTypes[type].derivation == kExtension;
    AttributeSet own;
    CollectAttributes(derivation, own, 0);
    std::uint32_t wildcard = WildcardOf(own);
    AttributeSet all = InheritedAttributes(base);
    if (!isExtension) {
        auto const isRemoved = [&own](AttributeRow const& row) {
            return std::any_of(own.prohibited.begin(), own.prohibited.end(),
                               [&row](QName const& name) { return HasName(row, name); });
        };
        for (std::size_t i = all.rows.size(); i-- > 0;) {
            if (isRemoved(all.rows[i])) {
                all.rows.erase(all.rows.begin() + static_cast<std::ptrdiff_t>(i));
                all.sources.erase(all.sources.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
    } else if (all.wildcard != kNone) {
        wildcard = wildcard == kNone
                       ? all.wildcard
                       : Unite(wildcard, all.wildcard, m_schema.wildcards[wildcard].processContents);
    }
    std::size_t const inherited = all.rows.size();
    for (std::size_t i = 0; i < own.rows.size(); ++i) {
        // Equal names are one text of the schema.
        auto const end = all.rows.begin() + static_cast<std::ptrdiff_t>(inherited);
        auto const same = std::find_if(all.rows.begin(), end, [&](AttributeRow const& row) {
            return row.name == own.rows[i].name && row.ns == own.rows[i].ns;
        });
        if (same == end) {
            all.rows.push_back(own.rows[i]);
            all.sources.push_back(own.sources[i]);
        } else {
            *same = own.rows[i];
            all.sources[static_cast<std::size_t>(same - all.rows.begin())] = own.sources[i];
        }
    }
    ComplexTypeRow& row = m_schema.complexTypes[type];
    row.attributeWildcard = wildcard;
    row.attributes = {static_cast<std::uint32_t>(m_schema.attributes.size()),
                      static_cast<std::uint32_t>(all.rows.size())};
    m_schema.attributes.insert(m_schema.attributes.end(), all.rows.begin(), all.rows.end());
    m_schema.attributeSources.insert(m_schema.attributeSources.end(), all.sources.begin(), all.sources.end());
}

Resolver::AttributeSet Resolver::InheritedAttributes(TypeId base) {
    AttributeSet set;
    if (!IsComplex(base))
        return set;
    if (base == kAnyType) {
        set.wildcard = KeepWildcard(true, {}, ProcessContents::kLax);
        return set;
    }
    ComplexTypeRow const& row = m_schema.complexTypes[ComplexTypeRowOf(base)];
    for (std::uint32_t i = 0; i < row.attributes.count; ++i) {
        set.rows.push_back(m_schema.attributes[row.attributes.first + i]);
        set.sources.push_back(m_schema.attributeSources[row.attributes.first + i]);
    }
    set.wildcard = row.attributeWildcard;
    return set;
}

// Of a type, a derivation or an attribute group.
void Resolver::CollectAttributes(Place const& place, AttributeSet& set, unsigned depth) {
    if (depth == kMostGroupsDeep)
        return Error(place, "attribute groups refer to each other more than " +
                                std::to_string(kMostGroupsDeep) + " times");
    for (auto const& child : place.node->children) {
        Place const part = place.Of(*child);
        if (child->IsSchema("attribute")) {
            CollectAttribute(part, set);
        } else if (child->IsSchema("anyAttribute")) {
            set.wildcard = WildcardAt(part);
        } else if (child->IsSchema("attributeGroup")) {
            Definition const* const group =
                FindDefinition(part, Space::kAttributeGroup, child->Get("ref"), true);
            if (group == nullptr)
                continue;
            AttributeSet inner; // what a group prohibits says nothing
            CollectAttributes(PlaceOf(*group), inner, depth + 1);
            set.rows.insert(set.rows.end(), inner.rows.begin(), inner.rows.end());
            set.sources.insert(set.sources.end(), inner.sources.begin(), inner.sources.end());
            std::uint32_t const wildcard = WildcardOf(inner);
            if (wildcard != kNone)
                set.groupWildcards.push_back(wildcard);
        }
    }
}

void Resolver::CollectAttribute(Place const& place, AttributeSet& set) {
    AttributeRow const row = AttributeAt(place, false);
    std::string const use = place.node->Get("use");
    if (use == "prohibited") {
        set.prohibited.push_back({row.ns, row.name});
        return;
    }
    set.rows.push_back(row);
    set.rows.back().isRequired = use == "required";
    set.sources.push_back(SourceOf(place));
}

AttributeRow Resolver::AttributeAt(Place const& place, bool isGlobal) {
    OutlineNode const& node = *place.node;
    AttributeRow row{
        "", "", static_cast<std::uint32_t>(BuiltIn::kAnySimpleType), false, ValueConstraint::kNoValue, ""};
    if (node.Find("ref") != nullptr) {
        Definition const* const definition = FindDefinition(place, Space::kAttribute, node.Get("ref"), false);
        if (definition == nullptr)
            return row;
        row = AttributeAt(PlaceOf(*definition), true);
    } else {
        bool const isQualified =
            isGlobal ||
            node.Get("form", place.document->qualifiesAttributes ? "qualified" : "") == "qualified";
        row.name = m_schema.Keep(node.Get("name"));
        row.ns = m_schema.Keep(isQualified ? place.document->targetNamespace : std::string());
        OutlineNode const* const inner = node.Child("simpleType");
        if (inner != nullptr)
            row.type = static_cast<std::uint32_t>(TypeAt(Place{place.document, inner, nullptr}, {}));
        else if (node.Find("type") != nullptr)
            row.type = SimpleTypeOf(place, node.Get("type"), false);
    }
    SetConstraint(place, static_cast<TypeId>(row.type), row.constraint, row.value);
    return row;
}

// Leaves them as they are if the node has neither default nor fixed.
void Resolver::SetConstraint(Place const& place, TypeId type, ValueConstraint& constraint,
                             char const*& value) const {
    std::string const* const fixed = place.node->Find("fixed");
    std::string const* const text = fixed != nullptr ? fixed : place.node->Find("default");
    if (text == nullptr)
        return;
    constraint = fixed != nullptr ? ValueConstraint::kFixed : ValueConstraint::kDefault;
    value = m_schema.Keep(ValueOf(place, type, *text));
}

void Resolver::AddGlobalAttributes() {
    std::vector<AttributeRow> rows;
    std::vector<Source> sources;
    for (auto const& [space, definition] : m_set.GetGlobals()) {
        if (space != Space::kAttribute || !m_set.IsCurrent(space, *definition))
            continue;
        rows.push_back(AttributeAt(PlaceOf(*definition), true));
        sources.push_back(SourceOf(PlaceOf(*definition)));
    }
    m_schema.globalAttributes = {static_cast<std::uint32_t>(m_schema.attributes.size()),
                                 static_cast<std::uint32_t>(rows.size())};
    m_schema.attributes.insert(m_schema.attributes.end(), rows.begin(), rows.end());
    m_schema.attributeSources.insert(m_schema.attributeSources.end(), sources.begin(), sources.end());
}

// Of an any or anyAttribute.
std::uint32_t Resolver::WildcardAt(Place const& place) {
    std::string const process = place.node->Get("processContents");
    ProcessContents const contents = process == "lax"    ? ProcessContents::kLax
                                     : process == "skip" ? ProcessContents::kSkip
                                                         : ProcessContents::kStrict;
    std::string const allowed = place.node->Get("namespace", "##any");
    std::string const& target = place.document->targetNamespace;
    if (allowed == "##any")
        return KeepWildcard(true, {}, contents);
    if (allowed == "##other")
        return KeepWildcard(
            true, target.empty() ? std::vector<std::string>{""} : std::vector<std::string>{target, ""},
            contents);
    std::vector<std::string> namespaces;
    std::istringstream words(allowed);
    for (std::string word; words >> word;)
        namespaces.push_back(word == "##local" ? std::string() : word == "##targetNamespace" ? target : word);
    return KeepWildcard(false, namespaces, contents);
}

// XML Schema Part 1, 3.4.2: the complete wildcard.
std::uint32_t Resolver::WildcardOf(AttributeSet const& set) {
    if (set.wildcard == kNone && set.groupWildcards.empty())
        return kNone;
    std::uint32_t all = set.wildcard != kNone ? set.wildcard : set.groupWildcards.front();
    ProcessContents const contents = m_schema.wildcards[all].processContents;
    for (std::uint32_t const wildcard : set.groupWildcards)
        all = Intersect(all, wildcard, contents);
    return all;
}

std::vector<std::string> Resolver::NamespacesOf(std::uint32_t wildcard) const {
    Range const range = m_schema.wildcards[wildcard].namespaces;
    return {m_schema.texts.begin() + range.first, m_schema.texts.begin() + range.first + range.count};
}

std::uint32_t Resolver::KeepWildcard(bool isNegated, std::vector<std::string> const& namespaces,
                                     ProcessContents processContents) {
    Range const range{static_cast<std::uint32_t>(m_schema.texts.size()),
                      static_cast<std::uint32_t>(namespaces.size())};
    for (std::string const& ns : namespaces)
        m_schema.texts.push_back(m_schema.Keep(ns));
    m_schema.wildcards.push_back({isNegated, range, processContents});
    return static_cast<std::uint32_t>(m_schema.wildcards.size() - 1);
}

namespace {

using Names = std::vector<std::string>;

bool Contains(Names const& names, std::string const& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

Names Without(Names names, Names const& removed) {
    names.erase(
        std::remove_if(names.begin(), names.end(), [&](auto const& name) { return Contains(removed, name); }),
        names.end());
    return names;
}

Names Union(Names names, Names const& more) {
    Names const added = Without(more, names);
    names.insert(names.end(), added.begin(), added.end());
    return names;
}

Names Common(Names const& left, Names const& right) {
    return Without(left, Without(left, right));
}

} // namespace

// As sets of namespaces, of which ##any and ##other are complements.
std::uint32_t Resolver::Intersect(std::uint32_t left, std::uint32_t right, ProcessContents processContents) {
    bool const isNotLeft = m_schema.wildcards[left].isNegated;
    bool const isNotRight = m_schema.wildcards[right].isNegated;
    Names const l = NamespacesOf(left);
    Names const r = NamespacesOf(right);
    if (isNotLeft && isNotRight)
        return KeepWildcard(true, Union(l, r), processContents);
    return KeepWildcard(false,
                        isNotLeft    ? Without(r, l)
                        : isNotRight ? Without(l, r)
                                     : Common(l, r),
                        processContents);
}

std::uint32_t Resolver::Unite(std::uint32_t left, std::uint32_t right, ProcessContents processContents) {
    bool const isNotLeft = m_schema.wildcards[left].isNegated;
    bool const isNotRight = m_schema.wildcards[right].isNegated;
    Names const l = NamespacesOf(left);
    Names const r = NamespacesOf(right);
    if (!isNotLeft && !isNotRight)
        return KeepWildcard(false, Union(l, r), processContents);
    return KeepWildcard(true,
                        isNotLeft && isNotRight ? Common(l, r)
                        : isNotLeft             ? Without(l, r)
                                                : Without(r, l),
                        processContents);
}

} // namespace ZvXmlLib16::schema
