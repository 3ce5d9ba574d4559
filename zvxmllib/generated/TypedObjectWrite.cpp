// CTypedObject: writing, and the test ahead of it.
#include "zvxmllib/generated/ItemTypes.h"
#include "zvxmllib/generated/TypedObject.h"

#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/grammar/ContentWalk.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <algorithm>
#include <utility>

namespace ZvXmlLib16::generated {

using namespace grammar;

namespace {

constexpr unsigned kMostDepth = 1000;

[[noreturn]] void Fail(std::string const& message, std::string const& path) {
    throw CZvInvalidStateException(CZvException(message, path));
}

// The prefixes that an element will be written with, as far as its values need them.
class KeptPrefixes final : public INamespaceScope {
public:
    using List = std::vector<std::pair<std::string, std::string>>;
    explicit KeptPrefixes(List const& prefixes) noexcept : m_prefixes(prefixes) {}

    bool FindNamespace(std::string_view prefix, std::string& ns) const override {
        auto const found = std::find_if(m_prefixes.begin(), m_prefixes.end(),
                                        [prefix](auto const& kept) { return kept.first == prefix; });
        ns = found == m_prefixes.end() ? std::string() : found->second;
        return found != m_prefixes.end() || prefix.empty();
    }

private:
    List const& m_prefixes;
};

} // namespace

void CTypedObject::CheckContent() const {
    CheckContent("/" + GetElementName(), 0);
}

void CTypedObject::CheckContent(std::string const& path, unsigned depth) const {
    if (depth == kMostDepth)
        Fail("Elements nest deeper than " + std::to_string(kMostDepth) + " levels.", path);
    if (m_declaration != kNone && Rows().elements[m_declaration].isAbstract)
        Fail("The element [" + GetElementName() + "] is abstract.", path);
    CheckAttributes(path);
    Grammar const& grammar = m_schema->GetGrammar();
    std::uint32_t const simple = SimpleTypeId();
    bool const hasDefault =
        m_declaration != kNone && Rows().elements[m_declaration].constraint != ValueConstraint::kNoValue;
    if (simple != kNone && !m_isNil && !(m_text.empty() && hasDefault)) {
        std::string room;
        KeptPrefixes const prefixes(m_prefixes);
        bool const hasNames = !m_prefixes.empty() && grammar.GetSimpleTypes().HasQNames(simple);
        char const* const fault =
            grammar.GetSimpleTypes().FindFault(simple, m_text, hasNames ? &prefixes : nullptr, nullptr, room);
        if (fault != nullptr)
            Fail(fault, path);
    }
    if (!IsComplex(m_type) || m_type == kAnyType || m_isNil)
        return;
    ComplexTypeRow const& row = Rows().complexTypes[ComplexTypeRowOf(m_type)];
    if (row.isAbstract)
        Fail("The type [" + grammar.NameOfType(m_type) + "] is abstract.", path);
    std::vector<ElementName> names;
    for (Node const& node : m_nodes) {
        if (node.declaration != kNone) {
            ElementRow const& element = Rows().elements[node.declaration];
            names.push_back({grammar.SymbolOf(node.declaration), element.name, element.ns});
        } else {
            names.push_back({kNone, {}, {}});
        }
    }
    // Names of what has no declaration are those of objects.
    std::vector<std::string> namespaces(m_nodes.size());
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        if (m_nodes[i].declaration != kNone || m_nodes[i].object == nullptr)
            continue;
        namespaces[i] = m_nodes[i].object->GetNamespace();
        names[i].ns = namespaces[i];
    }
    NoContentReceiver receiver;
    ContentFault fault;
    if (!ContentWalk(grammar, receiver).Walk(row.particle, names.data(), names.size(), fault))
        Fail(fault.message, path);
    for (Node const& node : m_nodes) {
        auto const* const child =
            dynamic_cast<CTypedObject const*>(static_cast<CXmlObjectBase*>(node.object));
        if (child != nullptr)
            child->CheckContent(path + "/" + child->GetElementName(), depth + 1);
    }
}

void CTypedObject::CheckAttributes(std::string const& path) const {
    if (!IsComplex(m_type) || m_type == kAnyType)
        return;
    Range const uses = Rows().complexTypes[ComplexTypeRowOf(m_type)].attributes;
    for (std::uint32_t i = uses.first; i < uses.first + uses.count; ++i) {
        if (Rows().attributes[i].isRequired && FindAttribute(i) == nullptr)
            Fail("The attribute [" + std::string(Rows().attributes[i].name) + "] is missing.", path);
    }
}

