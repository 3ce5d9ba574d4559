#include "zvxmllib/grammar/PatternStep.h"

#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/grammar/PatternMachine.h"
#include "zvxmllib/grammar/SimpleTypeFaults.h"
#include "zvxmllib/values/facets/Regex.h"
#include "zvxmllib/values/facets/SchemaPattern.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace ZvXmlLib16::grammar {

namespace {

// What the library of regular expressions may refuse for its size is compiled at once. The library unrolls
// quantities, one within the other at worst.
bool MayBeTooLarge(std::string const& expression) noexcept {
    constexpr std::size_t kLarge = 5000;
    std::size_t size = expression.size();
    for (std::size_t at = 0; (at = expression.find('{', at)) != std::string::npos && size <= kLarge; ++at) {
        if (at >= 2 && expression[at - 2] == '\\') // a character by its number, or a property
            continue;
        char const* const end = expression.data() + expression.find('}', at);
        std::size_t least = 1;
        std::size_t most = 1;
        char const* const comma = std::from_chars(expression.data() + at + 1, end, least).ptr;
        if (comma != end)
            std::from_chars(comma + 1, end, most);
        size *= std::max({least, most, std::size_t{1}}); // quantities have few digits
    }
    return size > kLarge;
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
        CompileNow();
}

PatternStep::~PatternStep() {
    detail::ReleaseRegex()(m_regex.load(std::memory_order_relaxed));
}

PatternStep const* PatternStep::FindMismatch(std::string_view text) const {
    bool const isAscii = IsAsciiText(text);
    for (PatternStep const* step = this; step != nullptr; step = step->m_base) {
        bool const isMatch = step->m_machine != nullptr
                                 ? step->m_machine->Matches(text)
                                 : detail::MatchesWhole(step->GetRegex(), text, isAscii);
        if (!isMatch)
            return step;
    }
    return nullptr;
}

void PatternStep::CompileNow() {
    std::string error;
    detail::RegexPtr compiled = detail::CompileRegex(m_expression, error);
    if (compiled == nullptr)
        m_machine = PatternMachine::Make(m_expression);
    if (compiled == nullptr && m_machine == nullptr)
        FailPattern(m_text, error);
    m_regex.store(compiled.release(), std::memory_order_release);
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
