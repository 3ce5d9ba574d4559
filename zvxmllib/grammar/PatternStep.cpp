#include "zvxmllib/grammar/PatternStep.h"

#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/grammar/SimpleTypeFaults.h"
#include "zvxmllib/values/facets/Regex.h"
#include "zvxmllib/values/facets/SchemaPattern.h"

#include <utility>

namespace ZvXmlLib16::grammar {

namespace {

// What the library of regular expressions may refuse for its size is compiled at once.
bool MayBeTooLarge(std::string const& expression) noexcept {
    constexpr std::size_t kLongExpression = 4096;
    constexpr std::size_t kLongQuantity = 3;
    if (expression.size() > kLongExpression)
        return true;
    for (std::size_t at = 0; (at = expression.find('{', at)) != std::string::npos; ++at) {
        bool const isCharacter = at >= 2 && expression[at - 2] == '\\'; // by its number
        std::size_t const end = expression.find_first_not_of("0123456789,", at + 1);
        if (!isCharacter && end - at > kLongQuantity)
            return true;
    }
    return false;
}

} // namespace

PatternStep::PatternStep(std::vector<char const*> const& patterns, PatternStep const* base) : m_base(base) {
    constexpr std::string_view kEnd = "\\z"; // of each translated pattern
    for (char const* const pattern : patterns) {
        detail::SchemaPattern const translated =
            detail::TranslateSchemaPattern(pattern, detail::PatternGrammar::kTolerant);
        if (!translated.error.empty())
            FailPattern(pattern, translated.error);
        if (!m_expression.empty()) {
            m_text += '|';
            m_expression += '|';
        }
        m_text += pattern;
        m_expression.append(translated.expression, 0, translated.expression.size() - kEnd.size());
    }
    if (patterns.size() != 1)
        m_expression = "(" + m_expression + ")";
    m_expression.append(kEnd);
    if (MayBeTooLarge(m_expression))
        GetRegex();
}

PatternStep::~PatternStep() {
    detail::ReleaseRegex()(m_regex.load(std::memory_order_relaxed));
}

PatternStep const* PatternStep::FindMismatch(std::string_view text) const {
    bool const isAscii = IsAsciiText(text);
    for (PatternStep const* step = this; step != nullptr; step = step->m_base) {
        if (!detail::MatchesWhole(step->GetRegex(), text, isAscii))
            return step;
    }
    return nullptr;
}

// Two threads may both compile; the first to end is kept.
detail::CompiledRegex const& PatternStep::GetRegex() const {
    detail::CompiledRegex* regex = m_regex.load(std::memory_order_acquire);
    if (regex != nullptr)
        return *regex;
    std::string error;
    detail::RegexPtr compiled = detail::CompileRegex(m_expression, error);
    if (compiled == nullptr)
        FailPattern(m_text, error);
    if (m_regex.compare_exchange_strong(regex, compiled.get(), std::memory_order_acq_rel))
        regex = compiled.release();
    return *regex;
}

} // namespace ZvXmlLib16::grammar
