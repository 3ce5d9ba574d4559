// Texts against simple types and facets, by rows that state the types.
#include "zvxmllib/grammar/SimpleTypes.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/grammar/SimpleTypeFaults.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace ZvXmlLib16;
using namespace ZvXmlLib16::grammar;

using Texts = std::vector<std::string>;

// The prefixes p and q, and a default namespace.
class Scope : public INamespaceScope {
public:
    bool FindNamespace(std::string_view prefix, std::string& ns) const override {
        ns = prefix.empty() ? "urn:d" : "urn:p";
        return prefix.empty() || prefix == "p" || prefix == "q";
    }
};

// Rows for types, added one by one.
struct Grammar {
    // Facets are written name=value.
    std::uint32_t Add(Variety variety, std::uint32_t base, std::vector<std::uint32_t> const& parts,
                      Texts const& someFacets, char const* name = "T") {
        SimpleTypeRow row{name, "", variety, base, kNone, {}, {}, 0};
        if (variety == Variety::kList && !parts.empty())
            row.item = parts[0];
        row.members = {static_cast<std::uint32_t>(indexes.size()), static_cast<std::uint32_t>(parts.size())};
        indexes.insert(indexes.end(), parts.begin(), parts.end());
        row.facets = {static_cast<std::uint32_t>(facets.size()),
                      static_cast<std::uint32_t>(someFacets.size())};
        for (std::string const& text : someFacets) {
            std::size_t const sign = text.find('=');
            values.push_back(text.substr(sign + 1));
            for (Facet facet = Facet::kLength; facet <= Facet::kWhiteSpace;
                 facet = static_cast<Facet>(static_cast<int>(facet) + 1)) {
                if (text.substr(0, sign) == NameOf(facet))
                    facets.push_back({facet, values.back().c_str()});
            }
        }
        types.push_back(row);
        return kBuiltInCount + static_cast<std::uint32_t>(types.size() - 1);
    }
    std::uint32_t Restrict(BuiltIn base, Texts const& someFacets) {
        return Add(Variety::kAtomic, static_cast<std::uint32_t>(base), {}, someFacets);
    }
    std::uint32_t List(std::uint32_t item, Texts const& someFacets = {}) {
        return Derive(Add(Variety::kList, 0, {item}, {}), Variety::kList, someFacets);
    }
    std::uint32_t Union(std::vector<std::uint32_t> const& members, Texts const& someFacets = {}) {
        return Derive(Add(Variety::kUnion, 0, members, {}), Variety::kUnion, someFacets);
    }
    std::uint32_t Derive(std::uint32_t base, Variety variety, Texts const& someFacets) {
        return someFacets.empty() ? base : Add(variety, base, {}, someFacets);
    }

    SimpleTypes const& Make() {
        rows.simpleTypes = {types.data(), types.size()};
        rows.facets = {facets.data(), facets.size()};
        rows.indexes = {indexes.data(), indexes.size()};
        rows.notations = {&notation, 1};
        return *(made = std::make_unique<SimpleTypes>(rows));
    }

    std::deque<std::string> values;
    std::vector<SimpleTypeRow> types;
    std::vector<FacetRow> facets;
    std::vector<std::uint32_t> indexes;
    char const* notation = "{urn:p}gif";
    GrammarRows rows;
    std::unique_ptr<SimpleTypes> made;
};

constexpr std::uint32_t Id(BuiltIn type) {
    return static_cast<std::uint32_t>(type);
}

std::string FaultOf(SimpleTypes const& types, std::uint32_t type, std::string const& text) {
    std::string room;
    char const* const fault = types.FindFault(type, text, nullptr, nullptr, room);
    return fault == nullptr ? "" : fault;
}

std::string KeyOf(SimpleTypes const& types, std::uint32_t type, std::string const& text) {
    SimpleValue value;
    Scope const scope;
    types.Check(type, text, &scope, &value);
    return value.key;
}

struct FormRow {
    BuiltIn type;
    Texts facets;
    Texts valid;
    Texts invalid;
};

