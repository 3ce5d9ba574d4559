#include "schema/frontend/Resolver.h"

#include <algorithm>

namespace ZvXmlLib16::schema {

using namespace grammar;

std::uint32_t Resolver::ElementAt(Place const& at, bool isGlobal) {
    auto const known = m_elements.find(at.Key());
    if (known != m_elements.end())
        return known->second;
    Place const place{at.document, at.node, nullptr};
    OutlineNode const& node = *place.node;
    auto const index = static_cast<std::uint32_t>(m_schema.elements.size());
    m_elements.emplace(place.Key(), index);
    bool const isQualified =
        isGlobal || node.Get("form", place.document->qualifiesElements ? "qualified" : "") == "qualified";
    ElementRow row{};
    row.name = m_schema.Keep(node.Get("name"));
    row.ns = m_schema.Keep(isQualified ? place.document->targetNamespace : std::string());
    row.isGlobal = isGlobal;
    row.isNillable = node.IsTrue("nillable");
    row.isAbstract = node.IsTrue("abstract");
    row.block = DerivationsOf(place, "block", "blockDefault");
    row.head = kNone;
    row.value = "";
    row.type = kAnyType;
    m_schema.elements.push_back(row);
    m_schema.elementSources.push_back(SourceOf(place));
    if (isGlobal && node.Find("substitutionGroup") != nullptr) {
        Definition const* const head =
            FindDefinition(place, Space::kElement, node.Get("substitutionGroup"), false);
        if (head != nullptr)
            row.head = ElementAt(PlaceOf(*head), true);
        m_schema.elements[index].head = row.head;
    }
    row.type = ElementType(place);
    m_schema.elements[index].type = row.type;
    SetConstraint(place, row.type, row.constraint, row.value);
    row.identities = AddIdentities(place);
    m_schema.elements[index] = row;
    return index;
}

// Of elements with simple content, whose type is known only now.
void Resolver::ResolveConstraints() {
    for (auto const& [key, index] : m_elements) {
        ElementRow& row = m_schema.elements[index];
        if (row.constraint == ValueConstraint::kNoValue || !IsComplex(row.type) || row.type == kAnyType)
            continue;
        ComplexTypeRow const& type = m_schema.complexTypes[ComplexTypeRowOf(row.type)];
        if (type.content == Content::kSimple)
            SetConstraint({key.first, key.second, nullptr}, static_cast<TypeId>(type.simpleType),
                          row.constraint, row.value);
    }
}

TypeId Resolver::ElementType(Place const& place) {
    OutlineNode const& node = *place.node;
    for (char const* inner : {"simpleType", "complexType"}) {
        OutlineNode const* const type = node.Child(inner);
        if (type != nullptr)
            return TypeAt(place.Of(*type), {});
    }
    if (node.Find("type") != nullptr)
        return TypeOf(place, node.Get("type"), false);
    std::uint32_t const head = m_schema.elements[m_elements.at(place.Key())].head;
    return head == kNone ? kAnyType : m_schema.elements[head].type;
}

Range Resolver::AddIdentities(Place const& place) {
    std::vector<std::pair<IdentityRow, Place>> rows;
    for (auto const& child : place.node->children) {
        bool const isKey = child->IsSchema("key");
        bool const isReference = child->IsSchema("keyref");
        if (!isKey && !isReference && !child->IsSchema("unique"))
            continue;
        Place const at = place.Of(*child);
        IdentityRow row{};
        row.kind = isKey ? IdentityKind::kKey : isReference ? IdentityKind::kKeyRef : IdentityKind::kUnique;
        row.name = m_schema.Keep(child->Get("name"));
        row.ns = m_schema.Keep(place.document->targetNamespace);
        row.refer = kNone;
        row.selector = "";
        row.fields.first = static_cast<std::uint32_t>(m_schema.texts.size());
        for (auto const& part : child->children) {
            char const* const path = m_schema.Keep(PathOf(at.Of(*part), part->Get("xpath")));
            if (part->IsSchema("selector")) {
                row.selector = path;
            } else if (part->IsSchema("field")) {
                m_schema.texts.push_back(path);
                ++row.fields.count;
            }
        }
        rows.emplace_back(row, at);
    }
    Range const range{static_cast<std::uint32_t>(m_schema.identities.size()),
                      static_cast<std::uint32_t>(rows.size())};
    for (auto const& [row, at] : rows) {
        auto const index = static_cast<std::uint32_t>(m_schema.identities.size());
        m_identities.emplace(at.Key(), index);
        if (row.kind == IdentityKind::kKeyRef)
            m_keyReferences.emplace_back(index, at);
        m_schema.identities.push_back(row);
    }
    return range;
}

// As IdentityRow has paths: prefixes replaced, without white space and axes.
std::string Resolver::PathOf(Place const& place, std::string const& xpath) {
    std::string plain;
    std::copy_if(xpath.begin(), xpath.end(), std::back_inserter(plain),
                 [](char c) { return c != ' ' && c != '\t' && c != '\r' && c != '\n'; });
    for (auto const& [axis, replacement] :
         {std::make_pair("child::", ""), std::make_pair("attribute::", "@")}) {
        for (std::size_t at = 0; (at = plain.find(axis)) != std::string::npos;)
            plain.replace(at, std::char_traits<char>::length(axis), replacement);
    }
    std::string path;
    std::size_t step = 0;
    while (step < plain.size()) {
        std::size_t const end = std::min(plain.find_first_of("/|@", step), plain.size());
        std::string const name = plain.substr(step, end - step);
        std::size_t const colon = name.find(':');
        if (colon != std::string::npos && place.node->scope->Find(name.substr(0, colon)) == nullptr)
            Error(place, "the prefix of [" + name + "] is not declared");
        if (colon == std::string::npos)
            path += name;
        else
            path += m_set.Resolve(*place.document, *place.node, name).Clark();
        if (end < plain.size())
            path += plain[end];
        step = end + 1;
    }
    return path;
}

void Resolver::LinkKeyReferences() {
    for (auto const& [index, place] : m_keyReferences) {
        Definition const* const key =
            FindDefinition(place, Space::kIdentity, place.node->Get("refer"), false);
        if (key == nullptr)
            continue;
        auto const found = m_identities.find({key->document, key->node});
        if (found == m_identities.end())
            Error(place, "the key [" + place.node->Get("refer") + "] is not used by any element");
        else
            m_schema.identities[index].refer = found->second;
    }
}

} // namespace ZvXmlLib16::schema
