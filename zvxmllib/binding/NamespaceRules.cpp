// Tests a namespace against the list of an XML Schema wildcard.
#include "zvxmllib/binding/NamespaceRules.h"

namespace ZvXmlLib16 {

namespace {

bool DoesTokenAccept(std::string_view token, std::string_view ns, std::string_view target,
                     bool isStrict) noexcept {
    if (token == kAnyNamespace)
        return true;
    if (token == "##other")
        return ns != target && !(isStrict && ns.empty());
    if (token == "##local")
        return ns.empty();
    if (token == "##targetNamespace")
        return ns == target;
    return ns == token || (ns.empty() && !isStrict);
}

} // namespace

bool IsNamespaceAllowed(std::string_view ns, std::string_view allowed, std::string_view target,
                        bool isStrict) noexcept {
    for (;;) {
        std::size_t const blank = allowed.find(' ');
        if (DoesTokenAccept(allowed.substr(0, blank), ns, target, isStrict))
            return true;
        if (blank == std::string_view::npos)
            return false;
        allowed.remove_prefix(blank + 1);
    }
}

} // namespace ZvXmlLib16
