// FormatString.
#include "zvxmllib/foundation/FormatString.h"

#include "zvxmllib/foundation/FormatLocale.h"

#include <cstdarg>
#include <cstdio>
#include <new>

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kOrdinaryMessage = 512; // bytes; longer text is measured first

__attribute__((format(printf, 1, 0))) std::string FormatList(char const* format, std::va_list arguments) {
    detail::FormatLocale const locale(format);
    std::va_list again;
    va_copy(again, arguments);
    char buffer[kOrdinaryMessage];
    int const printed = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    std::string text;
    if (printed >= 0 && static_cast<std::size_t>(printed) < sizeof buffer) {
        text.assign(buffer, static_cast<std::size_t>(printed));
    } else if (printed >= 0) {
        try {
            text.resize(static_cast<std::size_t>(printed) + 1);
        } catch (...) {
            va_end(again);
            throw;
        }
        std::vsnprintf(text.data(), text.size(), format, again);
        text.pop_back();
    }
    va_end(again);
    if (printed < 0) // longer than the runtime can count
        throw std::bad_alloc();
    return text;
}

} // namespace

std::string FormatString(char const* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    try {
        std::string text = FormatList(format, arguments);
        va_end(arguments);
        return text;
    } catch (...) {
        va_end(arguments);
        throw;
    }
}

} // namespace ZvXmlLib16
