#include "schema/mapping/Mapping.h"

#include "zvxmllib/foundation/SimpleTypes.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

// What the base of generated classes has for itself.
constexpr char const* kOwnProperties[] = {"Base", "Namespace", "TargetNamespace", "ElementName", "Nil"};

// By ItemType, from 1 on.
#define ZV_NAME(name, Policy, Name, Value, KIND, slot) #name,
constexpr char const* kItemNames[] = {ZV_SIMPLE_TYPES(ZV_NAME)};
#undef ZV_NAME

constexpr char const* kAttributeSuffix = "Attribute";
constexpr char const* kTraits = "Traits"; // a class of each enumeration

// {namespace}name, or the name in none.
template <class Row>
std::string StepOf(Row const& row) {
    return *row.ns == '\0' ? std::string(row.name) : "{" + std::string(row.ns) + "}" + row.name;
}

ItemType ItemOf(BuiltIn type) {
    switch (type) {
    case BuiltIn::kBoolean:
        return ItemType_boolean;
    case BuiltIn::kDecimal:
        return ItemType_decimal;
    case BuiltIn::kInteger:
    case BuiltIn::kNonPositiveInteger:
    case BuiltIn::kNegativeInteger:
    case BuiltIn::kNonNegativeInteger:
    case BuiltIn::kPositiveInteger:
        return ItemType_integer;
    case BuiltIn::kLong:
        return ItemType_i8;
    case BuiltIn::kInt:
        return ItemType_i4;
    case BuiltIn::kShort:
    case BuiltIn::kByte: // the 8-bit types of C++ are characters
        return ItemType_i2;
    case BuiltIn::kUnsignedLong:
        return ItemType_ui8;
    case BuiltIn::kUnsignedInt:
        return ItemType_ui4;
    case BuiltIn::kUnsignedShort:
    case BuiltIn::kUnsignedByte:
        return ItemType_ui2;
    case BuiltIn::kFloat:
        return ItemType_r4;
    case BuiltIn::kDouble:
        return ItemType_r8;
    case BuiltIn::kDuration:
        return ItemType_duration;
    case BuiltIn::kDateTime:
        return ItemType_datetime;
    case BuiltIn::kDate:
        return ItemType_date;
    case BuiltIn::kTime:
        return ItemType_time;
    case BuiltIn::kGYearMonth:
        return ItemType_yearMonth;
    case BuiltIn::kGMonthDay:
        return ItemType_monthDay;
    case BuiltIn::kHexBinary:
        return ItemType_hexBinary;
    case BuiltIn::kBase64Binary:
        return ItemType_base64Binary;
    default:
        return ItemType_string;
    }
}

} // namespace

Mapping::Mapping(Schema const& schema, std::map<std::string, std::string> namespaces, std::string stem,
                 NameTable& names, Diagnostics& diagnostics)
    : m_schema(schema), m_names(names), m_diagnostics(diagnostics), m_grammar(schema.GetRows()),
      m_orders(m_grammar), m_namespaces(std::move(namespaces)), m_stem(std::move(stem)) {
    m_home = NamespaceFor(schema.targetNamespaces.front());
    ScopeOf(m_home).Reserve(Identifier(m_stem) + "Schema"); // a function
    ScopeOf(m_home).Reserve(Identifier(m_stem) + "Rows");   // a constant
    if (!m_schema.before.empty())
        AddAll(true);
    AddAll(false);
    AddDocuments();
    SortClasses();
}

// All classes of the sets generated before, or all others. The first get the names that they got then.
void Mapping::AddAll(bool isForeign) {
    m_isForeign = isForeign;
    auto const first = static_cast<std::uint32_t>(m_classes.size());
    AddNamedTypes();
    AddElementClasses();
    for (std::uint32_t i = first; i < m_classes.size(); ++i)
        AddAnonymousClasses(i);
    for (std::uint32_t i = first; i < m_classes.size(); ++i) {
        TypeId const base = m_schema.complexTypes[ComplexTypeRowOf(m_classes[i].type)].base;
        m_classes[i].base = ClassOf(base);
    }
    m_propertyNames.resize(m_classes.size());
    m_hasProperties.resize(m_classes.size(), false);
    for (std::uint32_t i = first; i < m_classes.size(); ++i)
        AddProperties(i);
}

