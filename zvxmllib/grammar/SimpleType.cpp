#include "zvxmllib/grammar/SimpleType.h"

#include "zvxmllib/grammar/SimpleTypeFaults.h"
#include "zvxmllib/grammar/SimpleTypeTest.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace ZvXmlLib16::grammar {

namespace {

struct BuiltInRow {
    BuiltIn base;
    char const* least = nullptr; // minInclusive, maxInclusive
    char const* most = nullptr;
};

// XML Schema Part 2, 3. The primitive types are those whose base is anySimpleType; a list names its item.
constexpr BuiltInRow kBuiltIns[] = {
    {BuiltIn::kAnySimpleType},
    {BuiltIn::kAnySimpleType},    // string
    {BuiltIn::kString},           // normalizedString
    {BuiltIn::kNormalizedString}, // token
    {BuiltIn::kToken},            // language
    {BuiltIn::kToken},            // NMTOKEN
    {BuiltIn::kNMTOKEN},          // NMTOKENS
    {BuiltIn::kToken},            // Name
    {BuiltIn::kName},             // NCName
    {BuiltIn::kNCName},           // ID
    {BuiltIn::kNCName},           // IDREF
    {BuiltIn::kIDREF},            // IDREFS
    {BuiltIn::kNCName},           // ENTITY
    {BuiltIn::kENTITY},           // ENTITIES
    {BuiltIn::kAnySimpleType},    // QName
    {BuiltIn::kAnySimpleType},    // NOTATION
    {BuiltIn::kAnySimpleType},    // anyURI
    {BuiltIn::kAnySimpleType},    // boolean
    {BuiltIn::kAnySimpleType},    // decimal
    {BuiltIn::kDecimal},          // integer
    {BuiltIn::kInteger, nullptr, "0"},
    {BuiltIn::kNonPositiveInteger, nullptr, "-1"},
    {BuiltIn::kInteger, "0"},
    {BuiltIn::kNonNegativeInteger, "1"},
    {BuiltIn::kInteger, "-9223372036854775808", "9223372036854775807"},
    {BuiltIn::kLong, "-2147483648", "2147483647"},
    {BuiltIn::kInt, "-32768", "32767"},
    {BuiltIn::kShort, "-128", "127"},
    {BuiltIn::kNonNegativeInteger, nullptr, "18446744073709551615"},
    {BuiltIn::kUnsignedLong, nullptr, "4294967295"},
    {BuiltIn::kUnsignedInt, nullptr, "65535"},
    {BuiltIn::kUnsignedShort, nullptr, "255"},
    {BuiltIn::kAnySimpleType}, // float
    {BuiltIn::kAnySimpleType}, // double
    {BuiltIn::kAnySimpleType}, // duration
    {BuiltIn::kAnySimpleType}, // dateTime
    {BuiltIn::kAnySimpleType}, // date
    {BuiltIn::kAnySimpleType}, // time
    {BuiltIn::kAnySimpleType}, // gYearMonth
    {BuiltIn::kAnySimpleType}, // gYear
    {BuiltIn::kAnySimpleType}, // gMonthDay
    {BuiltIn::kAnySimpleType}, // gMonth
    {BuiltIn::kAnySimpleType}, // gDay
    {BuiltIn::kAnySimpleType}, // hexBinary
    {BuiltIn::kAnySimpleType}, // base64Binary
};
static_assert(sizeof kBuiltIns / sizeof *kBuiltIns == kBuiltInCount);

constexpr bool IsListType(BuiltIn type) noexcept {
    return type == BuiltIn::kNMTOKENS || type == BuiltIn::kIDREFS || type == BuiltIn::kENTITIES;
}

WhiteSpace WhiteSpaceOf(BuiltIn type) noexcept {
    if (type <= BuiltIn::kString)
        return WhiteSpace::kPreserve;
    return type == BuiltIn::kNormalizedString ? WhiteSpace::kReplace : WhiteSpace::kCollapse;
}

// All that a restriction has of its base.
void TakeOver(SimpleType const& base, SimpleType& type) {
    type.base = &base;
    type.variety = base.variety;
    type.builtIn = base.builtIn;
    type.primitive = base.primitive;
    type.whiteSpace = base.whiteSpace;
    type.hasIds = base.hasIds;
    type.hasQNames = base.hasQNames;
    type.hasList = base.hasList;
    type.item = base.item;
    type.members = base.members;
    type.hasLengths = base.hasLengths;
    type.hasBounds = base.hasBounds;
    type.lengths = base.lengths;
    type.bounds = base.bounds;
    type.totalDigits = base.totalDigits;
    type.fractionDigits = base.fractionDigits;
    type.patterns = base.patterns;
    type.enumeration = base.enumeration;
}

void BecomeList(SimpleType const& item, SimpleType& type) {
    type.variety = Variety::kList;
    type.whiteSpace = WhiteSpace::kCollapse;
    type.item = &item;
    type.hasIds = item.hasIds;
    type.hasQNames = item.hasQNames;
    type.hasList = true;
}

bool SetBound(Facet facet, char const* text, bool isBuiltIn, SimpleType& type) {
    auto const index = static_cast<std::size_t>(facet) - static_cast<std::size_t>(Facet::kMinInclusive);
    if (type.variety != Variety::kAtomic || !IsOrdered(type.primitive))
        return false;
    std::string room; // no such value has white space within it, so the text is a part of the facet's
    std::string_view const value = ApplyWhiteSpace(WhiteSpace::kCollapse, text, room);
    auto bound = std::make_unique<Bound>(Bound{text, isBuiltIn, {}});
    if (!ReadOrdered(type.primitive, value, bound->value))
        return false;
    type.ownBounds[index] = std::move(bound);
    type.bounds[index] = type.ownBounds[index].get();
    type.hasBounds = true;
    return true;
}

bool ReadSize(char const* text, SizeFacet& facet) {
    std::string room;
    DecimalDigits digits;
    if (!ReadInteger(ApplyWhiteSpace(WhiteSpace::kCollapse, text, room), digits) || digits.isNegative)
        return false;
    facet.text = text;
    facet.value = 0;
    char const* const end = digits.whole.data() + digits.whole.size();
    if (std::from_chars(digits.whole.data(), end, facet.value).ec == std::errc::result_out_of_range)
        facet.value = std::numeric_limits<std::uint64_t>::max();
    return true;
}

bool SetLength(Facet facet, char const* text, SimpleType& type) {
    if (type.variety == Variety::kUnion)
        return false;
    bool const hasLength = type.variety == Variety::kList || type.primitive <= BuiltIn::kAnyURI ||
                           type.primitive >= BuiltIn::kHexBinary;
    type.hasLengths = true;
    return hasLength && ReadSize(text, type.lengths[static_cast<std::size_t>(facet)]);
}

bool SetDigits(char const* text, SimpleType const& type, SizeFacet& facet) {
    return type.variety == Variety::kAtomic && type.primitive == BuiltIn::kDecimal && ReadSize(text, facet);
}

bool SetWhiteSpace(std::string_view text, SimpleType& type) {
    if (text == "preserve")
        type.whiteSpace = WhiteSpace::kPreserve;
    else if (text == "replace")
        type.whiteSpace = WhiteSpace::kReplace;
    else if (text == "collapse")
        type.whiteSpace = WhiteSpace::kCollapse;
    else
        return false;
    return type.variety != Variety::kUnion;
}

bool SetFacet(FacetRow const& row, SimpleType& type) {
    switch (row.facet) {
    case Facet::kLength:
    case Facet::kMinLength:
    case Facet::kMaxLength:
        return SetLength(row.facet, row.value, type);
    case Facet::kMinInclusive:
    case Facet::kMaxInclusive:
    case Facet::kMinExclusive:
    case Facet::kMaxExclusive:
        return SetBound(row.facet, row.value, false, type);
    case Facet::kTotalDigits:
        return SetDigits(row.value, type, type.totalDigits);
    case Facet::kFractionDigits:
        return SetDigits(row.value, type, type.fractionDigits);
    case Facet::kWhiteSpace:
        return SetWhiteSpace(row.value, type);
    case Facet::kPattern:
    case Facet::kEnumeration:
        return true; // taken together, below
    }
    return false;
}

SimpleType& Add(SimpleTypeList& types, char const* name) {
    types.push_back(std::make_unique<SimpleType>());
    SimpleType& type = *types.back();
    type.id = static_cast<std::uint32_t>(types.size() - 1);
    type.name = name;
    return type;
}

// The types of the rows, one after the other.
class RowReader {
public:
    RowReader(GrammarRows const& rows, std::vector<std::string_view> const& notations, SimpleTypeList& types)
        : m_rows(rows), m_notations(notations), m_types(types) {}

