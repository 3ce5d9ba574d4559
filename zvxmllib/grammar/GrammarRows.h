// A schema as rows of plain data, in which generated code states it and schema compilers build it.
#pragma once

#include <cstddef>
#include <cstdint>

// The components of XML Schema 1.0 (Part 1 and 2, second edition), resolved: nothing refers by name,
// attributes of base types and attribute groups are in place, model groups are where they are used. Rows
// refer to each other by index. Texts are UTF-8, never null, and outlive the grammar that is made of them.
namespace ZvXmlLib16::grammar {

// No index, and no upper bound.
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
// How many they are.
constexpr std::uint32_t kBuiltInCount = 45;

// The type of an element: the id of a simple type, or -1 - the id of a complex type. The ids of simple types
// are those of BuiltIn, then kBuiltInCount + the index of a row. The ids of complex types are 0 for anyType,
// then 1 + the index of a row.
using TypeId = std::int32_t;
constexpr TypeId kAnyType = -1;

// From ids of types to rows and back.
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
    std::uint32_t first = 0; // index
    std::uint32_t count = 0; // of rows
};

// The variety of a simple type.
enum class Variety : std::uint8_t { kAtomic, kList, kUnion };

// The constraining facets of XML Schema Part 2, 4.3.
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

// One facet with its value.
struct FacetRow {
    Facet facet;       // which one
    char const* value; // the lexical form
};

// One step of derivation.
struct SimpleTypeRow {
    char const* name;    // empty for an anonymous type
    char const* ns;      // empty for none
    Variety variety;     // of the type itself
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

// What the value that a declaration states means.
enum class ValueConstraint : std::uint8_t { kNoValue, kDefault, kFixed };

// The declaration of an element.
struct ElementRow {
    char const* name;           // local
    char const* ns;             // empty for none
    TypeId type;                // simple or complex
    bool isGlobal;              // it may be a root
    bool isNillable;            // xsi:nil is allowed
    bool isAbstract;            // only members of its substitution group may stand for it
    ValueConstraint constraint; // of its text
    char const* value;          // of the constraint. As in kEnumeration
    std::uint8_t block;         // a sum of Derivation
    std::uint32_t head;         // index of the head of the substitution group, kNone for none
    Range identities;           // in `identities`
};

// The declaration of an attribute.
struct AttributeRow {
    char const* name;           // local
    char const* ns;             // empty for none
    std::uint32_t type;         // id of a simple type
    bool isRequired;            // it may not be absent
    ValueConstraint constraint; // of its value
    char const* value;          // of the constraint
};

// How what a wildcard takes is validated.
enum class ProcessContents : std::uint8_t { kStrict, kLax, kSkip };

// A wildcard of elements or attributes.
struct WildcardRow {
    bool isNegated;   // any namespace but those listed; an empty list of those is ##any
    Range namespaces; // in `texts`; an empty one stands for no namespace. ##other is negated, with the target
                      // namespace and the empty one
    ProcessContents processContents; // of what it takes
};

// What a particle is.
enum class ParticleKind : std::uint8_t { kElement, kWildcard, kSequence, kChoice, kAll };

// The children of a group are rows behind each other.
struct ParticleRow {
    ParticleKind kind;       // what it is
    std::uint32_t minOccurs; // may be 0
    std::uint32_t maxOccurs; // or kUnbounded
    std::uint32_t first;     // of an element or wildcard its index; of a group its first child
    std::uint32_t count;     // of children
};

// What an element of a complex type may hold.
enum class Content : std::uint8_t { kEmpty, kSimple, kElementOnly, kMixed };

// A complex type.
struct ComplexTypeRow {
    char const* name;                // empty for an anonymous type
    char const* ns;                  // empty for none
    TypeId base;                     // anyType if it has no other
    std::uint8_t derivation;         // kExtension or kRestriction
    bool isAbstract;                 // elements need another type, by xsi:type
    std::uint8_t block;              // a sum of Derivation
    Content content;                 // what it holds
    std::uint32_t simpleType;        // id, of simple content
    std::uint32_t particle;          // index, of element-only and mixed content; kNone for no elements
    Range attributes;                // all, also those of the base
    std::uint32_t attributeWildcard; // index or kNone
};

// The kinds of identity constraints.
enum class IdentityKind : std::uint8_t { kUnique, kKey, kKeyRef };

// The paths are those of XML Schema Part 1, 3.11.6, with names as {namespace}name, {namespace}* or *, without
// white space and without "child::"; "attribute::" is "@". A name in no namespace is {}name or just name.
struct IdentityRow {
    IdentityKind kind;    // which one
    char const* name;     // local
    char const* ns;       // empty for none
    std::uint32_t refer;  // index of the key or unique of a keyref
    char const* selector; // a path
    Range fields;         // in `texts`
};

// Rows behind each other. Borrowed.
template <class Row>
struct Rows {
    Row const* rows = nullptr; // null for none
    std::size_t count = 0;     // of rows

    // Not checked.
    Row const& operator[](std::size_t index) const noexcept { return rows[index]; }
    // In order.
    Row const* begin() const noexcept { return rows; }
    Row const* end() const noexcept { return rows + count; }
};

// A whole schema. All rows and texts are borrowed.
struct GrammarRows {
    Rows<SimpleTypeRow> simpleTypes;   // a type stands behind those that it is made of
    Rows<FacetRow> facets;             // of simple types
    Rows<ComplexTypeRow> complexTypes; // without anyType
    Rows<ElementRow> elements;         // global and local ones
    Rows<AttributeRow> attributes;     // global and local ones
    Rows<WildcardRow> wildcards;       // of elements and attributes
    Rows<ParticleRow> particles;       // the children of a group behind each other
    Rows<IdentityRow> identities;      // of elements
    Rows<std::uint32_t> indexes;       // that ranges refer to
    Rows<char const*> texts;           // that ranges refer to
    Range globalAttributes;            // in `attributes`
    Rows<char const*> notations;       // {namespace}name
};

} // namespace ZvXmlLib16::grammar