void TestForms(std::vector<FormRow> const& rows) {
    for (FormRow const& row : rows) {
        Grammar grammar;
        std::uint32_t const type = row.facets.empty() ? Id(row.type) : grammar.Restrict(row.type, row.facets);
        SimpleTypes const& types = grammar.Make();
        std::string const about = std::string(NameOf(row.type)) + ' ' + testing::PrintToString(row.facets);
        for (std::string const& text : row.valid)
            EXPECT_EQ(FaultOf(types, type, text), "") << about;
        for (std::string const& text : row.invalid)
            EXPECT_NE(FaultOf(types, type, text), "") << about << " [" << text << ']';
    }
}

TEST(SimpleTypes, TellLexicalForms) {
    TestForms({
        {BuiltIn::kBoolean, {}, {"true", " 0\n"}, {"TRUE", "", "01"}},
        {BuiltIn::kDecimal, {}, {"+.5", "5.", "-00.10", "\t1 "}, {"", ".", "+", "1e2", "1 2", "1,5", "--1"}},
        {BuiltIn::kInteger, {}, {"-0", "+99999999999999999999999"}, {"1.", "1.0", ""}},
        {BuiltIn::kNonPositiveInteger, {}, {"0", "+0", "-99999999999999999999"}, {"1"}},
        {BuiltIn::kNegativeInteger, {}, {"-01"}, {"0", "-0"}},
        {BuiltIn::kPositiveInteger, {}, {"+1"}, {"0", "-1"}},
        {BuiltIn::kLong, {}, {"-9223372036854775808"}, {"9223372036854775808", "-9223372036854775809"}},
        {BuiltIn::kByte, {}, {"-128", "+0127"}, {"128", "-129"}},
        {BuiltIn::kUnsignedLong, {}, {"18446744073709551615", "-0", "+1"}, {"18446744073709551616", "-1"}},
        {BuiltIn::kUnsignedByte, {}, {"255"}, {"256"}},
        {BuiltIn::kFloat,
         {},
         {"1e400", "-1E-400", "INF", "-INF", "NaN", ".5e1", "+1."},
         {"+INF", "inf", "1e", "e1", ""}},
        {BuiltIn::kDouble, {}, {"-1E4", "1267.43233E12", "0"}, {"0x1", "1e1.5", "nan", "1 e2"}},
        {BuiltIn::kDuration,
         {},
         {"P1Y2M3DT5H20M30.123S", "-P60D", "PT0S", "P0Y1347M"},
         {"P", "PT", "P1YT", "P1S", "PT1.5M", "P1M1Y", "P-1M", "1Y", "PT1.S", "PT.5S", "P1Y1Y", "+P1Y",
          "PT1"}},
        {BuiltIn::kDateTime,
         {},
         {"2004-02-29T23:59:59.999999999999+14:00", "-0004-02-29T24:00:00.0Z", "12004-01-01T00:00:00-00:00"},
         {"2003-02-29T00:00:00", "1900-02-29T00:00:00", "0000-01-01T00:00:00", "02004-01-01T00:00:00",
          "2004-01-01T24:00:00.1", "2004-01-01T00:00:60", "2004-01-01T00:00:00.", "2004-01-01T00:00:00+14:01",
          "2004-1-01T00:00:00", "204-01-01T00:00:00", "+2004-01-01T00:00:00", "2004-01-01",
          "2004-01-01T00:00", "2004-01-01T00:00:00z", "2004-01-01T00:00:00+1:00", "2004-04-31T00:00:00"}},
        {BuiltIn::kDate,
         {},
         {"2000-02-29", "2000-12-31Z", "123456789012345678901-02-28"},
         {"2100-02-29", "2000-13-01", "2000-00-01", "2000-01-00"}},
        {BuiltIn::kTime,
         {},
         {"24:00:00", "13:20:00.5-05:00"},
         {"24:00:01", "1:00:00", "25:00:00", "12:60:00"}},
        {BuiltIn::kGYearMonth, {}, {"1999-05", "-1999-12+01:00"}, {"1999-5", "1999"}},
        {BuiltIn::kGYear, {}, {"1999", "-0001", "1999-05:00"}, {"0000", "99", "1999-05", "1999+15:00"}},
        {BuiltIn::kGMonthDay, {}, {"--02-29", "--12-31Z"}, {"--02-30", "--04-31", "-02-29"}},
        {BuiltIn::kGMonth, {}, {"--12", "--01-14:00"}, {"--13", "--05--", "--5"}},
        {BuiltIn::kGDay, {}, {"---31", "---01Z"}, {"---32", "---00", "--01"}},
        {BuiltIn::kHexBinary, {}, {"", "0fB8"}, {"0", "0g", "0f b8"}},
        {BuiltIn::kBase64Binary,
         {},
         {"", "AQ==", "AQ I=", "AQID", "A Q = =", "AQIDAQ=="},
         {"A", "AQ", "AR==", "AQJ=", "AQ=A", "A===", "AQID=", "AQI!", "===="}},
        {BuiltIn::kAnyURI,
         {},
         {"", "a b", "http://x/%41?q#f", "../a:b", "\xC3\xA9"},
         {"%4", "%G1", "a#b#c", ":a", "1:a"}},
        {BuiltIn::kLanguage,
         {},
         {"en", "i-navajo", "x-12345678"},
         {"", "e1", "abcdefghi", "en-", "en--us", "en_us"}},
        {BuiltIn::kName,
         {},
         {":a", "a:b:c", "_1", "\xC3\xA9l"},
         {"1a", "-a", "", "a b", "\xC3\x97", "a\xC3"}},
        {BuiltIn::kNCName, {}, {"a.b-c", "\xC3\xA9\xC2\xB7"}, {"a:b", ".a", "\xC2\xB7"}},
        {BuiltIn::kNMTOKEN, {}, {"-1:", " .a "}, {"", "a b", "a,b"}},
        {BuiltIn::kNMTOKENS, {}, {"a", " 1\t2\n3 "}, {"", " ", "a !"}},
        {BuiltIn::kQName, {}, {"a", "p:a", "{urn:x}a"}, {"p:", ":a", "a:b:c", "1", "{urn:x}"}},
        {BuiltIn::kNOTATION, {}, {"{urn:p}gif", "x:gif"}, {"{urn:p}png", "1"}},
    });
}

