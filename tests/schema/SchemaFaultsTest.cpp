// Schemas that cannot be used, and where schemas lie.
#include "SchemaTestSupport.h"

namespace {

using namespace schema_test;

struct Fault {
    char const* name;
    std::string schema;
    char const* told;
};

void PrintTo(Fault const& fault, std::ostream* out) {
    *out << fault.name;
}

// The definitions from 0 to `count`, with '#' for the number and '+' for the next one.
std::string Repeat(std::string const& definition, unsigned count) {
    std::string all;
    for (unsigned i = 0; i < count; ++i) {
        for (char const c : definition)
            all += c == '#' ? std::to_string(i) : c == '+' ? std::to_string(i + 1) : std::string(1, c);
    }
    return all;
}

std::string Utf16Of(std::string const& text, bool isBigEndian) {
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char const c : text)
        bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

class SchemaFaultTest : public testing::TestWithParam<Fault> {};

TEST_P(SchemaFaultTest, IsToldWithItsPlace) {
    Folder const folder;
    folder.Write("s.xsd", GetParam().schema);
    Schemas const schemas(folder, {"s.xsd"});
    EXPECT_FALSE(schemas.AreUsable());
    std::string const& told = schemas.Told();
    EXPECT_EQ(told.substr(0, told.find('\n')), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Broken, SchemaFaultTest,
    testing::Values(
        Fault{"empty", "", "s.xsd:1:1: error: invalid document structure"},
        Fault{"no XML", "hello", "s.xsd:1:1: error: invalid document structure"},
        Fault{"another root", "<html/>", "s.xsd:1:8: error: no schema: the root element is [html]"},
        Fault{"no end", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>\n<xs:element",
              "s.xsd:2:12: error: unexpected end of input"},
        Fault{"UCS-4",
              {"\0\0\0<", 4},
              "s.xsd: error: the schema is in UCS-4 or EBCDIC, which are not supported"},
        Fault{"UTF-16 cut in the middle of a unit", {"<\0x", 3}, "s.xsd:1:2: error: element name expected"},
        Fault{"unknown type", SchemaText("\n  <xs:element name='r' type='t'/>"),
              "s.xsd:2:34: error: type ':t' not found"},
        Fault{"two of a name", SchemaText("<xs:element name='r'/>\n<xs:element name='r'/>"),
              "s.xsd:2:23: error: global element 'r' declared more than once"},
        Fault{"restriction that allows more",
              SchemaText("<xs:simpleType name='t'><xs:restriction base='xs:byte'>\n"
                         "<xs:maxInclusive value='128'/></xs:restriction></xs:simpleType>"),
              "s.xsd:1:112: error: maxInclusive value '128' must be less than or equal to maxInclusive value "
              "'127' in the base"},
        Fault{"an element of XML Schema 1.1",
              SchemaText("<xs:complexType name='t'><xs:sequence/>\n<xs:assert test='1'/></xs:complexType>"),
              "s.xsd:2:22: error: [assert] is of XML Schema 1.1, which is not supported"},
        Fault{"an entity that grows",
              "<!DOCTYPE r [<!ENTITY a 'x'><!ENTITY b '" + Repeat("&a;", 200) + "'><!ENTITY c '" +
                  Repeat("&b;", 200) + "'>]>" + SchemaText("<xs:element name='r' default='&c;'/>"),
              "s.xsd:1:1348: error: parser has encountered more than '10000' entity expansions in the "
              "document; this is the limit imposed by the application"}));

INSTANTIATE_TEST_SUITE_P(
    OutOfProportion, SchemaFaultTest,
    testing::Values(
        Fault{"a group in itself",
              SchemaText("<xs:group name='a'><xs:sequence><xs:group ref='b'/></xs:sequence></xs:group>\n"
                         "<xs:group name='b'><xs:sequence><xs:group ref='a'/></xs:sequence></xs:group>"),
              "s.xsd:2:52: error: circular definition in 'a'"},
        Fault{"an attribute group in itself",
              SchemaText("<xs:attributeGroup name='a'><xs:attributeGroup ref='a'/></xs:attributeGroup>"),
              "s.xsd:1:113: error: circular definition in 'a'"},
        Fault{"a type of itself",
              SchemaText(
                  "<xs:complexType name='a'><xs:complexContent><xs:extension base='a'/></xs:complexContent>"
                  "</xs:complexType>"),
              "s.xsd:1:125: error: circular definition in ',a'"},
        Fault{"a union of itself",
              SchemaText("<xs:simpleType name='a'><xs:union memberTypes='b'/></xs:simpleType>\n"
                         "<xs:simpleType name='b'><xs:union memberTypes='a'/></xs:simpleType>"),
              "s.xsd:1:81: error: circular definition in 'a'"},
        Fault{"an element that stands for itself",
              SchemaText("<xs:element name='a' substitutionGroup='b'/>\n"
                         "<xs:element name='b' substitutionGroup='a'/>"),
              "s.xsd:1:101: error: circular substitution group in element 'a'"},
        Fault{"groups that double",
              SchemaText(Repeat("<xs:group name='g#'><xs:choice><xs:group ref='g+'/><xs:group ref='g+'/>"
                                "</xs:choice></xs:group>",
                                40) +
                         "<xs:group name='g40'><xs:choice><xs:element name='a'/></xs:choice></xs:group>"),
              "s.xsd:1:2281: error: the types and groups have more than 500000 elements and attributes, with "
              "those that they refer to"},
        Fault{"attribute groups that double",
              SchemaText(Repeat("<xs:attributeGroup name='g#'><xs:attributeGroup ref='g+'/>"
                                "<xs:attributeGroup ref='g+'/></xs:attributeGroup>",
                                40) +
                         "<xs:attributeGroup name='g40'><xs:anyAttribute/></xs:attributeGroup>"),
              "s.xsd:1:2589: error: the types and groups have more than 500000 elements and attributes, with "
              "those that they refer to"},
        Fault{"a long chain of types",
              SchemaText(Repeat("<xs:complexType name='t#'><xs:complexContent><xs:extension base='t+'/>"
                                "</xs:complexContent></xs:complexType>",
                                1000) +
                         "<xs:complexType name='t1000'/>"),
              "s.xsd:1:88556: error: types are derived from each other more than 200 times"},
        Fault{"a long chain of groups",
              SchemaText(
                  Repeat("<xs:group name='g#'><xs:sequence><xs:group ref='g+'/></xs:sequence></xs:group>",
                         5000) +
                  "<xs:group name='g5000'><xs:sequence/></xs:group>"),
              "s.xsd:1:137891: error: definitions refer to each other deeper than 5000 levels"},
        Fault{"a long chain of substitutions",
              SchemaText(Repeat("<xs:element name='e#' substitutionGroup='e+'/>", 3000) +
                         "<xs:element name='e3000'/>"),
              "s.xsd:1:127840: error: elements stand for each other more than 500 times"}));

// A thousand anonymous types, one in the other; and ten thousand values.
TEST(SchemaFaultTest, LargeOnesAreNone) {
    Folder const folder;
    std::string nested = "<xs:element name='e'/>";
    std::string document = "<e/>";
    for (unsigned i = 0; i < 1000; ++i) {
        nested.insert(0, "<xs:element name='e'><xs:complexType><xs:sequence>");
        nested += "</xs:sequence></xs:complexType></xs:element>";
        document.insert(0, "<e>");
        document += "</e>";
    }
    folder.Write("s.xsd", SchemaText(nested));
    EXPECT_EQ(Schemas(folder, {"s.xsd"}).Told(), "");
    folder.Write("v.xsd", SchemaText("<xs:element name='r'><xs:simpleType><xs:restriction base='xs:string'>" +
                                     Repeat("<xs:enumeration value='v#'/>", 10000) +
                                     "</xs:restriction></xs:simpleType></xs:element>"));
    Schemas const values(folder, {"v.xsd"});
    EXPECT_EQ(values.Validate("<r>v9999</r>"), "");
    EXPECT_NE(values.Validate("<r>v10000</r>"), "");
}

// What the parser library cannot cope with is kept from it in any encoding.
TEST(SchemaFaultTest, Utf16IsReadLikeUtf8) {
    Folder const folder;
    std::string const schema =
        "<?xml version='1.0' encoding='UTF-16'?>\n" +
        SchemaText("<xs:element name='r'><xs:complexType><xs:sequence maxOccurs='4000000000'>"
                   "<xs:element name='a' type='t' "
                   "maxOccurs='3000000000'/></xs:sequence></xs:complexType></xs:element>\n"
                   "<xs:simpleType name='t'><xs:restriction base='xs:string'><xs:pattern "
                   "value='(a{0,50}){0,50}'/>"
                   "</xs:restriction></xs:simpleType>");
    for (bool const isBigEndian : {false, true}) {
        folder.Write("s.xsd", Utf16Of(schema, isBigEndian));
        Schemas const schemas(folder, {"s.xsd"});
        EXPECT_EQ(schemas.Told(), "");
        EXPECT_EQ(schemas.Validate("<r><a>aa</a></r>"), "");
        EXPECT_NE(schemas.Validate("<r><a>b</a></r>"), "");
    }
    folder.Write("s.xsd",
                 Utf16Of("<?xml version='1.0' encoding='UTF-16'?>\n" + SchemaText("<xs:element/>"), true));
    EXPECT_EQ(Schemas(folder, {"s.xsd"}).Told().substr(0, 18), "s.xsd:2:70: error:");
}

TEST(SchemaFaultTest, MissingOnesAreToldAndFoundByTheirPlaces) {
    Folder const folder;
    std::string const root = "<xs:import namespace='urn:b' schemaLocation='http://example.com/b.xsd'/>\n"
                             "<xs:element name='r'><xs:complexType><xs:sequence><xs:any namespace='urn:b'/>"
                             "</xs:sequence></xs:complexType></xs:element>";
    folder.Write("a.xsd", SchemaText(root));
    folder.Write("elsewhere.xsd",
                 SchemaText("<xs:element name='x' type='xs:int'/>", "targetNamespace='urn:b'"));
    folder.Write("catalog.xml",
                 "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'><rewriteURI "
                 "uriStartString='http://example.com/b' rewritePrefix='elsewhere'/>"
                 "<nextCatalog catalog='catalog.xml'/><nextCatalog catalog='catalog.xml'/></catalog>");
    EXPECT_EQ(Schemas(folder, {"a.xsd"}).Told(),
              "a.xsd:1:129: warning: there is no schema at [http://example.com/b.xsd] for the namespace "
              "[urn:b]; give its place by --location [-Wmissing-schema]\n");
    EXPECT_EQ(Schemas(folder, {"none.xsd"}).Told(), "none.xsd: error: the schema cannot be read\n");
    folder.Write("c.xsd", SchemaText("<xs:include schemaLocation='.'/>"));
    EXPECT_EQ(Schemas(folder, {"c.xsd"}).Told(),
              "c.xsd:1:89: warning: there is no schema at [.] [-Wmissing-schema]\n");
    folder.Write("d.xsd", SchemaText("<xs:import namespace='urn:b'/>"));
    EXPECT_EQ(Schemas(folder, {"d.xsd"}).Told(),
              "d.xsd:1:87: warning: there is no schema for the namespace "
              "[urn:b]; give its place by --location [-Wmissing-schema]\n");
    EXPECT_EQ(Schemas(folder, {"d.xsd", "elsewhere.xsd"}).Told(), "");
    for (std::string const from : {"http://example.com/b.xsd", "urn:b", "catalog"}) {
        schema::SchemaFiles places;
        schema::Diagnostics diagnostics;
        if (from == "catalog")
            schema::ReadCatalogs({folder.Of("catalog.xml")}, places, diagnostics);
        else
            places.Map(from, folder.Of("elsewhere.xsd"));
        Schemas const schemas(folder, {"a.xsd"}, places);
        EXPECT_EQ(schemas.Told(), "") << from;
        EXPECT_EQ(schemas.Validate("<r><x xmlns='urn:b'>1</x></r>"), "") << from;
        EXPECT_EQ(schemas.Validate("<r><x xmlns='urn:b'>z</x></r>"),
                  "The value [z] is not a valid int.\nPath: /r/x")
            << from;
    }
}

TEST(SchemaFaultTest, CatalogsThatAreNoneAreTold) {
    Folder const folder;
    folder.Write("catalog.xml", "<catalog/>");
    schema::SchemaFiles places;
    schema::Diagnostics diagnostics;
    schema::ReadCatalogs({folder.Of("catalog.xml"), folder.Of("none.xml")}, places, diagnostics);
    std::string told;
    for (schema::Diagnostic const& diagnostic : diagnostics.GetSorted())
        told += folder.Shorten(schema::Diagnostics::Format(diagnostic)) + "\n";
    EXPECT_EQ(told,
              "none.xml: error: the catalog cannot be read\ncatalog.xml:1:11: error: no OASIS XML catalog\n");
}

} // namespace
