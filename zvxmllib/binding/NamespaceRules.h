// Tests a namespace against the list of an XML Schema wildcard (XML Schema Part 1, 3.10.2).
#pragma once

#include <string_view>

namespace ZvXmlLib16 {

inline constexpr char kAnyNamespace[] = "##any";

// True if a token of `allowed`, a list separated by single blanks, accepts `ns`: "##any", "##other" (not the
// target namespace), "##local" (none), "##targetNamespace", or a URI, which also accepts the absence of a
// namespace.
// By the strict rules "##other" and a URI do not accept that (XML Schema Part 1, 3.10.4).
bool IsNamespaceAllowed(std::string_view ns, std::string_view allowed, std::string_view target,
                        bool isStrict = false) noexcept;

} // namespace ZvXmlLib16
