#include "schema/frontend/PatternTexts.h"

#include "schema/frontend/XercesText.h"
#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/values/facets/SchemaPattern.h"

#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/regx/RegularExpression.hpp>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace ZvXmlLib16::schema {

namespace {

constexpr std::uint64_t kMostRepeats = 1000; // that the parser may unroll

struct AttributeText {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The attribute `value` of the next element pattern, from `at` on, which moves behind it. Also finds what
// only looks like one, in a comment for instance, which does no harm.
bool FindPattern(std::string_view text, std::size_t& at, AttributeText& value) {
    constexpr std::string_view kName = "pattern";
    while ((at = text.find(kName, at)) != std::string_view::npos) {
        bool const isTag = at > 0 && (text[at - 1] == '<' || text[at - 1] == ':');
        at += kName.size();
        while (isTag && at < text.size() && grammar::IsSpace(text[at])) {
            std::size_t const name = text.find_first_not_of(" \t\r\n", at);
            std::size_t const quote = text.find_first_of("\"'<>", at);
            if (quote == std::string_view::npos || text[quote] == '<' || text[quote] == '>')
                break;
            std::size_t const end = text.find(text[quote], quote + 1);
            if (end == std::string_view::npos)
                return false;
            at = end + 1;
            value = {quote + 1, end};
            std::size_t const nameEnd = text.find_first_of(" \t\r\n=", name);
            if (text.substr(name, nameEnd - name) == "value")
                return true;
        }
    }
    return false;
}

void AppendUtf8(std::uint32_t code, std::string& text) {
    auto const add = [&text](std::uint32_t octet) { text += static_cast<char>(octet); };
    if (code < 0x80) {
        add(code);
        return;
    }
    unsigned const more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    add((0xFF00U >> (more + 1) & 0xFFU) | code >> (6 * more));
    for (unsigned i = more; i-- > 0;)
        add(0x80U | (code >> (6 * i) & 0x3FU));
}

// Replaces references. False for one that only the parser can know.
bool Decode(std::string_view text, std::string& result) {
    while (!text.empty()) {
        std::size_t const begin = std::min(text.find('&'), text.size());
        result.append(text.substr(0, begin));
        text.remove_prefix(begin);
        if (text.empty())
            break;
        std::size_t const end = text.find(';');
        if (end == std::string_view::npos)
            return false;
        std::string_view const name = text.substr(1, end - 1);
        text.remove_prefix(end + 1);
        if (name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos") {
            result += name == "amp"    ? '&'
                      : name == "lt"   ? '<'
                      : name == "gt"   ? '>'
                      : name == "quot" ? '"'
                                       : '\'';
            continue;
        }
        bool const isHex = name.substr(0, 2) == "#x";
        char const* const digits = name.data() + (isHex ? 2 : 1);
        char const* const last = name.data() + name.size();
        std::uint32_t code = 0;
        if (name.size() < 2 || name[0] != '#' || digits == last)
            return false;
        auto const read = std::from_chars(digits, last, code, isHex ? 16 : 10);
        if (read.ec != std::errc() || read.ptr != last || code > 0x10FFFF)
            return false;
        AppendUtf8(code, result);
    }
    return true;
}

// Whether the quantities of the pattern, one within the other at worst, are too many.
bool IsTooLong(std::string_view pattern) {
    std::uint64_t product = 1;
    for (std::size_t at = 0; (at = pattern.find('{', at)) != std::string_view::npos;) {
        ++at;
        std::uint64_t most = 1;
        while (at < pattern.size() && ((pattern[at] >= '0' && pattern[at] <= '9') || pattern[at] == ',')) {
            std::uint64_t number = 0;
            auto const read = std::from_chars(pattern.data() + at, pattern.data() + pattern.size(), number);
            if (read.ec == std::errc::result_out_of_range)
                return true;
            at = read.ec == std::errc() ? static_cast<std::size_t>(read.ptr - pattern.data()) : at + 1;
            most = std::max(most, number);
        }
        if (most > kMostRepeats || (product *= most) > kMostRepeats)
            return true;
    }
    return false;
}

bool IsRefused(std::string const& pattern) {
    try {
        XercesText const text(pattern);
        XercesText const options("X"); // of XML Schema
        xercesc::RegularExpression const expression(text.Get(), options.Get());
        return false;
    } catch (xercesc::XMLException const&) {
        return true;
    }
}

} // namespace

std::string HidePatterns(std::string document) {
    std::size_t at = 0;
    for (AttributeText value; FindPattern(document, at, value);) {
        std::string pattern;
        constexpr std::string_view kAll = ".*"; // and branches without anything
        std::size_t const length = value.end - value.begin;
        if (length < kAll.size() || !Decode(std::string_view(document).substr(value.begin, length), pattern))
            continue;
        if (!IsTooLong(pattern) &&
            (!detail::TranslateSchemaPattern(pattern, detail::PatternGrammar::kTolerant).error.empty() ||
             !IsRefused(pattern)))
            continue;
        for (std::size_t i = 0; i < length; ++i) {
            char& c = document[value.begin + i];
            if (!grammar::IsSpace(c))
                c = i < kAll.size() ? kAll[i] : '|';
        }
    }
    return document;
}

} // namespace ZvXmlLib16::schema
