// Assertion with its text, and the hook that tests replace.
#include "zvxmllib/foundation/Assert.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace ZvXmlLib16 {

namespace {

void AbortWithText(char const* condition, char const* file, int line) {
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", file, line, condition);
    std::fflush(stderr);
    std::abort();
}

std::atomic<AssertionHandler> currentHandler{&AbortWithText};

} // namespace

AssertionHandler SetAssertionHandler(AssertionHandler handler) {
    return currentHandler.exchange(handler != nullptr ? handler : &AbortWithText);
}

void detail::FailAssertion(char const* condition, char const* file, int line) {
    currentHandler.load()(condition, file, line);
}

} // namespace ZvXmlLib16
