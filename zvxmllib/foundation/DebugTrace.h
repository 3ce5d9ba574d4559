// DebugTrace, the one diagnostic channel.
#pragma once

#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

// Receives diagnostic text in pieces of at most 128 bytes, NUL-terminated. Called on the tracing thread, so
// it must be thread-safe, and it must not throw.
using DebugTraceSink = void (*)(char const* text);

// Attaches the sink of the diagnostic channel; null detaches it. Initially there is none, and tracing then
// costs one test. Returns the previous sink.
ZV_API DebugTraceSink SetDebugTraceSink(DebugTraceSink sink) noexcept;

// True if a sink is attached. Ask before doing work that only a trace needs.
ZV_API bool IsDebugTraceEnabled() noexcept;

// printf to the diagnostic channel. Text is truncated at 32767 bytes. Never throws.
ZV_API void DebugTrace(char const* format, ...) noexcept __attribute__((format(printf, 1, 2)));

} // namespace ZvXmlLib16
