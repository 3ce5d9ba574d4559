#include "schema/frontend/SchemaSet.h"

#include "schema/frontend/BuiltInSchemas.h"
#include "schema/frontend/DocumentText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace ZvXmlLib16::schema {

namespace {

struct SpaceOf {
    std::string_view element;
    Space space;
};

constexpr SpaceOf kSpaces[] = {{"simpleType", Space::kType},   {"complexType", Space::kType},
                               {"element", Space::kElement},   {"attribute", Space::kAttribute},
                               {"group", Space::kGroup},       {"attributeGroup", Space::kAttributeGroup},
                               {"notation", Space::kNotation}, {"key", Space::kIdentity},
                               {"unique", Space::kIdentity},   {"keyref", Space::kIdentity}};

// Elements that XML Schema 1.1 added.
constexpr std::string_view kNewer[] = {"assert",   "assertion",          "alternative",     "openContent",
                                       "override", "defaultOpenContent", "explicitTimezone"};

SpaceOf const* FindSpace(OutlineNode const& node) {
    auto const* const found =
        std::find_if(std::begin(kSpaces), std::end(kSpaces),
                     [&node](SpaceOf const& candidate) { return node.name == candidate.element; });
    return node.ns != kSchemaNamespace || found == std::end(kSpaces) ? nullptr : found;
}

bool IsIdentity(OutlineNode const& node) {
    SpaceOf const* const space = FindSpace(node);
    return space != nullptr && space->space == Space::kIdentity;
}

} // namespace

SchemaSet::SchemaSet(SchemaFiles const& files, Diagnostics& diagnostics)
    : m_files(files), m_diagnostics(diagnostics) {}

void SchemaSet::Add(std::string const& file) {
    Loaded const* const loaded = Load(file, true);
    if (loaded == nullptr || loaded->root == nullptr)
        return;
    std::string const ns = loaded->root->Get("targetNamespace");
    m_targetNamespaces.push_back(ns);
    AddRoot(ns, file);
    AddDocument(file, ns, false, {file});
}

void SchemaSet::AddBefore(std::vector<std::string> const& files) {
    for (std::string const& file : files) {
        Loaded const* const loaded = Load(file, true);
        if (loaded == nullptr || loaded->root == nullptr)
            continue;
        std::string const ns = loaded->root->Get("targetNamespace");
        AddRoot(ns, file);
        AddDocument(file, ns, false, {file});
    }
    m_groupEnds.push_back(m_globals.size());
}

void SchemaSet::Close() {
    auto const isXml = [](Root const& root) { return root.ns == kXmlNamespace; };
    if (m_needsXmlSchema && std::none_of(m_roots.begin(), m_roots.end(), isXml))
        Add(kXmlSchemaFile);
    for (auto const& [ns, position] : m_openImports) {
        std::string const& wanted = ns;
        if (std::none_of(m_roots.begin(), m_roots.end(),
                         [&wanted](Root const& root) { return root.ns == wanted; }))
            m_diagnostics.Warning(
                position, "there is no schema for the namespace [" + ns + "]; give its place by --location",
                kMissingSchema);
    }
}

Definition const* SchemaSet::Find(Space space, QName const& name) const {
    auto const found = m_current.find({space, name});
    return found == m_current.end() ? nullptr : found->second;
}

bool SchemaSet::IsCurrent(Space space, Definition const& definition) const {
    return Find(space, {definition.document->targetNamespace, definition.node->Get("name")}) == &definition;
}

QName SchemaSet::Resolve(SchemaDocument const& document, OutlineNode const& node,
                         std::string_view text) const {
    std::size_t const colon = text.find(':');
    std::string_view const prefix =
        colon == std::string_view::npos ? std::string_view() : text.substr(0, colon);
    std::string_view const local = colon == std::string_view::npos ? text : text.substr(colon + 1);
    std::string const* const uri = node.scope->Find(prefix);
    std::string ns = uri == nullptr ? std::string() : *uri;
    if (ns.empty() && prefix.empty() && document.isChameleon)
        ns = document.targetNamespace;
    return {std::move(ns), std::string(local)};
}

std::string const* SchemaSet::FindFile(std::string const& base, std::string const& location) const {
    auto const found = m_locations.find({base, location});
    return found == m_locations.end() ? nullptr : &found->second;
}

std::string const* SchemaSet::FindBytes(std::string const& file) const {
    auto const found = m_loaded.find(file);
    return found == m_loaded.end() || found->second.root == nullptr ? nullptr : &found->second.bytes;
}

std::vector<std::string> SchemaSet::GetFiles() const {
    std::vector<std::string> files;
    for (auto const& [file, loaded] : m_loaded) {
        if (FindBuiltInSchema(file) == nullptr)
            files.push_back(file);
    }
    return files;
}

// Null if there is no such file. What is no schema document is an error if it is required, else a warning to
// the caller.
SchemaSet::Loaded const* SchemaSet::Load(std::string const& file, bool isRequired) {
    auto const known = m_loaded.find(file);
    if (known != m_loaded.end())
        return &known->second;
    std::optional<std::string> bytes;
    if (char const* const own = FindBuiltInSchema(file))
        bytes = own;
    else
        bytes = SchemaFiles::Read(file);
    if (!bytes) {
        if (isRequired)
            m_diagnostics.Error({file}, "the schema cannot be read");
        return nullptr;
    }
    m_diagnostics.AddFile(file);
    bytes = ReadableText(std::move(*bytes));
    if (!bytes) {
        m_diagnostics.Error({file}, "the schema is in UCS-4 or EBCDIC, which are not supported");
        return nullptr;
    }
    Diagnostics quiet;
    std::shared_ptr<OutlineNode const> root = ReadOutline(*bytes, file, isRequired ? m_diagnostics : quiet);
    if (root != nullptr && !root->IsSchema("schema")) {
        if (isRequired)
            m_diagnostics.Error({file, root->line, root->column},
                                "no schema: the root element is [" + root->name + "]");
        root = nullptr;
    }
    return &m_loaded.emplace(file, Loaded{std::move(*bytes), std::move(root)}).first->second;
}

