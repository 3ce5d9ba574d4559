// Tests a namespace against the list of an XML Schema wildcard (XML Schema Part 1, 3.10.2).
#pragma once

#include <string_view>

namespace ZvXmlLib16 {

inline constexpr char kAnyNamespace[] = "##any";

// True if a token of `allowed`, a list separated by single blanks, accepts `ns`: "##any", "##other" (not the
// target namespace), "##local" (none), "##targetNamespace", or a URI, which also accepts the absence of a
// namespace.
bool IsNamespaceAllowed(std::string_view ns, std::string_view allowed, std::string_view target) noexcept;

} // namespace ZvXmlLib16
