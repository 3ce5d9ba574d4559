// Names of C++ for names and values that people give in schemas. That generated code compiles with such names
// is shown by names.xsd, whose classes are a part of this program.
#include "Nasty.h"

#include "schema/emit/CppText.h"
#include "schema/naming/NameTable.h"
#include "schema/naming/Names.h"
#include "schema/naming/ReservedNames.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace ZvXmlLib16::schema;

bool IsIdentifier(std::string const& name) {
    auto const isPart = [](char c) {
        return c == '_' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    bool isWhole = !name.empty() && !(name[0] >= '0' && name[0] <= '9');
    for (char const c : name)
        isWhole = isWhole && isPart(c);
    return isWhole && !IsReserved(name);
}

TEST(Names, FollowTheNamesOfTheSchema) {
    struct Row {
        char const* text;
        char const* camel;
        char const* enumerator;
    };
    for (Row const& row : {
             Row{"shipTo", "ShipTo", "ShipTo"},
             Row{"ship-to.party_id", "ShipToPartyId", "ShipToPartyId"},
             Row{"1.2", "1_2", "V1_2"},
             Row{"v1.2", "V1_2", "V1_2"},
             Row{"12", "12", "V12"},
             Row{"NULL", "NULL", "NULL_"},
             Row{"null", "Null", "Null"},
             Row{"", "_", "Empty"},
             Row{"class", "Class", "Class"},
             Row{"EOF", "EOF", "EOF_"},
             Row{"ENOENT", "ENOENT", "ENOENT_"},
             Row{"EUR", "EUR", "EUR"},
             Row{"+", "_", "V_u002B"},
             Row{"\xC3\xA9t\xC3\xA9", "_u00E9T_u00E9", "V_u00E9T_u00E9"},
             Row{"\xE4\xB8\xAD", "_u4E2D", "V_u4E2D"},
             Row{"\xF0\x9F\x98\x80", "_u1F600", "V_u1F600"},
             Row{"a\xE4\xB8", "A_u00E4_u00B8", "A_u00E4_u00B8"},
         }) {
        EXPECT_EQ(CamelName(row.text), row.camel) << row.text;
        EXPECT_EQ(EnumeratorName(row.text), row.enumerator) << row.text;
    }
}

TEST(Names, MakeNamespacesOfUris) {
    struct Row {
        char const* uri;
        char const* name;
    };
    for (Row const& row : {
             Row{"urn:oasis:names:tc:emergency:cap:1.2", "cap_v1_2"},
             Row{"http://www.example.com/orders/", "example_orders"},
             Row{"", "otherwise"},
             Row{"urn:class", "class_"},
             Row{"urn:std", "std_"},
             Row{"urn:time", "time_"},
             Row{"urn:index", "index_"},
             Row{"urn:\xE4\xB8\xAD", "otherwise"},
         })
        EXPECT_EQ(NamespaceName(row.uri, "otherwise"), row.name) << row.uri;
}

TEST(Names, AreIdentifiersForAnyOctets) {
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second < 256; ++second) {
            std::string const text{static_cast<char>(first), static_cast<char>(second)};
            EXPECT_TRUE(IsIdentifier(EnumeratorName(text))) << EnumeratorName(text);
            EXPECT_TRUE(IsIdentifier("C" + CamelName(text))) << CamelName(text);
            EXPECT_TRUE(IsIdentifier(NamespaceName(text, "x"))) << NamespaceName(text, "x");
            EXPECT_TRUE(IsIdentifier(Identifier(text) + "Schema")) << Identifier(text);
        }
    }
}

TEST(Names, AreUniqueBesideEachOther) {
    NameScope names;
    names.Reserve("X3");
    EXPECT_EQ(names.Take("X"), "X");
    EXPECT_EQ(names.Take("X"), "X2");
    EXPECT_EQ(names.Take("X"), "X4");
    EXPECT_EQ(names.Take("x"), "x");
    EXPECT_EQ(names.Take("X2"), "X22");
    EXPECT_EQ(names.Take("X", "_"), "X_5");
}

