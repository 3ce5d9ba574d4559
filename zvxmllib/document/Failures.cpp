// The texts are a contract with callers.
#include "zvxmllib/document/Failures.h"

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/FormatString.h"

namespace ZvXmlLib16 {

void FailOpen(char const* fileName, int error) {
    throw CZvException(FormatString("Failed to open the file [%s] Error [0x%08x]", fileName,
                                    static_cast<unsigned int>(error)));
}

void FailSize(char const* fileName, int error) {
    throw CZvException(FormatString("Failed to get the size of the file [%s] Error [0x%08x]", fileName,
                                    static_cast<unsigned int>(error)));
}

void FailRead(char const* fileName, int error) {
    throw CZvException(FormatString("Failed to read the contents of the file [%s] Error [0x%08x]", fileName,
                                    static_cast<unsigned int>(error)));
}

void FailReadChunk(int error) {
    throw CZvException(FormatString("Failed to read the contents of the file. Error [0x%08x]",
                                    static_cast<unsigned int>(error)));
}

void FailNoElement() {
    throw CZvException("Invalid or empty XML document");
}

void FailEmptyText() {
    throw CZvException("XML String is empty!");
}

void FailEmptyStream() {
    throw CZvException("XML Stream is empty!");
}

void FailParse(char const* message, detail::NodePosition const& position) {
    CZvException failure(
        FormatString("%s at line %llu", message, static_cast<unsigned long long>(position.line)));
    failure.SetPosition(position.line, position.column);
    throw failure;
}

void FailNullElement() {
    throw CZvInvalidParamException("The element to read from may not be NULL");
}

void FailCharacterNotLocal(char32_t character, detail::NodePosition const& position) {
    CZvException failure(
        FormatString("The character [U+%04X] can not be expressed in the local encoding at line %llu",
                     static_cast<unsigned>(character), static_cast<unsigned long long>(position.line)));
    failure.SetPosition(position.line, position.column);
    throw failure;
}

void FailUnreadEntity(std::string const& name, std::uint64_t line) {
    throw CZvException(FormatString("The entity [%s] has not been read at line %llu", name.c_str(),
                                    static_cast<unsigned long long>(line)));
}

} // namespace ZvXmlLib16
