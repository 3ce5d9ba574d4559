// Names of C++ from names of XML.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace ZvXmlLib16::schema {

// Upper camel case, split at what no identifier has; letters beyond ASCII become _uXXXX. Never empty, and
// behind a prefix always an identifier. For any text.
std::string CamelName(std::string_view xmlName);

// The name of an enumerator for a value: CamelName, with V ahead of a digit, Empty for an empty text, and
// without the names that standard headers define as macros.
std::string EnumeratorName(std::string_view value);

// A namespace of C++ for that of a schema: the last two meaningful parts of the URI, in lower case; versions
// keep their digits behind a v. `otherwise` where the URI has none.
std::string NamespaceName(std::string_view uri, std::string_view otherwise);

// An identifier for the name of a file: what no identifier has becomes _.
std::string Identifier(std::string_view text);

// Names that stand beside each other. Names that differ in case only are different.
class NameScope {
public:
    // The name, or the first free one of name + separator + 2, 3, ...
    std::string Take(std::string const& name, char const* separator = "");
    void Release(std::string const& name) { m_taken.erase(name); }
    void Reserve(std::string const& name) { m_taken.insert(name); }
    bool IsTaken(std::string const& name) const { return m_taken.count(name) != 0; }

private:
    std::set<std::string> m_taken;
    std::map<std::string, unsigned> m_next; // so that many equal names take no long search
};

} // namespace ZvXmlLib16::schema