    void Read(SimpleTypeRow const& row) {
        std::size_t const count = m_types.size(); // those that it may be made of
        SimpleType& type = Add(m_types, row.name);
        auto const find = [&](std::uint32_t id) -> SimpleType const& {
            if (id >= count)
                FailTypeRow(row.name);
            return *m_types[id];
        };
        SimpleType const& base = find(row.base);
        TakeOver(base, type);
        bool const isNew = base.base == nullptr;
        if (isNew && row.variety == Variety::kList)
            BecomeList(ItemOf(row, find(row.item)), type);
        else if (isNew && row.variety == Variety::kUnion)
            BecomeUnion(row, find, type);
        ReadFacets(row, type);
    }

private:
    // A list has no lists in it.
    static SimpleType const& ItemOf(SimpleTypeRow const& row, SimpleType const& item) {
        if (item.hasList)
            FailTypeRow(row.name);
        return item;
    }

    // By XML Schema Part 1, 3.14.2, a union has the members of a union that is its member, without the facets
    // of that union.
    template <class Find>
    void BecomeUnion(SimpleTypeRow const& row, Find const& find, SimpleType& type) {
        type.ownMembers = std::make_unique<UnionMembers>();
        UnionMembers& members = *type.ownMembers;
        m_lastNested.resize(m_types.size());
        for (std::uint32_t i = 0; i < row.members.count; ++i) {
            SimpleType const& member = find(m_rows.indexes[row.members.first + i]);
            type.hasIds = type.hasIds || member.hasIds;
            type.hasQNames = type.hasQNames || member.hasQNames;
            type.hasList = type.hasList || member.hasList;
            AddMember(member, type, members);
            if (member.members != nullptr) {
                for (SimpleType const* const inner : member.members->nested)
                    AddMember(*inner, type, members);
            }
        }
        type.variety = Variety::kUnion;
        type.members = &members;
    }

