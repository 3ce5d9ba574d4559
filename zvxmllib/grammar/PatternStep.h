// The patterns of one step of derivation.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {
struct CompiledRegex;
}

namespace ZvXmlLib16::grammar {

class PatternMachine;

// Alternatives (XML Schema Part 2, 4.3.4). They are compiled when a text is first tested; any number of
// threads may test.
class PatternStep {
public:
    // The texts and `base`, the patterns of the type that is restricted, are borrowed. Throws
    // CZvInvalidParamException for a pattern that is none, or has too many repetitions.
    PatternStep(std::vector<char const*> const& patterns, PatternStep const* base);
    PatternStep(PatternStep const&) = delete;
    PatternStep& operator=(PatternStep const&) = delete;
    ~PatternStep();

    // The first step, from this one to the bases, that the text does not match; null if it matches all. Takes
    // bounded time: a text whose test would need too much does not match. Throws CZvInvalidParamException for
    // a pattern that the library of regular expressions refuses.
    PatternStep const* FindMismatch(std::string_view text) const;
    // As they are written, with a bar between them.
    std::string const& GetText() const noexcept { return m_text; }

private:
    void CompileNow();
    detail::CompiledRegex const& GetRegex() const;

    PatternStep const* m_base;
    std::string m_text;
    std::string m_expression;
    std::unique_ptr<PatternMachine> m_machine; // in place of a compiled expression, for a large pattern
    mutable std::atomic<detail::CompiledRegex*> m_regex{nullptr};
};

} // namespace ZvXmlLib16::grammar
