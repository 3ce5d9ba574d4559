// A pattern matched by PCRE 8 itself.
#include "benchmarks/values/BarePattern.h"

#include <cstdlib>

#include <pcre.h>

namespace bench {

struct BarePattern::Compiled {
    pcre* code = nullptr;
    pcre_extra* extra = nullptr;
};

BarePattern::BarePattern(char const* expression) : m_compiled(std::make_unique<Compiled>()) {
    char const* error = nullptr;
    int offset = 0;
    m_compiled->code = pcre_compile(expression, PCRE_UTF8 | PCRE_ANCHORED, &error, &offset, nullptr);
    if (m_compiled->code == nullptr)
        std::abort();
    m_compiled->extra = pcre_study(m_compiled->code, PCRE_STUDY_JIT_COMPILE, &error);
}

BarePattern::~BarePattern() {
    pcre_free_study(m_compiled->extra);
    pcre_free(m_compiled->code);
}

bool BarePattern::Matches(std::string const& subject) const {
    int offsets[3];
    return pcre_exec(m_compiled->code, m_compiled->extra, subject.data(), static_cast<int>(subject.size()), 0,
                     0, offsets, 3) >= 0;
}

} // namespace bench
