// The pattern facet: translation, and compiled patterns that are kept.
#include "zvxmllib/values/Pattern.h"

#include "zvxmllib/foundation/Encoder.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/values/BinaryData.h"
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/Regex.h"

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>

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

std::string Translate(std::string text) {
    for (auto const& [search, replacement] : kReplacements) {
        std::size_t const length = std::char_traits<char>::length(search);
        for (std::size_t at; (at = text.find(search)) != std::string::npos;)
            text.replace(at, length, replacement);
    }
    return "^(" + text + ")$";
}

SharedRegex Compile(std::string const& pattern) {
    std::string const expression = Translate(pattern);
    std::string error;
    detail::RegexPtr regex = detail::CompileRegex(expression, error);
    if (regex == nullptr)
        FailRegularExpression(expression, error);
    return regex;
}

// All threads' patterns, the oldest of which goes when there are too many.
class PatternCache {
public:
    SharedRegex Find(std::string const& pattern) {
        {
            std::lock_guard<std::mutex> const lock(m_mutex);
            auto const found = m_regexes.find(pattern);
            if (found != m_regexes.end())
                return found->second;
        }
        SharedRegex regex = Compile(pattern); // others need not wait for it
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

    std::mutex m_mutex;
    std::unordered_map<std::string, SharedRegex> m_regexes;
    std::deque<std::string> m_byAge;
};

// Never destroyed: threads may check values when the process ends.
PatternCache& SharedCache() {
    static PatternCache& cache = *new PatternCache;
    return cache;
}

// The thread's own few, in front of the shared ones, so that warm patterns cost no lock.
SharedRegex const& FindRegex(std::string const& pattern) {
    struct Entry {
        std::string pattern;
        SharedRegex regex;
    };
    static thread_local std::array<Entry, 16> entries;
    Entry& entry = entries[std::hash<std::string>()(pattern) % entries.size()];
    if (entry.regex == nullptr || entry.pattern != pattern) {
        SharedRegex regex = SharedCache().Find(pattern);
        entry.regex.reset(); // stays so if the next step fails
        entry.pattern = pattern;
        entry.regex = std::move(regex);
    }
    return entry.regex;
}

} // namespace

bool MatchesPattern(std::string const& pattern, std::string_view value) {
    SharedRegex const& regex = FindRegex(pattern);
    std::string_view const subject = value.substr(0, value.find('\0'));
    if (IsLocalTextUtf8() && IsValidUtf8(subject))
        return detail::MatchesWhole(*regex, subject, true);
    CBinaryData const utf8 = LocalToUtf8(std::string(subject).c_str());
    return detail::MatchesWhole(
        *regex, std::string_view(reinterpret_cast<char const*>(utf8.GetData()), utf8.GetLength()), false);
}

} // namespace ZvXmlLib16
