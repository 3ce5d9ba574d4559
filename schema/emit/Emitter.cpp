#include "schema/emit/Emitter.h"

#include "schema/emit/BaseMembers.h"
#include "schema/emit/CppText.h"
#include "schema/emit/EmitRows.h"
#include "schema/emit/FacetWords.h"

#include "zvxmllib/foundation/SimpleTypes.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <map>
#include <set>
#include <string_view>

namespace ZvXmlLib16::schema {

namespace {

using grammar::kNone;

// Aliases inside the namespaces of generated code.
constexpr char const* kGenerated = "gen::";
constexpr char const* kAliases = "namespace zv = ::ZvXmlLib16;\nnamespace gen = ::ZvXmlLib16::generated;\n";

// What the names of generated members begin with.
constexpr std::string_view kAccessors[] = {"Get", "Set", "Is", "Remove"};

char const* NameOf(ItemType type) {
    switch (type) {
#define ZV_ITEM_NAME(name, Policy, Name, Value, KIND, slot)                                                  \
    case ItemType_##name:                                                                                    \
        return "ItemType_" #name;
        ZV_SIMPLE_TYPES(ZV_ITEM_NAME)
#undef ZV_ITEM_NAME
    default:
        return "ItemType_string";
    }
}

class Emitter {
public:
    Emitter(Schema const& schema, Mapping const& mapping, std::string const& stem, unsigned parts,
            std::vector<ExternSet> const& externs)
        : m_schema(schema), m_mapping(mapping), m_stem(stem), m_parts(parts), m_externs(externs) {
        auto const isOwn = [](auto const& plan) { return !plan.isForeign; };
        std::copy_if(mapping.GetClasses().begin(), mapping.GetClasses().end(), std::back_inserter(m_classes),
                     isOwn);
        std::copy_if(mapping.GetEnums().begin(), mapping.GetEnums().end(), std::back_inserter(m_enums),
                     isOwn);
    }

    std::vector<EmittedFile> Emit() const {
        std::vector<EmittedFile> files;
        std::vector<std::string> const names = OutputNames(m_stem, m_parts);
        files.push_back({names[0], JoinNamespaces(Header())});
        files.push_back({names[1], JoinNamespaces(ForwardHeader())});
        for (unsigned part = 0; part < m_parts; ++part)
            files.push_back({names[2 + part], JoinNamespaces(Source(part))});
        return files;
    }

private:
    std::string Title() const { return "// Generated from an XML schema by zvxml-gen. Changes are lost.\n"; }
    std::string Home() const { return m_mapping.GetHomeNamespace(); }
    std::string SchemaFunction() const { return "::" + Home() + "::" + Identifier(m_stem) + "Schema()"; }
    std::string Place(schema::Source const* source) const {
        std::string const& file = source->position.file;
        return file.substr(file.find_last_of("/\\") + 1) + ":" + std::to_string(source->position.line);
    }
    std::string Doc(schema::Source const* source, std::string const& what, std::string const& indent) const {
        return Comment(source->documentation, indent) + Comment(what + " (" + Place(source) + ")", indent);
    }
    // `ns` is the namespace in which the name stands.
    std::string ClassName(std::uint32_t index, std::string const& ns) const {
        if (index == kNone)
            return std::string(kGenerated) + "CTypedObject";
        ClassPlan const& plan = m_mapping.GetClasses()[index];
        return plan.ns == ns && !IsBaseMember(plan.name) ? plan.name : "::" + plan.ns + "::" + plan.name;
    }
    std::string EnumName(std::uint32_t index, std::string const& ns) const {
        EnumPlan const& plan = m_mapping.GetEnums()[index];
        // Inside a class such a name may be that of a member.
        bool const isLikeMember =
            std::any_of(std::begin(kAccessors), std::end(kAccessors), [&](std::string_view prefix) {
                return plan.name.compare(0, prefix.size(), prefix) == 0;
            });
        return plan.ns == ns && !isLikeMember && !IsBaseMember(plan.name) ? plan.name
                                                                          : "::" + plan.ns + "::" + plan.name;
    }
    std::string Codec(ValuePlan const& value, std::string const& ns) const {
        std::string const item = std::string("zv::") + NameOf(value.item);
        switch (value.kind) {
        case ValueKind::kCodec:
            return std::string(kGenerated) + "Codec<" + item + ">";
        case ValueKind::kList:
            return std::string(kGenerated) + "ListCodec<" + item + ">";
        case ValueKind::kEnum:
            return std::string(kGenerated) + "EnumCodec<" + EnumName(value.enumeration, ns) + "Traits>";
        default:
            return std::string(kGenerated) + "Codec<zv::ItemType_string>";
        }
    }
    std::string ValueType(ValuePlan const& value, std::string const& ns) const {
        switch (value.kind) {
        case ValueKind::kCodec:
            return TypeOf(value.item);
        case ValueKind::kList:
            return "std::vector<" + TypeOf(value.item) + ">";
        case ValueKind::kEnum:
            return EnumName(value.enumeration, ns);
        default:
            return "std::string";
        }
    }
    // In C++.
    static std::string TypeOf(ItemType item) {
        static constexpr char const* kTypes[] = {
#define ZV_TYPE(name, Policy, Name, Value, KIND, slot) #Value,
            ZV_SIMPLE_TYPES(ZV_TYPE)
#undef ZV_TYPE
        };
        std::string const type = kTypes[item - 1];
        return type[0] == 'C' ? "zv::" + type : type;
    }
    static bool IsArithmetic(ItemType item) {
        static constexpr bool kAre[] = {
#define ZV_TYPE(name, Policy, Name, Value, KIND, slot) std::string_view(#KIND) == "SCALAR",
            ZV_SIMPLE_TYPES(ZV_TYPE)
#undef ZV_TYPE
        };
        return kAre[item - 1];
    }

