// The limit of nesting for everything that recurses over a tree of objects.
#pragma once

namespace ZvXmlLib16 {

// Objects nested deeper than this below the outermost one are refused on reading, writing and cloning. Far
// more than documents use, and far less than the stack of a thread can take.
inline constexpr int kMaxNestingDepth = 1000;

// Counts one level of nesting on the current thread. Throws CZvException beyond the limit.
class NestingGuard {
public:
    NestingGuard();
    NestingGuard(NestingGuard const&) = delete;
    NestingGuard& operator=(NestingGuard const&) = delete;
    ~NestingGuard();
};

} // namespace ZvXmlLib16
