// Every failure of the collections and of untyped content. The texts are a contract with callers; do not
// correct their spelling.
#include "zvxmllib/collections/Failures.h"

#include "zvxmllib/collections/ZvIterator.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailIndexOutOfRange() {
    throw CZvInvalidParamException("Index out of range");
}

// The second number is the count, not the last valid index: callers compare the text.
void FailIndexOutOfRange(int index, int count) {
    throw CZvInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", index, count));
}

void FailItemNotFound() {
    throw CZvInvalidParamException("The object was not found in the collection");
}

void FailKindOfDate(CDateTime::DTType kind) {
    constexpr char const* kNames[] = {"dt_yearZero", "dt_dateTime", "dt_date",   "dt_gYearMonth", "dt_gYear",
                                      "dt_time",     "dt_gDay",     "dt_gMonth", "dt_gMonthDay"};
    throw CZvInvalidParamException(std::string("Dates added to this collection must be of type ") +
                                   kNames[kind]);
}

void detail::FailIteratorAtEnd() {
    throw CZvException("No More Elements in the Collection");
}

void FailAttributeReadAlone() {
    throw CZvException("This should be done by the collection");
}

void FailAttributeNamespace(std::string const& localName, std::string const& path) {
    throw CZvInvalidNamespaceException(
        FormatString("Invalid Attribute [%s]. The attributes namespace is Inappropriate.", localName.c_str()),
        path);
}

void FailNullElementName() {
    throw CZvInvalidNamespaceException("Element Name must have a value", "");
}

void FailNullElementNamespace() {
    throw CZvInvalidNamespaceException("Element Namespace must have a value", "");
}

void FailNullNamespaceRestriction() {
    throw CZvInvalidNamespaceException("Namespace Restriction must have a value", "");
}

void FailNullTargetNamespace() {
    throw CZvInvalidNamespaceException("Target Namespace must have a value", "");
}

void FailReservedNamespace(std::string const& ns) {
    throw CZvInvalidNamespaceException(FormatString("Invalid Namespace [%s].", ns.c_str()), "");
}

void FailNoItemNamespace() {
    throw CZvInvalidStateException("A Namespace has not been set for this Collection");
}

void FailInvalidElement(std::string const& localName, std::string const& path) {
    throw CZvValidationException(FormatString("Invalid Element [%s] found.", localName.c_str()), path);
}

void FailNamespaceRestriction(std::string const& ns, std::string const& name, std::string const& allowed,
                              CZvException const& cause) {
    throw CZvInvalidNamespaceException(
        FormatString("The namespace %s in the class %s is invalid against restriction %s", ns.c_str(),
                     name.c_str(), allowed.c_str()),
        "", cause);
}

} // namespace ZvXmlLib16
