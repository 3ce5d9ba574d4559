// Every failure of the binding core. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/binding/Failures.h"

#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

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

void FailTargetNamespaceOfCollection() {
    throw CZvException("CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
                       "(program logic error)");
}

void FailTooManyItems(std::string const& elementName, int maxOccurs) {
    throw CZvValidationException(
        FormatString("The Maximum number of [%s] elements allowed in this collection is %d",
                     elementName.c_str(), maxOccurs),
        "");
}

void FailTooFewItems(std::string const& elementName, int minOccurs) {
    throw CZvValidationException(
        FormatString("The Minimum number of [%s] elements allowed in this collection is %d",
                     elementName.c_str(), minOccurs),
        "");
}

} // namespace ZvXmlLib16
