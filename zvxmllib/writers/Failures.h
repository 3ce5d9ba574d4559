// Every failure of the writers.
#pragma once

namespace ZvXmlLib16 {

[[noreturn]] void FailElementNotClosed();
[[noreturn]] void FailAttributeAfterContent();
[[noreturn]] void FailDirectiveInsideElement();
[[noreturn]] void FailInvalidEol();
[[noreturn]] void FailValueOutsideElement();
[[noreturn]] void FailEndOutsideElement();
[[noreturn]] void FailZLibForFiles();

} // namespace ZvXmlLib16
