// CPrimitiveRestrictions, the record of the facets of a type, without whiteSpace and enumeration.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

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
};

} // namespace ZvXmlLib16
