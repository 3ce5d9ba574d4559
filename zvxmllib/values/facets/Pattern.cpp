// The pattern facet: translation, and compiled patterns that are kept.
#include "zvxmllib/values/facets/Pattern.h"

#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"
#include "zvxmllib/values/facets/Regex.h"
#include "zvxmllib/values/facets/SchemaPattern.h"

#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace ZvXmlLib16 {

namespace {

using SharedRegex = std::shared_ptr<detail::CompiledRegex const>;

// Two backslashes stand for one that is meant; they are out of the way while escapes are replaced.
constexpr char kEscapedBackslash[] = R"(\\)";
constexpr char kPlaceholder[] = "\x01";

struct Replacement {
    char const* search;
    char const* replacement;
};
constexpr Replacement kReplacements[] = {
    {kEscapedBackslash, kPlaceholder},
    {R"(\i)", R"(([^\W\d]|:))"},
    {R"(\I)", R"(([\W\d]))"},
    {R"(\c)", R"((\w|\.|-|:))"},
    {R"(\C)", R"(([^\w\.\-\:]))"},
    {R"(\p{IsBasicLatin})", R"([\000-\177])"},
    {R"(\p{IsLatin-1Supplement})", R"([\200-\377])"},
    {R"(\p{IsLatinExtended-A})", R"([\400-\577])"},
    {R"(\p{IsLatinExtended-B})", R"([\600-\1117])"}, // no range that a library takes
    {kPlaceholder, kEscapedBackslash},
};

// No replacement makes a text that a later place could begin with, so that one pass over the text replaces
// what a search from its start, again and again, would.
std::string Translate(std::string text) {
    for (auto const& [search, replacement] : kReplacements) {
        std::string const source = std::move(text);
        text.clear();
        std::size_t begin = 0;
        std::size_t const length = std::char_traits<char>::length(search);
        for (std::size_t at; (at = source.find(search, begin)) != std::string::npos; begin = at + length)
            text.append(source, begin, at - begin).append(replacement);
        text.append(source, begin);
    }
    return "^(" + text + ")$";
}

std::string TranslateStrictly(std::string pattern) {
    detail::SchemaPattern translated = detail::TranslateSchemaPattern(pattern);
    if (!translated.error.empty())
        FailRegularExpression(pattern, translated.error);
    return std::move(translated.expression);
}

using TranslatePattern = std::string (*)(std::string pattern);

SharedRegex Compile(std::string const& pattern, TranslatePattern translate) {
    std::string const expression = translate(pattern);
    std::string error;
    detail::RegexPtr regex = detail::CompileRegex(expression, error);
    if (regex == nullptr)
        FailRegularExpression(expression, error);
    return regex;
}

// The patterns of all threads. The oldest is dropped when there are too many.
class PatternCache {
public:
    explicit PatternCache(TranslatePattern translate) : m_translate(translate) {}

    SharedRegex Find(std::string const& pattern) {
        {
            std::lock_guard<std::mutex> const lock(m_mutex);
            auto const found = m_regexes.find(pattern);
            if (found != m_regexes.end())
                return found->second;
        }
        SharedRegex regex = Compile(pattern, m_translate); // without holding the lock
        std::lock_guard<std::mutex> const lock(m_mutex);
        if (!m_regexes.emplace(pattern, regex).second)
            return regex;
        m_byAge.push_back(pattern);
        if (m_byAge.size() > kMost) {
            m_regexes.erase(m_byAge.front());
            m_byAge.pop_front();
        }
        return regex;
    }

private:
    static constexpr std::size_t kMost = 256;

    TranslatePattern const m_translate;
    std::mutex m_mutex;
    std::unordered_map<std::string, SharedRegex> m_regexes;
    std::deque<std::string> m_byAge;
};

// Never destroyed: threads may check values when the process ends.
PatternCache& SharedCache(detail::FacetRules rules) {
    static PatternCache& cache = *new PatternCache(Translate);
    static PatternCache& strictCache = *new PatternCache(TranslateStrictly);
    return rules == detail::FacetRules::kXmlSchema ? strictCache : cache;
}

// What is kept beside facets. Only text that is UTF-8 as it stands, so that the pattern stays the same as
// long as that is so.
class PreparedPattern final : public detail::PreparedFacets {
public:
    PreparedPattern(std::string const& pattern, detail::FacetRules rules)
        : PreparedFacets(ItemType_string), m_pattern(pattern), m_isAscii(IsAscii(pattern)),
          m_regex(SharedCache(rules).Find(pattern.c_str())) {}

    bool IsOf(std::string const& pattern) const noexcept {
        return m_pattern == pattern && (m_isAscii || IsLocalTextUtf8());
    }
    detail::CompiledRegex const& GetRegex() const noexcept { return *m_regex; }

private:
    std::string m_pattern;
    bool m_isAscii;
    SharedRegex m_regex;
};

// Text that is the same in UTF-8.
bool IsUtf8AsItStands(std::string_view local) noexcept {
    return IsLocalTextUtf8() ? IsValidUtf8(local) : IsAscii(local);
}

std::string_view TextOf(CBinaryData const& data) {
    return std::string_view(reinterpret_cast<char const*>(data.GetData()), data.GetLength());
}

bool MatchesRegex(detail::CompiledRegex const& regex, std::string_view value) {
    std::string_view const subject = value.substr(0, value.find('\0'));
    if (IsUtf8AsItStands(subject))
        return detail::MatchesWhole(regex, subject, true);
    return detail::MatchesWhole(regex, TextOf(LocalToUtf8(std::string(subject).c_str())), false);
}

// Null if there is none for this pattern, and none can be kept.
PreparedPattern const* FindPrepared(CPrimitiveRestrictions const& facets, detail::FacetRules rules) {
    detail::PreparedSlot const& slot =
        rules == detail::FacetRules::kXmlSchema ? facets.GetSchemaPatternSlot() : facets.GetPreparedSlot();
    detail::PreparedFacets const* prepared = slot.Get();
    if (prepared == nullptr && IsUtf8AsItStands(facets.pattern))
        prepared = slot.Put(std::make_unique<PreparedPattern>(facets.pattern, rules));
    if (prepared == nullptr || prepared->GetType() != ItemType_string)
        return nullptr;
    auto const* const pattern = static_cast<PreparedPattern const*>(prepared);
    return pattern->IsOf(facets.pattern) ? pattern : nullptr;
}

} // namespace

bool MatchesPattern(std::string const& pattern, std::string_view value) {
    return MatchesPattern(pattern, value, detail::FacetRules::kLetter);
}

bool detail::MatchesPattern(std::string const& pattern, std::string_view value, FacetRules rules) {
    return MatchesRegex(*SharedCache(rules).Find(pattern), value);
}

bool MatchesPattern(CPrimitiveRestrictions const& facets, std::string_view value, detail::FacetRules rules) {
    if (PreparedPattern const* const prepared = FindPrepared(facets, rules))
        return MatchesRegex(prepared->GetRegex(), value);
    CBinaryData const utf8 = LocalToUtf8(facets.pattern.c_str());
    return MatchesPattern(std::string(TextOf(utf8)), value, rules);
}

} // namespace ZvXmlLib16
