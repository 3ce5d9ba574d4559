// Every failure of the context. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/context/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailAliasNotFound(std::string const& alias) {
    throw CZvException(FormatString("Namespace alias [%s] not found", alias.c_str()));
}

void FailIndentCharacter() {
    throw CZvInvalidParamException("IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
}

void FailIgnoreUnknownExcluded() {
    throw CZvInvalidStateException(
        "The parser can only ignore additional elements, or ignore the fact that some required ones are "
        "missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting "
        "IgnoreUnknownElements to true");
}

void FailIgnoreMissingExcluded() {
    throw CZvInvalidStateException(
        "The parser can only ignore additional elements, or ignore the fact that some required ones are "
        "missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting "
        "IgnoreMissingMandatoryElements to true");
}

} // namespace ZvXmlLib16
