// Documents against schemas: each construct of XML Schema 1.0, with what is said of documents that offend it.
#include "SchemaTestSupport.h"

namespace {

using namespace schema_test;

struct Document {
    char const* text;
    char const* fault; // empty for a valid one
};

struct Case {
    char const* name;
    char const* schema; // what stands inside of schema
    std::vector<Document> documents;
    char const* attributes = ""; // of schema
};

void PrintTo(Case const& aCase, std::ostream* out) {
    *out << aCase.name;
}

class ValidateTest : public testing::TestWithParam<Case> {};

TEST_P(ValidateTest, JudgesDocuments) {
    Folder const folder;
    folder.Write("s.xsd", SchemaText(GetParam().schema, GetParam().attributes));
    Schemas const schemas(folder, {"s.xsd"});
    ASSERT_EQ(schemas.Told(), "");
    for (Document const& document : GetParam().documents)
        EXPECT_EQ(schemas.Validate(document.text), document.fault) << document.text;
}

INSTANTIATE_TEST_SUITE_P(
    Content, ValidateTest,
    testing::Values(
        Case{"sequence",
             R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element name="a"/>
                <xs:element name="b" minOccurs="0" maxOccurs="2"/></xs:sequence></xs:complexType></xs:element>)",
             {{"<r><a/><b/><b/></r>", ""},
              {"<r><a/><b/><b/><b/></r>", "The element [b] is not expected here.\nPath: /r/b[3]"},
              {"<r><b/></r>", "The element [b] is not expected here; expected is [a].\nPath: /r/b"},
              {"<r/>", "An element is missing; expected is [a].\nPath: /r"},
              {"<r><a/>text</r>", "The element [r] may hold no text.\nPath: /r"},
              {"<s/>", "There is no declaration of the element [s].\nPath: /s"}}},
        Case{"choice in repeated groups",
             R"(<xs:element name="r"><xs:complexType><xs:sequence maxOccurs="unbounded">
                <xs:choice><xs:element name="a"/><xs:element name="b"/></xs:choice>
                <xs:element name="c" minOccurs="0"/></xs:sequence></xs:complexType></xs:element>)",
             {{"<r><a/><c/><b/><a/><c/></r>", ""},
              {"<r><c/></r>", "The element [c] is not expected here; expected is [a] or [b].\nPath: /r/c"},
              {"<r><a/><c/><c/></r>",
               "The element [c] is not expected here; expected is [a] or [b].\nPath: /r/c[2]"}}},
        Case{"counts that need search",
             R"(<xs:element name="r"><xs:complexType><xs:sequence minOccurs="2" maxOccurs="2">
                <xs:element name="a" minOccurs="3" maxOccurs="4"/></xs:sequence></xs:complexType></xs:element>)",
             {{"<r><a/><a/><a/><a/><a/><a/></r>", ""},
              {"<r><a/><a/><a/><a/><a/><a/><a/><a/></r>", ""},
              {"<r><a/><a/><a/><a/><a/></r>", "An element is missing; expected is [a].\nPath: /r"},
              {"<r><a/><a/><a/><a/><a/><a/><a/><a/><a/></r>",
               "The element [a] is not expected here.\nPath: /r/a[9]"}}},
        Case{"counts of ten digits",
             R"(<xs:element name="r"><xs:complexType><xs:sequence maxOccurs="9999999999">
                <xs:element name="a" maxOccurs="9999999999"/><xs:element name="b" minOccurs="1000000000"
                maxOccurs="9999999999"/></xs:sequence></xs:complexType></xs:element>)",
             {{"<r><a/><b/></r>", "An element is missing; expected is [b].\nPath: /r"}}},
        Case{"all",
             R"(<xs:element name="r"><xs:complexType><xs:all><xs:element name="a"/>
                <xs:element name="b" minOccurs="0"/></xs:all></xs:complexType></xs:element>)",
             {{"<r><b/><a/></r>", ""},
              {"<r><a/></r>", ""},
              {"<r><b/></r>", "An element is missing; expected is [a].\nPath: /r"},
              {"<r><a/><a/></r>", "The element [a] is not expected here.\nPath: /r/a[2]"}}},
        Case{
            "group definitions",
            R"(<xs:group name="g"><xs:choice><xs:element name="a"/><xs:element name="b"/></xs:choice></xs:group>
                <xs:element name="r"><xs:complexType><xs:sequence><xs:group ref="g"/>
                <xs:group ref="g" minOccurs="0"/></xs:sequence></xs:complexType></xs:element>)",
            {{"<r><b/><a/></r>", ""},
             {"<r><a/><b/><a/></r>", "The element [a] is not expected here.\nPath: /r/a[2]"}}},
        Case{"extension and restriction",
             R"(<xs:complexType name="b"><xs:sequence><xs:element name="a" minOccurs="0"/></xs:sequence>
                <xs:attribute name="x"/></xs:complexType>
                <xs:complexType name="e"><xs:complexContent><xs:extension base="b"><xs:sequence>
                <xs:element name="c"/></xs:sequence><xs:attribute name="y"/></xs:extension></xs:complexContent>
                </xs:complexType>
                <xs:complexType name="n"><xs:complexContent><xs:restriction base="b"><xs:sequence>
                <xs:element name="a"/></xs:sequence><xs:attribute name="x" use="prohibited"/></xs:restriction>
                </xs:complexContent></xs:complexType><xs:element name="r" type="b"/>)",
             {{"<r x='1'/>", ""},
              {"<r xsi:type='e' x='1' y='2'><a/><c/></r>", ""},
              {"<r xsi:type='e'><c/><a/></r>", "The element [a] is not expected here.\nPath: /r/a"},
              {"<r xsi:type='n'/>", "An element is missing; expected is [a].\nPath: /r"},
              {"<r xsi:type='n' x='1'><a/></r>", "The attribute [x] is not allowed here.\nPath: /r/@x"},
              {"<r xsi:type='xs:int'>1</r>", "The type [xs:int] cannot stand for the type [b].\nPath: /r"},
              {"<r xsi:type='q'/>", "There is no type [q].\nPath: /r"}}},
        Case{"abstract types and elements, and block",
             R"(<xs:complexType name="b" abstract="true"/>
                <xs:complexType name="e"><xs:complexContent><xs:extension base="b"/></xs:complexContent>
                </xs:complexType><xs:element name="r"><xs:complexType><xs:choice>
                <xs:element name="a" type="b"/><xs:element name="c" type="b" block="extension"/>
                <xs:element ref="h"/></xs:choice></xs:complexType></xs:element>
                <xs:element name="h" abstract="true"/><xs:element name="m" substitutionGroup="h"/>)",
             {{"<r><a xsi:type='e'/></r>", ""},
              {"<r><m/></r>", ""},
              {"<r><a/></r>", "The type [b] is abstract.\nPath: /r/a"},
              {"<r><c xsi:type='e'/></r>", "The type [e] cannot stand for the type [b].\nPath: /r/c"},
              {"<r><h/></r>", "The element [h] is abstract.\nPath: /r/h"}}},
        Case{"substitution that is blocked",
             R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element ref="h"/></xs:sequence>
                </xs:complexType></xs:element><xs:element name="h" block="substitution" type="xs:string"/>
                <xs:element name="m" substitutionGroup="h"/>)",
             {{"<r><h/></r>", ""},
              {"<r><m/></r>", "The element [m] is not expected here; expected is [h].\nPath: /r/m"}}},
        Case{"wildcards",
             R"(<xs:element name="g" type="xs:int"/><xs:element name="r"><xs:complexType><xs:sequence>
                <xs:any namespace="##other" processContents="lax" minOccurs="0" maxOccurs="2"/>
                <xs:any namespace="##targetNamespace" minOccurs="0"/></xs:sequence>
                <xs:anyAttribute namespace="urn:a" processContents="skip"/></xs:complexType></xs:element>)",
             {{"<r xmlns='urn:t'><x xmlns='urn:x'/><y xmlns='urn:y'/><g>1</g></r>", ""},
              {"<r xmlns='urn:t' xmlns:a='urn:a' a:b='1'/>", ""},
              {"<r xmlns='urn:t'><g>x</g></r>", "The value [x] is not a valid int.\nPath: /r/g"},
              {"<r xmlns='urn:t'><q/></r>", "There is no declaration of the element [q].\nPath: /r/q"},
              {"<r xmlns='urn:t'><q xmlns=''/></r>", "The element [q] is not expected here; expected is an "
                                                     "element of another namespace.\nPath: /r/q"},
              {"<r xmlns='urn:t' b='1'/>", "The attribute [b] is not allowed here.\nPath: /r/@b"}},
             "targetNamespace='urn:t' xmlns='urn:t'"},
        Case{"mixed content",
             R"(<xs:element name="r"><xs:complexType mixed="true"><xs:sequence>
                <xs:element name="a" minOccurs="0"/></xs:sequence></xs:complexType></xs:element>)",
             {{"<r>x<a/>y</r>", ""},
              {"<r>x<b/></r>", "The element [b] is not expected here; expected is [a].\nPath: /r/b"}}}));

