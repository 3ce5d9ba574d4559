// The pattern facet (XML Schema Part 2, 4.3.4) where facets hold it.
#pragma once

#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include <string_view>

namespace ZvXmlLib16 {

// MatchesPattern for the pattern of facets, which is local text. The compiled form is kept beside them, so
// that later values need no lock.
bool MatchesPattern(CPrimitiveRestrictions const& facets, std::string_view value,
                    detail::FacetRules rules = detail::FacetRules::kLetter);

} // namespace ZvXmlLib16
