// The four bounds of a restriction as values of a type, parsed once. Header only.
#pragma once

#include "zvxmllib/values/facets/PrimitiveRestrictions.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <array>
#include <optional>
#include <string>

namespace ZvXmlLib16::detail {

enum Bound { kMinInclusive, kMaxInclusive, kMinExclusive, kMaxExclusive, kBounds };

inline std::string const& BoundText(CPrimitiveRestrictions const& facets, std::size_t bound) {
    std::string const* const texts[] = {&facets.minInclusive, &facets.maxInclusive, &facets.minExclusive,
                                        &facets.maxExclusive};
    return *texts[bound];
}

// Bounds of some type, with the texts that they were parsed from, so that a facet which was changed since is
// seen.
class AnyBounds : public PreparedFacets {
public:
    AnyBounds(ItemType type, CPrimitiveRestrictions const& facets) : PreparedFacets(type) {
        for (std::size_t bound = 0; bound < kBounds; ++bound)
            m_texts[bound] = BoundText(facets, bound);
    }

    bool AreOf(CPrimitiveRestrictions const& facets) const noexcept {
        for (std::size_t bound = 0; bound < kBounds; ++bound) {
            if (m_texts[bound] != BoundText(facets, bound))
                return false;
        }
        return true;
    }

private:
    std::array<std::string, kBounds> m_texts;
};

template <class Value>
class Bounds final : public AnyBounds {
public:
    using FromText = Value (*)(std::string const&, CWhitespaceUtils::WhitespaceRule);

    // Throws what the conversion throws for a bound that is no value of the type.
    Bounds(ItemType type, CPrimitiveRestrictions const& facets, FromText fromText) : AnyBounds(type, facets) {
        for (std::size_t bound = 0; bound < kBounds; ++bound) {
            std::string const& text = BoundText(facets, bound);
            if (!text.empty())
                m_values[bound].emplace(fromText(text, CWhitespaceUtils::WhitespaceRule_Collapse));
        }
    }

    // Null for a bound that is not set.
    Value const* Find(std::size_t bound) const noexcept {
        return m_values[bound].has_value() ? &*m_values[bound] : nullptr;
    }

private:
    std::array<std::optional<Value>, kBounds> m_values;
};

} // namespace ZvXmlLib16::detail
