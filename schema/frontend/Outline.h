// A schema document as a tree of its elements, as it is written.
#pragma once

#include "schema/diagnostics/Diagnostics.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZvXmlLib16::schema {

constexpr char const kSchemaNamespace[] = "http://www.w3.org/2001/XMLSchema";
constexpr char const kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";
constexpr char const kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";

// The namespaces declared at one element, on those of its parent.
struct NamespaceScope {
    std::shared_ptr<NamespaceScope const> parent;
    std::vector<std::pair<std::string, std::string>> bindings; // prefix, URI

    // Null for a prefix that is not declared; the empty one stands for no namespace then.
    std::string const* Find(std::string_view prefix) const noexcept;
};

// Texts are UTF-8.
struct OutlineNode {
    struct Attribute {
        std::string name;
        std::string ns;
        std::string value;
    };

    std::string name;
    std::string ns;
    std::vector<Attribute> attributes;
    std::vector<std::unique_ptr<OutlineNode>> children; // not those of documentation and appinfo
    std::string text;                                   // of documentation: all its text
    std::shared_ptr<NamespaceScope const> scope;
    unsigned line = 0; // of the end of the start tag
    unsigned column = 0;

    bool IsSchema(std::string_view localName) const noexcept {
        return ns == kSchemaNamespace && name == localName;
    }
    // An attribute without a namespace; null if it is absent. Names and numbers are without white space
    // around.
    std::string const* Find(std::string_view attribute) const noexcept;
    std::string Get(std::string_view attribute, std::string_view otherwise = {}) const;
    bool IsTrue(std::string_view attribute) const;
    // The first child of the schema namespace with this name; null if there is none.
    OutlineNode const* Child(std::string_view localName) const noexcept;
    // The text of annotation/documentation; empty for none.
    std::string Documentation() const;
};

// The parser's process-wide state, held while anything of it is used.
class ParserLibrary {
public:
    ParserLibrary();
    ParserLibrary(ParserLibrary const&) = delete;
    ParserLibrary& operator=(ParserLibrary const&) = delete;
    ~ParserLibrary();
};

// Null, with an error told, for what is no well-formed XML or nests too deep. Loads nothing else.
std::unique_ptr<OutlineNode> ReadOutline(std::string const& bytes, std::string const& file,
                                         Diagnostics& diagnostics);

} // namespace ZvXmlLib16::schema
