// What generated headers say in their comments.
#include "SchemaTestSupport.h"

#include "schema/emit/Emitter.h"
#include "schema/emit/FacetWords.h"

#include <gmock/gmock.h>

namespace {

using namespace schema_test;

TEST(Comments, TellFacetsInWords) {
    struct Row {
        char const* type; // what a simple type T is
        char const* words;
    } const rows[] = {
        {"<xs:restriction base='xs:token'><xs:maxLength value='20'/><xs:pattern value='[A-Z]+'/>"
         "<xs:pattern value='\\d\\\\'/></xs:restriction>",
         "at most 20 characters, matches [A-Z]+ or \\d\\\\"},
        {"<xs:restriction base='s:Code'><xs:minLength value='1'/><xs:pattern value='B.*'/></xs:restriction>",
         "1 to 8 characters, matches B.*, matches [^?]*"},
        {"<xs:restriction base='xs:int'><xs:minInclusive value='1'/><xs:maxInclusive "
         "value='10'/></xs:restriction>",
         "between 1 and 10"},
        {"<xs:restriction base='xs:decimal'><xs:minExclusive value='0'/><xs:maxInclusive value='9.5'/>"
         "<xs:totalDigits value='18'/><xs:fractionDigits value='2'/></xs:restriction>",
         "at most 9.5, more than 0, up to 18 digits, up to 2 fraction digits"},
        {"<xs:restriction base='xs:hexBinary'><xs:length value='1'/></xs:restriction>", "exactly 1 octet"},
        {"<xs:restriction><xs:simpleType><xs:list itemType='s:Code'/></xs:simpleType>"
         "<xs:minLength value='2'/><xs:maxLength value='2'/></xs:restriction>",
         "list of Code (at most 8 characters, matches [^?]*), exactly 2 items"},
        {"<xs:union memberTypes='xs:int s:Two'/>", "either any int; or one of \"1\", \"two\""},
        {"<xs:restriction base='s:Two'><xs:enumeration value='two'/></xs:restriction>", "only \"two\""},
        {"<xs:restriction base='xs:string'/>", ""},
    };
    Folder const folder;
    for (Row const& row : rows) {
        folder.Write(
            "s.xsd",
            SchemaText(
                "<xs:simpleType name='Code'><xs:restriction base='xs:string'>"
                "<xs:maxLength value='8'/><xs:pattern value='[^?]*'/></xs:restriction></xs:simpleType>"
                "<xs:simpleType name='Two'><xs:restriction base='xs:string'><xs:enumeration value='1'/>"
                "<xs:enumeration value='two'/></xs:restriction></xs:simpleType>"
                "<xs:simpleType name='T'>" +
                    std::string(row.type) + "</xs:simpleType>",
                "xmlns:s='urn:s' targetNamespace='urn:s'"));
        schema::Diagnostics diagnostics;
        auto const schema = schema::ReadSchemas({folder.Of("s.xsd")}, {}, diagnostics);
        ASSERT_NE(schema, nullptr) << row.type;
        EXPECT_EQ(schema::FacetWords(*schema, static_cast<std::uint32_t>(schema->globalTypes.back())),
                  row.words);
    }
}

// Nothing in a schema ends a comment or continues it.
TEST(Comments, HaveNamesTextsAndPlaces) {
    Folder const folder;
    folder.Write("s.xsd",
                 SchemaText("<xs:element name='r'><xs:complexType><xs:attribute name='n' default='\\'>"
                            "<xs:annotation><xs:documentation>Ends \\</xs:documentation></xs:annotation>"
                            "<xs:simpleType><xs:restriction base='xs:token'><xs:enumeration value='\\'>"
                            "<xs:annotation><xs:documentation>*/ ?\?/</xs:documentation></xs:annotation>"
                            "</xs:enumeration><xs:enumeration value='A'/></xs:restriction></xs:simpleType>"
                            "</xs:attribute></xs:complexType></xs:element>"));
    schema::Diagnostics diagnostics;
    auto const schema = schema::ReadSchemas({folder.Of("s.xsd")}, {}, diagnostics);
    schema::NameTable names;
    schema::Mapping const mapping(*schema, {}, "s", names, diagnostics);
    std::string const header = schema::Emit(*schema, mapping, "s", 1)[0].text;
    EXPECT_THAT(header, testing::HasSubstr("// enumeration (s.xsd:1)\nenum class RN {\n    // */ ??\n"
                                           "    V_u005C, // \"\\\"\n    A\n};"));
    EXPECT_THAT(header,
                testing::HasSubstr("    // Ends\n    // attribute n: one of \"\\\", \"A\", \"\\\" by default "
                                   "(s.xsd:1)\n    RN GetN() const"));
}

} // namespace
