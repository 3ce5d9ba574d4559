#include "schema/emit/CppText.h"

#include <algorithm>

namespace ZvXmlLib16::schema {

namespace {

constexpr std::size_t kLineLength = 110;

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
        while (!line.empty() && (line.back() == '\\' || line.back() == ' '))
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
    for (char const c : text) {
        if (static_cast<unsigned char>(c) <= ' ')
            endWord();
        else
            word += c;
    }
    endWord();
    end();
    return comment;
}

std::string Identifier(std::string_view text) {
    std::string name;
    for (char const c : text) {
        bool const isPart = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        name += isPart ? c : '_';
    }
    return name;
}

std::string OpenNamespace(std::string const& name) {
    return "namespace " + name + " {\n";
}

std::string CloseNamespace(std::string const& name) {
    return "} // namespace " + name + "\n";
}

} // namespace ZvXmlLib16::schema