bool Mapping::IsForeign(TypeId type) const {
    RowCounts const counts = m_schema.CountForeign();
    return IsComplex(type) ? type != kAnyType && ComplexTypeRowOf(type) < counts.complexTypes
                           : static_cast<std::uint32_t>(type) < kBuiltInCount + counts.simpleTypes;
}

std::string const& Mapping::NamespaceFor(std::string const& uri) {
    auto const known = m_namespaces.find(uri);
    if (known != m_namespaces.end())
        return known->second;
    return m_namespaces.emplace(uri, NamespaceName(uri, NamespaceName(m_stem, "schema"))).first->second;
}

std::uint32_t Mapping::ClassOf(TypeId type) const {
    auto const found = m_classOf.find(type);
    return found == m_classOf.end() ? kNone : found->second;
}

std::uint32_t Mapping::AddClass(TypeId type, std::string const& ns, std::string const& name,
                                std::string const& xmlName, std::string const& path) {
    auto const index = static_cast<std::uint32_t>(m_classes.size());
    std::string const wanted = "C" + name;
    ClassPlan plan{};
    plan.ns = ns;
    bool const isAside = path.compare(0, 8, "element ") == 0 && ScopeOf(ns).IsTaken(wanted);
    plan.name = m_names.Take(ScopeOf(ns), "class " + path, isAside ? wanted + "Element" : wanted);
    m_classPaths.push_back(path);
    plan.xmlName = xmlName;
    plan.type = type;
    plan.base = kNone;
    plan.declaration = kNone;
    plan.isForeign = m_isForeign;
    plan.isAbstract = m_schema.complexTypes[ComplexTypeRowOf(type)].isAbstract;
    plan.source = &m_schema.complexTypeSources[ComplexTypeRowOf(type)];
    TellRenamed(plan.source, "class " + path, "the class of [" + xmlName + "]", wanted, plan.name);
    m_classes.push_back(std::move(plan));
    m_classOf.emplace(type, index);
    return index;
}

void Mapping::AddNamedTypes() {
    for (TypeId const type : m_schema.globalTypes) {
        if (IsForeign(type) != m_isForeign)
            continue;
        if (!IsComplex(type)) {
            ValueOf(static_cast<std::uint32_t>(type), {}, {}, {}); // an enumeration takes its name now
            continue;
        }
        ComplexTypeRow const& row = m_schema.complexTypes[ComplexTypeRowOf(type)];
        AddClass(type, NamespaceFor(row.ns), CamelName(row.name), row.name, "type " + StepOf(row));
    }
}

void Mapping::AddElementClasses() {
    for (std::uint32_t const element : m_schema.globalElements) {
        ElementRow const& row = m_schema.elements[element];
        bool const isForeign = element < m_schema.CountForeign().elements;
        if (!IsComplex(row.type) || row.type == kAnyType || isForeign != m_isForeign)
            continue;
        std::uint32_t index = ClassOf(row.type);
        if (index == kNone) {
            std::string const& ns = NamespaceFor(row.ns);
            std::string const name = CamelName(row.name);
            index = AddClass(row.type, ns, name, row.name, "element " + StepOf(row));
            m_classes[index].declaration = element;
        }
    }
}

// Of the child elements: named by their owner.
void Mapping::AddAnonymousClasses(std::uint32_t index) {
    for (ContentEntry const& entry : m_orders.Of(m_classes[index].type)) {
        if (entry.declaration == kNone)
            continue;
        ElementRow const& row = m_schema.elements[entry.declaration];
        if (!IsComplex(row.type) || row.type == kAnyType || ClassOf(row.type) != kNone)
            continue;
        std::string const owner = m_classes[index].name.substr(1);
        std::uint32_t const added = AddClass(row.type, m_classes[index].ns, owner + CamelName(row.name),
                                             row.name, m_classPaths[index] + "/" + StepOf(row));
        m_classes[added].declaration = entry.declaration;
    }
}

