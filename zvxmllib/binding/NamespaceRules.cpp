// Tests a namespace against the list of an XML Schema wildcard.
#include "zvxmllib/binding/NamespaceRules.h"

namespace ZvXmlLib16 {

namespace {

bool DoesTokenAccept(std::string_view token, std::string_view ns, std::string_view target) noexcept {
    if (token == kAnyNamespace)
        return true;
    if (token == "##other")
        return ns != target;
    if (token == "##local")
        return ns.empty();
    if (token == "##targetNamespace")
        return ns == target;
    return ns.empty() || ns == token;
}

} // namespace

bool IsNamespaceAllowed(std::string_view ns, std::string_view allowed, std::string_view target) noexcept {
    for (;;) {
        std::size_t const blank = allowed.find(' ');
        if (DoesTokenAccept(allowed.substr(0, blank), ns, target))
            return true;
        if (blank == std::string_view::npos)
            return false;
        allowed.remove_prefix(blank + 1);
    }
}

} // namespace ZvXmlLib16