TEST(SimpleTypes, ApplyFacets) {
    TestForms({
        {BuiltIn::kString, {"length=2"}, {"ab", "\xC3\xA9\xF0\x9F\x98\x80", "  "}, {"a", "abc"}},
        {BuiltIn::kToken, {"minLength=2", "maxLength=3"}, {" ab ", "a  b"}, {"  a  ", "a bc"}},
        {BuiltIn::kHexBinary, {"length=2"}, {"0A0B"}, {"0A"}},
        {BuiltIn::kBase64Binary, {"length=1"}, {"A Q = ="}, {"AQI="}},
        {BuiltIn::kQName, {"length=1"}, {"abc"}, {}},
        {BuiltIn::kNMTOKENS, {"length=2"}, {"aaa  b"}, {"a", "a b c"}},
        {BuiltIn::kString, {"maxLength=99999999999999999999999"}, {"a"}, {}},
        {BuiltIn::kDecimal, {"totalDigits=3"}, {"0123.0", "-.120", "0.001"}, {"1234", "0.0001", "12.34"}},
        {BuiltIn::kDecimal, {"fractionDigits=1"}, {"1.50", "12345"}, {"1.05"}},
        {BuiltIn::kDecimal,
         {"minExclusive=-1.5", "maxInclusive= +010.0 "},
         {"-1.4999999999999999999999", "10"},
         {"-1.50", "10.00000000000000000001", "-2"}},
        {BuiltIn::kInteger, {"minInclusive=5", "maxExclusive=10"}, {"05", "9"}, {"4", "10", "-7"}},
        {BuiltIn::kFloat, {"minInclusive=1"}, {"INF", "1"}, {"NaN", "0.99999"}},
        {BuiltIn::kDouble, {"maxInclusive=NaN"}, {"NaN"}, {"1"}},
        {BuiltIn::kDateTime,
         {"minInclusive=2000-01-15T00:00:00Z"},
         {"2000-01-15T14:00:00.1", "2000-01-15T01:00:00+01:00", "2000-01-14T24:00:00Z"},
         {"2000-01-15T14:00:00", "2000-01-14T23:59:59.999Z"}},
        {BuiltIn::kDateTime,
         {"maxExclusive=2000-01-15T00:00:00"},
         {"2000-01-14T09:59:59.9Z", "-99999999999999999999-01-01T00:00:00"},
         {"2000-01-14T10:00:00Z", "10000-01-01T00:00:00"}},
        {BuiltIn::kDateTime,
         {"maxInclusive=99999999999999999999-12-31T10:00:00Z"},
         {"100000000000000000000-01-01T00:00:00+14:00"},
         {"100000000000000000000-01-01T00:00:01+14:00"}},
        {BuiltIn::kDuration,
         {"minExclusive=P1M"},
         {"P32D", "P31DT0.1S"},
         {"P31D", "P30D", "P28D", "P1M", "-P1Y"}},
        {BuiltIn::kDuration,
         {"maxInclusive=-P1DT0.25S"},
         {"-PT24H0.3S", "-PT24H0.25S", "-P1M"},
         {"-P1D", "-PT24H0.2S", "P1D"}},
        {BuiltIn::kString,
         {"pattern=a+", "pattern=[0-9]{2}|x"},
         {"aa", "12", "x"},
         {"", "aab", "1", "xx", "a\n"}},
        {BuiltIn::kToken, {"pattern=a b"}, {" a \n b "}, {"ab"}},
        {BuiltIn::kString, {"pattern="}, {""}, {"a"}},
        {BuiltIn::kDecimal, {"enumeration=1.0", "enumeration=-5"}, {"1", "+01.", "-5.00"}, {"5", "10"}},
        {BuiltIn::kString, {"enumeration=a", "enumeration= b"}, {"a", " b"}, {"b", "a ", ""}},
        {BuiltIn::kNMTOKENS, {"enumeration=a  b"}, {"a b"}, {"ab", "b a", "a"}},
        {BuiltIn::kQName, {"enumeration={urn:p}a"}, {"{urn:p}a"}, {"{urn:q}a"}},
        {BuiltIn::kString, {"whiteSpace=collapse", "enumeration=a b"}, {"\na  b "}, {"ab"}},
        {BuiltIn::kString, {"pattern=[a-c-e_]+"}, {"b-e_"}, {"d"}},
        {BuiltIn::kString,
         {"pattern=[ab]{66000,70000}"},
         {std::string(66000, 'a'), std::string(69999, 'a') + "b"},
         {std::string(65999, 'a'), std::string(70001, 'a')}},
        // Too large for the library of regular expressions.
        {BuiltIn::kString,
         {"pattern=(\xC3\xA9[b-d]?|x{2}){4000,70000}"},
         {std::string(8000, 'x'), std::string(140000, 'x'), std::string(7998, 'x') + "\xC3\xA9"},
         {std::string(7999, 'x'), std::string(140002, 'x'), std::string(7998, 'x')}},
        // Going back over this takes exponential time.
        {BuiltIn::kString, {"pattern=(a*)*b"}, {}, {std::string(3000, 'a')}},
    });
}

