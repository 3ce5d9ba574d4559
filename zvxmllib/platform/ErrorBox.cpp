// The one message shown to a user.
#include "zvxmllib/platform/ErrorBox.h"

#include <cerrno>
#include <cstdio>

namespace ZvXmlLib16::platform {

namespace {

// Line ends become blanks, so that the message stays one line.
void PutOnOneLine(char const* text) noexcept {
    for (; text != nullptr && *text != '\0'; ++text)
        std::fputc(*text == '\n' || *text == '\r' ? ' ' : *text, stderr);
}

} // namespace

void ShowErrorBox(char const* title, char const* text) noexcept {
    int const savedError = errno;
    PutOnOneLine(title);
    std::fputs(": ", stderr);
    PutOnOneLine(text);
    std::fputc('\n', stderr);
    std::fflush(stderr);
    errno = savedError;
}

} // namespace ZvXmlLib16::platform
