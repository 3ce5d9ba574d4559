#include "schema/naming/Names.h"

#include "schema/naming/ReservedNames.h"
#include "zvxmllib/values/text/NumberText.h"

#include <cstdint>
#include <cstdio>
#include <vector>

namespace ZvXmlLib16::schema {

namespace {

bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}
bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool IsLetterOrDigit(char c) {
    return detail::IsDigit(c) || IsLower(c) || IsUpper(c);
}
char ToUpper(char c) {
    return IsLower(c) ? static_cast<char>(c - 'a' + 'A') : c;
}
char ToLower(char c) {
    return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

// The code point at `at`, which moves behind it; a damaged one counts as its first octet.
std::uint32_t TakeCodePoint(std::string_view text, std::size_t& at) {
    auto const octet = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char const first = octet(at);
    std::size_t const more = first >= 0xF0 && first < 0xF8   ? 3
                             : first >= 0xE0 && first < 0xF0 ? 2
                             : first >= 0xC0 && first < 0xE0 ? 1
                                                             : 0;
    std::uint32_t code = more == 0 ? first : first & (0x3FU >> more);
    std::size_t end = at + 1;
    while (end < text.size() && end <= at + more && (octet(end) & 0xC0U) == 0x80)
        code = (code << 6) | (octet(end++) & 0x3FU);
    bool const isWhole = end == at + 1 + more;
    at = isWhole ? end : at + 1;
    return isWhole ? code : first;
}

} // namespace

std::string CamelName(std::string_view xmlName) {
    std::string name;
    bool isStart = true;
    for (std::size_t at = 0; at < xmlName.size();) {
        char const c = xmlName[at];
        if (IsLetterOrDigit(c)) {
            name += isStart ? ToUpper(c) : c;
            isStart = false;
            ++at;
        } else if (static_cast<unsigned char>(c) < 0x80) {
            // Digits on both sides stay apart: 1.2 is not 12.
            bool const isBetweenDigits = at + 1 < xmlName.size() && detail::IsDigit(xmlName[at + 1]) &&
                                         !name.empty() && detail::IsDigit(name.back());
            if (isBetweenDigits)
                name += '_';
            isStart = true;
            ++at;
        } else {
            char code[16];
            std::snprintf(code, sizeof code, "_u%04X", static_cast<unsigned>(TakeCodePoint(xmlName, at)));
            name += code;
            isStart = true;
        }
    }
    return name.empty() ? "_" : name;
}

std::string EnumeratorName(std::string_view value) {
    if (value.empty())
        return "Empty";
    std::string name = CamelName(value);
    if (name == "_") {
        // Signs only: they tell values apart.
        name = "V";
        for (char const c : value)
            name += "_u00" + std::string(1, "0123456789ABCDEF"[(c >> 4) & 15]) + "0123456789ABCDEF"[c & 15];
    }
    if (detail::IsDigit(name[0]) || name[0] == '_')
        name = "V" + name;
    return IsReserved(name) ? name + '_' : name;
}

std::string NamespaceName(std::string_view uri, std::string_view otherwise) {
    std::vector<std::string> parts;
    std::string part;
    auto const end = [&] {
        bool const isNoise = part == "http" || part == "https" || part == "urn" || part == "www" ||
                             part == "org" || part == "com" || part == "net" || part == "xsd" ||
                             part == "schema" || part == "schemas" || part == "xml" || part == "ns" ||
                             part == "names" || part == "specification" || part == "tc";
        if (!part.empty() && !isNoise)
            parts.push_back(part);
        part.clear();
    };
    for (char const c : uri) {
        if (IsLetterOrDigit(c))
            part += ToLower(c);
        else if (c == '.' && !part.empty() && detail::IsDigit(part.back()))
            part += '_';
        else
            end();
    }
    end();
    std::string name;
    for (std::size_t i = parts.size() > 2 ? parts.size() - 2 : 0; i < parts.size(); ++i) {
        while (!parts[i].empty() && parts[i].back() == '_')
            parts[i].pop_back();
        std::string const piece = detail::IsDigit(parts[i][0]) ? "v" + parts[i] : parts[i];
        name += (name.empty() ? "" : "_") + piece;
    }
    if (name.empty())
        name = otherwise;
    return IsReserved(name) || IsGlobal(name) ? name + '_' : name;
}

std::string Identifier(std::string_view text) {
    std::string name;
    for (char const c : text)
        name += IsLetterOrDigit(c) ? c : '_';
    return name.empty() || detail::IsDigit(name[0]) ? "V" + name : name;
}

std::string NameScope::Take(std::string const& name, char const* separator) {
    if (m_taken.insert(name).second)
        return name;
    unsigned& number = m_next.emplace(name, 2).first->second;
    std::string numbered;
    do {
        numbered = name + separator + std::to_string(number++);
    } while (!m_taken.insert(numbered).second);
    return numbered;
}

} // namespace ZvXmlLib16::schema