TEST(SimpleTypes, ApplyTheFacetsOfAllSteps) {
    Grammar grammar;
    std::uint32_t const base =
        grammar.Restrict(BuiltIn::kInteger, {"pattern=[0-9]+", "minInclusive=5", "maxInclusive=300"});
    std::uint32_t const type = grammar.Derive(base, Variety::kAtomic, {"pattern=.*0", "maxExclusive=200"});
    SimpleTypes const& types = grammar.Make();
    for (char const* const text : {"10", "190"})
        EXPECT_EQ(FaultOf(types, type, text), "");
    for (char const* const text : {"+10", "0", "200", "11"})
        EXPECT_NE(FaultOf(types, type, text), "") << text;
}

TEST(SimpleTypes, TakeListsAndUnionsApart) {
    Grammar grammar;
    std::uint32_t const small = grammar.Restrict(BuiltIn::kInteger, {"maxInclusive=9"});
    std::uint32_t const word = grammar.Restrict(BuiltIn::kToken, {"pattern=[a-z]+"});
    std::uint32_t const either = grammar.Union({small, word, Id(BuiltIn::kIDREF)});
    // A union takes over the members of a union, and not its facets.
    std::uint32_t const few = grammar.Union({either}, {"enumeration=1"});
    std::uint32_t const many = grammar.Union({few, Id(BuiltIn::kFloat)});
    std::uint32_t const outer =
        grammar.Union({either, Id(BuiltIn::kFloat)}, {"enumeration=5", "enumeration=x", "enumeration=1.5"});
    std::uint32_t const list = grammar.List(either, {"maxLength=3", "enumeration=1 a", "enumeration=B"});
    std::uint32_t const ids =
        grammar.Union({grammar.List(Id(BuiltIn::kID), {"maxLength=1"}), grammar.List(Id(BuiltIn::kIDREF))});
    std::uint32_t const bars = grammar.Union({word, Id(BuiltIn::kString)}, {"pattern=a b| c "});
    SimpleTypes const& types = grammar.Make();
    struct Row {
        std::uint32_t type;
        char const* text;
        std::uint32_t accepts; // kNone for no type
    };
    for (Row const& row :
         {Row{either, " 7 ", small}, Row{either, "70", kNone}, Row{either, "abc", word},
          Row{either, "Abc", Id(BuiltIn::kIDREF)}, Row{few, "2", kNone}, Row{many, "2", small},
          Row{outer, "05", small}, Row{outer, "x", word}, Row{outer, "1.50", Id(BuiltIn::kFloat)},
          Row{outer, "5.0", kNone}, Row{outer, "y", kNone}, Row{list, "01  a", list}, Row{list, "1 b", kNone},
          Row{list, "B", list}, Row{list, "1a", kNone}, Row{bars, "a b", Id(BuiltIn::kString)},
          Row{bars, " a b", kNone}, Row{bars, " c ", kNone}, Row{bars, "c", kNone}}) {
        SimpleValue value;
        std::string room;
        bool const isValid = types.FindFault(row.type, row.text, nullptr, &value, room) == nullptr;
        EXPECT_EQ(isValid ? value.type : kNone, row.accepts) << row.text;
    }
    // The list of one ID refuses the second; what it took is given back.
    SimpleValue value;
    types.Check(ids, "a b", nullptr, &value);
    EXPECT_TRUE(value.ids.empty());
    EXPECT_EQ(value.idrefs, (Texts{"a", "b"}));
    types.Check(ids, "c", nullptr, &value);
    EXPECT_EQ(value.ids, Texts{"c"});
    EXPECT_TRUE(types.IsDerivedFrom(small, outer) && types.IsDerivedFrom(small, Id(BuiltIn::kDecimal)));
    EXPECT_TRUE(types.IsDerivedFrom(list, 0) && types.IsDerivedFrom(either, outer));
    EXPECT_FALSE(types.IsDerivedFrom(outer, either) || types.IsDerivedFrom(Id(BuiltIn::kDouble), outer));
    EXPECT_TRUE(types.HasIds(list) && !types.HasIds(small) && types.HasIds(Id(BuiltIn::kIDREFS)));
}

