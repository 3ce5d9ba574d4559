#include "zvxmllib/grammar/Grammar.h"

#include "zvxmllib/grammar/BuiltInNames.h"

#include <algorithm>
#include <functional>
#include <map>
#include <tuple>

namespace ZvXmlLib16::grammar {

namespace {

constexpr std::string_view kSchemaNamespace = "http://www.w3.org/2001/XMLSchema";

bool IsGroup(ParticleKind kind) noexcept {
    return kind != ParticleKind::kElement && kind != ParticleKind::kWildcard;
}

} // namespace

std::size_t Grammar::HashName::operator()(Name const& name) const noexcept {
    std::size_t const local = std::hash<std::string_view>()(name.name);
    return std::hash<std::string_view>()(name.ns) ^ (local + 0x9E3779B97F4A7C15U + (local << 6));
}

Grammar::Grammar(GrammarRows const& rows) : m_rows(rows), m_simpleTypes(m_rows), m_identityPaths(m_rows) {
    AddNames();
    AddSubstitutions();
    m_beginOf.assign(m_rows.particles.count, kNone);
    std::map<std::tuple<std::uint32_t, std::uint32_t, ParticleKind>, std::uint32_t> known;
    // The children of a group stand ahead of it.
    for (std::uint32_t i = 0; i < m_rows.particles.count; ++i) {
        ParticleRow const& row = m_rows.particles[i];
        if (!IsGroup(row.kind))
            continue;
        auto const [place, isNew] =
            known.try_emplace({row.first, row.count, row.kind}, static_cast<std::uint32_t>(m_begins.size()));
        if (isNew)
            AddBeginOf(row.first, row.count, row.kind);
        m_beginOf[i] = place->second;
    }
    FindAmbiguous();
}

Grammar::~Grammar() = default;

std::uint32_t Grammar::Find(NameMap const& map, std::string_view name, std::string_view ns) noexcept {
    auto const found = map.find({name, ns});
    return found == map.end() ? kNone : found->second;
}

void Grammar::AddNames() {
    m_symbolOf.reserve(m_rows.elements.count);
    for (std::uint32_t i = 0; i < m_rows.elements.count; ++i) {
        ElementRow const& row = m_rows.elements[i];
        auto const [place, isNew] =
            m_symbols.try_emplace({row.name, row.ns}, static_cast<Symbol>(m_globalOf.size()));
        if (isNew)
            m_globalOf.push_back(kNone);
        m_symbolOf.push_back(place->second);
        if (row.isGlobal)
            m_globalOf[place->second] = i;
    }
    for (std::uint32_t i = 0; i < m_rows.globalAttributes.count; ++i) {
        std::uint32_t const attribute = m_rows.globalAttributes.first + i;
        m_attributes.emplace(Name{m_rows.attributes[attribute].name, m_rows.attributes[attribute].ns},
                             attribute);
    }
    m_types.emplace(Name{"anyType", kSchemaNamespace}, kAnyType);
    for (std::uint32_t i = 0; i < kBuiltInCount; ++i)
        m_types.emplace(Name{NameOf(static_cast<BuiltIn>(i)), kSchemaNamespace}, static_cast<TypeId>(i));
    for (std::uint32_t i = 0; i < m_rows.simpleTypes.count; ++i) {
        SimpleTypeRow const& row = m_rows.simpleTypes[i];
        if (*row.name != '\0')
            m_types[{row.name, row.ns}] = SimpleTypeId(i); // a redefined type stands ahead of the new one
    }
    for (std::uint32_t i = 0; i < m_rows.complexTypes.count; ++i) {
        ComplexTypeRow const& row = m_rows.complexTypes[i];
        if (*row.name != '\0')
            m_types.emplace(Name{row.name, row.ns}, ComplexTypeId(i));
    }
}

void Grammar::AddSubstitutions() {
    m_members.resize(m_rows.elements.count);
    for (std::uint32_t member = 0; member < m_rows.elements.count; ++member) {
        std::uint32_t steps = 0;
        for (std::uint32_t head = m_rows.elements[member].head;
             head != kNone && steps < m_rows.elements.count; head = m_rows.elements[head].head, ++steps) {
            if (CanSubstitute(member, head))
                m_members[head].emplace_back(m_symbolOf[member], member);
        }
    }
    for (auto& members : m_members)
        std::sort(members.begin(), members.end());
}

// Part 1, 3.3.6, Substitution Group OK.
bool Grammar::CanSubstitute(std::uint32_t member, std::uint32_t head) const noexcept {
    ElementRow const& row = m_rows.elements[head];
    if ((row.block & kSubstitution) != 0)
        return false;
    auto blocked = row.block;
    TypeId const type = m_rows.elements[member].type;
    // The base, and the types between it and the member's, block too.
    for (TypeId step = type; IsComplex(step) && step != kAnyType;) {
        ComplexTypeRow const& complex = m_rows.complexTypes[ComplexTypeRowOf(step)];
        if (step != type)
            blocked = static_cast<std::uint8_t>(blocked | complex.block);
        if (step == row.type)
            break;
        step = complex.base;
    }
    return IsDerivedFrom(type, row.type, blocked);
}

Symbol Grammar::FindSymbol(std::string_view name, std::string_view ns) const noexcept {
    return Find(m_symbols, name, ns);
}

std::uint32_t Grammar::FindElement(std::string_view name, std::string_view ns) const noexcept {
    return FindElement(FindSymbol(name, ns));
}

std::uint32_t Grammar::FindElement(Symbol symbol) const noexcept {
    return symbol == kNone ? kNone : m_globalOf[symbol];
}

std::uint32_t Grammar::FindAttribute(std::string_view name, std::string_view ns) const noexcept {
    return Find(m_attributes, name, ns);
}

bool Grammar::FindType(std::string_view name, std::string_view ns, TypeId& type) const noexcept {
    auto const found = m_types.find({name, ns});
    if (found == m_types.end())
        return false;
    type = found->second;
    return true;
}

std::string Grammar::NameOfType(TypeId type) const {
    if (type == kAnyType)
        return "anyType";
    if (!IsComplex(type) && static_cast<std::uint32_t>(type) < kBuiltInCount)
        return NameOf(static_cast<BuiltIn>(type));
    char const* name = nullptr;
    char const* ns = nullptr;
    if (IsComplex(type)) {
        name = m_rows.complexTypes[ComplexTypeRowOf(type)].name;
        ns = m_rows.complexTypes[ComplexTypeRowOf(type)].ns;
    } else {
        name = m_rows.simpleTypes[static_cast<std::size_t>(type) - kBuiltInCount].name;
        ns = m_rows.simpleTypes[static_cast<std::size_t>(type) - kBuiltInCount].ns;
    }
    if (*name == '\0')
        return "anonymous type";
    return *ns == '\0' ? std::string(name) : "{" + std::string(ns) + "}" + name;
}

bool Grammar::IsDerivedFrom(TypeId type, TypeId base, std::uint8_t blocked) const noexcept {
    while (type != base) {
        if (!IsComplex(type)) {
            bool const isFromSimple =
                base == kAnyType ||
                (!IsComplex(base) && m_simpleTypes.IsDerivedFrom(static_cast<std::uint32_t>(type),
                                                                 static_cast<std::uint32_t>(base)));
            return isFromSimple && (blocked & kRestriction) == 0;
        }
        if (type == kAnyType)
            return false;
        ComplexTypeRow const& row = m_rows.complexTypes[ComplexTypeRowOf(type)];
        if ((row.derivation & blocked) != 0)
            return false;
        type = row.base;
    }
    return true;
}

// Of the substitution group.
std::uint32_t Grammar::FindMember(std::uint32_t head, Symbol symbol) const noexcept {
    auto const& members = m_members[head];
    if (members.empty() || symbol == kNone)
        return kNone;
    auto const found =
        std::lower_bound(members.begin(), members.end(), std::make_pair(symbol, std::uint32_t{0}));
    return found != members.end() && found->first == symbol ? found->second : kNone;
}

std::uint32_t Grammar::AcceptLocalName(std::uint32_t declared, std::string_view name) const noexcept {
    if (m_rows.elements[declared].name == name)
        return declared;
    for (auto const& [symbol, member] : m_members[declared]) {
        if (m_rows.elements[member].name == name)
            return member;
    }
    return kNone;
}

std::uint32_t Grammar::FindElementByLocalName(std::string_view name) const noexcept {
    for (std::uint32_t i = 0; i < m_rows.elements.count; ++i) {
        if (m_rows.elements[i].isGlobal && m_rows.elements[i].name == name)
            return i;
    }
    return kNone;
}

bool Grammar::Allows(WildcardRow const& wildcard, std::string_view ns) const noexcept {
    char const* const* const first = m_rows.texts.rows + wildcard.namespaces.first;
    bool const isListed =
        std::find(first, first + wildcard.namespaces.count, ns) != first + wildcard.namespaces.count;
    return isListed != wildcard.isNegated;
}

bool Grammar::IsEmptiable(ParticleRow const& particle) const noexcept {
    return particle.minOccurs == 0 ||
           (IsGroup(particle.kind) && m_begins[m_beginOf[IndexOf(particle)]].isEmptiable);
}

std::uint32_t Grammar::ChildFor(ParticleRow const& group, ElementName const& name) const noexcept {
    Begin const& begin = m_begins[m_beginOf[IndexOf(group)]];
    auto const found = std::lower_bound(begin.elements.begin(), begin.elements.end(),
                                        std::make_pair(name.symbol, std::uint32_t{0}));
    if (found != begin.elements.end() && found->first == name.symbol)
        return found->second;
    for (std::uint32_t const child : begin.wildcards) {
        if (Begins(m_rows.particles[child], name))
            return child;
    }
    return kNone;
}

bool Grammar::Begins(ParticleRow const& particle, ElementName const& name) const noexcept {
    if (particle.kind == ParticleKind::kElement)
        return Accept(particle.first, name.symbol) != kNone;
    if (particle.kind == ParticleKind::kWildcard)
        return Allows(m_rows.wildcards[particle.first], name.ns);
    return ChildFor(particle, name) != kNone;
}

void Grammar::AddBeginOf(std::uint32_t first, std::uint32_t count, ParticleKind kind) {
    Begin begin;
    begin.isEmptiable = kind != ParticleKind::kChoice;
    for (std::uint32_t child = first; child < first + count; ++child) {
        ParticleRow const& row = m_rows.particles[child];
        bool const canSkip = IsEmptiable(row);
        if (kind != ParticleKind::kSequence || begin.isEmptiable)
            AddBegin(begin, child, child);
        if (kind == ParticleKind::kChoice)
            begin.isEmptiable = begin.isEmptiable || canSkip;
        else
            begin.isEmptiable = begin.isEmptiable && canSkip;
    }
    // Of equal symbols the first child stays.
    std::stable_sort(begin.elements.begin(), begin.elements.end(),
                     [](auto const& left, auto const& right) { return left.first < right.first; });
    begin.elements.erase(
        std::unique(begin.elements.begin(), begin.elements.end(),
                    [](auto const& left, auto const& right) { return left.first == right.first; }),
        begin.elements.end());
    m_begins.push_back(std::move(begin));
}

// What the particle `child` begins with, as that of `as`.
void Grammar::AddBegin(Begin& begin, std::uint32_t child, std::uint32_t as) {
    ParticleRow const& row = m_rows.particles[child];
    if (row.kind == ParticleKind::kWildcard) {
        begin.wildcards.push_back(as);
    } else if (row.kind == ParticleKind::kElement) {
        begin.elements.emplace_back(m_symbolOf[row.first], as);
        for (auto const& [symbol, member] : m_members[row.first])
            begin.elements.emplace_back(symbol, as);
    } else {
        Begin const& inner = m_begins[m_beginOf[child]];
        for (auto const& [symbol, place] : inner.elements)
            begin.elements.emplace_back(symbol, as);
        if (!inner.wildcards.empty())
            begin.wildcards.push_back(as);
    }
}

// Foresight prefers to stay in a part. So it needs the fewest occurrences of the group, and is wrong only
// where the group needs several, or where it leaves too little for the last occurrence of the part.
void Grammar::FindAmbiguous() {
    m_isAmbiguous.assign(m_rows.particles.count, false);
    std::vector<bool> isVariable(m_rows.particles.count, false); // it, or a part of it
    std::vector<bool> isVariableFromTwo(m_rows.particles.count, false);
    for (std::uint32_t i = 0; i < m_rows.particles.count; ++i) {
        ParticleRow const& row = m_rows.particles[i];
        isVariable[i] = row.maxOccurs > 1 && row.maxOccurs != row.minOccurs;
        isVariableFromTwo[i] = isVariable[i] && row.minOccurs > 1 && row.maxOccurs != kUnbounded;
        if (!IsGroup(row.kind))
            continue;
        for (std::uint32_t child = row.first; child < row.first + row.count; ++child) {
            bool const canMiss =
                row.minOccurs > 1 ? isVariable[child] : row.maxOccurs > 1 && isVariableFromTwo[child];
            m_isAmbiguous[i] = m_isAmbiguous[i] || m_isAmbiguous[child] || canMiss;
            isVariable[i] = isVariable[i] || isVariable[child];
            isVariableFromTwo[i] = isVariableFromTwo[i] || isVariableFromTwo[child];
        }
    }
}

} // namespace ZvXmlLib16::grammar
