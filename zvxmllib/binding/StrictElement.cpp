#include "zvxmllib/binding/StrictElement.h"

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ZvXmlLib16 {

namespace {

constexpr std::string_view kSchemaNamespace = "http://www.w3.org/2001/XMLSchema";

// The primitive types, and the types that XML Schema derives from them (Part 2, 3.3), with the type that each
// is derived from. Values of the types that are derived from none here are strings.
struct BuiltInType {
    std::string_view name;
    std::string_view base;
};
constexpr BuiltInType kDerivedTypes[] = {{"normalizedString", "string"},
                                         {"token", "normalizedString"},
                                         {"language", "token"},
                                         {"NMTOKEN", "token"},
                                         {"Name", "token"},
                                         {"NCName", "Name"},
                                         {"ID", "NCName"},
                                         {"IDREF", "NCName"},
                                         {"ENTITY", "NCName"},
                                         {"NMTOKENS", "string"},
                                         {"IDREFS", "string"},
                                         {"ENTITIES", "string"},
                                         {"anyURI", "string"},
                                         {"QName", "string"},
                                         {"NOTATION", "string"},
                                         {"anySimpleType", "string"},
                                         {"integer", "decimal"},
                                         {"nonPositiveInteger", "integer"},
                                         {"negativeInteger", "nonPositiveInteger"},
                                         {"long", "integer"},
                                         {"int", "long"},
                                         {"short", "int"},
                                         {"byte", "short"},
                                         {"nonNegativeInteger", "integer"},
                                         {"positiveInteger", "nonNegativeInteger"},
                                         {"unsignedLong", "nonNegativeInteger"},
                                         {"unsignedInt", "unsignedLong"},
                                         {"unsignedShort", "unsignedInt"},
                                         {"unsignedByte", "unsignedShort"}};

// By ItemType, from 1 on.
constexpr std::string_view kNamesOfTypes[] = {
    "hexBinary",     "base64Binary", "byte",         "short",   "int",    "long",     "unsignedByte",
    "unsignedShort", "unsignedInt",  "unsignedLong", "float",   "double", "duration", "gYearMonth",
    "gMonthDay",     "gYear",        "gMonth",       "gDay",    "date",   "dateTime", "time",
    "string",        "string",       "boolean",      "decimal", "integer"};
static_assert(std::size(kNamesOfTypes) == ItemType_integer);

// Whether the built-in type is that of the value, or derived from it.
bool IsTypeOrDerived(std::string_view name, ItemType type) {
    if (type < ItemType_hexBinary || type > ItemType_integer)
        return false;
    for (;;) {
        if (name == kNamesOfTypes[type - 1])
            return true;
        auto const* const found = std::find_if(std::begin(kDerivedTypes), std::end(kDerivedTypes),
                                               [&](auto const& row) { return row.name == name; });
        if (found == std::end(kDerivedTypes))
            return false;
        name = found->base;
    }
}

bool IsOfInstanceNamespace(CXmlAttribute const& attribute, std::string_view name) {
    return attribute.GetLocalName() == name && attribute.GetNamespaceURI() == kSchemaInstanceNamespace;
}

} // namespace

std::optional<bool> ParseStrictNil(std::string_view text) {
    std::string const word = CWhitespaceUtils::Collapse(std::string(text));
    if (word == "true" || word == "1")
        return true;
    if (word == "false" || word == "0")
        return false;
    return std::nullopt;
}

bool IsTypeAttribute(CXmlAttribute const& attribute) {
    return IsOfInstanceNamespace(attribute, "type");
}

TypeName ReadTypeName(CXmlElement const& element, CXmlAttribute const& attribute) {
    std::string const name = CWhitespaceUtils::Collapse(attribute.GetValue());
    std::size_t const colon = name.find(':');
    std::string const prefix = name.substr(0, colon == std::string::npos ? 0 : colon);
    std::string ns = element.LookupNamespaceFromAlias(prefix.c_str());
    if (ns.empty() && !prefix.empty())
        FailUnknownAlias(prefix, attribute.GetXPath());
    return {std::move(ns), colon == std::string::npos ? name : name.substr(colon + 1)};
}

void CheckNilElement(CXmlElement const& element) {
    if (!element.GetNodeText().IsEmpty() || element.GetFirstElement() != nullptr)
        FailContentOfNil(element.GetLocalName(), element.GetXPath());
}

bool CheckValueElement(CSerializationContext const& ctx, CXmlElement const& element, ItemType type,
                       bool isNillable) {
    bool isNil = false;
    for (std::size_t i = 0; i < element.GetAttributeCount(); ++i) {
        CXmlAttribute const& attribute = *element.GetAttributeAt(i);
        if (attribute.IsNilAttribute()) {
            if (!isNillable)
                FailNilNotAllowed(element.GetXPath());
            std::optional<bool> const value = ParseStrictNil(attribute.GetValueView());
            if (!value)
                FailNilValue(attribute.GetValue(), attribute.GetXPath());
            isNil = *value;
        } else if (IsTypeAttribute(attribute)) {
            TypeName const named = ReadTypeName(element, attribute);
            if (named.ns == kSchemaNamespace && !IsTypeOrDerived(named.name, type))
                FailNoSubstitution(element.GetLocalName(), element.GetXPath());
        } else if (!attribute.IsNamespaceAttribute() && !ctx.GetIgnoreUnknownAttributes()) {
            FailUnexpectedAttribute(attribute.GetXPath());
        }
    }
    if (isNil)
        CheckNilElement(element);
    else if (CXmlElement const* const child = element.GetFirstElement())
        FailUnreadElement(element.GetLocalName(), child->GetLocalName(), element.GetXPath());
    return isNil;
}

} // namespace ZvXmlLib16