TEST(SimpleTypes, FindTheNamesThatAUnionEnumerates) {
    Grammar grammar;
    std::uint32_t const names =
        grammar.Union({Id(BuiltIn::kInt), Id(BuiltIn::kQName), Id(BuiltIn::kString)},
                      {"enumeration={urn:p}x:a", "enumeration={urn:d}7", "enumeration=b c"});
    SimpleTypes const& types = grammar.Make();
    Scope const scope;
    std::string room;
    for (char const* const text : {"p:a", " q:a ", "07", "b c"})
        EXPECT_EQ(types.FindFault(names, text, &scope, nullptr, room), nullptr) << text;
    for (char const* const text : {"a", "x:a", "{urn:p}x:a", "b", "8"})
        EXPECT_NE(types.FindFault(names, text, &scope, nullptr, room), nullptr) << text;
}

TEST(SimpleTypes, CompareValues) {
    Grammar grammar;
    std::uint32_t const numbers = grammar.List(Id(BuiltIn::kDecimal));
    std::uint32_t const words = grammar.List(Id(BuiltIn::kString));
    SimpleTypes const& types = grammar.Make();
    struct Row {
        std::uint32_t leftType;
        char const* left;
        std::uint32_t rightType;
        char const* right;
        bool isEqual;
    };
    auto const same = [](BuiltIn type, char const* left, char const* right, bool isEqual) {
        return Row{Id(type), left, Id(type), right, isEqual};
    };
    for (Row const& row :
         {same(BuiltIn::kDecimal, "+01.0", "1", true),
          same(BuiltIn::kDecimal, "-0", "0.00", true),
          same(BuiltIn::kDecimal, "1", "10", false),
          same(BuiltIn::kDecimal, "-1", "1", false),
          Row{Id(BuiltIn::kByte), "7", Id(BuiltIn::kDecimal), "7.0", true},
          same(BuiltIn::kFloat, "-0", "0e5", true),
          same(BuiltIn::kFloat, "NaN", "NaN", true),
          same(BuiltIn::kFloat, "16777217", "16777216", true),
          same(BuiltIn::kDouble, "16777217", "16777216", false),
          same(BuiltIn::kDouble, "1e999", "INF", true),
          same(BuiltIn::kDouble, "-1e-999", "0", true),
          Row{Id(BuiltIn::kFloat), "1", Id(BuiltIn::kDouble), "1", false},
          Row{Id(BuiltIn::kString), "1", Id(BuiltIn::kDecimal), "1", false},
          Row{Id(BuiltIn::kString), "a", Id(BuiltIn::kAnyURI), "a", false},
          Row{Id(BuiltIn::kNCName), "a", Id(BuiltIn::kString), "a", true},
          same(BuiltIn::kDateTime, "2000-01-01T00:00:00+01:00", "1999-12-31T23:00:00.0Z", true),
          same(BuiltIn::kDateTime, "2000-01-01T00:00:00", "2000-01-01T00:00:00Z", false),
          same(BuiltIn::kDateTime, "-0001-12-31T24:00:00", "0001-01-01T00:00:00", true),
          same(BuiltIn::kDateTime, "9999999999-12-31T24:00:00Z", "10000000000-01-01T01:00:00+01:00", true),
          same(BuiltIn::kDateTime, "-10000000000-12-31T24:00:00", "-9999999999-01-01T00:00:00", true),
          same(BuiltIn::kDateTime, "2000-01-01T00:00:00.10", "2000-01-01T00:00:00.1", true),
          same(BuiltIn::kTime, "24:00:00", "00:00:00", true),
          same(BuiltIn::kDate, "2000-01-01+12:00", "1999-12-31-12:00", true),
          Row{Id(BuiltIn::kDate), "2000-01-01", Id(BuiltIn::kDateTime), "2000-01-01T00:00:00", false},
          same(BuiltIn::kDuration, "P1Y", "P12M", true),
          same(BuiltIn::kDuration, "P1D", "PT24H", true),
          same(BuiltIn::kDuration, "P1M", "P30D", false),
          same(BuiltIn::kDuration, "-P0D", "PT0.0S", true),
          same(BuiltIn::kDuration, "-P1D", "P1D", false),
          same(BuiltIn::kHexBinary, "0aB0", "0Ab0", true),
          same(BuiltIn::kBase64Binary, "A Q==", "AQ==", true),
          same(BuiltIn::kBoolean, "1", "true", true),
          same(BuiltIn::kBoolean, "0", "true", false),
          same(BuiltIn::kQName, "p:a", "q:a", true),
          same(BuiltIn::kQName, "p:a", "a", false),
          Row{numbers, "1 2.0", numbers, " 01  2", true},
          Row{numbers, "1 2", numbers, "2 1", false},
          Row{numbers, "12", numbers, "1 2", false},
          Row{words, "a b", words, "ab", false},
          Row{words, "1", numbers, "1", false}})
        EXPECT_EQ(KeyOf(types, row.leftType, row.left) == KeyOf(types, row.rightType, row.right), row.isEqual)
            << row.left << " and " << row.right;
    EXPECT_THROW(KeyOf(types, Id(BuiltIn::kQName), "r:a"), CZvInvalidValueException);
    EXPECT_EQ(KeyOf(types, Id(BuiltIn::kNOTATION), "q:gif").back(), 'f');
    EXPECT_THROW(KeyOf(types, Id(BuiltIn::kNOTATION), "gif"), CZvInvalidValueException);
}

