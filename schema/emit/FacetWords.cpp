#include "schema/emit/FacetWords.h"

#include "zvxmllib/grammar/BuiltInNames.h"

#include <array>
#include <vector>

namespace ZvXmlLib16::schema {

using namespace grammar;

namespace {

constexpr std::size_t kMostValues = 8; // of an enumeration
constexpr std::size_t kMostMembers = 5;
constexpr unsigned kMostNestedTypes = 2; // of types one within the other
constexpr std::size_t kMostLength = 120; // of one text
constexpr std::size_t kMostWords = 1000; // of all

std::string Shorten(std::string const& text, std::size_t length = kMostLength) {
    if (text.size() <= length)
        return text;
    std::size_t end = length;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) // inside a character
        --end;
    return text.substr(0, end) + "...";
}

// "1 character", "5 characters".
std::string Counted(std::string const& number, std::string const& unit) {
    return number + " " + unit + (number == "1" ? "" : "s");
}

class SimpleTypeWords {
public:
    explicit SimpleTypeWords(Schema const& schema) : m_schema(schema) {}

    std::string Of(std::uint32_t type, unsigned level) {
        m_words.clear();
        m_values.fill(nullptr);
        if (level > kMostNestedTypes)
            return {};
        std::uint32_t const root = ReadSteps(type);
        std::string const inside = Inside(root, level);
        AddLengths(UnitOf(root));
        AddBounds();
        AddDigits();
        AddTexts();
        char const* const space = Value(Facet::kWhiteSpace);
        if (space != nullptr && std::string(space) != "preserve")
            Add(std::string("white space ") + space + "d");
        std::string all = inside;
        for (std::string const& word : m_words)
            all += (all.empty() ? "" : ", ") + word;
        return all;
    }

private:
    struct Alternatives {
        std::vector<std::string> texts;
        std::size_t left = 0; // that are not among them
    };

    char const* Value(Facet facet) const { return m_values[static_cast<std::size_t>(facet)]; }
    void Add(std::string word) { m_words.push_back(std::move(word)); }
    SimpleTypeRow const& RowOf(std::uint32_t type) const {
        return m_schema.simpleTypes[type - kBuiltInCount];
    }

    // From the type to the first of its bases that is built in, a list or a union, which it returns.
    std::uint32_t ReadSteps(std::uint32_t type) {
        m_patterns.clear();
        m_enumeration = {};
        while (type >= kBuiltInCount) {
            SimpleTypeRow const& row = RowOf(type);
            ReadStep(row.facets);
            if (row.item != kNone || row.members.count != 0)
                break;
            type = row.base;
        }
        return type;
    }
    void ReadStep(Range const& facets) {
        Alternatives patterns;
        Alternatives enumeration;
        for (std::uint32_t i = facets.first; i < facets.first + facets.count; ++i) {
            FacetRow const& row = m_schema.facets[i];
            if (row.facet == Facet::kPattern) {
                patterns.texts.push_back(Shorten(row.value));
            } else if (row.facet == Facet::kEnumeration && enumeration.texts.size() == kMostValues) {
                ++enumeration.left;
            } else if (row.facet == Facet::kEnumeration) {
                enumeration.texts.push_back("\"" + Shorten(row.value) + "\"");
            } else if (Value(row.facet) == nullptr) { // a derived type narrows its base
                m_values[static_cast<std::size_t>(row.facet)] = row.value;
            }
        }
        if (!patterns.texts.empty())
            m_patterns.push_back(std::move(patterns));
        if (m_enumeration.texts.empty())
            m_enumeration = std::move(enumeration);
    }

