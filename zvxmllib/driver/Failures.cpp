// The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/driver/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16Data {

using ZvXmlLib16::CZvInvalidParamException;
using ZvXmlLib16::CZvInvalidStateException;
using ZvXmlLib16::CZvValidationException;
using ZvXmlLib16::FormatString;

void FailToWriteElement(std::string const& name, CZvException const& cause) {
    throw CZvValidationException(FormatString("Failed to convert the element [%s] to XML", name.c_str()), "",
                                 cause);
}

void FailToWriteAttributes(CZvException const& cause) {
    throw CZvException("Failed to convert attributes to XML", cause);
}

void FailUnknownXmlGroupType() {
    throw CZvException("Unknown XML Group Type");
}

void FailNoChoiceToWrite() {
    throw CZvValidationException(
        "This element is a choice, and as such must have at one (and only one) valid "
        "item, currently there are none set",
        "");
}

void FailUnknownGroupType() {
    throw CZvException("Unknown Group Type");
}

void FailNoChoiceFound(std::string const& name, std::string const& path) {
    throw CZvValidationException(
        FormatString("No child elements within the element [%s] were populated. The element represents a "
                     "choice, so one and only one element should be populated. The element contained no "
                     "sutable child elements",
                     name.c_str()),
        path);
}

void FailPropertyGet(std::string const& name, CZvException const& cause) {
    throw CZvValidationException(FormatString("Failed to get the property value for [%s].", name.c_str()), "",
                                 cause);
}

void FailAttributePropertySet(std::string const& value, std::string const& path, CZvException const& cause) {
    throw CZvValidationException(FormatString("Failed to set the property value [%s].", value.c_str()), path,
                                 cause);
}

void FailElementPropertySet(std::string const& path, CZvException const& cause) {
    throw CZvValidationException("Failed to set the property value.", path, cause);
}

void FailRequiredAttribute(std::string const& name) {
    throw CZvValidationException(FormatString("Failed to find the required Attribute [%s].", name.c_str()),
                                 "");
}

void FailNoAttributeCollection() {
    throw CZvException("Serialization Data Error : The collection should be a CAttributeCol, it was not!");
}

void FailNoCollection(std::string const& name) {
    throw CZvException(FormatString("The Property [%s] has no collection", name.c_str()));
}

void FailNoValidate() {
    throw CZvException("Not implemented, should never be called");
}

void FailCheckRestriction(std::string const& type) {
    throw CZvException("Cannot CheckRestriction for type: " + type);
}

void FailMandatoryProperty(std::string const& name) {
    throw CZvInvalidParamException(
        FormatString("The Property [%s] is mandatory, it may not be NULL", name.c_str()));
}

void FailRequiredChild(std::string const& name, std::string const& path) {
    throw CZvValidationException(
        FormatString("Failed to find the required child element [%s].", name.c_str()), path);
}

void FailMandatoryElement(std::string const& name) {
    throw CZvValidationException(FormatString("Failed to find the mandatory element [%s].", name.c_str()),
                                 "");
}

void FailUnknownProperty(int index) {
    throw CZvInvalidParamException(FormatString("The class has no property of the number %d.", index));
}

void FailMember(char const* name, bool isNillable) {
    throw CZvInvalidParamException(FormatString(isNillable
                                                    ? "The member of the nillable [%s] has to be a ZvVariant."
                                                    : "The member of [%s] does not hold values of its type.",
                                                name == nullptr ? "" : name));
}

void FailPlaceOfText(std::string const& name, std::string const& path) {
    throw CZvValidationException(FormatString("The place of the text in [%s] would be lost.", name.c_str()),
                                 path);
}

void FailText(std::string_view text, std::string const& path) {
    throw CZvValidationException(FormatString("Unexpected text [%s] found.", std::string(text).c_str()),
                                 path);
}

void FailNilToWrite(std::string const& name) {
    throw CZvInvalidStateException(
        FormatString("The Property [%s] is nil, and its element may not be nil", name.c_str()));
}

void FailEmptyOverDefault(std::string const& name, std::string const& defaultValue) {
    throw CZvInvalidStateException(FormatString("The empty value of [%s] would be read as its default [%s].",
                                                name.c_str(), defaultValue.c_str()));
}

} // namespace ZvXmlLib16Data