TEST(SimpleTypes, SayWhatIsWrong) {
    Grammar grammar;
    std::uint32_t const small =
        grammar.Add(Variety::kAtomic, Id(BuiltIn::kByte), {}, {"maxInclusive=5"}, "Small");
    std::uint32_t const nameless =
        grammar.Add(Variety::kAtomic, Id(BuiltIn::kString), {}, {"maxLength=1"}, "");
    std::uint32_t const code = grammar.Restrict(BuiltIn::kString, {"pattern=a", "pattern=b"});
    std::uint32_t const when = grammar.Restrict(BuiltIn::kTime, {"minInclusive=12:00:00Z"});
    std::uint32_t const either = grammar.Union({small, code});
    SimpleTypes const& types = grammar.Make();
    struct Row {
        std::uint32_t type;
        std::string text;
        std::string message;
    };
    std::string const e = "\xC3\xA9";
    std::string text = "a";
    for (int i = 0; i < 60; ++i)
        text += e;
    for (Row const& row :
         {Row{Id(BuiltIn::kDecimal), "abc", "The value [abc] is not a valid decimal."},
          Row{small, "7", "The value [7] is above the maxInclusive [5] of the type [Small]."},
          Row{small, "-129", "The value [-129] is not a valid byte."},
          Row{nameless, "ab", "The value [ab] has 2 characters, above the maxLength [1]."},
          Row{code, "c", "The value [c] does not match the pattern [a|b] of the type [T]."},
          Row{when, "12:00:00",
              "The value [12:00:00] cannot be compared with the minInclusive [12:00:00Z] of the type [T]."},
          Row{either, "7", "The value [7] is not valid for any member of the type [T]."},
          Row{Id(BuiltIn::kDate), text, "The value [" + text.substr(0, 79) + "...] is not a valid date."}})
        EXPECT_EQ(FaultOf(types, row.type, row.text), row.message);
}

