// SharedRestrictions, the facets of a collection.
#pragma once

#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include <cstdint>
#include <memory>

namespace ZvXmlLib16::detail {

// Facets that many collections have in common, with the patterns and bounds prepared for them: none at all,
// or those of an earlier collection that this thread has made. Reads as a CPrimitiveRestrictions, whose
// comments apply.
class ZV_API SharedRestrictions {
public:
    // `type` is that of the values, for which patterns and bounds are prepared.
    SharedRestrictions(ItemType type, char const* pattern, std::int32_t minLength, std::int32_t maxLength,
                       char const* minInclusive, char const* maxInclusive, char const* minExclusive,
                       char const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
                       std::int32_t fractionDigits);

    // For this one alone.
    void SetStrict(bool strict);
    bool HasFacets() const noexcept { return m_facets != nullptr && m_facets->HasFacets(); }
    operator CPrimitiveRestrictions const&() const noexcept {
        return m_facets != nullptr ? *m_facets : None();
    }

private:
    static CPrimitiveRestrictions const& None() noexcept;

    std::shared_ptr<CPrimitiveRestrictions const> m_facets; // null for none
};

} // namespace ZvXmlLib16::detail
