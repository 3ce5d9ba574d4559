// Generated from an XML schema by zvxml-gen. Changes are lost.
#include "golden.h"

namespace golden_rows {
namespace {

using namespace ZvXmlLib16::grammar;

constexpr SimpleTypeRow kSimpleTypes[] = {
    {"Colour", "urn:golden", Variety{0}, 3, kNone, {0, 0}, {0, 2}, 0},
    {"", "urn:golden", Variety{1}, 0, 25, {0, 0}, {0, 0}, 0},
    {"", "urn:golden", Variety{0}, 1, kNone, {0, 0}, {2, 1}, 0},
};

constexpr FacetRow kFacets[] = {
    {Facet{4}, "red"},
    {Facet{4}, "dark red"},
    {Facet{2}, "8"},
};

constexpr ComplexTypeRow kComplexTypes[] = {
    {"Base", "urn:golden", -1, 2, true, 0, Content{0}, 0, kNone, {0, 1}, kNone},
    {"Plain", "urn:golden", -2, 1, false, 0, Content{0}, 0, kNone, {1, 1}, kNone},
    {"Amount", "urn:golden", 18, 1, false, 0, Content{1}, 18, kNone, {2, 1}, kNone},
    {"Text", "urn:golden", -1, 2, false, 0, Content{3}, 0, 1, {3, 0}, kNone},
    {"", "urn:golden", -1, 2, false, 0, Content{2}, 0, 10, {3, 1}, kNone},
};

constexpr ElementRow kElements[] = {
    {"item", "urn:golden", -2, true, false, true, ValueConstraint{0}, "", 0, kNone, {0, 0}},
    {"plain", "urn:golden", -3, true, false, false, ValueConstraint{0}, "", 0, 0, {0, 0}},
    {"order", "urn:golden", -6, true, false, false, ValueConstraint{0}, "", 0, kNone, {0, 1}},
    {"b", "urn:golden", 1, false, false, false, ValueConstraint{0}, "", 0, kNone, {1, 0}},
    {"number", "urn:golden", 25, false, false, false, ValueConstraint{0}, "", 0, kNone, {1, 0}},
    {"due", "urn:golden", 36, false, true, false, ValueConstraint{0}, "", 0, kNone, {1, 0}},
    {"tag", "urn:golden", 47, false, false, false, ValueConstraint{0}, "", 0, kNone, {1, 0}},
    {"total", "urn:golden", -4, false, false, false, ValueConstraint{0}, "", 0, kNone, {1, 0}},
    {"note", "urn:golden", -5, false, false, false, ValueConstraint{0}, "", 0, kNone, {1, 0}},
};

constexpr AttributeRow kAttributes[] = {
    {"id", "", 9, true, ValueConstraint{0}, ""},
    {"id", "", 9, true, ValueConstraint{0}, ""},
    {"unit", "", 45, false, ValueConstraint{1}, "red"},
    {"colours", "", 46, false, ValueConstraint{0}, ""},
};

constexpr WildcardRow kWildcards[] = {
    {true, {1, 0}, ProcessContents{1}},
    {true, {1, 0}, ProcessContents{1}},
    {true, {1, 0}, ProcessContents{1}},
    {true, {1, 2}, ProcessContents{1}},
};

constexpr ParticleRow kParticles[] = {
    {ParticleKind{0}, 1, 1, 3, 0},
    {ParticleKind{3}, 0, kUnbounded, 0, 1},
    {ParticleKind{0}, 1, 1, 7, 0},
    {ParticleKind{0}, 1, 1, 8, 0},
    {ParticleKind{0}, 1, 1, 4, 0},
    {ParticleKind{0}, 0, 1, 5, 0},
    {ParticleKind{0}, 0, kUnbounded, 6, 0},
    {ParticleKind{0}, 1, 9, 0, 0},
    {ParticleKind{3}, 1, 1, 2, 2},
    {ParticleKind{1}, 0, 1, 3, 0},
    {ParticleKind{2}, 1, 1, 4, 6},
};

constexpr IdentityRow kIdentities[] = {
    {IdentityKind{1}, "ids", "urn:golden", kNone, "*", {0, 1}},
};

constexpr char const* const kTexts[] = {
    "@id",
    "urn:golden",
    "",
};

constexpr GrammarRows kRows = {
    {kSimpleTypes, 3},
    {kFacets, 3},
    {kComplexTypes, 5},
    {kElements, 9},
    {kAttributes, 4},
    {kWildcards, 4},
    {kParticles, 11},
    {kIdentities, 1},
    {},
    {kTexts, 3},
    {4, 0},
    {},
};

using Maker = ::ZvXmlLib16::generated::CTypedObject* (*)(TypeId, std::uint32_t);

template <class Class>
::ZvXmlLib16::generated::CTypedObject* Make(TypeId type, std::uint32_t declaration) {
    return new Class(::golden::goldenSchema(), type, declaration);
}

// By the row of the type.
constexpr Maker kMakers[] = {
    &Make<::golden::CBase>,
    &Make<::golden::CPlain>,
    &Make<::golden::CAmount>,
    &Make<::golden::CText>,
    &Make<::golden::COrder>,
    nullptr};

::ZvXmlLib16::generated::CTypedObject* MakeObject(TypeId type, std::uint32_t declaration) {
    if (!IsComplex(type) || type == kAnyType)
        return nullptr;
    Maker const maker = kMakers[ComplexTypeRowOf(type)];
    return maker == nullptr ? nullptr : maker(type, declaration);
}

} // namespace
} // namespace golden_rows

namespace golden {

::ZvXmlLib16::generated::BoundSchema const& goldenSchema() {
    static ::ZvXmlLib16::generated::BoundSchema const schema(
        ::golden_rows::kRows, &::golden_rows::MakeObject);
    return schema;
}

gen::EnumTexts ColourTraits::Texts() noexcept {
    static constexpr char const* const texts[] = {
        "red",
        "dark red",
    };
    return {texts, 2};
}

CPlain::CPlain() : CPlain(::golden::goldenSchema(), -3, zv::grammar::kNone) {}

CAmount::CAmount() : CAmount(::golden::goldenSchema(), -4, zv::grammar::kNone) {}

CText::CText() : CText(::golden::goldenSchema(), -5, zv::grammar::kNone) {}

COrder::COrder() : COrder(::golden::goldenSchema(), -6, 2) {}

} // namespace golden