    // Calls for each run of items of one namespace.
    template <class Items, class EmitItem>
    std::string InNamespaces(Items const& items, EmitItem emitItem) const {
        std::string text;
        std::string open;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i].ns != open) {
                if (!open.empty())
                    text += CloseNamespace(open) + "\n";
                open = items[i].ns;
                text += OpenNamespace(open) + "\n";
            }
            text += emitItem(items[i]);
        }
        return open.empty() ? text : text + CloseNamespace(open) + "\n";
    }

    std::string ForwardHeader() const {
        std::string text = Title() + "#pragma once\n\n";
        text += InNamespaces(m_enums, [](EnumPlan const& plan) { return "enum class " + plan.name + ";\n"; });
        text += InNamespaces(m_classes, [](ClassPlan const& plan) { return "class " + plan.name + ";\n"; });
        return text;
    }

    std::string Header() const {
        std::string text = Title() + "#pragma once\n\n#include \"" + m_stem + "-fwd.h\"\n\n" + Includes() +
                           "#include <zvxmllib/ZvXmlLib.h>\n#include <zvxmllib/generated/Generated.h>\n\n" +
                           "#include <cstddef>\n#include <cstdint>\n#include <string>\n#include <vector>\n\n";
        std::set<std::string> named;
        auto const nameIn = [&](auto const& items) {
            for (auto const& item : items) {
                if (named.insert(item.ns).second)
                    text += OpenNamespace(item.ns) + kAliases + CloseNamespace(item.ns) + "\n";
            }
        };
        nameIn(m_enums);
        nameIn(m_classes);
        nameIn(m_mapping.GetDocuments());
        text += OpenNamespace(Home()) +
                "\n// What the objects are bound to.\n::ZvXmlLib16::generated::BoundSchema const& " +
                Identifier(m_stem) + "Schema();\n\n" + RowsConstant() + CloseNamespace(Home()) + "\n";
        text += InNamespaces(m_enums, [this](EnumPlan const& plan) { return Enum(plan); });
        text += InNamespaces(m_classes, [this](ClassPlan const& plan) { return Class(plan); });
        text += InNamespaces(m_classes, [this](ClassPlan const& plan) { return InlineMembers(plan); });
        text += InNamespaces(m_mapping.GetDocuments(),
                             [this](DocumentPlan const& plan) { return Functions(plan); });
        return text;
    }

    std::string Includes() const {
        std::string text;
        for (ExternSet const& set : m_externs)
            text += "#include \"" + set.header + "\"\n";
        return text.empty() ? text : text + "\n";
    }
    static std::string Hex(std::uint32_t number) {
        char text[16];
        std::snprintf(text, sizeof text, "0x%08XU", static_cast<unsigned>(number));
        return text;
    }
    // Sets that share classes have the same rows for them; the compiler sees to it.
    std::string RowsConstant() const {
        std::string text = "// Tells rows apart, for sets that build on these.\nconstexpr std::uint32_t " +
                           Identifier(m_stem) + "Rows = " + Hex(m_schema.HashRows(m_schema.CountAll())) +
                           ";\n";
        for (std::size_t i = 0; i < m_externs.size(); ++i)
            text +=
                "static_assert(::" + m_externs[i].ns + "::" + Identifier(m_externs[i].stem) +
                "Rows == " + Hex(m_schema.HashRows(m_schema.before[i])) + ",\n    " +
                Literal(m_externs[i].header + " was generated from another schema, or with other options") +
                ");\n";
        return text + "\n";
    }

    std::string Enum(EnumPlan const& plan) const {
        std::string text =
            Doc(plan.source, plan.xmlName.empty() ? "enumeration" : "enumeration " + plan.xmlName, "");
        text += "enum class " + plan.name + " {\n";
        for (std::size_t i = 0; i < plan.texts.size(); ++i) {
            bool const isSame = plan.texts[i] == plan.enumerators[i];
            std::string const value = isSame ? "\n" : Comment("\"" + plan.texts[i] + "\"", " ");
            bool const isLong = std::count(value.begin(), value.end(), '\n') > 1;
            text += Comment(plan.sources[i]->documentation, "    ");
            if (isLong)
                text += Comment("\"" + plan.texts[i] + "\"", "    ");
            text += "    " + plan.enumerators[i] + (i + 1 < plan.texts.size() ? "," : "") +
                    (isLong ? "\n" : value);
        }
        return text + "};\n" + "// Its texts, in the same order.\nstruct " + plan.name +
               "Traits {\n    using Value = " +
               (plan.name == "Value" || plan.name == "Texts" ? "::" + plan.ns + "::" : "") + plan.name +
               ";\n    static gen::EnumTexts Texts() noexcept;\n};\n\n";
    }

    // The last of the names with colons between them.
    static std::string LastName(std::string const& name) {
        std::size_t const colon = name.rfind(':');
        return colon == std::string::npos ? name : name.substr(colon + 1);
    }

    std::string Class(ClassPlan const& plan) const {
        std::string const base = ClassName(plan.base, plan.ns);
        std::string text = Doc(plan.source, "type or element " + plan.xmlName, "");
        text += "class " + plan.name + " : public " + base + " {\npublic:\n";
        if (!plan.isAbstract)
            text += "    " + plan.name + "();\n";
        text += "    using " + base + "::" + LastName(base) + ";\n";
        for (PropertyPlan const& property : plan.properties)
            text += "\n" + Property(plan, property);
        return text + "};\n\n";
    }

    std::string Property(ClassPlan const& plan, PropertyPlan const& property) const {
        std::string const kinds[] = {"attribute ", "element ", "element ", "content",
                                     "text of mixed content"};
        std::string const facets = Words(plan, property);
        std::string text = Doc(property.source,
                               kinds[static_cast<int>(property.kind)] + property.xmlName +
                                   (facets.empty() ? "" : ": " + facets),
                               "    ");
        switch (property.kind) {
        case PropertyKind::kAttribute:
            return text + Attribute(plan, property);
        case PropertyKind::kValueElement:
            return text + (property.isRepeatable ? ValueList(plan, property) : Value(plan, property));
        case PropertyKind::kObjectElement:
            return text + (property.isRepeatable ? ObjectList(plan, property) : Object(plan, property));
        default:
            return text + ContentAccess(plan, property);
        }
    }

    // What its value may be, in words.
    std::string Words(ClassPlan const& plan, PropertyPlan const& property) const {
        std::string facets;
        std::string constraint;
        if (property.kind == PropertyKind::kAttribute) {
            grammar::AttributeRow const& row = m_schema.attributes[property.row];
            facets = FacetWords(m_schema, row.type);
            constraint = ConstraintWords(row.constraint, row.value);
        } else if (property.kind == PropertyKind::kValueElement) {
            grammar::ElementRow const& row = m_schema.elements[property.row];
            facets = FacetWords(m_schema, static_cast<std::uint32_t>(row.type));
            constraint = ConstraintWords(row.constraint, row.value);
        } else if (property.kind == PropertyKind::kContentValue) {
            facets =
                FacetWords(m_schema, m_schema.complexTypes[grammar::ComplexTypeRowOf(plan.type)].simpleType);
        }
        return facets.empty() || constraint.empty() ? facets + constraint : facets + ", " + constraint;
    }

    // Get, and Set from a value; `get` and `put` are calls without their last bracket.
    std::string GetAndSet(ClassPlan const& plan, PropertyPlan const& property, std::string const& get,
                          std::string const& put) const {
        std::string const type = ValueType(property.value, plan.ns);
        bool const isText = property.value.kind == ValueKind::kText;
        bool const isSmall = property.value.kind == ValueKind::kEnum ||
                             (property.value.kind == ValueKind::kCodec && IsArithmetic(property.value.item));
        std::string const parameter = isSmall ? type + " value" : type + " const& value";
        std::string const codec = Codec(property.value, plan.ns);
        return "    " + type + " Get" + property.name + "() const { return " +
               (isText ? get : codec + "::FromText(" + get + ")") + "; }\n    void Set" + property.name +
               "(" + parameter + ") { " + put + (isText ? "value" : codec + "::ToText(value)") + "); }\n";
    }
    std::string Attribute(ClassPlan const& plan, PropertyPlan const& property) const {
        std::string const row = std::to_string(property.row);
        return GetAndSet(plan, property, "AttributeOf(" + row + ")", "PutAttribute(" + row + ", ") +
               "    bool Is" + property.name + "Valid() const noexcept { return FindAttribute(" + row +
               ") != nullptr; }\n    void Remove" + property.name + "() { DropAttribute(" + row + "); }\n";
    }
    std::string Presence(PropertyPlan const& property) const {
        std::string const row = std::to_string(property.row);
        return "    bool Is" + property.name + "Valid() const noexcept { return Find(" + row +
               ") != nullptr; }\n    void Remove" + property.name + "() { DropAll(" + row + "); }\n";
    }
    std::string Value(ClassPlan const& plan, PropertyPlan const& property) const {
        std::string const row = std::to_string(property.row);
        std::string text =
            GetAndSet(plan, property, "TextOf(" + row + ")", "PutText(" + row + ", ") + Presence(property);
        if (property.isNillable)
            text += "    bool Is" + property.name + "Nil() const noexcept { return IsNilAt(" + row +
                    "); }\n    void Set" + property.name + "Nil() { PutNil(" + row + "); }\n";
        return text;
    }
    std::string List(ClassPlan const& plan, PropertyPlan const& property, std::string const& type) const {
        return "    " + type + " Get" + property.name + "() const {\n        return {const_cast<" +
               plan.name + "&>(*this), " + std::to_string(property.row) + "};\n    }\n";
    }
    std::string ValueList(ClassPlan const& plan, PropertyPlan const& property) const {
        return List(plan, property,
                    std::string(kGenerated) + "ValueList<" + Codec(property.value, plan.ns) + ">");
    }
    std::string ObjectList(ClassPlan const& plan, PropertyPlan const& property) const {
        return List(plan, property,
                    std::string(kGenerated) + "ObjectList<" + ClassName(property.objectClass, plan.ns) + ">");
    }
    std::string Object(ClassPlan const& plan, PropertyPlan const& property) const {
        std::string const type = ClassName(property.objectClass, plan.ns);
        return "    // Made where there is none; the const one throws CZvInvalidStateException.\n    " +
               type + "& Get" + property.name + "();\n    " + type + " const& Get" + property.name +
               "() const;\n    void Set" + property.name + "(" + type + "* value);\n" + Presence(property);
    }
    std::string ContentAccess(ClassPlan const& plan, PropertyPlan const& property) const {
        return GetAndSet(plan, property, "ContentText()", "PutContentText(");
    }

    // What needs other classes to be complete.
    std::string InlineMembers(ClassPlan const& plan) const {
        std::string text;
        for (PropertyPlan const& property : plan.properties) {
            if (property.kind != PropertyKind::kObjectElement || property.isRepeatable)
                continue;
            std::string const type = ClassName(property.objectClass, plan.ns);
            std::string const row = std::to_string(property.row);
            std::string const get = plan.name + "::Get" + property.name;
            text += "inline " + type + "& " + get + "() {\n    return static_cast<" + type + "&>(Obtain(" +
                    row + "));\n}\ninline " + type + " const& " + get +
                    "() const {\n    return static_cast<" + type + " const&>(Require(" + row +
                    "));\n}\ninline void " + plan.name + "::Set" + property.name + "(" + type +
                    "* value) {\n    PutObject(" + row + ", value);\n}\n";
        }
        return text.empty() ? text : text + "\n";
    }

    // They only name what the library does, and cost nothing where they are not used.
    std::string Functions(DocumentPlan const& plan) const {
        std::string const type = ClassName(plan.objectClass, plan.ns);
        std::string const where = SchemaFunction() + ", " + std::to_string(plan.element) + ", ";
        std::string text = Doc(plan.source, "documents with the root element " + plan.xmlName, "");
        auto const add = [&](std::string const& result, std::string const& name,
                             std::string const& parameters, std::string const& body) {
            text += "inline " + result + " " + name + "(" + parameters +
                    ",\n    zv::CSerializationContext const& ctx = gen::StrictContext()) {\n    " + body +
                    "\n}\n";
        };
        std::string const pointer = "zv::CSmartPtr<" + type + ">";
        if (plan.objectClass != kNone && !m_mapping.GetClasses()[plan.objectClass].isAbstract)
            text += "// An empty one.\ninline " + pointer + " New" + plan.name + "() {\n    return gen::As<" +
                    type + ">(gen::NewObject(" + SchemaFunction() + ", " + std::to_string(plan.element) +
                    "));\n}\n";
        auto const read = [&](std::string const& function, std::string const& arguments) {
            return "return gen::As<" + type + ">(gen::" + function + "(" + where + arguments + ", ctx));";
        };
        add(pointer, "Read" + plan.name, "std::string const& file", read("ReadFile", "file"));
        add(pointer, "Read" + plan.name, "unsigned char const* bytes, std::size_t length",
            read("ReadBytes", "bytes, length"));
        add(pointer, "Read" + plan.name + "Xml", "std::string const& text", read("ReadXmlText", "text"));
        add(pointer, "Read" + plan.name + "Json", "std::string const& text", read("ReadJsonText", "text"));
        std::string const object = type + " const& object";
        auto const write = [&](std::string const& function, std::string const& arguments) {
            return "gen::Write" + function + "(object, " + std::to_string(plan.element) + ", " + arguments +
                   "ctx);";
        };
        add("void", "Write" + plan.name, object + ", std::string const& file", write("File", "file, "));
        add("std::string", "Write" + plan.name + "Xml", object, "return " + write("XmlText", ""));
        add("std::string", "Write" + plan.name + "Json", object, "return " + write("JsonText", ""));
        add("zv::CBinaryData", "Write" + plan.name + "FastInfoset", object,
            "return " + write("FastInfoset", ""));
        return text + "\n";
    }

    // The first part has the rows; the functions are spread over all.
    std::string Source(unsigned part) const {
        std::string text = Title() + "#include \"" + m_stem + ".h\"\n\n";
        if (part == 0)
            text += SchemaSource();
        text += Spread(m_enums, part, [this](EnumPlan const& plan) { return EnumSource(plan); });
        text += Spread(m_classes, part, [this](ClassPlan const& plan) { return ConstructorSource(plan); });
        return text;
    }
    // A name goes to the same part whatever else there is.
    template <class Items, class EmitItem>
    std::string Spread(Items const& items, unsigned part, EmitItem emitItem) const {
        std::vector<typename Items::value_type> mine;
        for (auto const& item : items) {
            std::uint32_t hash = 2166136261U;
            for (char const c : item.name)
                hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
            if (hash % m_parts == part)
                mine.push_back(item);
        }
        return InNamespaces(mine, emitItem);
    }
    std::string EnumSource(EnumPlan const& plan) const {
        std::string text = "gen::EnumTexts " + plan.name +
                           "Traits::Texts() noexcept {\n    static constexpr char const* const texts[] = {\n";
        for (std::string const& value : plan.texts)
            text += "        " + Literal(value) + ",\n";
        return text + "    };\n    return {texts, " + std::to_string(plan.texts.size()) + "};\n}\n\n";
    }
    std::string ConstructorSource(ClassPlan const& plan) const {
        if (plan.isAbstract)
            return {};
        std::string const declaration =
            plan.declaration == kNone ? "zv::grammar::kNone" : std::to_string(plan.declaration);
        return plan.name + "::" + plan.name + "() : " + plan.name + "(" + SchemaFunction() + ", " +
               std::to_string(plan.type) + ", " + declaration + ") {}\n\n";
    }
    // Of what one file alone needs, so that several sets fit into one translation unit.
    std::string RowsNamespace() const {
        return Identifier(m_stem) + "_rows";
    }
    std::string SchemaSource() const {
        std::string text =
            OpenNamespace(RowsNamespace()) + "namespace {\n\nusing namespace ZvXmlLib16::grammar;\n\n" +
            EmitRows(m_schema.GetRows()) +
            "\nusing Maker = ::ZvXmlLib16::generated::CTypedObject* (*)(TypeId, std::uint32_t);\n\n"
            "template <class Class>\n::ZvXmlLib16::generated::CTypedObject* Make(TypeId type, std::uint32_t "
            "declaration) {\n    return new Class(" +
            SchemaFunction() + ", type, declaration);\n}\n\n";
        std::map<std::uint32_t, std::uint32_t> classes; // by row of the type
        for (std::uint32_t i = 0; i < m_mapping.GetClasses().size(); ++i)
            classes.emplace(grammar::ComplexTypeRowOf(m_mapping.GetClasses()[i].type), i);
        text += "// By the row of the type.\nconstexpr Maker kMakers[] = {\n";
        for (std::uint32_t row = 0; row < m_schema.complexTypes.size(); ++row) {
            auto const found = classes.find(row);
            text += found == classes.end() ? "    nullptr,\n"
                                           : "    &Make<" + ClassName(found->second, {}) + ">,\n";
        }
        text +=
            "    nullptr};\n\n::ZvXmlLib16::generated::CTypedObject* MakeObject(TypeId type, std::uint32_t "
            "declaration) {\n"
            "    if (!IsComplex(type) || type == kAnyType)\n        return nullptr;\n"
            "    Maker const maker = kMakers[ComplexTypeRowOf(type)];\n"
            "    return maker == nullptr ? nullptr : maker(type, declaration);\n}\n\n} // namespace\n" +
            CloseNamespace(RowsNamespace()) + "\n";
        return text + OpenNamespace(Home()) + "\n::ZvXmlLib16::generated::BoundSchema const& " +
               Identifier(m_stem) +
               "Schema() {\n    static ::ZvXmlLib16::generated::BoundSchema const schema(\n        ::" +
               RowsNamespace() + "::kRows, &::" + RowsNamespace() + "::MakeObject" + Base() +
               ");\n"
               "    return schema;\n}\n\n" +
               CloseNamespace(Home()) + "\n";
    }

    // The schema that this one builds on, as an argument.
    std::string Base() const {
        return m_externs.empty()
                   ? std::string()
                   : ", &::" + m_externs.back().ns + "::" + Identifier(m_externs.back().stem) + "Schema()";
    }

    Schema const& m_schema;
    Mapping const& m_mapping;
    std::string m_stem;
    unsigned m_parts;
    std::vector<ExternSet> const& m_externs;
    std::vector<ClassPlan> m_classes; // without those of other sets
    std::vector<EnumPlan> m_enums;
};

} // namespace

std::vector<EmittedFile> Emit(Schema const& schema, Mapping const& mapping, std::string const& stem,
                              unsigned parts, std::vector<ExternSet> const& externs) {
    return Emitter(schema, mapping, stem, parts, externs).Emit();
}

std::vector<std::string> OutputNames(std::string const& stem, unsigned parts) {
    std::vector<std::string> names{stem + ".h", stem + "-fwd.h"};
    for (unsigned part = 1; part <= parts; ++part)
        names.push_back(stem + "-" + std::to_string(part) + ".cpp");
    return names;
}

} // namespace ZvXmlLib16::schema
