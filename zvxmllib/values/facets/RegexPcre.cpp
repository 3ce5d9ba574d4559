// Regular expressions by PCRE 8.
#include "zvxmllib/values/facets/Regex.h"

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

#include <pcre.h>

namespace ZvXmlLib16::detail {

namespace {

constexpr int kFirstJitStack = 32 * 1024;
// Up to this length all subjects have the steps that stand in the expression.
constexpr std::size_t kShortSubject = 250;
// The interpreter recurses on the machine stack, where a thread may have little.
constexpr unsigned long kMostInterpreterStack = 512 * 1024;

// The stack of compiled matching code, one for each thread, made when it is first needed. Objects that are
// destroyed at the end of the process, after those of the thread, have the library's own, which is small.
pcre_jit_stack* JitStackOfThread(void*) {
    static thread_local pcre_jit_stack* handle = nullptr;
    struct Owner {
        Owner() { handle = pcre_jit_stack_alloc(kFirstJitStack, static_cast<int>(kMostMatchMemory)); }
        Owner(Owner const&) = delete;
        Owner& operator=(Owner const&) = delete;
        ~Owner() {
            if (handle != nullptr)
                pcre_jit_stack_free(handle);
            handle = nullptr;
        }
    };
    static thread_local Owner const owner;
    return handle;
}

// For these arguments the library returns the frame size of its interpreter, as a negative number.
unsigned long MostInterpreterDepth() {
    static unsigned long const depth = [] {
        int const size = pcre_exec(nullptr, nullptr, nullptr, -999, -999, 0, nullptr, 0);
        return kMostInterpreterStack / static_cast<unsigned long>(std::max(-size, 256));
    }();
    return depth;
}

} // namespace

struct CompiledRegex {
    CompiledRegex() = default;
    CompiledRegex(CompiledRegex const&) = delete;
    CompiledRegex& operator=(CompiledRegex const&) = delete;
    ~CompiledRegex() {
        pcre_free_study(extra);
        pcre_free(code);
    }

    pcre* code = nullptr;
    pcre_extra* extra = nullptr;
    bool isCompiledForMachine = false;
    bool isMatchedAllWays = false;
};

namespace {

// The offsets are set if the result is not negative.
int MatchByGoingBack(CompiledRegex const& regex, std::string_view subject, int options, int (&offsets)[3]) {
    // The short way to compiled matching code looks at no argument.
    pcre_jit_stack* const stack = regex.isCompiledForMachine && (options & PCRE_NO_UTF8_CHECK) != 0
                                      ? JitStackOfThread(nullptr)
                                      : nullptr;
    // Room for the match itself. With more groups the result is 0, and the match is still reported.
    auto const match = [&](pcre_extra const* extra) {
        auto const length = static_cast<int>(subject.size());
        return stack != nullptr
                   ? pcre_jit_exec(regex.code, extra, subject.data(), length, 0, options, offsets, 3, stack)
                   : pcre_exec(regex.code, extra, subject.data(), length, 0, options, offsets, 3);
    };
    if (subject.size() <= kShortSubject)
        return match(regex.extra);
    pcre_extra extra = *regex.extra; // other threads have their own limits
    extra.match_limit = MostSteps(subject.size());
    return match(&extra);
}

// The longest match is reported first. The limits of going back are refused here.
int MatchAllWays(CompiledRegex const& regex, std::string_view subject, int options, int (&offsets)[3]) {
    std::vector<int> workspace(WordsOfWays(MostWays(subject.size())));
    return pcre_dfa_exec(regex.code, nullptr, subject.data(), static_cast<int>(subject.size()), 0, options,
                         offsets, 2, workspace.data(), static_cast<int>(workspace.size()));
}

bool IsLimit(int result) {
    return result == PCRE_ERROR_MATCHLIMIT || result == PCRE_ERROR_RECURSIONLIMIT ||
           result == PCRE_ERROR_JIT_STACKLIMIT;
}

} // namespace

void ReleaseRegex::operator()(CompiledRegex* regex) const noexcept {
    delete regex;
}

RegexPtr CompileRegex(std::string const& expression, std::string& error) {
    RegexPtr regex(new CompiledRegex);
    char const* message = nullptr;
    int offset = 0;
    int code = 0;
    // Compiled matching code takes no option of a single match, so the anchor is compiled in.
    regex->code =
        pcre_compile2(expression.c_str(), PCRE_UTF8 | PCRE_ANCHORED, &code, &message, &offset, nullptr);
    if (regex->code == nullptr) {
        constexpr int kNoMemory = 21;
        if (code == kNoMemory)
            throw std::bad_alloc();
        error = message == nullptr ? "" : message;
        return nullptr;
    }
    regex->extra = pcre_study(regex->code, PCRE_STUDY_JIT_COMPILE | PCRE_STUDY_EXTRA_NEEDED, &message);
    if (regex->extra == nullptr)
        throw std::bad_alloc();
    regex->extra->flags |= PCRE_EXTRA_MATCH_LIMIT | PCRE_EXTRA_MATCH_LIMIT_RECURSION;
    regex->extra->match_limit = MostSteps(kShortSubject);
    regex->extra->match_limit_recursion = MostInterpreterDepth();
    pcre_assign_jit_stack(regex->extra, JitStackOfThread, nullptr);
    int isCompiledForMachine = 0;
    pcre_fullinfo(regex->code, regex->extra, PCRE_INFO_JIT, &isCompiledForMachine);
    regex->isCompiledForMachine = isCompiledForMachine != 0;
    regex->isMatchedAllWays = IsMatchedAllWays(expression);
    return regex;
}

bool MatchesWhole(CompiledRegex const& regex, std::string_view subject, bool isValidUtf8) {
    if (subject.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return false;
    if (subject.data() == nullptr)
        subject = ""; // the library wants a place
    int const options = isValidUtf8 ? PCRE_NO_UTF8_CHECK : 0;
    int offsets[3] = {-1, -1, -1};
    int result = MatchByGoingBack(regex, subject, options, offsets);
    if (IsLimit(result) && regex.isMatchedAllWays && HasOneEnd(subject))
        result = MatchAllWays(regex, subject, options, offsets);
    return result >= 0 && offsets[0] == 0 && offsets[1] == static_cast<int>(subject.size());
}

} // namespace ZvXmlLib16::detail
