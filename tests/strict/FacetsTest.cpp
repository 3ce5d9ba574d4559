// Facets by the usual rules and by those of XML Schema.
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/TypedCols.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <gmock/gmock.h>

#include <string>

using namespace ZvXmlLib16;

namespace {

CPrimitiveRestrictions With(char const* pattern) {
    CPrimitiveRestrictions facets;
    facets.pattern = pattern;
    return facets;
}
CPrimitiveRestrictions With(std::string CPrimitiveRestrictions::*bound, char const* text) {
    CPrimitiveRestrictions facets;
    facets.*bound = text;
    return facets;
}
CPrimitiveRestrictions With(std::int32_t CPrimitiveRestrictions::*facet, int number) {
    CPrimitiveRestrictions facets;
    facets.*facet = number;
    return facets;
}

constexpr auto kLength = &CPrimitiveRestrictions::length;
constexpr auto kMaxLength = &CPrimitiveRestrictions::maxLength;
constexpr auto kTotalDigits = &CPrimitiveRestrictions::totalDigits;
constexpr auto kMinInclusive = &CPrimitiveRestrictions::minInclusive;
constexpr auto kMaxExclusive = &CPrimitiveRestrictions::maxExclusive;

// Which of the two, the usual check and the strict one, let the value pass.
std::string Passes(ItemType type, char const* text, CPrimitiveRestrictions facets) {
    ZvVariant value;
    value.FromString(text, type, CWhitespaceUtils::WhitespaceRule_Collapse);
    std::string passes;
    for (bool const strict : {false, true}) {
        facets.SetStrict(strict);
        bool const isRefused = MessageOf<CZvException>([&] {
                                   CheckPrimitiveVariant("n", value, type, facets);
                               }) != "nothing was thrown";
        passes += isRefused ? '-' : '+';
    }
    return passes;
}

TEST(StrictFacets, AreThoseOfXmlSchema) {
    LocalEncoding const encoding(65001);
    struct Row {
        ItemType type;
        char const* text;
        CPrimitiveRestrictions facets;
        char const* passes; // usual, strict
    };
    for (Row const& row : {
             Row{ItemType_string, "\xE2\x82\xAC", With(kLength, 1), "-+"},
             Row{ItemType_string, "\xE2\x82\xAC", With(kMaxLength, 2), "-+"},
             Row{ItemType_string, "\xE2\x82\xAC", With(kLength, 3), "+-"},
             Row{ItemType_hexBinary, "E282AC", With(kLength, 3), "++"},
             Row{ItemType_i4, "-12", With(kTotalDigits, 2), "-+"},
             Row{ItemType_i4, "-123", With(kTotalDigits, 2), "--"},
             Row{ItemType_i8, "-12", With(kTotalDigits, 2), "-+"},
             Row{ItemType_integer, "-12", With(kTotalDigits, 2), "-+"},
             Row{ItemType_integer, "12", With(kTotalDigits, 1), "--"},
             Row{ItemType_integer, "-0", With(kMinInclusive, "0"), "-+"},
             Row{ItemType_integer, "-1", With(kMinInclusive, "0"), "--"},
             Row{ItemType_decimal, "-0.0", With(kMinInclusive, "0"), "++"},
             Row{ItemType_duration, "P1M", With(kMinInclusive, "P30D"), "+-"},
             Row{ItemType_duration, "P1M", With(kMaxExclusive, "P30D"), "+-"},
             Row{ItemType_duration, "P1M", With(kMinInclusive, "P27D"), "++"},
             Row{ItemType_datetime, "2024-01-01T10:00:00", With(kMinInclusive, "2024-01-01T10:00:00Z"), "+-"},
             Row{ItemType_datetime, "2024-01-01T10:00:00", With(kMaxExclusive, "2024-01-01T10:00:00Z"), "+-"},
             Row{ItemType_datetime, "2024-01-02T10:00:00", With(kMinInclusive, "2024-01-01T10:00:00Z"), "++"},
             Row{ItemType_boolean, "1", With("true"), "++"}, // as it is written
             Row{ItemType_boolean, "1", With("false"), "+-"},
             Row{ItemType_i4, "12", With("[0-9]{2}"), "++"},
             Row{ItemType_i4, "12", With("[0-9]{3}"), "+-"},
             Row{ItemType_base64Binary, "AAAA", With("[0-9A-F]*"), "++"},
             Row{ItemType_hexBinary, "0a", With("[0-9A-F]*"), "++"},
             Row{ItemType_year, "2024", With("20.."), "++"},
             Row{ItemType_month, "--05", With("--0[1-4]"), "+-"},
             Row{ItemType_string, "a", With("^a"), "+-"},
         })
        EXPECT_EQ(Passes(row.type, row.text, row.facets), row.passes) << row.text;
}

TEST(StrictFacets, CountCharactersInAnyLocalEncoding) {
    LocalEncoding const encoding(28591);
    EXPECT_EQ(Passes(ItemType_string, "\xE4\xF6", With(kLength, 2)), "++");
    EXPECT_EQ(Passes(ItemType_string, "\xE4", With("[\xE0-\xE5]")), "++");
}

TEST(StrictFacets, HoldForWhatIsAddedToACollection) {
    LocalEncoding const encoding(65001);
    for (bool const strict : {false, true}) {
        ColSetup setup;
        setup.facets = With(kLength, 1);
        CSmartPtr<CstringCol> const items(NewCol<CstringCol>(setup));
        items->SetStrict(strict);
        EXPECT_EQ(MessageOf<CZvException>([&] { items->Add("\xE2\x82\xAC"); }),
                  strict ? "nothing was thrown" : "Invalid Value for v [\xE2\x82\xAC].");
        setup.facets = With("1|[3-9]");
        CSmartPtr<Ci4Col> const numbers(NewCol<Ci4Col>(setup));
        numbers->SetStrict(strict);
        EXPECT_EQ(MessageOf<CZvException>([&] { numbers->Add(2); }),
                  strict ? "Invalid Value for v [2]." : "nothing was thrown");
    }
}

} // namespace
