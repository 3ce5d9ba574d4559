// Every failure of the JSON forms. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/json/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Functions.h"

namespace ZvXmlLib16 {

void FailUnknownNamespace(std::string const& ns) {
    throw CZvException(FormatString("Unknown Namespace: %s.", ns.c_str()));
}

void FailContentAfterScalar() {
    throw CZvException("In JSON nothing can follow the text of an element that began with its text.");
}

} // namespace ZvXmlLib16
