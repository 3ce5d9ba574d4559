// Every failure of the writers. The texts are a contract with callers; do not correct their spelling.
#include "zvxmllib/writers/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"

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

} // namespace ZvXmlLib16
