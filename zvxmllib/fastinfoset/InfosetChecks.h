// InfosetChecks, what a Fast Infoset document must fulfil to stand for an XML document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16::detail {
class NameTable;
struct XmlName;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// Names and characters of XML 1.0, and the rules of Namespaces in XML for one document, element by element:
// Open, its declarations, its name, its attributes, Close. Literals are looked at where they stand; what
// refers to them by index needs no second look but at the prefixes in scope. Strings are those that the table
// of names keeps, so that equal ones are one. Every function throws CZvException for what is wrong.
class InfosetChecks {
public:
    // Borrows the table, which outlives this.
    explicit InfosetChecks(detail::NameTable& names);
    InfosetChecks(InfosetChecks const&) = delete;
    InfosetChecks& operator=(InfosetChecks const&) = delete;

    // UTF-8. Local text must have the characters, too.
    static void RequireName(std::string_view utf8);
    static void RequireText(std::string_view utf8);
    // Pairs of surrogates as well.
    static void RequireText(std::u16string_view units);

    void OpenElement();
    void CloseElement();
    // An empty prefix is that of the default namespace, an empty URI takes it away.
    void Declare(std::string const* prefix, std::string const* uri);
    // Of the name of an element or attribute.
    void RequireDeclared(std::string const* prefix, std::string const* uri) const;
    void AddAttribute(detail::XmlName const* name);
    // No attribute stands twice.
    void EndAttributes();

private:
    struct Binding {
        std::string const* uri = nullptr; // null for none
        std::size_t depth = 0;            // of the element that declares it
    };
    struct Hidden {
        std::string const* prefix;
        Binding binding;
    };

    std::string const* const m_noText;
    std::string const* const m_xml;
    std::string const* const m_xmlNamespace;
    std::string const* const m_xmlns;
    std::string const* const m_xmlnsNamespace;
    std::unordered_map<std::string const*, Binding> m_inForce; // by prefix
    std::vector<Hidden> m_hidden;                              // what declarations hide, innermost last
    std::vector<std::size_t> m_open;                  // for each open element, what was hidden before
    std::vector<detail::XmlName const*> m_attributes; // of the element that is being started
};

} // namespace ZvXmlLib16
