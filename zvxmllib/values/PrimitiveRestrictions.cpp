// CPrimitiveRestrictions, the record of the facets of a type, without whiteSpace and enumeration.
#include "zvxmllib/values/PrimitiveRestrictions.h"

#include "zvxmllib/values/Bounds.h"

namespace ZvXmlLib16 {

namespace detail {

BoundsSlot::~BoundsSlot() {
    delete m_bounds.load(std::memory_order_relaxed);
}

BoundsSlot& BoundsSlot::operator=(BoundsSlot const& other) noexcept {
    if (this != &other)
        delete m_bounds.exchange(nullptr);
    return *this;
}

AnyBounds const* BoundsSlot::Put(std::unique_ptr<AnyBounds> bounds) const noexcept {
    AnyBounds* present = nullptr;
    if (m_bounds.compare_exchange_strong(present, bounds.get()))
        return bounds.release();
    return present;
}

} // namespace detail

namespace {

char const* TextOrEmpty(char const* text) {
    return text != nullptr ? text : "";
}

} // namespace

CPrimitiveRestrictions::CPrimitiveRestrictions() = default;

CPrimitiveRestrictions::CPrimitiveRestrictions(char const* patternText, std::int32_t minimumLength,
                                               std::int32_t maximumLength, char const* minimum,
                                               char const* maximum, char const* above, char const* below,
                                               std::int32_t exactLength, std::int32_t digits,
                                               std::int32_t digitsOfFraction)
    : pattern(TextOrEmpty(patternText)), minLength(minimumLength), maxLength(maximumLength),
      minInclusive(TextOrEmpty(minimum)), maxInclusive(TextOrEmpty(maximum)),
      minExclusive(TextOrEmpty(above)), maxExclusive(TextOrEmpty(below)), length(exactLength),
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