INSTANTIATE_TEST_SUITE_P(
    Values, ValidateTest,
    testing::Values(
        Case{"attributes",
             R"(<xs:attributeGroup name="g"><xs:attribute name="x" type="xs:int" use="required"/>
                <xs:attribute name="y" fixed="1"/></xs:attributeGroup>
                <xs:element name="r"><xs:complexType><xs:attributeGroup ref="g"/>
                <xs:attribute name="d" type="xs:date" default="2001-01-01"/></xs:complexType></xs:element>)",
             {{"<r x='1' y='1'/>", ""},
              {"<r y='1'/>", "The attribute [x] is missing.\nPath: /r"},
              {"<r x='z'/>", "The value [z] is not a valid int.\nPath: /r/@x"},
              {"<r x='1' y='2'/>", "The attribute [y] has the fixed value [1].\nPath: /r/@y"},
              {"<r x='1' z='2'/>", "The attribute [z] is not allowed here.\nPath: /r/@z"}}},
        Case{"forms of names",
             R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element name="a"/>
                <xs:element name="b" form="unqualified"/></xs:sequence><xs:attribute name="x" form="qualified"/>
                </xs:complexType></xs:element>)",
             {{"<t:r xmlns:t='urn:t' t:x='1'><t:a/><b/></t:r>", ""},
              {"<t:r xmlns:t='urn:t' x='1'><t:a/><b/></t:r>",
               "The attribute [x] is not allowed here.\nPath: /t:r/@x"},
              {"<t:r xmlns:t='urn:t'><a/><b/></t:r>",
               "The element [a] is not expected here; expected is [a].\nPath: /t:r/a"}},
             "targetNamespace='urn:t' elementFormDefault='qualified'"},
        Case{"nil",
             R"(<xs:element name="r"><xs:complexType><xs:choice><xs:element name="a" type="xs:int"
                nillable="true"/><xs:element name="b" type="xs:int"/></xs:choice></xs:complexType></xs:element>)",
             {{"<r><a xsi:nil='true'/></r>", ""},
              {"<r><a/></r>", "The value [] is not a valid int.\nPath: /r/a"},
              {"<r><a xsi:nil='1'>1</a></r>", "The element [a] is nil, but has content.\nPath: /r/a"},
              {"<r><b xsi:nil='true'/></r>", "The element [b] is not nillable.\nPath: /r/b"}}},
        Case{
            "default and fixed content",
            R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element name="d" type="xs:int" default="7"/>
                <xs:element name="f" type="xs:decimal" fixed="1.0"/></xs:sequence></xs:complexType></xs:element>)",
            {{"<r><d/><f/></r>", ""},
             {"<r><d/><f>1</f></r>", ""},
             {"<r><d/><f>2</f></r>", "The element [f] has the fixed value [1.0].\nPath: /r/f"}}},
        Case{"simple content",
             R"(<xs:complexType name="p"><xs:simpleContent><xs:extension base="xs:decimal">
                <xs:attribute name="c" use="required"/></xs:extension></xs:simpleContent></xs:complexType>
                <xs:element name="r"><xs:complexType><xs:simpleContent><xs:restriction base="p">
                <xs:maxInclusive value="9"/></xs:restriction></xs:simpleContent></xs:complexType></xs:element>)",
             {{"<r c='x'>9</r>", ""},
              {"<r c='x'>10</r>", "The value [10] is above the maxInclusive [9].\nPath: /r"},
              {"<r>1</r>", "The attribute [c] is missing.\nPath: /r"},
              {"<r c='x'><a/></r>",
               "The element [a] is not expected here; expected is a value.\nPath: /r/a"}}},
        Case{"lists and unions",
             R"(<xs:simpleType name="u"><xs:union memberTypes="xs:int"><xs:simpleType><xs:restriction
                base="xs:string"><xs:enumeration value="none"/></xs:restriction></xs:simpleType></xs:union>
                </xs:simpleType><xs:element name="r"><xs:simpleType><xs:restriction><xs:simpleType>
                <xs:list itemType="u"/></xs:simpleType><xs:maxLength value="3"/></xs:restriction></xs:simpleType>
                </xs:element>)",
             {{"<r>1 none 2</r>", ""},
              {"<r>1 some</r>", "The value [some] is not valid for any member of the type [u].\nPath: /r"},
              {"<r>1 2 3 4</r>", "The value [1 2 3 4] has 4 items, above the maxLength [3].\nPath: /r"}}},
        Case{"facets of text",
             R"(<xs:element name="r"><xs:simpleType><xs:restriction base="xs:token"><xs:length value="3"/>
                <xs:pattern value="\p{Lu}.*"/><xs:pattern value="\d+"/></xs:restriction></xs:simpleType>
                </xs:element>)",
             {{"<r> 123 </r>", ""},
              {"<r>\xC3\x84xy</r>", ""},
              {"<r>1234</r>", "The value [1234] has 4 characters, not the length [3].\nPath: /r"},
              {"<r>abc</r>", "The value [abc] does not match the pattern [\\p{Lu}.*|\\d+].\nPath: /r"}}},
        Case{"QName and the prefixes in scope",
             R"(<xs:element name="r"><xs:simpleType><xs:restriction base="xs:QName">
                <xs:enumeration value="xs:int"/></xs:restriction></xs:simpleType></xs:element>)",
             {{"<r xmlns:p='http://www.w3.org/2001/XMLSchema'>p:int</r>", ""},
              {"<r xmlns:p='urn:p'>p:int</r>", "The value [p:int] is not in the enumeration.\nPath: /r"},
              {"<r>p:int</r>", "The value [p:int] has the prefix [p], which is not declared.\nPath: /r"}}}));