bool Mapping::IsInherited(ClassPlan const& plan, PropertyPlan const& property) const {
    for (std::uint32_t base = plan.base; base != kNone; base = m_classes[base].base) {
        for (PropertyPlan const& candidate : m_classes[base].properties) {
            if (candidate.kind != property.kind &&
                !(candidate.kind <= PropertyKind::kObjectElement &&
                  candidate.kind != PropertyKind::kAttribute &&
                  property.kind <= PropertyKind::kObjectElement && property.kind != PropertyKind::kAttribute))
                continue;
            if (property.kind >= PropertyKind::kContentValue)
                return true;
            if (property.kind == PropertyKind::kAttribute) {
                AttributeRow const& left = m_schema.attributes[candidate.row];
                AttributeRow const& right = m_schema.attributes[property.row];
                if (left.name == right.name && left.ns == right.ns) // kept once
                    return true;
            } else if (m_grammar.SymbolOf(candidate.row) == m_grammar.SymbolOf(property.row)) {
                return true;
            }
        }
    }
    return false;
}

void Mapping::AddProperties(std::uint32_t index) {
    if (m_hasProperties[index])
        return;
    m_hasProperties[index] = true;
    NameScope names;
    std::uint32_t const base = m_classes[index].base;
    if (base != kNone) {
        AddProperties(base);
        names = m_propertyNames[base];
    } else {
        for (char const* own : kOwnProperties)
            names.Reserve(own);
    }
    AddElementProperties(index, names);
    AddAttributeProperties(index, names);
    AddContentProperty(index, names);
    m_propertyNames[index] = std::move(names);
}

void Mapping::AddElementProperties(std::uint32_t index, NameScope& names) {
    for (ContentEntry const& entry : m_orders.Of(m_classes[index].type)) {
        if (entry.declaration == kNone)
            continue;
        ElementRow const& row = m_schema.elements[entry.declaration];
        PropertyPlan property{};
        property.kind = IsComplex(row.type) ? PropertyKind::kObjectElement : PropertyKind::kValueElement;
        property.row = entry.declaration;
        property.xmlName = row.name;
        property.isRepeatable = entry.isRepeatable;
        property.isNillable = row.isNillable;
        property.objectClass = ClassOf(row.type);
        property.source = &m_schema.elementSources[entry.declaration];
        if (IsInherited(m_classes[index], property))
            continue;
        std::string const name = CamelName(row.name);
        std::string const path = m_classPaths[index] + "/" + StepOf(row);
        property.name =
            m_names.Take(names, "property " + path, names.IsTaken(name) ? name + "Element" : name);
        TellRenamed(property.source, "property " + path, "the property of [" + property.xmlName + "]", name,
                    property.name);
        if (property.kind == PropertyKind::kValueElement)
            property.value = ValueOf(static_cast<std::uint32_t>(row.type), m_classes[index].ns,
                                     m_classes[index].name.substr(1) + name, path);
        m_classes[index].properties.push_back(std::move(property));
    }
}

void Mapping::AddAttributeProperties(std::uint32_t index, NameScope& names) {
    Range const uses = m_schema.complexTypes[ComplexTypeRowOf(m_classes[index].type)].attributes;
    for (std::uint32_t i = uses.first; i < uses.first + uses.count; ++i) {
        AttributeRow const& row = m_schema.attributes[i];
        PropertyPlan property{};
        property.kind = PropertyKind::kAttribute;
        property.row = i;
        property.xmlName = row.name;
        property.source = &m_schema.attributeSources[i];
        if (IsInherited(m_classes[index], property))
            continue;
        std::string const name = CamelName(row.name);
        std::string const path = m_classPaths[index] + "/@" + StepOf(row);
        property.name =
            m_names.Take(names, "property " + path, names.IsTaken(name) ? name + kAttributeSuffix : name);
        TellRenamed(property.source, "property " + path, "the property of [" + property.xmlName + "]", name,
                    property.name);
        property.value = ValueOf(row.type, m_classes[index].ns, m_classes[index].name.substr(1) + name, path);
        m_classes[index].properties.push_back(std::move(property));
    }
}

