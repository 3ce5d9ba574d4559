#include "zvxmllib/collections/SharedRestrictions.h"

#include "zvxmllib/foundation/TextOrEmpty.h"

#include <array>
#include <cstddef>
#include <new>
#include <string_view>

namespace ZvXmlLib16::detail {

namespace {

constexpr std::size_t kRememberedFacets = 16;

// Objects of static storage may be made after the facets of their thread have ended.
thread_local bool t_facetsEnded = false;

struct RecentFacets {
    ~RecentFacets() { t_facetsEnded = true; }
    struct OfType {
        std::shared_ptr<CPrimitiveRestrictions const> facets;
        ItemType type;
    };
    std::array<OfType, kRememberedFacets> known;
    std::size_t next = 0; // to be forgotten
};

} // namespace

SharedRestrictions::SharedRestrictions(ItemType type, char const* pattern, std::int32_t minLength,
                                       std::int32_t maxLength, char const* minInclusive,
                                       char const* maxInclusive, char const* minExclusive,
                                       char const* maxExclusive, std::int32_t length,
                                       std::int32_t totalDigits, std::int32_t fractionDigits) {
    auto const hasTheseFacets = [&](CPrimitiveRestrictions const& other) {
        return other.minLength == minLength && other.maxLength == maxLength && other.length == length &&
               other.totalDigits == totalDigits && other.fractionDigits == fractionDigits &&
               other.pattern == TextOrEmpty(pattern) && other.minInclusive == TextOrEmpty(minInclusive) &&
               other.maxInclusive == TextOrEmpty(maxInclusive) &&
               other.minExclusive == TextOrEmpty(minExclusive) &&
               other.maxExclusive == TextOrEmpty(maxExclusive);
    };
    if (hasTheseFacets(None()))
        return;
    auto const make = [&] {
        return std::make_shared<CPrimitiveRestrictions const>(pattern, minLength, maxLength, minInclusive,
                                                              maxInclusive, minExclusive, maxExclusive,
                                                              length, totalDigits, fractionDigits);
    };
    if (t_facetsEnded) {
        m_facets = make();
        return;
    }
    thread_local RecentFacets recent;
    for (RecentFacets::OfType const& known : recent.known) {
        if (known.facets != nullptr && known.type == type && hasTheseFacets(*known.facets)) {
            m_facets = known.facets;
            return;
        }
    }
    m_facets = make();
    recent.known[recent.next] = {m_facets, type};
    recent.next = (recent.next + 1) % kRememberedFacets;
}

void SharedRestrictions::SetStrict(bool strict) {
    CPrimitiveRestrictions const& facets = *this;
    if (facets.GetStrict() == strict)
        return;
    auto own = std::make_shared<CPrimitiveRestrictions>(facets);
    own->SetStrict(strict);
    m_facets = std::move(own);
}

// Never ends: collections of static storage may use it.
CPrimitiveRestrictions const& SharedRestrictions::None() noexcept {
    alignas(CPrimitiveRestrictions) static unsigned char storage[sizeof(CPrimitiveRestrictions)];
    static CPrimitiveRestrictions const& none = *new (storage) CPrimitiveRestrictions;
    return none;
}

} // namespace ZvXmlLib16::detail
