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

void FailUnreadElement(std::string const& name, std::string const& unread, std::string const& path) {
    throw CZvValidationException(
        FormatString("Failed read all the elements held within the element [%s]. The "
                     "unexpected element [%s] remains un processed",
                     name.c_str(), unread.c_str()),
        path);
}

void FailNoSubstitution(std::string const& name, std::string const& path) {
    throw CZvValidationException(
        FormatString("Failed to find a suitable substitution element for [%s].", name.c_str()), path);
}

void FailRequiredWildcard(std::string const& ns, std::string const& path) {
    throw CZvValidationException(
        FormatString("Failed to find the required element from namespace [%s].", ns.c_str()), path);
}

void FailUnexpectedAttribute(std::string const& path) {
    throw CZvValidationException("Unexpected Attribute found.", path);
}

void FailNilNotAllowed(std::string const& path) {
    throw CZvValidationException("Invalid use of 'nil' attribute in non-nillable element.", path);
}

void FailNilValue(std::string const& value, std::string const& path) {
    throw CZvValidationException(
        FormatString("Unexpected Value [%s] for 'nil' Attribute found.", value.c_str()), path);
}

CZvValidationException WithPathOfElement(std::string const& path, CZvException const& cause) {
    return CZvValidationException("Failed to process the element.", path, cause);
}

void FailContentOfNil(std::string const& name, std::string const& path) {
    throw CZvValidationException(
        FormatString("Unexpected content found in the nil element [%s].", name.c_str()), path);
}

void FailFacetOfRead(CZvException const& cause, std::string const& path) {
    throw CZvValidationException(cause.GetMessage(), path);
}

void FailUnknownAlias(std::string const& alias, std::string const& path) {
    throw CZvValidationException(FormatString("Namespace alias [%s] not found", alias.c_str()), path);
}

void FailRootElement(std::string const& name, std::string const& ns, std::string const& foundName,
                     std::string const& foundNs, std::string const& path) {
    throw CZvValidationException(
        FormatString("Expected the root element [%s] of namespace [%s], found [%s] of namespace [%s].",
                     name.c_str(), ns.c_str(), foundName.c_str(), foundNs.c_str()),
        path);
}

} // namespace ZvXmlLib16