TEST(SimpleTypes, RefuseFacetsThatCannotBeUsed) {
    struct Row {
        BuiltIn type;
        char const* facet;
    };
    for (Row const& row :
         {Row{BuiltIn::kString, "pattern=["}, Row{BuiltIn::kString, "pattern=a{9999999}"},
          Row{BuiltIn::kDecimal, "maxInclusive=x"}, Row{BuiltIn::kString, "minInclusive=1"},
          Row{BuiltIn::kDecimal, "length=1"}, Row{BuiltIn::kString, "length=-1"},
          Row{BuiltIn::kFloat, "totalDigits=1"}, Row{BuiltIn::kDate, "enumeration=2000-02-30"},
          Row{BuiltIn::kString, "whiteSpace=none"}}) {
        Grammar grammar;
        grammar.Restrict(row.type, {row.facet});
        EXPECT_THROW(grammar.Make(), CZvInvalidParamException) << row.facet;
    }
}

// What is told at a glance is what the whole test finds; and it is told of what documents usually hold.
TEST(SimpleTypes, TellAtAGlanceOnlyWhatIsSo) {
    Grammar grammar;
    Texts const plain = {"",
                         "a",
                         " a",
                         "a ",
                         "a  b",
                         "a b",
                         "a\tb",
                         "a\nb",
                         "true",
                         "TRUE",
                         "0",
                         "1",
                         "-0",
                         "+1",
                         "007",
                         "127",
                         "128",
                         "-128",
                         "-129",
                         "1.50",
                         ".5",
                         "5.",
                         "-.",
                         "1e3",
                         "INF",
                         "--1",
                         "12.345",
                         "a:b",
                         "-a",
                         "\xC3\xA9",
                         "999999999999999999",
                         "1000000000000000000",
                         "-1000000000000000000",
                         "9223372036854775808",
                         "18446744073709551615",
                         "99999999999999999999"};
    std::vector<std::uint32_t> types;
    for (std::uint32_t i = 0; i < kBuiltInCount; ++i)
        types.push_back(i);
    for (FormRow const& row :
         std::vector<FormRow>{{BuiltIn::kString, {"length=1"}, {}, {}},
                              {BuiltIn::kString, {"minLength=1", "maxLength=2"}, {}, {}},
                              {BuiltIn::kString, {"whiteSpace=replace"}, {}, {}},
                              {BuiltIn::kToken, {"enumeration=a b", "enumeration=1"}, {}, {}},
                              {BuiltIn::kString, {"enumeration=a", "pattern=b"}, {}, {}},
                              {BuiltIn::kToken, {"pattern=[0-9]+"}, {}, {}},
                              {BuiltIn::kInteger, {"minExclusive=0", "maxExclusive=127"}, {}, {}},
                              {BuiltIn::kInteger, {"minInclusive=9223372036854775808"}, {}, {}},
                              {BuiltIn::kInteger, {"maxInclusive=-1000000000000000000"}, {}, {}},
                              {BuiltIn::kInteger, {"enumeration=1"}, {}, {}},
                              {BuiltIn::kInteger, {"totalDigits=2"}, {}, {}},
                              {BuiltIn::kDecimal, {"totalDigits=3", "fractionDigits=1"}, {}, {}},
                              {BuiltIn::kDecimal, {"maxInclusive=1"}, {}, {}},
                              {BuiltIn::kDouble, {"maxExclusive=1"}, {}, {}},
                              {BuiltIn::kBoolean, {"pattern=1|0"}, {}, {}}})
        types.push_back(grammar.Restrict(row.type, row.facets));
    types.push_back(grammar.List(Id(BuiltIn::kInt)));
    types.push_back(grammar.Union({Id(BuiltIn::kInt), Id(BuiltIn::kString)}));
    SimpleTypes const& made = grammar.Make();
    for (std::uint32_t const type : types) {
        for (std::string const& text : plain) {
            if (!made.FitsAtAGlance(type, text))
                continue;
            SimpleValue value; // whoever asks for it gets the whole test
            std::string room;
            EXPECT_EQ(made.FindFault(type, text, nullptr, &value, room), nullptr) << type << ' ' << text;
            EXPECT_TRUE(text.find_first_of("\t\n") == std::string::npos || type <= Id(BuiltIn::kString))
                << type;
        }
    }
    for (auto const& [type, text] : {std::make_pair(BuiltIn::kString, " a"),
                                     {BuiltIn::kToken, "a b"},
                                     {BuiltIn::kInt, "-2147483648"},
                                     {BuiltIn::kDecimal, "1.50"},
                                     {BuiltIn::kBoolean, "true"},
                                     {BuiltIn::kLong, "7"}})
        EXPECT_TRUE(made.FitsAtAGlance(Id(type), text)) << text;
}

} // namespace
