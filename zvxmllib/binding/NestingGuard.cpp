// The limit of nesting for everything that recurses over a tree of objects.
#include "zvxmllib/binding/NestingGuard.h"

#include "zvxmllib/binding/Failures.h"

namespace ZvXmlLib16 {

namespace {

thread_local int t_depth = 0;

} // namespace

NestingGuard::NestingGuard() {
    if (t_depth >= kMaxNestingDepth)
        FailNestingTooDeep(kMaxNestingDepth);
    ++t_depth;
}

NestingGuard::~NestingGuard() {
    --t_depth;
}

} // namespace ZvXmlLib16