void Mapping::AddContentProperty(std::uint32_t index, NameScope& names) {
    ComplexTypeRow const& row = m_schema.complexTypes[ComplexTypeRowOf(m_classes[index].type)];
    if (row.content != Content::kSimple && row.content != Content::kMixed)
        return;
    PropertyPlan property{};
    property.kind = row.content == Content::kSimple ? PropertyKind::kContentValue : PropertyKind::kMixedText;
    property.source = m_classes[index].source;
    if (IsInherited(m_classes[index], property))
        return;
    std::string const name = row.content == Content::kSimple ? "Value" : "Text";
    std::string const path = m_classPaths[index] + "/text()";
    property.name = m_names.Take(names, "property " + path, names.IsTaken(name) ? "Content" + name : name);
    TellRenamed(property.source, "property " + path, "the property of the content", name, property.name);
    if (row.content == Content::kSimple)
        property.value =
            ValueOf(row.simpleType, m_classes[index].ns, m_classes[index].name.substr(1) + name, path);
    m_classes[index].properties.push_back(std::move(property));
}

// `owner` names an anonymous enumeration.
ValuePlan Mapping::ValueOf(std::uint32_t type, std::string const& ns, std::string const& owner,
                           std::string const& ownerPath) {
    ValuePlan plan;
    SimpleTypes const& types = m_grammar.GetSimpleTypes();
    Variety const variety = types.GetVariety(type);
    std::uint32_t item = type;
    if (variety == Variety::kList) {
        plan.kind = ValueKind::kList;
        while (item >= kBuiltInCount && m_schema.simpleTypes[item - kBuiltInCount].item == kNone)
            item = m_schema.simpleTypes[item - kBuiltInCount].base;
        if (item < kBuiltInCount)
            return plan; // NMTOKENS and the like
        item = m_schema.simpleTypes[item - kBuiltInCount].item;
        plan.item =
            types.GetVariety(item) == Variety::kAtomic ? ItemOf(types.GetBuiltIn(item)) : ItemType_string;
        return plan;
    }
    if (variety == Variety::kUnion)
        return plan;
    plan.item = ItemOf(types.GetBuiltIn(type));
    if (plan.item != ItemType_string) {
        plan.kind = ValueKind::kCodec;
        return plan;
    }
    BuiltIn const builtIn = types.GetBuiltIn(type);
    if (builtIn == BuiltIn::kQName || builtIn == BuiltIn::kNOTATION || builtIn >= BuiltIn::kAnyURI)
        return plan;
    for (std::uint32_t step = type; step >= kBuiltInCount;
         step = m_schema.simpleTypes[step - kBuiltInCount].base) {
        Range const facets = m_schema.simpleTypes[step - kBuiltInCount].facets;
        for (std::uint32_t i = facets.first; i < facets.first + facets.count; ++i) {
            if (m_schema.facets[i].facet != Facet::kEnumeration)
                continue;
            plan.kind = ValueKind::kEnum;
            plan.enumeration = EnumOf(step - kBuiltInCount, ns, owner, ownerPath);
            return plan;
        }
    }
    return plan;
}

