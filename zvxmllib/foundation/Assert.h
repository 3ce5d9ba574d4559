// Assertion with its text, and the hook that tests replace.
#pragma once

#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

// Called for a failed assertion with the text of the condition, the file and the line. The default
// writes them to standard error and aborts. A handler that returns lets the program go on.
using AssertionHandler = void (*)(char const* condition, char const* file, int line);

// Replaces the handler and returns the previous one; null restores the default.
ZV_API AssertionHandler SetAssertionHandler(AssertionHandler handler);

namespace detail {
ZV_API void FailAssertion(char const* condition, char const* file, int line);
} // namespace detail

} // namespace ZvXmlLib16

// For mistakes that only a programmer can make; no document may trigger one. Compiled out with NDEBUG, so
// nothing may rely on it.
#ifdef NDEBUG
#define ZV_ASSERT(condition) static_cast<void>(0)
#else
#define ZV_ASSERT(condition)                                                                                 \
    ((condition) ? static_cast<void>(0) : ::ZvXmlLib16::detail::FailAssertion(#condition, __FILE__, __LINE__))
#endif
