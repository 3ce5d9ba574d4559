// A simple type as it is tested: with all facets in force, its own and those of its bases.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"
#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/grammar/OrderedValues.h"
#include "zvxmllib/grammar/PatternStep.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::grammar {

struct SizeFacet {
    char const* text = nullptr; // null for none
    std::uint64_t value = 0;
};

struct Bound {
    char const* text;
    bool isBuiltIn; // of a built-in type
    OrderedValue value;
};

// The keys of the values, sorted.
using Enumeration = std::vector<std::string>;

struct UnionMembers {
    std::vector<struct SimpleType const*> tried;  // in this order; none is a union
    std::vector<struct SimpleType const*> nested; // all, also members of members
};

// Points into other types, which are before it. Never copied.
struct SimpleType {
    SimpleType() = default;
    SimpleType(SimpleType const&) = delete;
    SimpleType& operator=(SimpleType const&) = delete;

    std::uint32_t id = 0;
    char const* name = "";
    SimpleType const* base = nullptr; // null for anySimpleType
    Variety variety = Variety::kAtomic;
    BuiltIn builtIn = BuiltIn::kAnySimpleType;   // the nearest
    BuiltIn primitive = BuiltIn::kAnySimpleType; // its primitive type
    WhiteSpace whiteSpace = WhiteSpace::kPreserve;
    bool hasIds = false;
    bool hasQNames = false;
    bool hasList = false; // is one, or a union with one

    SimpleType const* item = nullptr;      // of a list
    UnionMembers const* members = nullptr; // of a union

    // Facets in force; null where there is none.
    static constexpr std::size_t kLengths = 3; // length, minLength, maxLength
    static constexpr std::size_t kBounds = 4;  // in the order of Facet
    bool hasLengths = false;
    bool hasBounds = false;
    std::array<SizeFacet, kLengths> lengths;
    std::array<Bound const*, kBounds> bounds{};
    SizeFacet totalDigits;
    SizeFacet fractionDigits;
    PatternStep const* patterns = nullptr;
    Enumeration const* enumeration = nullptr;

    // What this step adds.
    std::unique_ptr<UnionMembers> ownMembers;
    std::array<std::unique_ptr<Bound>, kBounds> ownBounds;
    std::unique_ptr<PatternStep> ownPatterns;
    std::unique_ptr<Enumeration> ownEnumeration;
};

constexpr Facet LengthFacet(std::size_t index) noexcept {
    return static_cast<Facet>(static_cast<std::size_t>(Facet::kLength) + index);
}
constexpr Facet BoundFacet(std::size_t index) noexcept {
    return static_cast<Facet>(static_cast<std::size_t>(Facet::kMinInclusive) + index);
}

using SimpleTypeList = std::vector<std::unique_ptr<SimpleType>>;

// Append the built-in types; those of the rows. Throw CZvInvalidParamException. `notations` is sorted.
void AddBuiltInTypes(SimpleTypeList& types);
void AddTypesOfRows(GrammarRows const& rows, std::vector<std::string_view> const& notations,
                    SimpleTypeList& types);

} // namespace ZvXmlLib16::grammar
