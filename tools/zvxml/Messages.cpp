// What the tool says on standard error.
#include "Messages.h"

#include "zvxmllib/platform/Terminal.h"

#include <cstdio>
#include <cstdlib>

namespace zvxml {

namespace {

constexpr char kBold[] = "\033[1m";
constexpr char kRed[] = "\033[31m";
constexpr char kMagenta[] = "\033[35m";
constexpr char kPlain[] = "\033[0m";

ColorMode s_mode = ColorMode::kAuto; // set before the first message

bool HasColor() {
    if (s_mode != ColorMode::kAuto)
        return s_mode == ColorMode::kAlways;
    char const* const unwanted = std::getenv("NO_COLOR");
    return (unwanted == nullptr || *unwanted == '\0') && ZvXmlLib16::platform::IsStandardErrorTerminal();
}

std::string OnOneLine(std::string text) {
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    for (char& c : text)
        c = c == '\n' || c == '\r' ? ' ' : c;
    return text;
}

void Tell(char const* program, char const* color, char const* kind, std::string const& message) {
    std::string const text = OnOneLine(message);
    char const* const gap = *program == '\0' ? "" : " ";
    if (HasColor())
        std::fprintf(stderr, "%s%s%s%s%s%s%s%s\n", kBold, program, kPlain, gap, color, kind, text.c_str(),
                     kPlain);
    else
        std::fprintf(stderr, "%s%s%s%s\n", program, gap, kind, text.c_str());
}

constexpr char kProgram[] = "zvxml:";

} // namespace

void SetColorMode(ColorMode mode) {
    s_mode = mode;
}

void TellError(std::string const& message) {
    Tell(kProgram, kRed, "", message);
}

void TellWarning(std::string const& message) {
    Tell(kProgram, kMagenta, "warning: ", message);
}

void TellVerdict(std::string const& message) {
    Tell("", kRed, "", message);
}

void TellHint(std::string const& hint) {
    std::fprintf(stderr, "%s\n", hint.c_str());
}

} // namespace zvxml
