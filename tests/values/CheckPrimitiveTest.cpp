// Values against the facets of their types.
#include "zvxmllib/values/facets/CheckPrimitive.h"

#include "tests/support/Vectors.h"
#include "tests/values/ReadText.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;
using zvtest::Failure;

namespace {

using Facets = CPrimitiveRestrictions;

template <class Field, class Value>
Facets With(Field Facets::*facet, Value value) {
    Facets facets;
    facets.*facet = value;
    return facets;
}

// What checking the value named "n" gives: empty if it passes.
std::string Check(ItemType type, ZvVariant const& value, Facets const& facets) {
    try {
        CheckPrimitiveVariant("n", value, type, facets);
        return "";
    } catch (CZvException const& failure) {
        return Failure(failure);
    }
}

std::string Check(ItemType type, char const* text, Facets const& facets) {
    ZvVariant value;
    value.FromString(text, type, CWhitespaceUtils::WhitespaceRule_None);
    return Check(type, value, facets);
}

template <class Value>
std::string CheckValue(Value value, Facets const& facets) {
    try {
        CheckPrimitive("n", value, facets);
        return "";
    } catch (CZvException const& failure) {
        return Failure(failure);
    }
}

} // namespace

TEST(CheckPrimitive, EachBoundHoldsForEachOrderedType) {
    for (auto const& row : Vectors(
             "conversions.txt", "bounds: type, below, equal, above, below and above as messages show them")) {
        ItemType const type = zvtest::TypeNamed(row[0].substr(std::string("ItemType_").size()));
        auto const expect = [&](std::string Facets::*bound, bool below, bool equal, bool above) {
            Facets const facets =
                With(bound, " " + std::string(row[2].c_str()) + "\n"); // bounds are collapsed
            auto const message = [](bool passes, std::string const& value) {
                return passes ? "" : std::string("plain: Invalid Value for n ") + value;
            };
            EXPECT_EQ(Check(type, row[1].c_str(), facets), message(below, row[4])) << type;
            EXPECT_EQ(Check(type, row[2].c_str(), facets).empty(), equal) << type;
            EXPECT_EQ(Check(type, row[3].c_str(), facets), message(above, row[5])) << type;
        };
        expect(&Facets::minInclusive, false, true, true);
        expect(&Facets::maxInclusive, true, true, false);
        expect(&Facets::minExclusive, false, false, true);
        expect(&Facets::maxExclusive, true, false, false);
    }
    // Without a zone, within fourteen hours: no order, which is in the value's favour on every bound.
    for (auto const bound :
         {&Facets::minInclusive, &Facets::maxInclusive, &Facets::minExclusive, &Facets::maxExclusive})
        EXPECT_EQ(Check(ItemType_datetime, "2026-11-23T12:00:00", With(bound, "2026-11-23T12:00:00Z")), "");
    EXPECT_EQ(Check(ItemType_duration, "P1M", With(&Facets::minExclusive, "P30D")), "");
    EXPECT_EQ(Check(ItemType_decimal, "-0", With(&Facets::minInclusive, "0")), "");
    EXPECT_EQ(Check(ItemType_integer, "-0", With(&Facets::minInclusive, "0")),
              "plain: Invalid Value for n [0].");
}

TEST(CheckPrimitive, BoundsThatWereChangedAreSeen) {
    Facets facets = With(&Facets::maxInclusive, "10");
    EXPECT_EQ(Check(ItemType_i4, "11", facets), "plain: Invalid Value for n [11]");
    facets.maxInclusive = "11";
    EXPECT_EQ(Check(ItemType_i4, "11", facets), "");
    EXPECT_EQ(Check(ItemType_r8, "11.5", facets), "plain: Invalid Value for n [11.500000]");
    Facets copy(facets);
    copy.maxInclusive = "12";
    EXPECT_EQ(Check(ItemType_r8, "11.5", copy), "");
    copy = facets;
    EXPECT_EQ(Check(ItemType_i4, "12", copy), "plain: Invalid Value for n [12]");
}

