// Checks a value against the facets of its type.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace ZvXmlLib16 {

namespace detail {
enum class FacetRules : std::uint8_t;
}

class CPrimitiveRestrictions;

// CheckPrimitive throws CZvException for the first facet that the value violates. `name`, of the element or
// attribute, is in the message; null counts as empty. A bound that is not a value of the type throws what its
// conversion throws. Facets that a type does not have are ignored. Thread-safe. The restrictions decide on
// the rules, see CPrimitiveRestrictions::SetStrict.
//
// Bounds are parsed when a value is first checked, and kept beside the facets; patterns are compiled once.

// hexBinary; in base64Binary only the text of the message differs.
ZV_API void CheckPrimitive(char const* name, CBinaryData const& value,
                           CPrimitiveRestrictions const& restrictions);
// i1, a signed number.
ZV_API void CheckPrimitive(char const* name, char value, CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, short value, CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, std::int32_t value, CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, long long value, CPrimitiveRestrictions const& restrictions);
// ui1.
ZV_API void CheckPrimitive(char const* name, unsigned char value, CPrimitiveRestrictions const& restrictions);
// ui2.
ZV_API void CheckPrimitive(char const* name, unsigned short value,
                           CPrimitiveRestrictions const& restrictions);
// A value above 2147483647 shows as a negative number in the message.
ZV_API void CheckPrimitive(char const* name, std::uint32_t value, CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, unsigned long long value,
                           CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, float value, CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, double value, CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, std::string const& value,
                           CPrimitiveRestrictions const& restrictions);
// Null counts as empty.
ZV_API void CheckPrimitive(char const* name, char const* value, CPrimitiveRestrictions const& restrictions);
// A pair without an order passes.
ZV_API void CheckPrimitive(char const* name, CDateTimeSpan const& value,
                           CPrimitiveRestrictions const& restrictions);
// By its own type.
ZV_API void CheckPrimitive(char const* name, CDateTime const& value,
                           CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, CDecimal const& value,
                           CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, CBigInteger const& value,
                           CPrimitiveRestrictions const& restrictions);
// Always passes.
ZV_API void CheckPrimitive(char const* name, bool value, CPrimitiveRestrictions const& restrictions);

// The platform's own long, checked as the interface type of its width.
inline void CheckPrimitive(char const* name, long value, CPrimitiveRestrictions const& restrictions) {
    using Same = std::conditional_t<sizeof(long) == sizeof(std::int32_t), std::int32_t, long long>;
    CheckPrimitive(name, static_cast<Same>(value), restrictions);
}
inline void CheckPrimitive(char const* name, unsigned long value,
                           CPrimitiveRestrictions const& restrictions) {
    using Same = std::conditional_t<sizeof(long) == sizeof(std::int32_t), std::uint32_t, unsigned long long>;
    CheckPrimitive(name, static_cast<Same>(value), restrictions);
}

// The same for a value of the given type, where several types share one in C++: binary data is hexBinary or
// base64Binary, numbers are those of years, months and days, and a date may be any of the five types.
ZV_API void CheckPrimitive(char const* name, CBinaryData const& value, ItemType type,
                           CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, unsigned char value, ItemType type,
                           CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, unsigned short value, ItemType type,
                           CPrimitiveRestrictions const& restrictions);
ZV_API void CheckPrimitive(char const* name, CDateTime const& value, ItemType type,
                           CPrimitiveRestrictions const& restrictions);
template <class Value>
void CheckPrimitive(char const* name, Value const& value, ItemType,
                    CPrimitiveRestrictions const& restrictions) {
    CheckPrimitive(name, value, restrictions);
}

// The value of a variant, which holds one of `type`; a nil one counts as empty. Throws
// CZvInvalidValueException for a type without facets (char, objects, collections), and CZvException for an
// invalid variant.
ZV_API void CheckPrimitiveVariant(char const* name, ZvVariant const& value, ItemType type,
                                  CPrimitiveRestrictions const& restrictions);

// True if the whole value, local text that ends at a NUL, matches the pattern, which is UTF-8 (XML Schema
// Part 2, 4.3.4). Throws CZvException for a pattern that does not compile. Escapes for names and a few blocks
// are translated by plain replacement, even within character classes; the rest of the pattern goes to the
// regular expression library unchanged. A limited number of compiled patterns is cached. Thread-safe.
ZV_API bool MatchesPattern(std::string const& pattern, std::string_view value);

namespace detail {

// The same by other rules. FacetRules::kXmlSchema takes the expressions of XML Schema Part 2, appendix F, and
// no others.
ZV_API bool MatchesPattern(std::string const& pattern, std::string_view value, FacetRules rules);

// False if CheckPrimitiveVariant passes every value of the type, so that callers with many values can skip
// it.
ZV_API bool NeedsCheck(ItemType type, CPrimitiveRestrictions const& restrictions) noexcept;

} // namespace detail

} // namespace ZvXmlLib16
