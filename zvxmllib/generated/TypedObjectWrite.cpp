// CTypedObject: writing, and the test ahead of it.
#include "zvxmllib/generated/ItemTypes.h"
#include "zvxmllib/generated/TypedObject.h"
#include "zvxmllib/generated/Values.h"

#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/grammar/ContentWalk.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <utility>

namespace ZvXmlLib16::generated {

using namespace grammar;

namespace {

using Prefixes = std::vector<std::pair<std::string, std::string>>;

std::string const* FindUri(Prefixes const& prefixes, std::string_view prefix) {
    auto const found = std::find_if(prefixes.begin(), prefixes.end(),
                                    [prefix](auto const& kept) { return kept.first == prefix; });
    return found == prefixes.end() ? nullptr : &found->second;
}

} // namespace

// Tests objects before they are written.
class CTypedObject::ContentCheck {
public:
    void Run(CTypedObject const& object) { Check(object, nullptr, 0); }
    // Whether a value is a qualified name without prefix and namespace: no default namespace may reach it.
    bool HasBareNames() const noexcept { return m_hasBareNames; }

private:
    // The way from the object that is written, with the prefixes that will be in scope.
    struct Path final : INamespaceScope {
        Path(CTypedObject const& pathObject, Path const* pathOuter) : object(pathObject), outer(pathOuter) {}

        bool FindNamespace(std::string_view prefix, std::string& ns) const override {
            for (Path const* path = this; path != nullptr; path = path->outer) {
                std::string const* const uri =
                    path->object.m_rare == nullptr ? nullptr : FindUri(path->object.m_rare->prefixes, prefix);
                if (uri != nullptr) {
                    ns = *uri;
                    return true;
                }
            }
            ns = prefix == "xml" ? kXmlNamespace : "";
            return prefix.empty() || prefix == "xml";
        }

        CTypedObject const& object;
        Path const* const outer;
    };

    static constexpr unsigned kMostDepth = 1000;

    static std::string TextOf(Path const& path) {
        return (path.outer == nullptr ? "" : TextOf(*path.outer)) + "/" + path.object.GetElementName();
    }
    [[noreturn]] static void Fail(std::string const& message, Path const& path) {
        throw CZvInvalidStateException(CZvException(message, TextOf(path)));
    }

    void Check(CTypedObject const& object, Path const* outer, unsigned depth) {
        Path const path{object, outer};
        if (depth == kMostDepth)
            Fail("Elements nest deeper than " + std::to_string(kMostDepth) + " levels.", path);
        if (object.m_declaration != kNone && object.Rows().elements[object.m_declaration].isAbstract)
            Fail("The element [" + object.GetElementName() + "] is abstract.", path);
        CheckAttributes(path);
        CheckValue(path);
        if (!IsComplex(object.m_type) || object.m_type == kAnyType || object.m_isNil)
            return;
        CheckNodes(path);
        for (Node const& node : object.m_nodes) {
            // What has a declaration is a typed object.
            CTypedObject const* const child =
                node.object == nullptr ? nullptr
                : node.declaration != kNone
                    ? static_cast<CTypedObject const*>(static_cast<CXmlObjectBase*>(node.object))
                    : dynamic_cast<CTypedObject const*>(static_cast<CXmlObjectBase*>(node.object));
            if (child != nullptr)
                Check(*child, &path, depth + 1);
        }
    }

    void CheckValue(Path const& path) {
        CTypedObject const& object = path.object;
        std::uint32_t const simple = object.SimpleTypeId();
        bool const hasDefault =
            object.m_declaration != kNone &&
            object.Rows().elements[object.m_declaration].constraint != ValueConstraint::kNoValue;
        if (simple == kNone || object.m_isNil || (object.m_text.empty() && hasDefault))
            return;
        SimpleTypes const& types = object.m_schema->GetGrammar().GetSimpleTypes();
        char const* const fault = types.FindFault(
            simple, object.m_text, types.HasQNames(simple) ? &path : nullptr, nullptr, m_message);
        if (fault != nullptr)
            Fail(fault, path);
        NoteBareNames(simple, object.m_text, path);
    }

    // The prefixes of qualified names in a value that was tested when it was set.
    void CheckNames(std::uint32_t type, ValueText const& value, Path const& path) {
        SimpleTypes const& types = path.object.m_schema->GetGrammar().GetSimpleTypes();
        if (!types.HasQNames(type))
            return;
        std::string const text = value.Get();
        char const* const fault = types.FindFault(type, text, &path, nullptr, m_message);
        if (fault != nullptr)
            Fail(fault, path);
        NoteBareNames(type, text, path);
    }

