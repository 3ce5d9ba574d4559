// Regular expressions by PCRE2.
#include "zvxmllib/values/Regex.h"

#include <new>

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
        pcre2_set_match_limit(context, kMostMatchSteps);
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

    // Room for the match itself. With more groups the result is 0 and the match is told all the same.
    pcre2_match_data* data = pcre2_match_data_create(1, nullptr);
    pcre2_match_context* context = pcre2_match_context_create(nullptr);
    pcre2_jit_stack* stack = pcre2_jit_stack_create(kFirstJitStack, kMostMatchMemory, nullptr);
};

} // namespace

struct CompiledRegex {
    CompiledRegex() = default;
    CompiledRegex(CompiledRegex const&) = delete;
    CompiledRegex& operator=(CompiledRegex const&) = delete;
    ~CompiledRegex() { pcre2_code_free(code); }

    pcre2_code* code = nullptr;
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
    return regex;
}

bool MatchesWhole(CompiledRegex const& regex, std::string_view subject, bool isValidUtf8) {
    static thread_local Workspace const workspace;
    int const result =
        pcre2_match(regex.code, reinterpret_cast<PCRE2_SPTR>(subject.data()), subject.size(), 0,
                    isValidUtf8 ? PCRE2_NO_UTF_CHECK : 0, workspace.data, workspace.context);
    if (result < 0)
        return false;
    PCRE2_SIZE const* const offsets = pcre2_get_ovector_pointer(workspace.data);
    return offsets[0] == 0 && offsets[1] == subject.size();
}

} // namespace ZvXmlLib16::detail