std::uint32_t Mapping::EnumOf(std::uint32_t row, std::string const& ns, std::string const& owner,
                              std::string const& ownerPath) {
    auto const known = m_enumOf.find(row);
    if (known != m_enumOf.end())
        return known->second;
    SimpleTypeRow const& type = m_schema.simpleTypes[row];
    EnumPlan plan;
    bool const isNamed = *type.name != '\0';
    plan.ns = isNamed || ns.empty() ? NamespaceFor(type.ns) : ns;
    plan.xmlName = type.name;
    plan.isForeign = m_isForeign;
    std::string const name = EnumeratorName(isNamed ? type.name : owner); // no class: it has no prefix
    std::string const path = isNamed ? "type " + StepOf(type) : ownerPath;
    NameScope& scope = ScopeOf(plan.ns);
    do {
        plan.name = m_names.Take(scope, "enum " + path, name);
    } while (scope.IsTaken(plan.name + kTraits));
    scope.Reserve(plan.name + kTraits);
    plan.source = &m_schema.simpleTypeSources[row];
    TellRenamed(plan.source, "enum " + path, "the enumeration [" + (isNamed ? plan.xmlName : owner) + "]",
                name, plan.name);
    NameScope enumerators;
    std::set<std::string> seen;
    std::string room;
    for (std::uint32_t i = type.facets.first; i < type.facets.first + type.facets.count; ++i) {
        if (m_schema.facets[i].facet != Facet::kEnumeration)
            continue;
        std::string text(
            m_grammar.GetSimpleTypes().Normalize(kBuiltInCount + row, m_schema.facets[i].value, room));
        if (!seen.insert(text).second)
            continue;
        std::string const wanted = EnumeratorName(text);
        std::string const valuePath = PathOfValue(path, text);
        plan.enumerators.push_back(m_names.Take(enumerators, valuePath, wanted, "_"));
        TellRenamed(&m_schema.facetSources[i], valuePath, "the enumerator of [" + text + "]", wanted,
                    plan.enumerators.back());
        plan.texts.push_back(std::move(text));
        plan.sources.push_back(&m_schema.facetSources[i]);
    }
    m_enums.push_back(std::move(plan));
    auto const index = static_cast<std::uint32_t>(m_enums.size() - 1);
    m_enumOf.emplace(row, index);
    return index;
}

void Mapping::TellRenamed(Source const* source, std::string const& path, std::string const& what,
                          std::string const& wanted, std::string const& name) {
    if (name != wanted && m_names.Find(path) == nullptr)
        m_diagnostics.Warning(source->position, what + " is named " + name + ": " + wanted + " is taken",
                              kRenamed);
}

// One whose functions do not collide with those of another document or with an enumeration.
std::string Mapping::TakeDocumentName(std::string const& ns, std::string const& path,
                                      std::string const& name) {
    std::string const functions[][2] = {
        {"New", ""},   {"Read", ""},     {"Read", "Xml"},   {"Read", "Json"},
        {"Write", ""}, {"Write", "Xml"}, {"Write", "Json"}, {"Write", "FastInfoset"}};
    NameScope& scope = ScopeOf(ns);
    std::string const* const given = m_names.Find(path);
    std::string taken = given != nullptr ? *given : name;
    for (unsigned number = 2;; ++number) {
        bool const isFree =
            std::none_of(std::begin(functions), std::end(functions), [&](auto const& function) {
                return scope.IsTaken(function[0] + taken + function[1]);
            });
        if (isFree && (given != nullptr || !m_names.IsGiven(path, taken)))
            break;
        taken = name + std::to_string(number);
    }
    for (auto const& function : functions)
        scope.Reserve(function[0] + taken + function[1]);
    m_names.Keep(path, taken);
    return taken;
}

// What is imported serves as a part.
bool Mapping::IsDocument(std::uint32_t element) const {
    auto const has = [](auto const& list, auto const& item) {
        return std::find(list.begin(), list.end(), item) != list.end();
    };
    return m_schema.documentElements ? has(*m_schema.documentElements, element)
                                     : has(m_schema.targetNamespaces, m_schema.elements[element].ns);
}

