// DebugTrace, the one diagnostic channel.
#pragma once

#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

// Receives diagnostic text in pieces of at most 128 bytes, NUL-terminated. Called on the thread that
// traces, so it must be safe for threads, and it must not throw.
using DebugTraceSink = void (*)(char const* text);

// Attaches the sink of the diagnostic channel, null detaches it. There is none at load time, and
// tracing then costs one test. Returns the previous sink.
ZV_API DebugTraceSink SetDebugTraceSink(DebugTraceSink sink) noexcept;

// True if a sink is attached: ask before work that only a trace needs.
ZV_API bool IsDebugTraceEnabled() noexcept;

// printf to the diagnostic channel. Text of 32768 bytes or more is cut. Never throws.
ZV_API void DebugTrace(char const* format, ...) noexcept __attribute__((format(printf, 1, 2)));

} // namespace ZvXmlLib16
