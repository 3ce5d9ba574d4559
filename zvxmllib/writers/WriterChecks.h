// WriterChecks, what must hold for the calls of a writer to make a document of XML.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace ZvXmlLib16 {

// <?target data?> in its parts, which lie in the text. Throws CZvInvalidParamException for what is none
// (XML, 2.6).
struct XmlInstruction {
    std::string_view target;
    std::string_view data;
};
XmlInstruction RequireInstruction(std::string const& text);

// Follows one document call by call: names, characters, aliases, twins of attributes, and one root. Strings
// are local text. Every function throws CZvException or one of its kin for what is wrong.
class WriterChecks {
public:
    // Without namespaces, colons may stand in names, and xmlns is an attribute like any other.
    explicit WriterChecks(bool hasNamespaces);

    void RequireAlias(std::string const& alias, std::string const& ns) const;
    // Of the whole document: one alias stands for one namespace.
    void AddDocumentAlias(std::string const& alias, std::string const& ns);
    void RequireDefaultNamespace(std::string const& ns) const;
    // Either of them, for an element.
    void RequireDeclaration(std::string const& alias, std::string const& ns) const;
    void RequireComment(std::string const& text) const;

    void StartElement(std::string const& name, std::string const& ns);
    void EndElement();
    void AddAttribute(std::string const& name, std::string const& ns, std::string const& value);
    void RequireType(std::string const& ns, std::string const& name) const;
    // Of the innermost element.
    void RequireValue(std::string const& text) const;
    // Whether that takes the text.
    bool IsValue(std::string const& text) const;
    // At the end.
    void RequireRoot() const;

private:
    struct Name {
        std::string name;
        std::string ns;
    };

    bool IsName(std::string const& name) const;
    void RequireText(std::string const& text, std::string const& owner) const;
    void RequireNamespace(std::string const& ns, std::string const& owner) const;

    bool const m_hasNamespaces;
    bool const m_isLocalUtf8;
    mutable std::array<std::string, 64> m_goodNames; // by a hash of theirs; empty for none
    mutable std::string m_goodNamespace;             // the last one
    bool m_hasRoot = false;
    std::map<std::string, std::string> m_documentAliases; // to namespaces
    std::vector<std::string> m_open;                      // names, of which the first m_depth are open
    std::size_t m_depth = 0;
    // Of the element started last. Where there are more than a few, the set has them all.
    static constexpr std::uint32_t kFewAttributes = 16;
    std::array<Name, kFewAttributes> m_attributes;
    std::uint32_t m_attributeCount = 0;
    std::unordered_set<std::string> m_moreAttributes;
};

} // namespace ZvXmlLib16
