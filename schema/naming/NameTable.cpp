#include "schema/naming/NameTable.h"

#include "schema/naming/ReservedNames.h"
#include "zvxmllib/values/text/TextParts.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace ZvXmlLib16::schema {

namespace {

constexpr std::string_view kEquals = " = ";
constexpr std::string_view kKinds[] = {"class ", "property ", "enum ", "value ", "document "};

// The last / that is not within the braces of a namespace.
std::size_t FindLastStep(std::string_view path) {
    std::size_t last = std::string_view::npos;
    bool isNamespace = false;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '{' || path[i] == '}')
            isNamespace = path[i] == '{';
        else if (path[i] == '/' && !isNamespace)
            last = i;
    }
    return last;
}

// What the components with names beside each other share.
std::string PlaceOf(std::string_view path) {
    if (detail::StartsWith(path, "value "))
        return std::string(path.substr(0, path.find("=\"")));
    if (detail::StartsWith(path, "property "))
        return std::string(path.substr(0, FindLastStep(path)));
    std::size_t const open = std::min(path.find('{'), path.size());
    std::string_view const ns = path.substr(open, path.find('}', open) - open);
    return (detail::StartsWith(path, "document ") ? "document " : "type ") + std::string(ns);
}

bool IsFreeIdentifier(std::string_view name) {
    return !IsReserved(name) && Identifier(name) == name;
}

} // namespace

void NameTable::Read(std::string const& file, std::string_view text, Diagnostics& diagnostics) {
    diagnostics.AddFile(file);
    for (unsigned line = 1; !text.empty(); ++line) {
        std::size_t const end = std::min(text.find('\n'), text.size());
        std::string_view content = text.substr(0, end);
        if (!content.empty() && content.back() == '\r')
            content.remove_suffix(1);
        if (!content.empty() && content[0] != '#')
            ReadLine(content, {file, line, 1}, diagnostics);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void NameTable::ReadLine(std::string_view line, Position const& position, Diagnostics& diagnostics) {
    std::size_t const equals = line.rfind(kEquals);
    bool const isKnown = std::any_of(std::begin(kKinds), std::end(kKinds),
                                     [&](std::string_view kind) { return detail::StartsWith(line, kind); });
    if (equals == std::string_view::npos || !isKnown)
        return diagnostics.Error(position, "this is no line of a table of names: KIND PATH = NAME");
    std::string path(line.substr(0, equals));
    std::string name(line.substr(equals + kEquals.size()));
    bool const isPartOfName = detail::StartsWith(path, "property ") || detail::StartsWith(path, "document ");
    if (name.empty() || !IsFreeIdentifier((isPartOfName ? "Get" : "") + name))
        return diagnostics.Error(position, "[" + name + "] is no name that C++ leaves free");
    if (!m_givenBeside.emplace(PlaceOf(path), name).second)
        return diagnostics.Error(position, "the name [" + name + "] stands twice in its place");
    if (!m_given.emplace(path, name).second)
        return diagnostics.Error(position, "[" + path + "] has a name already");
    m_all[path] = name;
}

std::string NameTable::Write() const {
    std::string text = "# The names that zvxml-gen gave. Those that stand here stay.\n";
    for (auto const& [path, name] : m_all)
        text.append(path).append(kEquals).append(name).append("\n");
    return text;
}

std::string const* NameTable::Find(std::string const& path) const {
    auto const found = m_given.find(path);
    return found == m_given.end() ? nullptr : &found->second;
}

bool NameTable::IsGiven(std::string const& path, std::string const& name) const {
    return m_givenBeside.count({PlaceOf(path), name}) != 0;
}

void NameTable::Keep(std::string const& path, std::string const& name) {
    m_all[path] = name;
}

std::string NameTable::Take(NameScope& names, std::string const& path, std::string const& name,
                            char const* separator) {
    std::string const* const given = Find(path);
    std::string taken;
    if (given != nullptr && !names.IsTaken(*given)) {
        taken = names.Take(*given);
    } else {
        std::vector<std::string> others;
        while (IsGiven(path, taken = names.Take(name, separator)))
            others.push_back(taken);
        for (std::string const& other : others)
            names.Release(other);
    }
    Keep(path, taken);
    return taken;
}

std::string PathOfValue(std::string const& enumeration, std::string_view text) {
    std::string path = "value " + enumeration + "=\"";
    for (char const c : text) {
        if (static_cast<unsigned char>(c) < ' ' || c == '%')
            path += {'%', "0123456789ABCDEF"[(c >> 4) & 15], "0123456789ABCDEF"[c & 15]};
        else
            path += c;
    }
    return path + '"';
}

} // namespace ZvXmlLib16::schema