INSTANTIATE_TEST_SUITE_P(
    Identity, ValidateTest,
    testing::Values(
        Case{"key, keyref and unique",
             R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element name="a" minOccurs="0"
                maxOccurs="unbounded"><xs:complexType><xs:attribute name="k" type="xs:decimal"/>
                <xs:attribute name="u"/><xs:attribute name="f" type="xs:decimal"/></xs:complexType></xs:element>
                </xs:sequence></xs:complexType><xs:key name="K"><xs:selector xpath="a"/><xs:field xpath="@k"/>
                </xs:key><xs:unique name="U"><xs:selector xpath=".//a"/><xs:field xpath="@u"/></xs:unique>
                <xs:keyref name="F" refer="K"><xs:selector xpath="a"/><xs:field xpath="@f"/></xs:keyref>
                </xs:element>)",
             {{"<r><a k='1' u='x' f='2.0'/><a k='2'/><a k='3'/></r>", ""},
              {"<r><a k='1'/><a k='1.0'/></r>",
               "The key [K] is not unique: [1.0] stands twice.\nPath: /r/a[2]"},
              {"<r><a/></r>", "The key [K] lacks its field [@k].\nPath: /r/a"},
              {"<r><a k='1' u='x'/><a k='2' u='x'/></r>",
               "The unique [U] is not unique: [x] stands twice.\nPath: /r/a[2]"},
              {"<r><a k='1' f='2'/></r>", "The keyref [F] has no key [2] to refer to.\nPath: /r/a"}}},
        Case{"ID and IDREF",
             R"(<xs:element name="r"><xs:complexType><xs:sequence><xs:element name="a" maxOccurs="3">
                <xs:complexType><xs:attribute name="i" type="xs:ID"/><xs:attribute name="f" type="xs:IDREFS"/>
                </xs:complexType></xs:element></xs:sequence></xs:complexType></xs:element>)",
             {{"<r><a f='y x'/><a i='x'/><a i='y'/></r>", ""},
              {"<r><a i='x'/><a i='x'/></r>", "The ID [x] stands twice in the document.\nPath: /r/a[2]"},
              {"<r><a i='x' f='z'/></r>", "There is no ID [z] in the document.\nPath: /r/a"}}}));