// What generated code was given once, when components join it ahead of the others.
TEST(NameTable, KeepsNamesWhenTheSchemaGrows) {
    Diagnostics diagnostics;
    NameTable table;
    table.Read("names",
               "# comment\n\nclass type {urn:a/b}p-q = CPq\r\n"
               "property type {urn:a/b}p-q/{urn:a/b}x = Size\nvalue type E=\"a = b/\" = AB",
               diagnostics);
    EXPECT_FALSE(diagnostics.HasErrors());
    NameScope classes;
    EXPECT_EQ(table.Take(classes, "class type {urn:a/b}pq", "CPq"), "CPq2");
    EXPECT_EQ(table.Take(classes, "class type {urn:a/b}p-q", "CPQ"), "CPq");
    NameScope properties;
    EXPECT_EQ(table.Take(properties, "property type {urn:a/b}p-q/@size", "Size"), "Size2");
    EXPECT_EQ(table.Take(properties, "property type {urn:a/b}p-q/{urn:a/b}x", "X"), "Size");
    NameScope others; // of another class
    EXPECT_EQ(table.Take(others, "property type {urn:a/b}pq/@size", "Size"), "Size");
    NameScope values;
    EXPECT_EQ(table.Take(values, PathOfValue("type E", "ab"), "AB", "_"), "AB_2");
    EXPECT_EQ(table.Take(values, PathOfValue("type E", "a = b/"), "ABx", "_"), "AB");
    EXPECT_EQ(table.Take(values, PathOfValue("type E", "%\n"), "V", "_"), "V");
    // What it writes says the same.
    std::string const text = table.Write();
    NameTable again;
    again.Read("names", text, diagnostics);
    EXPECT_FALSE(diagnostics.HasErrors());
    EXPECT_EQ(again.Write(), text);
    EXPECT_NE(text.find("\nvalue type E=\"%25%0A\" = V\n"), std::string::npos) << text;
}

TEST(NameTable, TellsTheLineOfWhatItCannotRead) {
    struct Row {
        char const* text;
        char const* message;
    };
    for (Row const& row : {
             Row{"x\n", "n:1:1: error: this is no line of a table of names: KIND PATH = NAME"},
             Row{"#\nthing type a = B",
                 "n:2:1: error: this is no line of a table of names: KIND PATH = NAME"},
             Row{"class type a = ", "n:1:1: error: [] is no name that C++ leaves free"},
             Row{"value type a=\"b\" = EOF", "n:1:1: error: [EOF] is no name that C++ leaves free"},
             Row{"enum type a = a b", "n:1:1: error: [a b] is no name that C++ leaves free"},
             Row{"class type a = A\nenum type b = A", "n:2:1: error: the name [A] stands twice in its place"},
             Row{"class type a = A\nclass type a = B", "n:2:1: error: [class type a] has a name already"},
         }) {
        Diagnostics diagnostics;
        NameTable().Read("n", row.text, diagnostics);
        ASSERT_EQ(diagnostics.GetSorted().size(), 1U) << row.text;
        EXPECT_EQ(Diagnostics::Format(diagnostics.GetSorted()[0]), row.message);
    }
}

TEST(Names, LeaveNothingInCommentsThatCompilersWarnOf) {
    EXPECT_EQ(Comment("a\nb\\", "  "), "  // a b\n");
    EXPECT_EQ(Comment("a ?\?/ \\", ""), "// a ??\n");
    EXPECT_EQ(Comment("a\xE2\x80\xAE"
                      "b\xE2\x81\xA6 \xE2\x80\x93 \xE2\x80",
                      ""),
              "// ab \xE2\x80\x93 \xE2\x80\n");
}

// The members that these names must not hide or collide with.
TEST(Names, OfSchemasCompile) {
    ZvXmlLib16::CSmartPtr<time_::CClass> object(new time_::CClass());
    object->SetInt("x");
    object->SetName(time_::GetInt::EOF_);
    object->SetNameAttribute("y");
    EXPECT_EQ(object->GetInt() + object->GetNameAttribute(), "xy");
    EXPECT_TRUE(object->GetName() == time_::GetInt::EOF_);
    EXPECT_NE(time_::WriteClass2Xml(*object).find("EOF</"), std::string::npos);
    EXPECT_EQ(&time_::NastySchema(), &time_::NastySchema());
}

} // namespace
