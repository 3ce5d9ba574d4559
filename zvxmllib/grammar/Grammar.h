// A grammar, ready for use: its names can be looked up, and its groups know what they begin with.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"
#include "zvxmllib/grammar/IdentityConstraints.h"
#include "zvxmllib/grammar/SimpleTypes.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ZvXmlLib16::grammar {

// Names of elements are numbers inside a grammar; kNone is a name that it does not have.
using Symbol = std::uint32_t;

// An element of a document, as content models look at it.
struct ElementName {
    Symbol symbol;
    std::string_view name;
    std::string_view ns;
};

// Made once; any number of threads may then use it.
class Grammar {
public:
    // `rows` are borrowed with all that they point to. They come from a schema that is valid. Throws
    // CZvInvalidParamException for what cannot be used all the same.
    explicit Grammar(GrammarRows const& rows);
    Grammar(Grammar const&) = delete;
    Grammar& operator=(Grammar const&) = delete;
    ~Grammar();

    GrammarRows const& GetRows() const noexcept { return m_rows; }
    SimpleTypes const& GetSimpleTypes() const noexcept { return m_simpleTypes; }
    IdentityPaths const& GetIdentityPaths() const noexcept { return m_identityPaths; }

    Symbol FindSymbol(std::string_view name, std::string_view ns) const noexcept;
    // Global components; kNone if there is none. A type is false if there is none.
    std::uint32_t FindElement(std::string_view name, std::string_view ns) const noexcept;
    std::uint32_t FindElement(Symbol symbol) const noexcept;
    Symbol SymbolOf(std::uint32_t element) const noexcept { return m_symbolOf[element]; }
    // The first one with this local name.
    std::uint32_t FindElementByLocalName(std::string_view name) const noexcept;
    std::uint32_t FindAttribute(std::string_view name, std::string_view ns) const noexcept;
    bool FindType(std::string_view name, std::string_view ns, TypeId& type) const noexcept;

    // {namespace}name or the built-in name, for messages; "anonymous type" without one.
    std::string NameOfType(TypeId type) const;

    // Whether `type` is `base` or derived from it, without the derivations in `blocked` (Part
    // 1, 3.4.6, 3.14.6).
    bool IsDerivedFrom(TypeId type, TypeId base, std::uint8_t blocked) const noexcept;

    // The declaration for an element where the particle has the declaration `declared`: that, a member of its
    // substitution group, or kNone.
    std::uint32_t Accept(std::uint32_t declared, Symbol symbol) const noexcept {
        return m_symbolOf[declared] == symbol ? declared : FindMember(declared, symbol);
    }
    std::uint32_t AcceptLocalName(std::uint32_t declared, std::string_view name) const noexcept;
    bool Allows(WildcardRow const& wildcard, std::string_view ns) const noexcept;

    // Of a group's particle: whether it can be empty, and the child that takes an element at its begin; kNone
    // for none.
    bool IsEmptiable(ParticleRow const& particle) const noexcept;
    std::uint32_t ChildFor(ParticleRow const& group, ElementName const& name) const noexcept;
    // Whether an element can begin this particle.
    bool Begins(ParticleRow const& particle, ElementName const& name) const noexcept;
    // Whether one step of foresight may take the wrong way through the particle: in a repeated group a part
    // may come several times, and either can count an element.
    bool IsAmbiguous(std::uint32_t particle) const noexcept { return m_isAmbiguous[particle]; }

private:
    struct Name {
        std::string_view name;
        std::string_view ns;
        bool operator==(Name const& other) const noexcept { return name == other.name && ns == other.ns; }
    };
    struct HashName {
        std::size_t operator()(Name const& name) const noexcept;
    };
    using NameMap = std::unordered_map<Name, std::uint32_t, HashName>;
    // What a group begins with. Groups of the same children share it.
    struct Begin {
        std::vector<std::pair<Symbol, std::uint32_t>> elements; // sorted; with the child
        std::vector<std::uint32_t> wildcards;                   // children that begin with one
        bool isEmptiable = true;
    };

    std::uint32_t FindMember(std::uint32_t head, Symbol symbol) const noexcept;
    static std::uint32_t Find(NameMap const& map, std::string_view name, std::string_view ns) noexcept;
    void AddNames();
    void AddSubstitutions();
    bool CanSubstitute(std::uint32_t member, std::uint32_t head) const noexcept;
    void AddBeginOf(std::uint32_t first, std::uint32_t count, ParticleKind kind);
    void AddBegin(Begin& begin, std::uint32_t child, std::uint32_t as);
    void FindAmbiguous();
    std::size_t IndexOf(ParticleRow const& particle) const noexcept {
        return static_cast<std::size_t>(&particle - m_rows.particles.rows);
    }

    GrammarRows const m_rows;
    SimpleTypes const m_simpleTypes;
    IdentityPaths const m_identityPaths;
    NameMap m_symbols;
    NameMap m_attributes;
    std::unordered_map<Name, TypeId, HashName> m_types;
    std::vector<Symbol> m_symbolOf;                                       // by element
    std::vector<std::uint32_t> m_globalOf;                                // by symbol: the global element
    std::vector<std::vector<std::pair<Symbol, std::uint32_t>>> m_members; // by element: sorted
    std::vector<Begin> m_begins;
    std::vector<std::uint32_t> m_beginOf; // by particle, of groups
    std::vector<bool> m_isAmbiguous;      // by particle
};

} // namespace ZvXmlLib16::grammar
