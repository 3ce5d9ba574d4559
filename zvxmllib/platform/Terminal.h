// Whether standard error goes to a terminal.
#pragma once

namespace ZvXmlLib16::platform {

// True if standard error is a terminal.
bool IsStandardErrorTerminal() noexcept;

} // namespace ZvXmlLib16::platform
