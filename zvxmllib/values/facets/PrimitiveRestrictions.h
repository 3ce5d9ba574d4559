// CPrimitiveRestrictions, the record of the facets of a type, without whiteSpace and enumeration.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace ZvXmlLib16 {

namespace detail {

// Facets prepared for checking one type: parsed bounds, or a compiled pattern.
class ZV_API PreparedFacets {
public:
    explicit PreparedFacets(ItemType type) noexcept : m_type(type) {}
    PreparedFacets(PreparedFacets const&) = delete;
    PreparedFacets& operator=(PreparedFacets const&) = delete;
    virtual ~PreparedFacets();

    ItemType GetType() const noexcept { return m_type; }

private:
    ItemType m_type;
};

// Keeps them beside their texts: made by any thread when a value is first checked, and shared by all threads.
// A copy starts empty.
class ZV_API PreparedSlot {
public:
    PreparedSlot() noexcept = default;
    PreparedSlot(PreparedSlot const&) noexcept {}
    PreparedSlot& operator=(PreparedSlot const& other) noexcept;
    ~PreparedSlot();

    PreparedFacets const* Get() const noexcept { return m_facets.load(std::memory_order_acquire); }
    // Takes ownership of `facets`, unless another thread was faster, and returns the facets kept.
    PreparedFacets const* Put(std::unique_ptr<PreparedFacets> facets) const noexcept;

private:
    mutable std::atomic<PreparedFacets*> m_facets{nullptr};
};

// By which rules values are tested: the usual ones, which the comments of the facets tell, or those of XML
// Schema Part 2 to the letter. By these, lengths of strings are in characters, a sign is no digit, a pair of
// values without an order keeps no bound, and the pattern is one of appendix F and holds for every type.
enum class FacetRules : std::uint8_t { kLetter, kXmlSchema };

} // namespace detail

// The constraining facets of XML Schema Part 2, 4.3. Generated code fills one for each restricted property;
// the metadata keeps a copy. An empty string and -1 mean that the facet is not set. Bounds are in the lexical
// form of the type that they are checked for.
class ZV_API CPrimitiveRestrictions {
public:
    // No facet.
    CPrimitiveRestrictions();
    // A null text counts as empty.
    CPrimitiveRestrictions(char const* pattern, std::int32_t minLength, std::int32_t maxLength,
                           char const* minInclusive, char const* maxInclusive, char const* minExclusive,
                           char const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
                           std::int32_t fractionDigits);
    CPrimitiveRestrictions(CPrimitiveRestrictions const& other);
    CPrimitiveRestrictions(CPrimitiveRestrictions&& other) noexcept;
    virtual ~CPrimitiveRestrictions();

    CPrimitiveRestrictions& operator=(CPrimitiveRestrictions const& other);
    CPrimitiveRestrictions& operator=(CPrimitiveRestrictions&& other) noexcept;

    // True if any facet is set. Callers with many values ask once.
    bool HasFacets() const noexcept;

    std::string pattern;              // of text in the lexical form; see GetStrict
    std::int32_t minLength = -1;      // of a string in bytes of the local text, of binary data in bytes
    std::int32_t maxLength = -1;      // likewise
    std::string minInclusive;         // the least value
    std::string maxInclusive;         // the greatest value
    std::string minExclusive;         // below the least value
    std::string maxExclusive;         // above the greatest value
    std::int32_t length = -1;         // the only length, as minLength
    std::int32_t totalDigits = -1;    // the sign of a negative number counts as a digit
    std::int32_t fractionDigits = -1; // at most so many

    // Whether values are tested by the rules of XML Schema whatever a context says: those that an application
    // adds to a collection, and those that it tests itself. False.
    bool GetStrict() const noexcept { return m_isStrict; }
    void SetStrict(bool strict) noexcept { m_isStrict = strict; }
    detail::FacetRules GetRules() const noexcept {
        return m_isStrict ? detail::FacetRules::kXmlSchema : detail::FacetRules::kLetter;
    }

    // For the check of values: the prepared facets, and the pattern of FacetRules::kXmlSchema.
    detail::PreparedSlot const& GetPreparedSlot() const noexcept { return m_preparedSlot; }
    detail::PreparedSlot const& GetSchemaPatternSlot() const noexcept { return m_schemaPatternSlot; }

private:
    bool m_isStrict = false;
    detail::PreparedSlot m_preparedSlot;
    detail::PreparedSlot m_schemaPatternSlot;
};

} // namespace ZvXmlLib16
