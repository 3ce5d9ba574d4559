// CPrimitiveRestrictions, the record of the facets of a type, without whiteSpace and enumeration.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace ZvXmlLib16 {

namespace detail {

class AnyBounds;

// Keeps the parsed bounds beside their texts: made when a value is first checked, by whatever thread, and
// shared by all. A copy begins without.
class ZV_API BoundsSlot {
public:
    BoundsSlot() noexcept = default;
    BoundsSlot(BoundsSlot const&) noexcept {}
    BoundsSlot& operator=(BoundsSlot const& other) noexcept;
    ~BoundsSlot();

    AnyBounds const* Get() const noexcept { return m_bounds.load(std::memory_order_acquire); }
    // Owns `bounds` from now on, unless another thread was faster, whose bounds it then returns.
    AnyBounds const* Put(std::unique_ptr<AnyBounds> bounds) const noexcept;

private:
    mutable std::atomic<AnyBounds*> m_bounds{nullptr};
};

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

    // True if any facet is set. Who checks many values asks once.
    bool HasFacets() const noexcept;

    std::string pattern;
    std::int32_t minLength = -1; // of a string in bytes of the local text, of binary data in bytes
    std::int32_t maxLength = -1;
    std::string minInclusive;
    std::string maxInclusive;
    std::string minExclusive;
    std::string maxExclusive;
    std::int32_t length = -1;
    std::int32_t totalDigits = -1; // the sign of a negative number counts as a digit
    std::int32_t fractionDigits = -1;

    // For the check of values.
    detail::BoundsSlot const& GetBoundsSlot() const noexcept { return m_boundsSlot; }

private:
    detail::BoundsSlot m_boundsSlot;
};

} // namespace ZvXmlLib16
