// Regular expressions by PCRE2.
#include "zvxmllib/values/facets/Regex.h"

#include <cstdint>
#include <new>
#include <vector>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace ZvXmlLib16::detail {

namespace {

constexpr std::size_t kFirstJitStack = 32 * 1024;

// What matching needs beside the expression, one for each thread, made when it is first needed.
struct Workspace {
    Workspace() {
        if (data == nullptr || context == nullptr)
            throw std::bad_alloc();
        pcre2_set_heap_limit(context, kMostMatchMemory / 1024); // kibibytes
        if (stack != nullptr)                                   // null is the library's own, which is small
            pcre2_jit_stack_assign(context, nullptr, stack);
    }
    Workspace(Workspace const&) = delete;
    Workspace& operator=(Workspace const&) = delete;
    ~Workspace() {
        pcre2_match_data_free(data);
        pcre2_match_context_free(context);
        pcre2_jit_stack_free(stack);
    }

    // Room for the match itself. With more groups the result is 0, and the match is still reported.
    pcre2_match_data* data = pcre2_match_data_create(1, nullptr);
    pcre2_match_context* context = pcre2_match_context_create(nullptr);
    pcre2_jit_stack* stack = pcre2_jit_stack_create(kFirstJitStack, kMostMatchMemory, nullptr);
};

// That of the thread. Objects that are destroyed at the end of the process, after those of the thread, have
// one more, which stays.
Workspace& WorkspaceOfThread() {
    static thread_local Workspace* workspace = nullptr;
    struct Owner {
        Owner() { workspace = new Workspace; }
        Owner(Owner const&) = delete;
        Owner& operator=(Owner const&) = delete;
        ~Owner() {
            delete workspace;
            workspace = nullptr;
        }
    };
    static thread_local Owner const owner;
    if (workspace == nullptr)
        workspace = new Workspace;
    return *workspace;
}

bool IsLimit(int result) {
    return result == PCRE2_ERROR_MATCHLIMIT || result == PCRE2_ERROR_DEPTHLIMIT ||
           result == PCRE2_ERROR_HEAPLIMIT || result == PCRE2_ERROR_JIT_STACKLIMIT;
}

} // namespace

struct CompiledRegex {
    CompiledRegex() = default;
    CompiledRegex(CompiledRegex const&) = delete;
    CompiledRegex& operator=(CompiledRegex const&) = delete;
    ~CompiledRegex() { pcre2_code_free(code); }

    pcre2_code* code = nullptr;
    bool isMatchedAllWays = false;
};

void ReleaseRegex::operator()(CompiledRegex* regex) const noexcept {
    delete regex;
}

RegexPtr CompileRegex(std::string const& expression, std::string& error) {
    RegexPtr regex(new CompiledRegex);
    int code = 0;
    PCRE2_SIZE offset = 0;
    // An expression ends at its first NUL.
    regex->code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression.c_str()), PCRE2_ZERO_TERMINATED,
                                PCRE2_UTF | PCRE2_ANCHORED, &code, &offset, nullptr);
    if (regex->code == nullptr) {
        if (code == PCRE2_ERROR_HEAP_FAILED)
            throw std::bad_alloc();
        char message[256] = "";
        pcre2_get_error_message(code, reinterpret_cast<PCRE2_UCHAR*>(message), sizeof message);
        error = message;
        return nullptr;
    }
    pcre2_jit_compile(regex->code, PCRE2_JIT_COMPLETE); // where there is none, the interpreter matches
    regex->isMatchedAllWays = IsMatchedAllWays(expression);
    return regex;
}

bool MatchesWhole(CompiledRegex const& regex, std::string_view subject, bool isValidUtf8) {
    if (subject.data() == nullptr)
        subject = ""; // older ones want a place
    Workspace& own = WorkspaceOfThread();
    auto const text = reinterpret_cast<PCRE2_SPTR>(subject.data());
    std::uint32_t const options = isValidUtf8 ? PCRE2_NO_UTF_CHECK : 0;
    pcre2_set_match_limit(own.context, static_cast<std::uint32_t>(MostSteps(subject.size())));
    int result = pcre2_match(regex.code, text, subject.size(), 0, options, own.data, own.context);
    if (IsLimit(result) && regex.isMatchedAllWays && HasOneEnd(subject)) {
        std::vector<int> words(WordsOfWays(MostWays(subject.size())));
        // The longest match is reported first.
        result = pcre2_dfa_match(regex.code, text, subject.size(), 0, options, own.data, own.context,
                                 words.data(), words.size());
    }
    if (result < 0)
        return false;
    PCRE2_SIZE const* const offsets = pcre2_get_ovector_pointer(own.data);
    return offsets[0] == 0 && offsets[1] == subject.size();
}

} // namespace ZvXmlLib16::detail