    void NoteBareNames(std::uint32_t type, std::string const& text, Path const& path) {
        if (m_hasBareNames || !path.object.m_schema->GetGrammar().GetSimpleTypes().HasQNames(type))
            return;
        std::string ns;
        path.FindNamespace({}, ns);
        m_hasBareNames = ns.empty() && HasWordWithoutColon(text);
    }

    static bool HasWordWithoutColon(std::string const& text) {
        std::vector<std::string> const words = SplitList(text);
        return std::any_of(words.begin(), words.end(),
                           [](std::string const& word) { return word.find(':') == std::string::npos; });
    }

    void CheckNodes(Path const& path) {
        CTypedObject const& object = path.object;
        Grammar const& grammar = object.m_schema->GetGrammar();
        ComplexTypeRow const& row = object.Rows().complexTypes[ComplexTypeRowOf(object.m_type)];
        if (row.isAbstract)
            Fail("The type [" + grammar.NameOfType(object.m_type) + "] is abstract.", path);
        m_names.clear();
        m_namespaces.clear(); // of objects without a declaration
        for (Node const& node : object.m_nodes) {
            if (node.declaration != kNone) {
                DeclaredName const& name = object.m_schema->NameOfElement(node.declaration);
                TypeId const type = object.Rows().elements[node.declaration].type;
                if (node.object == nullptr && !IsComplex(type))
                    CheckNames(static_cast<std::uint32_t>(type), node.text, path);
                m_names.push_back({grammar.SymbolOf(node.declaration), name.name, *name.ns});
            } else {
                m_namespaces.push_back(node.object == nullptr ? std::string() : node.object->GetNamespace());
                m_names.push_back({kNone, {}, m_namespaces.back()});
            }
        }
        NoContentReceiver receiver;
        ContentFault fault;
        if (!ContentWalk(grammar, receiver, m_room).Walk(row.particle, m_names.data(), m_names.size(), fault))
            Fail(fault.message, path);
    }

    void CheckAttributes(Path const& path) {
        CTypedObject const& object = path.object;
        for (Attribute const& attribute : object.m_attributes) {
            if (attribute.row != nullptr)
                CheckNames(attribute.row->type, attribute.value, path);
        }
        if (!IsComplex(object.m_type) || object.m_type == kAnyType)
            return;
        Range const uses = object.Rows().complexTypes[ComplexTypeRowOf(object.m_type)].attributes;
        for (std::uint32_t i = uses.first; i < uses.first + uses.count; ++i) {
            AttributeRow const& row = object.Rows().attributes[i];
            if (row.isRequired && object.FindAttribute(i) == nullptr)
                Fail("The attribute [" + std::string(row.name) + "] is missing.", path);
        }
    }

    // Used by one object after the other.
    std::vector<ElementName> m_names;
    std::deque<std::string> m_namespaces;
    std::vector<std::uint32_t> m_room;
    std::string m_message;
    bool m_hasBareNames = false;
};

void CTypedObject::CheckContent() const {
    ContentCheck().Run(*this);
}

void CTypedObject::ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns,
                             CSerializationContext const& ctx, bool optionalChoice) const {
    if (isRoot)
        BeginDocument(*writer, ctx);
    if (m_rare != nullptr) {
        for (auto const& [prefix, uri] : m_rare->prefixes)
            writer->DeclareOnNextElement(prefix, uri);
    }
    writer->WriteElementStart(GetElementName(), Namespace());
    if (isRoot)
        CXmlObjectBase::ToXml_Int(ctx.GetAdditionalRootAttributes()->GetBase(), writer, false, ns, ctx,
                                  optionalChoice);
    AttributesToXml_Int(writer, ctx);
    if (m_isNil) {
        writer->WriteNilAttribute();
    } else {
        std::uint32_t const type = SimpleTypeId();
        if (type != kNone) {
            std::string& room = writer->GetValueRoom().text;
            ItemType const item = ToWrittenForm(m_schema->GetGrammar().GetSimpleTypes(), type, m_text, room);
            writer->WriteElementValue(room, item, false);
        } else {
            WriteMixedContent(*writer, ctx);
        }
    }
    writer->WriteElementEnd();
}

