// Every message of the document subsystem.
#pragma once

#include "zvxmllib/document/NodePositions.h"

namespace ZvXmlLib16 {

// `error` is the system's error number.
[[noreturn]] void FailOpen(char const* fileName, int error);
[[noreturn]] void FailSize(char const* fileName, int error);
[[noreturn]] void FailRead(char const* fileName, int error);
// The same after the first chunk of a file; the message does not name it.
[[noreturn]] void FailReadChunk(int error);
[[noreturn]] void FailNoElement();
[[noreturn]] void FailEmptyText();
[[noreturn]] void FailEmptyStream();
[[noreturn]] void FailParse(char const* message, detail::NodePosition const& position);
[[noreturn]] void FailNullElement();

[[noreturn]] void FailUnreadEntity(std::string const& name, std::uint64_t line);
[[noreturn]] void FailCharacterNotLocal(char32_t character, detail::NodePosition const& position);

} // namespace ZvXmlLib16
