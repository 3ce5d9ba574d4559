// CPrimitiveRestrictions, the record of the facets of a type, without whiteSpace and enumeration.
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include "zvxmllib/foundation/TextOrEmpty.h"

namespace ZvXmlLib16 {

namespace detail {

PreparedFacets::~PreparedFacets() = default;

PreparedSlot::~PreparedSlot() {
    delete m_facets.load(std::memory_order_relaxed);
}

PreparedSlot& PreparedSlot::operator=(PreparedSlot const& other) noexcept {
    if (this != &other)
        delete m_facets.exchange(nullptr);
    return *this;
}

PreparedFacets const* PreparedSlot::Put(std::unique_ptr<PreparedFacets> facets) const noexcept {
    PreparedFacets* present = nullptr;
    if (m_facets.compare_exchange_strong(present, facets.get()))
        return facets.release();
    return present;
}

} // namespace detail

CPrimitiveRestrictions::CPrimitiveRestrictions() = default;

CPrimitiveRestrictions::CPrimitiveRestrictions(char const* patternText, std::int32_t minimumLength,
                                               std::int32_t maximumLength, char const* minimum,
                                               char const* maximum, char const* above, char const* below,
                                               std::int32_t exactLength, std::int32_t digits,
                                               std::int32_t digitsOfFraction)
    : pattern(detail::TextOrEmpty(patternText)), minLength(minimumLength), maxLength(maximumLength),
      minInclusive(detail::TextOrEmpty(minimum)), maxInclusive(detail::TextOrEmpty(maximum)),
      minExclusive(detail::TextOrEmpty(above)), maxExclusive(detail::TextOrEmpty(below)), length(exactLength),
      totalDigits(digits), fractionDigits(digitsOfFraction) {}

CPrimitiveRestrictions::CPrimitiveRestrictions(CPrimitiveRestrictions const&) = default;
CPrimitiveRestrictions::CPrimitiveRestrictions(CPrimitiveRestrictions&&) noexcept = default;
CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;
CPrimitiveRestrictions& CPrimitiveRestrictions::operator=(CPrimitiveRestrictions const&) = default;
CPrimitiveRestrictions& CPrimitiveRestrictions::operator=(CPrimitiveRestrictions&&) noexcept = default;

bool CPrimitiveRestrictions::HasFacets() const noexcept {
    return !pattern.empty() || minLength != -1 || maxLength != -1 || !minInclusive.empty() ||
           !maxInclusive.empty() || !minExclusive.empty() || !maxExclusive.empty() || length != -1 ||
           totalDigits != -1 || fractionDigits != -1;
}

} // namespace ZvXmlLib16
