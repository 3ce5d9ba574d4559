// The one message shown to a user.
#pragma once

namespace ZvXmlLib16::platform {

// One flushed line with title and text on standard error. Never blocks, never throws.
void ShowErrorBox(char const* title, char const* text) noexcept;

} // namespace ZvXmlLib16::platform
