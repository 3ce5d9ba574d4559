// DebugTrace.
#include "zvxmllib/foundation/DebugTrace.h"

#include "zvxmllib/foundation/FormatLocale.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace ZvXmlLib16 {

namespace {

constexpr std::size_t kTraceBuffer = 32768;
constexpr std::size_t kTracePiece = 128;

std::atomic<DebugTraceSink> traceSink{nullptr};

} // namespace

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
        detail::FormatLocale const locale(format);
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