    // Once: what a type refuses, it refuses a second time.
    void AddMember(SimpleType const& member, SimpleType const& type, UnionMembers& members) {
        if (m_lastNested[member.id] == type.id)
            return;
        m_lastNested[member.id] = type.id;
        members.nested.push_back(&member);
        if (member.members == nullptr)
            members.tried.push_back(&member);
    }

    void ReadFacets(SimpleTypeRow const& row, SimpleType& type) {
        std::vector<char const*> patterns;
        std::vector<char const*> values;
        for (std::uint32_t i = 0; i < row.facets.count; ++i) {
            FacetRow const& facet = m_rows.facets[row.facets.first + i];
            if (!SetFacet(facet, type))
                FailFacet(facet.facet, facet.value, type.name);
            if (facet.facet == Facet::kPattern)
                patterns.push_back(facet.value);
            if (facet.facet == Facet::kEnumeration)
                values.push_back(facet.value);
        }
        if (!values.empty())
            Enumerate(values, type); // before the patterns: it is the values that count
        if (!patterns.empty()) {
            type.ownPatterns = std::make_unique<PatternStep>(patterns, type.patterns);
            type.patterns = type.ownPatterns.get();
        }
    }

    void Enumerate(std::vector<char const*> const& values, SimpleType& type) const {
        type.ownEnumeration = std::make_unique<Enumeration>();
        Enumeration& keys = *type.ownEnumeration;
        keys.reserve(values.size());
        SimpleTypeTest const test(nullptr, m_notations);
        for (char const* const value : values) {
            keys.emplace_back();
            if (!test.ReadKey(type, value, keys.back()))
                FailFacet(Facet::kEnumeration, value, type.name);
        }
        std::sort(keys.begin(), keys.end());
        type.enumeration = &keys;
    }

    GrammarRows const& m_rows;
    std::vector<std::string_view> const& m_notations;
    SimpleTypeList& m_types;
    std::vector<std::uint32_t> m_lastNested; // by the id of a type: the last union that it was found in
};

} // namespace

void AddBuiltInTypes(SimpleTypeList& types) {
    for (std::uint32_t id = 0; id < kBuiltInCount; ++id) {
        BuiltInRow const& row = kBuiltIns[id];
        auto const builtIn = static_cast<BuiltIn>(id);
        SimpleType& type = Add(types, NameOf(builtIn));
        SimpleType const& base = *types[static_cast<std::size_t>(row.base)];
        if (IsListType(builtIn)) {
            type.base = types.front().get();
            BecomeList(base, type);
            SetLength(Facet::kMinLength, "1", type);
        } else if (id != 0) {
            TakeOver(base, type);
            if (row.base == BuiltIn::kAnySimpleType)
                type.primitive = builtIn;
            type.whiteSpace = WhiteSpaceOf(builtIn);
            type.hasIds = type.hasIds || builtIn == BuiltIn::kID || builtIn == BuiltIn::kIDREF;
            type.hasQNames = builtIn == BuiltIn::kQName || builtIn == BuiltIn::kNOTATION;
        }
        type.builtIn = builtIn;
        if (row.least != nullptr)
            SetBound(Facet::kMinInclusive, row.least, true, type);
        if (row.most != nullptr)
            SetBound(Facet::kMaxInclusive, row.most, true, type);
    }
}

void AddTypesOfRows(GrammarRows const& rows, std::vector<std::string_view> const& notations,
                    SimpleTypeList& types) {
    types.reserve(types.size() + rows.simpleTypes.count);
    RowReader reader(rows, notations, types);
    for (SimpleTypeRow const& row : rows.simpleTypes)
        reader.Read(row);
}

} // namespace ZvXmlLib16::grammar