    std::string Inside(std::uint32_t root, unsigned level) const {
        if (root < kBuiltInCount)
            return {};
        SimpleTypeRow const& row = RowOf(root);
        if (row.item != kNone) {
            std::string const item = SimpleTypeWords(m_schema).Of(row.item, level + 1);
            return "list of " + NameOfType(row.item) + (item.empty() ? "" : " (" + item + ")");
        }
        std::string all;
        for (std::uint32_t i = 0; i < row.members.count && i < kMostMembers; ++i) {
            std::uint32_t const member = m_schema.indexes[row.members.first + i];
            std::string words = SimpleTypeWords(m_schema).Of(member, level + 1);
            if (words.empty())
                words = "any " + NameOfType(member);
            all += (all.empty() ? "either " : "; or ") + words;
        }
        return row.members.count > kMostMembers ? all + "; or others" : all;
    }
    std::string NameOfType(std::uint32_t type) const {
        std::string const name = type < kBuiltInCount ? NameOf(static_cast<BuiltIn>(type)) : RowOf(type).name;
        return name.empty() ? "values" : name;
    }
    std::string UnitOf(std::uint32_t root) const {
        if (root == static_cast<std::uint32_t>(BuiltIn::kHexBinary) ||
            root == static_cast<std::uint32_t>(BuiltIn::kBase64Binary))
            return "octet";
        bool const isList = root >= kBuiltInCount || root == static_cast<std::uint32_t>(BuiltIn::kNMTOKENS) ||
                            root == static_cast<std::uint32_t>(BuiltIn::kIDREFS) ||
                            root == static_cast<std::uint32_t>(BuiltIn::kENTITIES);
        return isList ? "item" : "character";
    }

    void AddLengths(std::string const& unit) {
        char const* const least = Value(Facet::kMinLength);
        char const* const most = Value(Facet::kMaxLength);
        if (Value(Facet::kLength) != nullptr)
            Add("exactly " + Counted(Value(Facet::kLength), unit));
        else if (least != nullptr && most != nullptr && std::string(least) == most)
            Add("exactly " + Counted(most, unit));
        else if (least != nullptr && most != nullptr)
            Add(std::string(least) + " to " + Counted(most, unit));
        else if (least != nullptr)
            Add("at least " + Counted(least, unit));
        else if (most != nullptr)
            Add("at most " + Counted(most, unit));
    }
    void AddBounds() {
        char const* const least = Value(Facet::kMinInclusive);
        char const* const most = Value(Facet::kMaxInclusive);
        if (least != nullptr && most != nullptr)
            Add("between " + std::string(least) + " and " + most);
        else if (least != nullptr)
            Add("at least " + std::string(least));
        else if (most != nullptr)
            Add("at most " + std::string(most));
        if (Value(Facet::kMinExclusive) != nullptr)
            Add("more than " + std::string(Value(Facet::kMinExclusive)));
        if (Value(Facet::kMaxExclusive) != nullptr)
            Add("less than " + std::string(Value(Facet::kMaxExclusive)));
    }
    void AddDigits() {
        if (Value(Facet::kTotalDigits) != nullptr)
            Add("up to " + Counted(Value(Facet::kTotalDigits), "digit"));
        char const* const fraction = Value(Facet::kFractionDigits);
        if (fraction != nullptr)
            Add(std::string(fraction) == "0" ? "no fraction digits"
                                             : "up to " + Counted(fraction, "fraction digit"));
    }
    void AddTexts() {
        for (Alternatives const& step : m_patterns)
            Add("matches " + Join(step, " or "));
        if (!m_enumeration.texts.empty())
            Add((m_enumeration.texts.size() == 1 ? "only " : "one of ") + Join(m_enumeration, ", "));
    }
    static std::string Join(Alternatives const& alternatives, char const* separator) {
        std::string all;
        for (std::string const& text : alternatives.texts)
            all += (all.empty() ? "" : separator) + text;
        return alternatives.left == 0 ? all : all + " and " + std::to_string(alternatives.left) + " more";
    }

    Schema const& m_schema;
    std::array<char const*, static_cast<std::size_t>(Facet::kWhiteSpace) + 1> m_values{};
    std::vector<Alternatives> m_patterns; // of each step
    Alternatives m_enumeration;
    std::vector<std::string> m_words;
};

} // namespace

std::string FacetWords(Schema const& schema, std::uint32_t type) {
    return Shorten(SimpleTypeWords(schema).Of(type, 0), kMostWords);
}

std::string ConstraintWords(ValueConstraint constraint, char const* value) {
    if (constraint == ValueConstraint::kNoValue)
        return {};
    return (constraint == ValueConstraint::kFixed ? "always \"" : "\"") + Shorten(value) +
           (constraint == ValueConstraint::kFixed ? "\"" : "\" by default");
}

} // namespace ZvXmlLib16::schema