TEST(CheckPrimitive, EveryFacetOfAType) {
    struct Row {
        ItemType type;
        char const* text;
        Facets facets;
        char const* refused = nullptr; // as the message shows it
    };
    using Number = std::int32_t Facets::*;
    std::map<std::string, Number> const numbers = {{"length", &Facets::length},
                                                   {"minLength", &Facets::minLength},
                                                   {"maxLength", &Facets::maxLength},
                                                   {"totalDigits", &Facets::totalDigits},
                                                   {"fractionDigits", &Facets::fractionDigits}};
    std::vector<Row> rows = {
        {ItemType_boolean, "true", Facets("x", 9, 0, "z", "z", "z", "z", 9, 0, 0)},
        {ItemType_string, "abc", Facets("b", 4, -1, "", "", "", "", -1, -1, -1), "[abc]."}};
    auto const table =
        Vectors("conversions.txt",
                "facets: type, text, facet, its value, the text as the message shows it, - for none");
    for (auto const& row : table) {
        auto const number = numbers.find(row[2]);
        rows.push_back({zvtest::TypeNamed(row[0]), row[1].c_str(),
                        number != numbers.end() ? With(number->second, std::stoi(row[3]))
                        : row[2] == "pattern"   ? With(&Facets::pattern, row[3])
                                                : With(&Facets::minInclusive, row[3]),
                        row[4] == "-" ? nullptr : row[4].c_str()});
    }
    for (Row const& row : rows)
        EXPECT_EQ(Check(row.type, row.text, row.facets),
                  row.refused == nullptr ? "" : std::string("plain: Invalid Value for n ") + row.refused)
            << row.type << " [" << row.text << "]";
}

TEST(CheckPrimitive, TheFirstFacetThatFailsDecides) {
    EXPECT_THAT(Check(ItemType_date, "2026-11-23", With(&Facets::minInclusive, "x")),
                testing::StartsWith("invalid: "));
    Facets facets("", -1, -1, "5", "no number", "no number", nullptr, -1, -1, -1);
    EXPECT_EQ(Check(ItemType_i4, "4", facets), "plain: Invalid Value for n [4]");
    EXPECT_EQ(Check(ItemType_i4, "5", facets), "invalid: The value [no number] can not be converted to a i4");
    EXPECT_EQ(Check(ItemType_i1, "5", With(&Facets::maxExclusive, "300")),
              "invalid: The value [300] is to large to fit in a i1");
    facets = Facets(nullptr, 4, -1, nullptr, nullptr, nullptr, nullptr, -1, -1, -1);
    EXPECT_EQ(Check(ItemType_string, "abc", facets), "plain: Invalid Value for n [abc].");
}

TEST(CheckPrimitive, NoNumberIsWithinNoBound) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (auto const bound :
         {&Facets::minInclusive, &Facets::maxInclusive, &Facets::minExclusive, &Facets::maxExclusive})
        EXPECT_THAT(CheckValue(nan, With(bound, "0")), testing::StartsWith("plain: Invalid Value for n ["));
    EXPECT_EQ(CheckValue(nan, Facets()), "");
}