void SchemaSet::AddRoot(std::string const& ns, std::string const& file) {
    auto found =
        std::find_if(m_roots.begin(), m_roots.end(), [&ns](Root const& root) { return root.ns == ns; });
    if (found == m_roots.end())
        found = m_roots.insert(m_roots.end(), Root{ns, {}});
    if (std::find(found->files.begin(), found->files.end(), file) == found->files.end())
        found->files.push_back(file);
}

SchemaDocument const* SchemaSet::AddDocument(std::string const& file, std::string const& ns, bool isIncluded,
                                             Position const& from) {
    auto const known = m_documents.find({file, ns});
    if (known != m_documents.end())
        return known->second.get();
    Loaded const* const loaded = Load(file, false);
    if (loaded == nullptr || loaded->root == nullptr)
        return nullptr;
    OutlineNode const& root = *loaded->root;
    std::string const own = root.Get("targetNamespace");
    if (own != ns && !(isIncluded && own.empty())) {
        m_diagnostics.Error(from, "the schema [" + file + "] has the target namespace [" + own + "], not [" +
                                      ns + "]");
        return nullptr;
    }
    auto document = std::make_unique<SchemaDocument>();
    document->file = file;
    document->targetNamespace = ns;
    document->isChameleon = own.empty() && !ns.empty();
    document->root = loaded->root;
    document->qualifiesElements = root.Get("elementFormDefault") == "qualified";
    document->qualifiesAttributes = root.Get("attributeFormDefault") == "qualified";
    SchemaDocument const& added = *document;
    m_documents.emplace(std::make_pair(file, ns), std::move(document));
    AddParts(added);
    return &added;
}

void SchemaSet::AddParts(SchemaDocument const& document) {
    RefuseNewerConstructs(document, *document.root);
    for (auto const& child : document.root->children) {
        if (child->IsSchema("include") || child->IsSchema("redefine"))
            AddInclude(document, *child);
        else if (child->IsSchema("import"))
            AddImport(document, *child);
        else
            Define(document, *child, false);
    }
}

void SchemaSet::AddInclude(SchemaDocument const& document, OutlineNode const& node) {
    std::string const location = node.Get("schemaLocation");
    std::optional<std::string> const file = m_files.Find({}, location, document.file);
    SchemaDocument const* included = nullptr;
    if (file) {
        m_locations.emplace(std::make_pair(document.file, location), *file);
        included = AddDocument(*file, document.targetNamespace, true, document.At(node));
    }
    if (included == nullptr && !m_diagnostics.HasErrors())
        m_diagnostics.Warning(document.At(node), "there is no schema at [" + location + "]",
                              kMissingSchema);
    if (!node.IsSchema("redefine"))
        return;
    for (auto const& child : node.children)
        Define(document, *child, true);
}

void SchemaSet::AddImport(SchemaDocument const& document, OutlineNode const& node) {
    std::string const ns = node.Get("namespace");
    std::string const location = node.Get("schemaLocation");
    std::optional<std::string> const file = m_files.Find(ns, location, document.file);
    if (!file && ns == kXmlNamespace) {
        m_needsXmlSchema = true;
        return;
    }
    if (!file) {
        if (ns == kSchemaNamespace || ns == kInstanceNamespace)
            return;
        if (location.empty()) // the namespace is that of another document
            m_openImports.emplace_back(ns, document.At(node));
        else
            m_diagnostics.Warning(document.At(node),
                                  "there is no schema at [" + location + "] for the namespace [" + ns +
                                      "]; give its place by --location",
                                  kMissingSchema);
        return;
    }
    if (AddDocument(*file, ns, false, document.At(node)) != nullptr)
        AddRoot(ns, *file);
    else if (!m_diagnostics.HasErrors())
        m_diagnostics.Warning(document.At(node), "no schema: [" + *file + "]", kMissingSchema);
}

void SchemaSet::Define(SchemaDocument const& document, OutlineNode const& node, bool isRedefinition) {
    SpaceOf const* const space = FindSpace(node);
    if (space == nullptr)
        return;
    QName const name{document.targetNamespace, node.Get("name")};
    auto definition = std::make_unique<Definition>();
    definition->node = &node;
    definition->document = &document;
    auto& current = m_current[{space->space, name}];
    if (isRedefinition)
        definition->redefined = current;
    if (current == nullptr || isRedefinition)
        current = definition.get();
    m_globals.emplace_back(space->space, definition.get());
    m_definitions.push_back(std::move(definition));
}

// Also finds the identity constraints, whose names are those of the whole schema.
void SchemaSet::RefuseNewerConstructs(SchemaDocument const& document, OutlineNode const& root) {
    std::vector<OutlineNode const*> pending{&root};
    while (!pending.empty()) {
        OutlineNode const& node = *pending.back();
        pending.pop_back();
        if (node.ns != kSchemaNamespace)
            continue;
        if (std::find(std::begin(kNewer), std::end(kNewer), node.name) != std::end(kNewer))
            m_diagnostics.Error(document.At(node),
                                "[" + node.name + "] is of XML Schema 1.1, which is not supported");
        if (IsIdentity(node))
            Define(document, node, false);
        for (auto child = node.children.rbegin(); child != node.children.rend(); ++child)
            pending.push_back(child->get());
    }
}

} // namespace ZvXmlLib16::schema
