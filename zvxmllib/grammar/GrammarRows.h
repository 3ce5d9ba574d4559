// A schema as rows of plain data, in which generated code states it and schema compilers build it.
#pragma once

#include <cstddef>
#include <cstdint>

// The components of XML Schema 1.0 (Part 1 and 2, second edition), resolved: nothing refers by name,
// attributes of base types and attribute groups are in place, model groups are where they are used. Rows
// refer to each other by index. Texts are UTF-8, never null, and outlive the grammar that is made of them.
namespace ZvXmlLib16::grammar {

constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::uint32_t kUnbounded = 0xFFFFFFFF;

// The built-in simple types. Their values are the ids of these types.
enum class BuiltIn : std::uint8_t {
    kAnySimpleType,
    kString,
    kNormalizedString,
    kToken,
    kLanguage,
    kNMTOKEN,
    kNMTOKENS,
    kName,
    kNCName,
    kID,
    kIDREF,
    kIDREFS,
    kENTITY,
    kENTITIES,
    kQName,
    kNOTATION,
    kAnyURI,
    kBoolean,
    kDecimal,
    kInteger,
    kNonPositiveInteger,
    kNegativeInteger,
    kNonNegativeInteger,
    kPositiveInteger,
    kLong,
    kInt,
    kShort,
    kByte,
    kUnsignedLong,
    kUnsignedInt,
    kUnsignedShort,
    kUnsignedByte,
    kFloat,
    kDouble,
    kDuration,
    kDateTime,
    kDate,
    kTime,
    kGYearMonth,
    kGYear,
    kGMonthDay,
    kGMonth,
    kGDay,
    kHexBinary,
    kBase64Binary
};
constexpr std::uint32_t kBuiltInCount = 45;

// The type of an element: the id of a simple type, or -1 - the id of a complex type. The ids of simple types
// are those of BuiltIn, then kBuiltInCount + the index of a row. The ids of complex types are 0 for anyType,
// then 1 + the index of a row.
using TypeId = std::int32_t;
constexpr TypeId kAnyType = -1;

constexpr bool IsComplex(TypeId type) noexcept {
    return type < 0;
}
constexpr TypeId ComplexTypeId(std::uint32_t row) noexcept {
    return -2 - static_cast<TypeId>(row);
}
constexpr std::uint32_t ComplexTypeRowOf(TypeId type) noexcept {
    return static_cast<std::uint32_t>(-2 - type);
}
constexpr TypeId SimpleTypeId(std::uint32_t row) noexcept {
    return static_cast<TypeId>(kBuiltInCount + row);
}

// Part of another list of rows.
struct Range {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

enum class Variety : std::uint8_t { kAtomic, kList, kUnion };

enum class Facet : std::uint8_t {
    kLength,
    kMinLength,
    kMaxLength,
    kPattern,     // those of one step are alternatives
    kEnumeration, // likewise. QName and NOTATION: {namespace}name; of a union with them,
                  // {namespace}prefix:name
    kMinInclusive,
    kMaxInclusive,
    kMinExclusive,
    kMaxExclusive,
    kTotalDigits,
    kFractionDigits,
    kWhiteSpace // preserve, replace, collapse
};

struct FacetRow {
    Facet facet;
    char const* value;
};

// One step of derivation.
struct SimpleTypeRow {
    char const* name; // empty for an anonymous type
    char const* ns;
    Variety variety;
    std::uint32_t base;  // id of the type that is restricted; anySimpleType for a new list or union
    std::uint32_t item;  // id, of a new list; kNone otherwise
    Range members;       // in `indexes`: ids, of a new union
    Range facets;        // those of this step
    std::uint8_t final_; // a sum of Derivation: what may not be derived in documents (by xsi:type)
};

// Bits: ways to derive a type, and substitution of elements.
enum Derivation : std::uint8_t {
    kNoDerivation = 0,
    kExtension = 1,
    kRestriction = 2,
    kSubstitution = 4,
    kByList = 8,
    kByUnion = 16
};

enum class ValueConstraint : std::uint8_t { kNoValue, kDefault, kFixed };

struct ElementRow {
    char const* name;
    char const* ns; // empty for none
    TypeId type;
    bool isGlobal;
    bool isNillable;
    bool isAbstract;
    ValueConstraint constraint;
    char const* value;  // of the constraint. As in kEnumeration
    std::uint8_t block; // a sum of Derivation
    std::uint32_t head; // index of the head of the substitution group, kNone for none
    Range identities;
};

struct AttributeRow {
    char const* name;
    char const* ns;
    std::uint32_t type; // id of a simple type
    bool isRequired;
    ValueConstraint constraint;
    char const* value;
};

enum class ProcessContents : std::uint8_t { kStrict, kLax, kSkip };

struct WildcardRow {
    bool isNegated;   // any namespace but those listed; an empty list of those is ##any
    Range namespaces; // in `texts`; an empty one stands for no namespace. ##other is negated, with the target
                      // namespace and the empty one
    ProcessContents processContents;
};

enum class ParticleKind : std::uint8_t { kElement, kWildcard, kSequence, kChoice, kAll };

// The children of a group are rows behind each other.
struct ParticleRow {
    ParticleKind kind;
    std::uint32_t minOccurs;
    std::uint32_t maxOccurs; // or kUnbounded
    std::uint32_t first;     // of an element or wildcard its index; of a group its first child
    std::uint32_t count;     // of children
};

enum class Content : std::uint8_t { kEmpty, kSimple, kElementOnly, kMixed };

struct ComplexTypeRow {
    char const* name; // empty for an anonymous type
    char const* ns;
    TypeId base; // anyType if it has no other
    std::uint8_t derivation;
    bool isAbstract;
    std::uint8_t block; // a sum of Derivation
    Content content;
    std::uint32_t simpleType;        // id, of simple content
    std::uint32_t particle;          // index, of element-only and mixed content; kNone for no elements
    Range attributes;                // all, also those of the base
    std::uint32_t attributeWildcard; // index or kNone
};

enum class IdentityKind : std::uint8_t { kUnique, kKey, kKeyRef };

// The paths are those of XML Schema Part 1, 3.11.6, with names as {namespace}name, {namespace}* or *, without
// white space and without "child::"; "attribute::" is "@". A name in no namespace is {}name or just name.
struct IdentityRow {
    IdentityKind kind;
    char const* name;
    char const* ns;
    std::uint32_t refer; // index of the key or unique of a keyref
    char const* selector;
    Range fields; // in `texts`
};

template <class Row>
struct Rows {
    Row const* rows = nullptr;
    std::size_t count = 0;

    Row const& operator[](std::size_t index) const noexcept { return rows[index]; }
    Row const* begin() const noexcept { return rows; }
    Row const* end() const noexcept { return rows + count; }
};

struct GrammarRows {
    Rows<SimpleTypeRow> simpleTypes; // a type stands behind those that it is made of
    Rows<FacetRow> facets;
    Rows<ComplexTypeRow> complexTypes;
    Rows<ElementRow> elements;
    Rows<AttributeRow> attributes;
    Rows<WildcardRow> wildcards;
    Rows<ParticleRow> particles;
    Rows<IdentityRow> identities;
    Rows<std::uint32_t> indexes;
    Rows<char const*> texts;
    Range globalAttributes;      // in `attributes`
    Rows<char const*> notations; // {namespace}name
};

} // namespace ZvXmlLib16::grammar
