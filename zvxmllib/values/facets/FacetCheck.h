// Checks a value against the facets of its type, by rules that the caller chooses.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// The arguments of CheckPrimitive, and the rules to use. By FacetRules::kXmlSchema the pattern is a matter of
// the value's text, which Check does not look at.
struct FacetCheck {
    char const* name;
    CPrimitiveRestrictions const& facets;
    detail::FacetRules rules;

    void Check(CBinaryData const& value, ItemType type) const;
    void Check(char value, ItemType type) const;
    void Check(short value, ItemType type) const;
    void Check(std::int32_t value, ItemType type) const;
    void Check(long long value, ItemType type) const;
    void Check(unsigned char value, ItemType type) const;
    void Check(unsigned short value, ItemType type) const;
    void Check(std::uint32_t value, ItemType type) const;
    void Check(unsigned long long value, ItemType type) const;
    void Check(float value, ItemType type) const;
    void Check(double value, ItemType type) const;
    void Check(std::string const& value, ItemType type) const;
    void Check(CDateTimeSpan const& value, ItemType type) const;
    void Check(CDateTime const& value, ItemType type) const;
    void Check(CDecimal const& value, ItemType type) const;
    void Check(CBigInteger const& value, ItemType type) const;
    void Check(bool value, ItemType type) const;
    void Check(ZvVariant const& value, ItemType type) const;

    // The pattern by FacetRules::kXmlSchema, against the text of a value of any type.
    void CheckText(std::string_view text) const;
};

} // namespace ZvXmlLib16