// Schemas of several files: "a.xsd" is the one that is named.
struct FilesCase {
    char const* name;
    std::vector<std::pair<char const*, std::string>> files;
    std::vector<Document> documents;
};

void PrintTo(FilesCase const& aCase, std::ostream* out) {
    *out << aCase.name;
}

class SchemaFilesTest : public testing::TestWithParam<FilesCase> {};

TEST_P(SchemaFilesTest, BelongTogether) {
    Folder const folder;
    for (auto const& [name, text] : GetParam().files)
        folder.Write(name, text);
    Schemas const schemas(folder, {"a.xsd"});
    ASSERT_EQ(schemas.Told(), "");
    for (Document const& document : GetParam().documents)
        EXPECT_EQ(schemas.Validate(document.text), document.fault) << document.text;
}

INSTANTIATE_TEST_SUITE_P(
    Files, SchemaFilesTest,
    testing::Values(
        FilesCase{
            "includes in a circle",
            {{"a.xsd", SchemaText("<xs:include schemaLocation='b.xsd'/><xs:element name='r' type='t'/>")},
             {"b.xsd", SchemaText("<xs:include schemaLocation='a.xsd'/><xs:simpleType name='t'>"
                                  "<xs:restriction base='xs:int'/></xs:simpleType>")}},
            {{"<r>1</r>", ""}, {"<r>x</r>", "The value [x] is not a valid int.\nPath: /r"}}},
        FilesCase{"chameleon include",
                  {{"a.xsd", SchemaText("<xs:include schemaLocation='b.xsd'/>", "targetNamespace='urn:a'")},
                   {"b.xsd", SchemaText("<xs:element name='r' type='t'/><xs:simpleType name='t'>"
                                        "<xs:restriction base='xs:int'/></xs:simpleType>")}},
                  {{"<r xmlns='urn:a'>1</r>", ""},
                   {"<r>1</r>", "There is no declaration of the element [r].\nPath: /r"}}},
        FilesCase{"imports in a circle, and substitution across namespaces",
                  {{"a.xsd",
                    SchemaText("<xs:import namespace='urn:b' schemaLocation='b.xsd'/><xs:element name='h'/>"
                               "<xs:element name='r'><xs:complexType><xs:sequence><xs:element ref='a:h' "
                               "maxOccurs='2'/></xs:sequence></xs:complexType></xs:element>",
                               "targetNamespace='urn:a' xmlns:a='urn:a'")},
                   {"b.xsd", SchemaText("<xs:import namespace='urn:a' schemaLocation='a.xsd'/>"
                                        "<xs:element name='m' type='xs:int' substitutionGroup='a:h'/>",
                                        "targetNamespace='urn:b' xmlns:a='urn:a'")}},
                  {{"<r xmlns='urn:a' xmlns:b='urn:b'><b:m>1</b:m><h/></r>", ""},
                   {"<r xmlns='urn:a' xmlns:b='urn:b'><b:m>x</b:m></r>",
                    "The value [x] is not a valid int.\nPath: /r/b:m"}}},
        FilesCase{
            "redefine",
            {{"a.xsd", SchemaText("<xs:redefine schemaLocation='b.xsd'><xs:complexType name='t'>"
                                  "<xs:complexContent><xs:extension base='t'><xs:sequence>"
                                  "<xs:element name='b'/></xs:sequence></xs:extension></xs:complexContent>"
                                  "</xs:complexType></xs:redefine>")},
             {"b.xsd", SchemaText("<xs:complexType name='t'><xs:sequence><xs:element name='a'/></xs:sequence>"
                                  "</xs:complexType><xs:element name='r' type='t'/>")}},
            {{"<r><a/><b/></r>", ""},
             {"<r><a/></r>", "An element is missing; expected is [b].\nPath: /r"}}}));

TEST(ValidateTest, TellsAllFailuresAndPassesOverUnknownRoots) {
    Folder const folder;
    folder.Write("s.xsd",
                 SchemaText("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' "
                            "type='xs:int' maxOccurs='9'/></xs:sequence></xs:complexType></xs:element>"));
    Schemas const schemas(folder, {"s.xsd"});
    EXPECT_EQ(schemas.ValidateAll("<r><a>x</a><a>1</a><a>y</a><b/></r>"),
              "The value [x] is not a valid int.\nPath: /r/a[1]\nThe value [y] is not a valid int.\nPath: "
              "/r/a[3]\nThe element [b] is not expected here; expected is [a].\nPath: /r/b\n");
    EXPECT_EQ(schemas.Validate("<other/>", true), "");
    EXPECT_NE(schemas.Validate("<other/>", false), "");
}

} // namespace
