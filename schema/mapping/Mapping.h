// What becomes of a schema in C++: namespaces, classes, properties, enumerations.
#pragma once

#include "schema/diagnostics/Diagnostics.h"
#include "schema/model/Schema.h"
#include "schema/naming/NameTable.h"
#include "schema/naming/Names.h"

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/grammar/ContentOrder.h"
#include "zvxmllib/grammar/Grammar.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ZvXmlLib16::schema {

struct EnumPlan {
    std::string ns; // of C++
    std::string name;
    std::string xmlName;    // empty for an anonymous type
    bool isForeign = false; // of a set generated before
    std::vector<std::string> texts;
    std::vector<std::string> enumerators;
    std::vector<Source const*> sources; // of the texts
    Source const* source = nullptr;
};

enum class ValueKind { kText, kCodec, kList, kEnum };

// A simple type in C++.
struct ValuePlan {
    ValueKind kind = ValueKind::kText;
    ItemType item = ItemType_string; // of a codec or the items of a list
    std::uint32_t enumeration = 0;   // index in `enums`
};

enum class PropertyKind { kAttribute, kValueElement, kObjectElement, kContentValue, kMixedText };

struct PropertyPlan {
    PropertyKind kind;
    std::string name;
    std::string xmlName;
    std::uint32_t row = 0; // of the attribute or element
    bool isRepeatable = false;
    bool isNillable = false;
    ValuePlan value;
    std::uint32_t objectClass = grammar::kNone; // index in `classes`; kNone for any object
    Source const* source = nullptr;
};

struct ClassPlan {
    std::string ns;
    std::string name;
    std::string xmlName;
    grammar::TypeId type;
    std::uint32_t base = grammar::kNone;        // index in `classes`
    std::uint32_t declaration = grammar::kNone; // of the element that a new object is
    bool isAbstract = false;
    bool isForeign = false;               // of a set generated before
    std::vector<PropertyPlan> properties; // without those of the base
    Source const* source = nullptr;
    std::size_t owner = 0; // the classes that stand ahead of it
};

// Functions for a global element.
struct DocumentPlan {
    std::string ns;
    std::string name;
    std::string xmlName;
    std::uint32_t element;
    std::uint32_t objectClass; // kNone for any object
    Source const* source = nullptr;
};

// Decided from the schema alone, in the order of its source: the same schema gives the same mapping
// everywhere.
class Mapping {
public:
    // All but `namespaces` are borrowed. `namespaces` gives those of C++ for URIs; others are made from the
    // URI, or from `stem`. Warns of what a class cannot carry. Names are taken from the table, where they
    // stand there, and put into it.
    Mapping(Schema const& schema, std::map<std::string, std::string> namespaces, std::string stem,
            NameTable& names, Diagnostics& diagnostics);

    std::vector<ClassPlan> const& GetClasses() const noexcept {
        return m_classes;
    } // a base ahead of what derives
    std::vector<EnumPlan> const& GetEnums() const noexcept { return m_enums; }
    std::vector<DocumentPlan> const& GetDocuments() const noexcept { return m_documents; }
    // The namespace in which the schema itself stands.
    std::string const& GetHomeNamespace() const noexcept { return m_home; }
    // That of C++ for the namespace of a schema.
    std::string const& NamespaceFor(std::string const& uri);

    // The whole as text, for people and tests.
    std::string Dump() const;

private:
    struct ClassNames;

    void AddAll(bool isForeign);
    NameScope& ScopeOf(std::string const& ns) { return m_scopes[ns]; }
    bool IsForeign(grammar::TypeId type) const;
    void AddNamedTypes();
    void AddElementClasses();
    std::uint32_t AddClass(grammar::TypeId type, std::string const& ns, std::string const& name,
                           std::string const& xmlName, std::string const& path);
    std::uint32_t ClassOf(grammar::TypeId type) const;
    void AddAnonymousClasses(std::uint32_t index);
    void AddProperties(std::uint32_t index);
    void AddElementProperties(std::uint32_t index, NameScope& names);
    void AddAttributeProperties(std::uint32_t index, NameScope& names);
    void AddContentProperty(std::uint32_t index, NameScope& names);
    bool IsInherited(ClassPlan const& plan, PropertyPlan const& property) const;
    ValuePlan ValueOf(std::uint32_t type, std::string const& ns, std::string const& owner,
                      std::string const& ownerPath);
    std::uint32_t EnumOf(std::uint32_t row, std::string const& ns, std::string const& owner,
                         std::string const& ownerPath);
    std::string TakeDocumentName(std::string const& ns, std::string const& path, std::string const& name);
    // Warns if `name` is not the one `wanted`, and nobody has asked for it.
    void TellRenamed(Source const* source, std::string const& path, std::string const& what,
                     std::string const& wanted, std::string const& name);
    bool IsDocument(std::uint32_t element) const;
    std::string TextOf(ValuePlan const& plan) const;
    void AddDocuments();
    void SortClasses();

    Schema const& m_schema;
    NameTable& m_names;
    Diagnostics& m_diagnostics;
    grammar::Grammar const m_grammar;
    grammar::ContentOrders const m_orders;
    std::map<std::string, std::string> m_namespaces;
    std::string m_stem;
    std::string m_home;
    bool m_isForeign = false; // what is added now
    std::map<std::string, NameScope> m_scopes;
    std::vector<ClassPlan> m_classes;
    std::vector<std::string> m_classPaths; // for the table of names, until the classes are sorted
    std::map<grammar::TypeId, std::uint32_t> m_classOf;
    std::vector<NameScope> m_propertyNames; // by class
    std::vector<bool> m_hasProperties;
    std::vector<EnumPlan> m_enums;
    std::map<std::uint32_t, std::uint32_t> m_enumOf; // by row of the simple type
    std::vector<DocumentPlan> m_documents;
};

} // namespace ZvXmlLib16::schema