void Mapping::AddDocuments() {
    for (std::uint32_t const element : m_schema.globalElements) {
        ElementRow const& row = m_schema.elements[element];
        if (row.isAbstract || !IsDocument(element) || element < m_schema.CountForeign().elements)
            continue;
        DocumentPlan plan;
        plan.ns = NamespaceFor(row.ns);
        plan.name = TakeDocumentName(plan.ns, "document " + StepOf(row), CamelName(row.name));
        plan.xmlName = row.name;
        plan.element = element;
        plan.objectClass = ClassOf(row.type);
        plan.source = &m_schema.elementSources[element];
        TellRenamed(plan.source, "document " + StepOf(row), "the functions of [" + plan.xmlName + "]",
                    CamelName(row.name), plan.name);
        m_documents.push_back(std::move(plan));
    }
}

// Puts each base ahead of what derives from it, and leaves the order otherwise.
void Mapping::SortClasses() {
    std::vector<std::uint32_t> order;
    std::vector<bool> isPlaced(m_classes.size(), false);
    for (std::uint32_t i = 0; i < m_classes.size(); ++i) {
        std::vector<std::uint32_t> chain;
        for (std::uint32_t at = i; at != kNone && !isPlaced[at]; at = m_classes[at].base) {
            chain.push_back(at);
            isPlaced[at] = true;
        }
        order.insert(order.end(), chain.rbegin(), chain.rend());
    }
    std::vector<std::uint32_t> newIndex(m_classes.size());
    for (std::uint32_t i = 0; i < order.size(); ++i)
        newIndex[order[i]] = i;
    std::vector<ClassPlan> sorted;
    for (std::uint32_t const old : order)
        sorted.push_back(std::move(m_classes[old]));
    auto const renew = [&newIndex](std::uint32_t& index) {
        if (index != kNone)
            index = newIndex[index];
    };
    for (ClassPlan& plan : sorted) {
        renew(plan.base);
        for (PropertyPlan& property : plan.properties)
            renew(property.objectClass);
    }
    for (DocumentPlan& plan : m_documents)
        renew(plan.objectClass);
    for (auto& [type, index] : m_classOf)
        renew(index);
    m_classes = std::move(sorted);
}

// For a dump.
std::string Mapping::TextOf(ValuePlan const& plan) const {
    std::string const item = kItemNames[plan.item - 1];
    switch (plan.kind) {
    case ValueKind::kEnum:
        return m_enums[plan.enumeration].name;
    case ValueKind::kList:
        return "list of " + item;
    case ValueKind::kCodec:
        return item;
    default:
        return "text";
    }
}

std::string Mapping::Dump() const {
    std::string text;
    auto const at = [](Source const* source) {
        return source->position.file.substr(source->position.file.rfind('/') + 1) + ":" +
               std::to_string(source->position.line);
    };
    for (EnumPlan const& plan : m_enums) {
        text += "enum " + plan.ns + "::" + plan.name + " " + at(plan.source) + "\n";
        for (std::size_t i = 0; i < plan.texts.size(); ++i)
            text += "  " + plan.enumerators[i] + " = \"" + plan.texts[i] + "\"\n";
    }
    for (ClassPlan const& plan : m_classes) {
        text += "class " + plan.ns + "::" + plan.name;
        if (plan.base != kNone)
            text += " : " + m_classes[plan.base].ns + "::" + m_classes[plan.base].name;
        text += (plan.isAbstract ? " abstract " : " ") + at(plan.source) + "\n";
        for (PropertyPlan const& property : plan.properties) {
            char const* const kinds[] = {"attribute", "value", "object", "content", "text"};
            text += "  " + property.name + " " + kinds[static_cast<int>(property.kind)];
            if (!property.xmlName.empty())
                text += " " + property.xmlName;
            if (property.objectClass != kNone)
                text += " " + m_classes[property.objectClass].name;
            else if (property.kind != PropertyKind::kObjectElement)
                text += " " + TextOf(property.value);
            text += property.isNillable ? " nillable" : "";
            text += property.isRepeatable ? " *\n" : "\n";
        }
    }
    for (DocumentPlan const& plan : m_documents)
        text += "document " + plan.ns + "::" + plan.name + " " + plan.xmlName + "\n";
    return text;
}

} // namespace ZvXmlLib16::schema
