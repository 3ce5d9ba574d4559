// The schema documents that belong together, and the names that they define.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/frontend/Outline.h"
#include "schema/frontend/SchemaFiles.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace ZvXmlLib16::schema {

// A document, as a part of the namespace that it was included into.
struct SchemaDocument {
    std::string file;
    std::string targetNamespace;
    bool isChameleon = false; // it has no namespace of its own, but that of the document that includes it
    std::shared_ptr<OutlineNode const> root;

    // By elementFormDefault and attributeFormDefault.
    bool qualifiesElements = false;
    bool qualifiesAttributes = false;

    Position At(OutlineNode const& node) const { return {file, node.line, node.column}; }
};

enum class Space : std::uint8_t {
    kType,
    kElement,
    kAttribute,
    kGroup,
    kAttributeGroup,
    kNotation,
    kIdentity
};

// A definition or declaration with a name.
struct Definition {
    OutlineNode const* node = nullptr;
    SchemaDocument const* document = nullptr;
    Definition const* redefined = nullptr; // what it redefines: it refers to that by its own name
};

// A name with its namespace.
struct QName {
    std::string ns;
    std::string name;

    bool operator<(QName const& other) const { return std::tie(ns, name) < std::tie(other.ns, other.name); }
    bool operator==(QName const& other) const { return ns == other.ns && name == other.name; }
    // {namespace}name.
    std::string Clark() const { return "{" + ns + "}" + name; }
};

class SchemaSet {
public:
    // Both are borrowed.
    SchemaSet(SchemaFiles const& files, Diagnostics& diagnostics);
    SchemaSet(SchemaSet const&) = delete;
    SchemaSet& operator=(SchemaSet const&) = delete;

    // A schema of the user, with all that it includes, imports and redefines. Tells what cannot be read.
    void Add(std::string const& file);
    // Ahead of these: schemas whose components come first, in a group of their own.
    void AddBefore(std::vector<std::string> const& files);
    // Behind the last: adds what is built in where no document has it.
    void Close();

    // Of the schemas that were added, in their order.
    std::vector<std::string> const& GetTargetNamespaces() const noexcept { return m_targetNamespaces; }

    // Null if there is none.
    Definition const* Find(Space space, QName const& name) const;
    // Of all documents, in the order of the source.
    std::vector<std::pair<Space, Definition const*>> const& GetGlobals() const noexcept { return m_globals; }
    // How many of them each group of AddBefore ends behind.
    std::vector<std::size_t> const& GetGroupEnds() const noexcept { return m_groupEnds; }
    bool IsCurrent(Space space, Definition const& definition) const;
    // What a QName in an attribute of the document means.
    QName Resolve(SchemaDocument const& document, OutlineNode const& node, std::string_view text) const;

    // For the check of the set by the parser.
    struct Root {
        std::string ns;
        std::vector<std::string> files; // in the order in which they were found
    };
    std::vector<Root> const& GetRoots() const noexcept { return m_roots; }
    // The file that `location` in the document `base` means, by what was found on reading; null for none.
    std::string const* FindFile(std::string const& base, std::string const& location) const;
    // Those that were read, but for what is built in.
    std::vector<std::string> GetFiles() const;
    std::string const* FindBytes(std::string const& file) const;
    // Calls with the bytes of each document.
    template <class Call>
    void ForEachDocument(Call call) const {
        for (auto const& [file, loaded] : m_loaded)
            call(loaded.bytes);
    }

private:
    struct Loaded {
        std::string bytes;
        std::shared_ptr<OutlineNode const> root; // null for what is no schema
    };

    Loaded const* Load(std::string const& file, bool isRequired);
    SchemaDocument const* AddDocument(std::string const& file, std::string const& ns, bool isIncluded,
                                      Position const& from);
    void AddRoot(std::string const& ns, std::string const& file);
    void AddParts(SchemaDocument const& document);
    void AddInclude(SchemaDocument const& document, OutlineNode const& node);
    void AddImport(SchemaDocument const& document, OutlineNode const& node);
    void Define(SchemaDocument const& document, OutlineNode const& node, bool isRedefinition);
    void RefuseNewerConstructs(SchemaDocument const& document, OutlineNode const& node);

    SchemaFiles const& m_files;
    Diagnostics& m_diagnostics;
    std::map<std::string, Loaded> m_loaded;
    std::map<std::pair<std::string, std::string>, std::unique_ptr<SchemaDocument>>
        m_documents; // by file, namespace
    std::map<std::pair<std::string, std::string>, std::string> m_locations;
    std::map<std::pair<Space, QName>, Definition const*> m_current;
    std::vector<std::unique_ptr<Definition>> m_definitions;
    std::vector<std::pair<Space, Definition const*>> m_globals;
    std::vector<std::size_t> m_groupEnds;
    std::vector<Root> m_roots;
    std::vector<std::string> m_targetNamespaces;
    std::vector<std::pair<std::string, Position>> m_openImports; // those without a location
    bool m_needsXmlSchema = false;
};

} // namespace ZvXmlLib16::schema
