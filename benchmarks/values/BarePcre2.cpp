// A pattern matched by PCRE2 itself.
#include "benchmarks/values/BarePattern.h"

#include <cstdlib>

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace bench {

struct BarePattern::Compiled {
    pcre2_code* code = nullptr;
    pcre2_match_data* data = pcre2_match_data_create(1, nullptr);
};

BarePattern::BarePattern(char const* expression) : m_compiled(std::make_unique<Compiled>()) {
    int error = 0;
    PCRE2_SIZE offset = 0;
    m_compiled->code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression), PCRE2_ZERO_TERMINATED,
                                     PCRE2_UTF | PCRE2_ANCHORED, &error, &offset, nullptr);
    if (m_compiled->code == nullptr || m_compiled->data == nullptr)
        std::abort();
    pcre2_jit_compile(m_compiled->code, PCRE2_JIT_COMPLETE);
}

BarePattern::~BarePattern() {
    pcre2_match_data_free(m_compiled->data);
    pcre2_code_free(m_compiled->code);
}

bool BarePattern::Matches(std::string const& subject) const {
    return pcre2_match(m_compiled->code, reinterpret_cast<PCRE2_SPTR>(subject.data()), subject.size(), 0, 0,
                       m_compiled->data, nullptr) >= 0;
}

} // namespace bench
