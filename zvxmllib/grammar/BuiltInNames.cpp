#include "zvxmllib/grammar/BuiltInNames.h"

#include <algorithm>
#include <iterator>

namespace ZvXmlLib16::grammar {

namespace {

// In the order of the enumerators.
constexpr char const* kNamesOfBuiltIns[] = {"anySimpleType",
                                            "string",
                                            "normalizedString",
                                            "token",
                                            "language",
                                            "NMTOKEN",
                                            "NMTOKENS",
                                            "Name",
                                            "NCName",
                                            "ID",
                                            "IDREF",
                                            "IDREFS",
                                            "ENTITY",
                                            "ENTITIES",
                                            "QName",
                                            "NOTATION",
                                            "anyURI",
                                            "boolean",
                                            "decimal",
                                            "integer",
                                            "nonPositiveInteger",
                                            "negativeInteger",
                                            "nonNegativeInteger",
                                            "positiveInteger",
                                            "long",
                                            "int",
                                            "short",
                                            "byte",
                                            "unsignedLong",
                                            "unsignedInt",
                                            "unsignedShort",
                                            "unsignedByte",
                                            "float",
                                            "double",
                                            "duration",
                                            "dateTime",
                                            "date",
                                            "time",
                                            "gYearMonth",
                                            "gYear",
                                            "gMonthDay",
                                            "gMonth",
                                            "gDay",
                                            "hexBinary",
                                            "base64Binary"};
static_assert(std::size(kNamesOfBuiltIns) == kBuiltInCount);

constexpr char const* kFacets[] = {"length",       "minLength",    "maxLength",      "pattern",
                                   "enumeration",  "minInclusive", "maxInclusive",   "minExclusive",
                                   "maxExclusive", "totalDigits",  "fractionDigits", "whiteSpace"};
static_assert(std::size(kFacets) == static_cast<std::size_t>(Facet::kWhiteSpace) + 1);

template <class Enumerator, std::size_t count>
bool FindIn(char const* const (&names)[count], std::string_view name, Enumerator& found) noexcept {
    auto const* const at = std::find(std::begin(names), std::end(names), name);
    if (at == std::end(names))
        return false;
    found = static_cast<Enumerator>(at - std::begin(names));
    return true;
}

} // namespace

bool FindBuiltIn(std::string_view name, BuiltIn& type) noexcept {
    return FindIn(kNamesOfBuiltIns, name, type);
}

char const* NameOf(BuiltIn type) noexcept {
    return kNamesOfBuiltIns[static_cast<std::size_t>(type)];
}

bool FindFacet(std::string_view name, Facet& facet) noexcept {
    return FindIn(kFacets, name, facet);
}

char const* NameOf(Facet facet) noexcept {
    return kFacets[static_cast<std::size_t>(facet)];
}

} // namespace ZvXmlLib16::grammar