void CTypedObject::BeginDocument(CXmlWriter& writer, CSerializationContext const& ctx) const {
    ContentCheck check;
    if (ctx.GetStrict())
        check.Run(*this);
    for (std::string const& instruction : ctx.GetProcessingInstructions())
        writer.WriteProcessingInstruction(instruction);
    for (auto const& [uri, alias] : ctx.GetNamespaceAliases().GetEntries()) {
        if (!alias.empty())
            writer.AddNamespaceAlias(alias, uri);
    }
    std::string const defaultNamespace = ctx.GetDefaultNamespaceURI();
    if (!defaultNamespace.empty() && check.HasBareNames())
        throw CZvInvalidStateException(
            "A value of [" + GetElementName() +
            "] is a name without a namespace, which a default namespace would change.");
    if (!defaultNamespace.empty())
        writer.SetDefaultNamespace(defaultNamespace);
    else if (m_schema->IsQualified() && !check.HasBareNames() &&
             ctx.GetNamespaceAliases().GetEntries().empty())
        writer.SetDefaultNamespace(Namespace());
}

void CTypedObject::AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const&) const {
    bool const isDeclaredType = m_declaration != kNone && Rows().elements[m_declaration].type == m_type;
    if (!isDeclaredType && (m_declaration != kNone || m_type != kAnyType))
        WriteTypeName(*writer);
    if (m_attributes.empty())
        return;
    SimpleTypes const& types = m_schema->GetGrammar().GetSimpleTypes();
    std::string& room = writer->GetValueRoom().text;
    for (Attribute const& attribute : m_attributes) {
        if (attribute.row == nullptr) {
            writer->WriteAttribute(attribute.name, attribute.ns, attribute.value.Get(), ItemType_string);
            continue;
        }
        ItemType const item = ToWrittenForm(types, attribute.row->type, attribute.value, room);
        DeclaredName const* const name = m_schema->FindNameOfAttribute(*attribute.row);
        if (name != nullptr)
            writer->WriteAttribute(name->name, *name->ns, room, item);
        else
            writer->WriteAttribute(attribute.row->name, attribute.row->ns, room, item);
    }
}

// xsi:type.
void CTypedObject::WriteTypeName(CXmlWriter& writer) const {
    std::string const name = m_schema->GetGrammar().NameOfType(m_type);
    std::size_t const end = name.find('}');
    std::string const ns = end != std::string::npos                  ? name.substr(1, end - 1)
                           : IsComplex(m_type) && m_type != kAnyType ? std::string()
                           : static_cast<std::uint32_t>(m_type) < kBuiltInCount || m_type == kAnyType
                               ? "http://www.w3.org/2001/XMLSchema"
                               : "";
    writer.WriteTypeAttribute(ns, end == std::string::npos ? name : name.substr(end + 1), ItemType_string);
}

// Those of one name that follow each other are a collection, where the schema has several of them.
void CTypedObject::WriteNodes(CXmlWriter& writer, std::size_t first, std::size_t end,
                              CSerializationContext const& ctx) const {
    if (first == end)
        return;
    std::vector<ContentEntry> const& entries = m_schema->GetContentOrders().Of(m_type);
    std::size_t entry = 0; // where the last one was: most nodes stand in the order of the entries
    std::size_t i = first;
    while (i < end) {
        Symbol const symbol = m_nodes[i].symbol;
        bool isCollection = false;
        for (std::size_t tried = 0; symbol != kNone && tried < entries.size(); ++tried) {
            if (entries[entry].symbol == symbol) {
                isCollection = entries[entry].isRepeatable;
                break;
            }
            entry = entry + 1 < entries.size() ? entry + 1 : 0;
        }
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
    if (m_text.empty())
        return WriteNodes(writer, 0, m_nodes.size(), ctx);
    if (!m_nodes.empty())
        writer.BeginMixedContent();
    std::size_t first = 0;
    std::size_t next = 0;
    WalkContent(
        m_text, ctx.GetStrict() ? TextPlaces() : std::vector<TextPlace>(), m_nodes.size(),
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
    DeclaredName const& name = m_schema->NameOfElement(node.declaration);
    auto const type = static_cast<std::uint32_t>(Rows().elements[node.declaration].type);
    std::string& room = writer.GetValueRoom().text;
    ItemType const item = ToWrittenForm(m_schema->GetGrammar().GetSimpleTypes(), type, node.text, room);
    if (writer.TryWriteTextElement(name.name, *name.ns, room, item))
        return;
    writer.WriteElementStart(name.name, *name.ns);
    writer.WriteElementValue(room, item, false);
    writer.WriteElementEnd();
}

} // namespace ZvXmlLib16::generated
