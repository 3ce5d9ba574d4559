// Every failure of the binding core. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/binding/Failures.h"

#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Functions.h"

namespace ZvXmlLib16 {

void FailWrongVersion(std::int32_t generatorMajor, std::int32_t generatorMinor) {
    throw CZvException(FormatString("Wrong Version (Brindle Runtime: v%d.%d, Generator: v%d.%d)",
                                    kLibraryMajorVersion, kLibraryMinorVersion, generatorMajor,
                                    generatorMinor));
}

void FailNestingTooDeep(int limit) {
    throw CZvException(FormatString("The nesting of elements exceeds the limit of %d levels.", limit));
}

void FailPropertyIsNull(std::string const& name) {
    throw CZvInvalidParamException(
        FormatString("The Property [%s] is mandatory, it may node be NULL", name.c_str()));
}

void FailElementNameDiffers(std::string const& required, std::string const& actual) {
    throw CZvInvalidParamException(FormatString(
        "This property requires an element with the name %s the element being set has the element name %s",
        required.c_str(), actual.c_str()));
}

void FailChoiceAlreadySelected(std::string const& selected) {
    throw CZvInvalidStateException(FormatString(
        "The Property [%s] is already set. Only one element within this class bay be set at a time",
        selected.c_str()));
}

void FailChoiceAlreadyValid(std::string const& selected) {
    throw CZvInvalidStateException(FormatString(
        "The Property %s is already set. Only one element within this class bay be set at a time",
        selected.c_str()));
}

void FailNamespaceNotAllowed(std::string const& ns, std::string const& allowed, std::string const& target) {
    throw CZvInvalidNamespaceException(
        FormatString("Invalid namespace [%s]. The namespace must be one of [%s] where the target "
                     "namespace is [%s].",
                     ns.c_str(), allowed.c_str(), target.c_str()),
        "");
}

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