void CTypedObject::ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns,
                             CSerializationContext const& ctx, bool optionalChoice) const {
    if (isRoot) {
        if (ctx.GetStrict())
            CheckContent();
        for (std::string const& instruction : ctx.GetProcessingInstructions())
            writer->WriteProcessingInstruction(instruction);
        for (auto const& [uri, alias] : ctx.GetNamespaceAliases().GetEntries()) {
            if (!alias.empty())
                writer->AddNamespaceAlias(alias, uri);
        }
        std::string const defaultNamespace = ctx.GetDefaultNamespaceURI();
        if (!defaultNamespace.empty())
            writer->SetDefaultNamespace(defaultNamespace);
        else if (m_schema->IsQualified() && ctx.GetNamespaceAliases().GetEntries().empty())
            writer->SetDefaultNamespace(m_ns);
    }
    for (auto const& [prefix, uri] : m_prefixes)
        writer->DeclareOnNextElement(prefix, uri);
    writer->WriteElementStart(GetElementName(), m_ns);
    if (isRoot)
        CXmlObjectBase::ToXml_Int(ctx.GetAdditionalRootAttributes()->GetBase(), writer, false, ns, ctx,
                                  optionalChoice);
    AttributesToXml_Int(writer, ctx);
    if (m_isNil) {
        writer->WriteNilAttribute();
    } else {
        std::uint32_t const type = SimpleTypeId();
        SimpleTypes const& types = m_schema->GetGrammar().GetSimpleTypes();
        if (type != kNone)
            writer->WriteElementValue(WrittenForm(types, type, m_text), ItemTypeOf(types, type, m_text),
                                      false);
        else
            WriteMixedContent(*writer, ctx);
    }
    writer->WriteElementEnd();
}

void CTypedObject::AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const&) const {
    Grammar const& grammar = m_schema->GetGrammar();
    bool const isDeclaredType = m_declaration != kNone && Rows().elements[m_declaration].type == m_type;
    if (!isDeclaredType && (m_declaration != kNone || m_type != kAnyType)) {
        std::string const name = grammar.NameOfType(m_type);
        std::size_t const end = name.find('}');
        std::string const ns = end != std::string::npos                  ? name.substr(1, end - 1)
                               : IsComplex(m_type) && m_type != kAnyType ? std::string()
                               : static_cast<std::uint32_t>(m_type) < kBuiltInCount || m_type == kAnyType
                                   ? "http://www.w3.org/2001/XMLSchema"
                                   : "";
        writer->WriteTypeAttribute(ns, end == std::string::npos ? name : name.substr(end + 1),
                                   ItemType_string);
    }
    SimpleTypes const& types = grammar.GetSimpleTypes();
    for (Attribute const& attribute : m_attributes) {
        AttributeRow const* const row = attribute.row;
        if (row == nullptr)
            writer->WriteAttribute(attribute.name, attribute.ns, attribute.value, ItemType_string);
        else
            writer->WriteAttribute(row->name, row->ns, WrittenForm(types, row->type, attribute.value),
                                   ItemTypeOf(types, row->type, attribute.value));
    }
}

// Those of one name that follow each other are a collection, where the schema has several of them.
void CTypedObject::WriteNodes(CXmlWriter& writer, std::size_t first, std::size_t end,
                              CSerializationContext const& ctx) const {
    std::vector<ContentEntry> const& entries = m_schema->GetContentOrders().Of(m_type);
    std::size_t i = first;
    while (i < end) {
        Symbol const symbol = m_nodes[i].symbol;
        bool const isCollection =
            symbol != kNone &&
            std::any_of(entries.begin(), entries.end(), [symbol](ContentEntry const& entry) {
                return entry.symbol == symbol && entry.isRepeatable;
            });
        // Members of a substitution group have names of their own.
        std::uint32_t const declaration = m_nodes[i].declaration;
        if (isCollection)
            writer.SetCollectionState(CollectionState_Announced);
        do {
            WriteNode(writer, m_nodes[i], ctx);
            ++i;
        } while (isCollection && i < end && m_nodes[i].symbol == symbol &&
                 m_nodes[i].declaration == declaration);
        if (isCollection)
            writer.SetCollectionState(CollectionState_Ended);
    }
}

// Children with no text between them are written together.
void CTypedObject::WriteMixedContent(CXmlWriter& writer, CSerializationContext const& ctx) const {
    if (!m_text.empty() && !m_nodes.empty())
        writer.BeginMixedContent();
    std::size_t first = 0;
    std::size_t next = 0;
    WalkContent(
        m_text, ctx.GetStrict() ? m_textPlaces : std::vector<TextPlace>(), m_nodes.size(),
        [&](std::string_view text) {
            WriteNodes(writer, std::exchange(first, next), next, ctx);
            writer.WriteElementValue(std::string(text), ItemType_string, false);
        },
        [&next](std::size_t index) { next = index + 1; });
    WriteNodes(writer, first, next, ctx);
}

void CTypedObject::WriteNode(CXmlWriter& writer, Node const& node, CSerializationContext const& ctx) const {
    if (node.object != nullptr)
        return CXmlObjectBase::ToXml_Int(node.object->GetBase(), &writer, false, "", ctx, false);
    ElementRow const& row = Rows().elements[node.declaration];
    auto const type = static_cast<std::uint32_t>(row.type);
    SimpleTypes const& types = m_schema->GetGrammar().GetSimpleTypes();
    std::string const& text = WrittenForm(types, type, node.text);
    if (writer.TryWriteTextElement(row.name, row.ns, text))
        return;
    writer.WriteElementStart(row.name, row.ns);
    writer.WriteElementValue(text, ItemTypeOf(types, type, node.text), false);
    writer.WriteElementEnd();
}

} // namespace ZvXmlLib16::generated
