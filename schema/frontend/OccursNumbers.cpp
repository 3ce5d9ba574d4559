#include "schema/frontend/OccursNumbers.h"

#include "zvxmllib/grammar/LexicalForms.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <vector>

namespace ZvXmlLib16::schema {

namespace {

constexpr std::size_t kLargest = 20; // what is left as it is

struct Occurs {
    std::size_t begin = 0; // of the digits
    std::size_t end = 0;
};

// The next number in an attribute minOccurs or maxOccurs, from `at` on. Also finds what only looks like one,
// in a comment for instance, which does no harm.
bool FindOccurs(std::string_view text, std::size_t at, Occurs& occurs) {
    while ((at = text.find("Occurs", at)) != std::string_view::npos) {
        at += 6;
        std::size_t i = at;
        while (i < text.size() &&
               (grammar::IsSpace(text[i]) || text[i] == '=' || text[i] == '"' || text[i] == '\''))
            ++i;
        std::size_t const begin = i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9')
            ++i;
        if (i != begin) {
            occurs = {begin, i};
            return true;
        }
    }
    return false;
}

std::string Significant(std::string_view digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return std::string(digits);
}

} // namespace

OccursNumbers::OccursNumbers(SchemaSet const& set) {
    std::vector<std::string> large;
    set.ForEachDocument([&large](std::string const& bytes) {
        Occurs occurs;
        for (std::size_t at = 0; FindOccurs(bytes, at, occurs); at = occurs.end) {
            std::string digits =
                Significant(std::string_view(bytes).substr(occurs.begin, occurs.end - occurs.begin));
            if (digits.size() > 2 || (digits.size() == 2 && std::stoul(digits) > kLargest))
                large.push_back(std::move(digits));
        }
    });
    std::sort(large.begin(), large.end(), [](std::string const& left, std::string const& right) {
        return std::make_tuple(left.size(), std::string_view(left)) <
               std::make_tuple(right.size(), std::string_view(right));
    });
    large.erase(std::unique(large.begin(), large.end()), large.end());
    for (std::size_t i = 0; i < large.size(); ++i)
        m_replacements.emplace(large[i], std::to_string(kLargest + 1 + i));
}

std::string OccursNumbers::Shorten(std::string const& document) const {
    std::string shortened = document;
    Occurs occurs;
    for (std::size_t at = 0; FindOccurs(document, at, occurs); at = occurs.end) {
        std::size_t const length = occurs.end - occurs.begin;
        auto const found =
            m_replacements.find(Significant(std::string_view(document).substr(occurs.begin, length)));
        if (found != m_replacements.end())
            shortened.replace(occurs.begin, length,
                              std::string(length - found->second.size(), '0') + found->second);
    }
    return shortened;
}

} // namespace ZvXmlLib16::schema
