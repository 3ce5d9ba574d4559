// The pattern facet (XML Schema Part 2, 4.3.4), translated for a library of regular expressions.
#pragma once

#include <string>
#include <string_view>

namespace ZvXmlLib16 {

class CPrimitiveRestrictions;

// True if the whole value, local text that ends at a NUL, matches the pattern, which is UTF-8. Throws
// CZvException for a pattern that does not compile. Escapes for names and a few blocks are translated by
// plain replacement, also within character classes; the rest of the pattern reaches the library as it is.
// Compiled patterns are kept, a limited number of them. Safe for threads.
bool MatchesPattern(std::string const& pattern, std::string_view value);

// The same for the pattern of facets, which is local text. What it was compiled into is kept beside them, so
// that later values take no lock.
bool MatchesPattern(CPrimitiveRestrictions const& facets, std::string_view value);

} // namespace ZvXmlLib16
