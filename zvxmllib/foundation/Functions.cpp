// FormatString and DebugTrace.
#include "zvxmllib/foundation/Functions.h"

#include "zvxmllib/platform/NumericLocale.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kTraceBuffer = 32768;
constexpr std::size_t kTracePiece = 128;
constexpr std::size_t kOrdinaryMessage = 512; // bytes that are printed without asking for the length first

std::atomic<DebugTraceSink> traceSink{nullptr};

// True if a conversion of the format obeys the locale: only floating point has a decimal point.
bool HasFloatingConversion(char const* format) noexcept {
    for (char const* p = std::strchr(format, '%'); p != nullptr; p = std::strchr(p, '%')) {
        p += 1 + std::strspn(p + 1, "#-+ 0123456789.*$'hlLqjzt");
        if (*p == '\0')
            return false;
        if (std::strchr("aAeEfFgG", *p) != nullptr)
            return true;
        ++p;
    }
    return false;
}

// Holds the C locale while a format that needs it is printed.
class FormatLocale {
public:
    explicit FormatLocale(char const* format) noexcept {
        if (HasFloatingConversion(format))
            m_guard.emplace();
    }

private:
    std::optional<platform::CNumericLocaleGuard> m_guard;
};

__attribute__((format(printf, 1, 0))) std::string FormatList(char const* format, std::va_list arguments) {
    FormatLocale const locale(format);
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
    if (printed < 0) // beyond what the runtime can count
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

DebugTraceSink SetDebugTraceSink(DebugTraceSink sink) noexcept {
    return traceSink.exchange(sink);
}

bool IsDebugTraceEnabled() noexcept {
    return traceSink.load(std::memory_order_relaxed) != nullptr;
}

void DebugTrace(char const* format, ...) noexcept {
    DebugTraceSink const sink = traceSink.load(std::memory_order_acquire);
    if (sink == nullptr)
        return;
    char text[kTraceBuffer];
    text[0] = '\0';
    {
        FormatLocale const locale(format);
        std::va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(text, sizeof text, format, arguments);
        va_end(arguments);
    }
    std::size_t const length = std::strlen(text);
    for (std::size_t sent = 0; sent < length; sent += kTracePiece) {
        char piece[kTracePiece + 1];
        std::size_t const size = length - sent < kTracePiece ? length - sent : kTracePiece;
        std::memcpy(piece, text + sent, size);
        piece[size] = '\0';
        sink(piece);
    }
}

} // namespace ZvXmlLib16
