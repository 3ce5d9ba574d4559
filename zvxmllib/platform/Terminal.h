// Whether somebody is watching.
#pragma once

namespace ZvXmlLib16::platform {

// True if standard error is a terminal.
bool IsStandardErrorTerminal() noexcept;

} // namespace ZvXmlLib16::platform
