// Every failure of the writers. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/writers/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailElementNotClosed() {
    throw CZvException("An Element has not been closed.");
}

void FailAttributeAfterContent() {
    throw CZvException("Attributes must be added before elements");
}

void FailDirectiveInsideElement() {
    throw CZvException("Headed directives must appear before an Element has been added.");
}

void FailInvalidEol() {
    throw CZvException("Invalid EOL type.");
}

void FailValueOutsideElement() {
    throw CZvException("A value must be written inside an element.");
}

void FailEndOutsideElement() {
    throw CZvException("There is no open element to be closed.");
}

void FailZLibForFiles() {
    throw CZvException("ZLIB Compression only available for To Stream methods.");
}

void FailElementNameOfXml(std::string const& name) {
    throw CZvInvalidParamException(FormatString("Invalid Element Name [%s].", name.c_str()));
}

void FailAttributeNameOfXml(std::string const& name) {
    throw CZvInvalidParamException(FormatString("Invalid Attribute Name [%s].", name.c_str()));
}

void FailCharacterOfXml(char32_t character, std::string const& owner) {
    throw CZvInvalidValueException(FormatString("The character [U+%04X] of [%s] can not be expressed in XML.",
                                                static_cast<unsigned>(character), owner.c_str()));
}

void FailMalformedText(std::string const& owner) {
    throw CZvInvalidValueException(
        FormatString("The text of [%s] is not valid in the local encoding.", owner.c_str()));
}

void FailNamespaceOfXml(std::string const& ns) {
    throw CZvInvalidNamespaceException(FormatString("Invalid Namespace [%s].", ns.c_str()), "");
}

void FailAlias(std::string const& alias) {
    throw CZvInvalidParamException(FormatString("Invalid Namespace alias [%s].", alias.c_str()));
}

void FailAliasOfTwo(std::string const& alias, std::string const& ns, std::string const& other) {
    throw CZvInvalidParamException(FormatString("The Namespace alias [%s] stands for [%s] and for [%s].",
                                                alias.c_str(), ns.c_str(), other.c_str()));
}

void FailTwinAttribute(std::string const& name) {
    throw CZvInvalidStateException(FormatString("The Attribute [%s] is already written.", name.c_str()));
}

void FailInstruction(std::string const& text) {
    throw CZvInvalidParamException(FormatString("Invalid Processing Instruction [%s].", text.c_str()));
}

void FailComment(std::string const& text) {
    throw CZvInvalidParamException(FormatString("Invalid Comment [%s].", text.c_str()));
}

void FailInlineSchema() {
    throw CZvInvalidStateException("The inline schema can not be written inside a start tag.");
}

void FailSecondRoot(std::string const& second) {
    throw CZvInvalidStateException(
        FormatString("The document has a root element, [%s] is a second one.", second.c_str()));
}

void FailNoRoot() {
    throw CZvInvalidStateException("The document has no root element.");
}

} // namespace ZvXmlLib16
