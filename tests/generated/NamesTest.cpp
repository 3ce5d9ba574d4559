// Names of C++ from any names at all.
#include "schema/naming/Names.h"

#include <gmock/gmock.h>

#include <string>

using namespace ZvXmlLib16::schema;

TEST(Names, AreIdentifiers) {
    struct Case {
        char const* text;
        char const* camel;
        char const* enumerator;
    } const cases[] = {
        {"order", "Order", "Order"},
        {"first-name", "FirstName", "FirstName"},
        {"a.b_c:d", "ABCD", "ABCD"},
        {"v1.2", "V1_2", "V1_2"},
        {"1.2", "1_2", "V1_2"},
        {"", "_", "Empty"},
        {"+", "_", "V_u002B"},
        {"-", "_", "V_u002D"},
        {"EOF", "EOF", "EOF_"},
        {"null", "Null", "Null"},
        {"NULL", "NULL", "NULL_"},
        {"\xC3\xA9t\xC3\xA9", "_u00E9T_u00E9", "V_u00E9T_u00E9"},
        {"\xF0\x9F\x98\x80", "_u1F600", "V_u1F600"},
        {"\xFF", "_u00FF", "V_u00FF"},
        {"\xC3", "_u00C3", "V_u00C3"},
    };
    for (Case const& test : cases) {
        EXPECT_EQ(CamelName(test.text), test.camel) << test.text;
        EXPECT_EQ(EnumeratorName(test.text), test.enumerator) << test.text;
    }
}

TEST(Names, OfNamespacesAreThoseOfTheirUris) {
    EXPECT_EQ(NamespaceName("urn:oasis:names:tc:emergency:cap:1.2", "x"), "cap_v1_2");
    EXPECT_EQ(NamespaceName("http://www.example.com/schemas/orders", "x"), "example_orders");
    EXPECT_EQ(NamespaceName("", "stem"), "stem");
    EXPECT_EQ(NamespaceName("urn:class", "x"), "class_");
}

TEST(Names, ThatAreTakenGetNumbers) {
    NameScope scope;
    EXPECT_EQ(scope.Take("X"), "X");
    EXPECT_EQ(scope.Take("X"), "X2");
    EXPECT_EQ(scope.Take("X2"), "X22");
    EXPECT_EQ(scope.Take("X", "_"), "X_3");
}
