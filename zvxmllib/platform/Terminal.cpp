// Whether standard error goes to a terminal.
#include "zvxmllib/platform/Terminal.h"

#include <unistd.h>

namespace ZvXmlLib16::platform {

bool IsStandardErrorTerminal() noexcept {
    return ::isatty(STDERR_FILENO) != 0;
}

} // namespace ZvXmlLib16::platform