TEST(CheckPrimitive, ACallersOwnTypeReachesTheRightCheck) {
    Facets const atMostTen = With(&Facets::maxInclusive, "10");
    EXPECT_EQ(CheckValue(5000000000L, atMostTen), "plain: Invalid Value for n [5000000000].");
    EXPECT_EQ(CheckValue(5000000000UL, atMostTen), "plain: Invalid Value for n [5000000000].");
    EXPECT_EQ(CheckValue(11, atMostTen), "plain: Invalid Value for n [11]");
    EXPECT_EQ(CheckValue(static_cast<char>(-56), With(&Facets::minInclusive, "0")),
              "plain: Invalid Value for n [-56]");
    char const* const noText = nullptr;
    EXPECT_EQ(CheckValue("abc", With(&Facets::length, 2)), "plain: Invalid Value for n [abc].");
    EXPECT_EQ(CheckValue(noText, With(&Facets::length, 2)), "plain: Invalid Value for n [].");
    EXPECT_EQ(CheckValue(CBinaryData("M"), With(&Facets::length, 2)), "plain: Invalid Value for n [4D].");
    EXPECT_THROW(CheckPrimitive("n", CBinaryData("M"), ItemType_base64Binary, With(&Facets::length, 2)),
                 CZvException);
    for (auto const& [kind, text] :
         {std::pair(CDateTime::dt_date, "2026-11-23"),
          std::pair(CDateTime::dt_dateTime, "2026-11-23T01:02:03"), std::pair(CDateTime::dt_time, "01:02:03"),
          std::pair(CDateTime::dt_gYearMonth, "2026-11"), std::pair(CDateTime::dt_gMonthDay, "--11-23")}) {
        CDateTime value;
        value.ParseXSDDateTime("2026-11-23T01:02:03");
        value.SetDateTime(CDateTime(value), kind);
        EXPECT_EQ(CheckValue(value, With(&Facets::maxInclusive, text)), "");
        EXPECT_EQ(CheckValue(value, With(&Facets::maxExclusive, text)),
                  std::string("plain: Invalid Value for n [") + text + "].");
    }
    try {
        CheckPrimitive(nullptr, 11, ItemType_i4, atMostTen);
        FAIL();
    } catch (CZvException const& failure) {
        EXPECT_EQ(failure.GetMessage(), "Invalid Value for  [11]");
    }
}

TEST(CheckPrimitive, TypesWithoutFacetsAreRefused) {
    ZvVariant value;
    value.SetChar('x');
    EXPECT_EQ(Check(ItemType_char, value, Facets()), "invalid: Unknown type [char].");
    EXPECT_EQ(Check(ItemType_invalid, value, Facets()), "invalid: Unknown type [char].");
    EXPECT_EQ(Check(static_cast<ItemType>(29), value, Facets()), "invalid: Unknown type [char].");
    value.SetXmlObject(nullptr);
    EXPECT_EQ(Check(ItemType_XmlObjectBase, value, Facets()), "plain: Invalid Type 27");
    EXPECT_EQ(Check(ItemType_i4, ZvVariant(), Facets()), "plain: Invalid Type 0");
}

TEST(CheckPrimitive, ANilValueCountsAsEmpty) {
    ZvVariant value;
    value.SetNil(ItemType_string);
    EXPECT_EQ(Check(ItemType_string, value, With(&Facets::minLength, 1)), "plain: Invalid Value for n [].");
    value.SetNil(ItemType_hexBinary);
    EXPECT_EQ(Check(ItemType_hexBinary, value, With(&Facets::length, 0)), "");
    value.SetNil(ItemType_duration);
    EXPECT_EQ(Check(ItemType_duration, value, With(&Facets::minInclusive, "P1D")),
              "plain: Invalid Value for n [P].");
}

TEST(PrimitiveRestrictions, KnowIfAnyFacetIsSet) {
    EXPECT_FALSE(Facets().HasFacets());
    EXPECT_FALSE(Facets(nullptr, -1, -1, nullptr, "", nullptr, "", -1, -1, -1).HasFacets());
    for (auto const text : {&Facets::pattern, &Facets::minInclusive, &Facets::maxInclusive,
                            &Facets::minExclusive, &Facets::maxExclusive})
        EXPECT_TRUE(With(text, "0").HasFacets());
    for (auto const number : {&Facets::minLength, &Facets::maxLength, &Facets::length, &Facets::totalDigits,
                              &Facets::fractionDigits})
        EXPECT_TRUE(With(number, 0).HasFacets());
}
