#include "schema/emit/CppText.h"

#include <algorithm>
#include <string_view>

namespace ZvXmlLib16::schema {

namespace {

constexpr std::size_t kLineLength = 110;

// By a backslash, its trigraph, or one of them with spaces behind it.
bool ContinuesLine(std::string_view line) {
    return !line.empty() && (line.back() == '\\' || line.back() == ' ' ||
                             (line.size() > 2 && line.substr(line.size() - 3) == "?\?/"));
}

// Compilers warn of a control character of writing direction (U+202A to U+202E, U+2066 to U+2069).
bool IsDirectionAt(std::string_view text, std::size_t at) {
    if (text.substr(at, 2) != "\xE2\x80" && text.substr(at, 2) != "\xE2\x81")
        return false;
    unsigned const last = at + 2 < text.size() ? static_cast<unsigned char>(text[at + 2]) : 0;
    return text[at + 1] == '\x80' ? last >= 0xAA && last <= 0xAE : last >= 0xA6 && last <= 0xA9;
}

} // namespace

std::string Literal(std::string_view text) {
    std::string literal = "\"";
    for (char const c : text) {
        auto const octet = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            literal += '\\';
            literal += c;
        } else if (octet < 0x20 || octet >= 0x7F || c == '?') {
            literal += '\\';
            for (int shift = 6; shift >= 0; shift -= 3)
                literal += static_cast<char>('0' + ((octet >> shift) & 7));
        } else {
            literal += c;
        }
    }
    return literal + '"';
}

std::string Comment(std::string_view text, std::string const& indent) {
    std::string comment;
    std::string line;
    auto const end = [&] {
        while (ContinuesLine(line))
            line.pop_back();
        if (!line.empty())
            comment += indent + "// " + line + "\n";
        line.clear();
    };
    std::string word;
    auto const endWord = [&] {
        if (word.empty())
            return;
        if (!line.empty() && indent.size() + line.size() + word.size() + 4 > kLineLength)
            end();
        line += (line.empty() ? "" : " ") + word;
        word.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsDirectionAt(text, i))
            i += 2;
        else if (static_cast<unsigned char>(text[i]) <= ' ')
            endWord();
        else
            word += text[i];
    }
    endWord();
    end();
    return comment;
}

std::string OpenNamespace(std::string const& name) {
    return "namespace " + name + " {\n";
}

std::string CloseNamespace(std::string const& name) {
    return "} // namespace " + name + "\n";
}

std::string JoinNamespaces(std::string const& text) {
    constexpr std::string_view kClose = "\n} // namespace ";
    std::string joined;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = text.find(kClose, at)) != std::string::npos;) {
        std::size_t const name = at + kClose.size();
        std::size_t const end = text.find('\n', name);
        std::string const again = "\n\n" + OpenNamespace(text.substr(name, end - name)) + "\n";
        if (text.compare(end, again.size(), again) != 0) {
            at = end;
            continue;
        }
        joined.append(text, from, at + 1 - from);
        if (text[at - 1] != '\n')
            joined += '\n';
        from = at = end + again.size();
    }
    return joined.append(text, from, std::string::npos);
}

} // namespace ZvXmlLib16::schema
