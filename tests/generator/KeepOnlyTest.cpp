// A part of a schema judges like the whole.
#include "SchemaTestSupport.h"

#include "schema/mapping/Mapping.h"
#include "schema/model/KeepOnly.h"

namespace {

using namespace schema_test;

char const* const kOrders = R"(
<xs:complexType name='Base'><xs:sequence><xs:element name='n' type='o:Num' maxOccurs='2'/></xs:sequence>
  <xs:attribute name='k' type='o:Un'/></xs:complexType>
<xs:complexType name='Gone'><xs:complexContent><xs:extension base='o:Base'><xs:sequence>
  <xs:element name='d' type='xs:int'/></xs:sequence></xs:extension></xs:complexContent></xs:complexType>
<xs:complexType name='Shape' abstract='true'><xs:sequence/></xs:complexType>
<xs:complexType name='Circle'><xs:complexContent><xs:extension base='o:Shape'>
  <xs:attribute name='r' type='xs:double'/></xs:extension></xs:complexContent></xs:complexType>
<xs:simpleType name='Gone2'><xs:restriction base='xs:token'><xs:enumeration value='x'/></xs:restriction></xs:simpleType>
<xs:simpleType name='Num'><xs:restriction base='xs:int'><xs:maxInclusive value='10'/></xs:restriction></xs:simpleType>
<xs:simpleType name='Word'><xs:restriction base='xs:token'><xs:enumeration value='all'/></xs:restriction></xs:simpleType>
<xs:simpleType name='Un'><xs:union memberTypes='o:Num o:Word'/></xs:simpleType>
<xs:element name='lost' type='o:Gone2'><xs:key name='L'><xs:selector xpath='.'/><xs:field xpath='@x'/></xs:key></xs:element>
<xs:element name='head' abstract='true'/>
<xs:element name='member' type='o:Base' substitutionGroup='o:head'/>
<xs:element name='second' type='o:Base' substitutionGroup='o:member'/>
<xs:element name='lost2' type='o:Gone'/>
<xs:element name='root'><xs:complexType>
  <xs:sequence><xs:element name='p' type='o:Base' maxOccurs='9'/><xs:choice><xs:element ref='o:head'/>
    <xs:any namespace='urn:x urn:y' processContents='skip'/></xs:choice>
    <xs:element name='shape' type='o:Shape' minOccurs='0'/></xs:sequence>
  <xs:anyAttribute namespace='urn:z' processContents='skip'/></xs:complexType>
  <xs:keyref name='R' refer='o:K'><xs:selector xpath='member|second'/><xs:field xpath='@k'/></xs:keyref>
  <xs:key name='K'><xs:selector xpath='p'/><xs:field xpath='@k'/></xs:key></xs:element>)";

TEST(KeepOnly, JudgesDocumentsOfThePartAsTheWholeDoes) {
    Folder const folder;
    folder.Write("s.xsd", SchemaText(kOrders, "xmlns:o='urn:o' targetNamespace='urn:o'"));
    Schemas const whole(folder, {"s.xsd"});
    schema::Diagnostics diagnostics;
    auto const part = schema::ReadSchemas({folder.Of("s.xsd")}, {}, diagnostics);
    EXPECT_EQ(schema::KeepOnly(*part, {"root", "nothing"}), "nothing");
    auto const kept = schema::ReadSchemas({folder.Of("s.xsd")}, {}, diagnostics);
    ASSERT_EQ(schema::KeepOnly(*kept, {"{urn:o}root", "root"}), "");
    schema::NameTable names;
    EXPECT_EQ(schema::Mapping(*kept, {}, "s", names, diagnostics).Dump(), R"(enum o::Word s.xsd:11
  All = "all"
class o::CBase s.xsd:2
  N value n i4 *
  K attribute k text
class o::CShape abstract s.xsd:6
class o::CCircle : o::CShape s.xsd:7
  R attribute r r8
class o::CRoot s.xsd:18
  P object p CBase *
  Head object head
  Shape object shape CShape
document o::Root root
)");
    Schemas const reduced(*kept);
    std::string const p = "<p k='1'><n>10</n></p>";
    for (std::string const& content :
         {p + "<o:member k='1'><n>1</n></o:member>", p + "<o:second k='01'><n>1</n><n>2</n></o:second>",
          p + "<o:second k='2'><n>1</n></o:second>", p + "<o:second k='none'><n>1</n></o:second>",
          p + "<o:head/>", p + "<z xmlns='urn:y'/>", p + "<z xmlns='urn:z'/>", p + p + "<z xmlns='urn:x'/>",
          p + "<z xmlns='urn:x'/><shape xsi:type='o:Circle' r='1.5'/>", p + "<z xmlns='urn:x'/><shape/>",
          std::string("<p k='all'><n>11</n></p><z xmlns='urn:x'/>"),
          std::string("<p><n>1</n></p><z xmlns='urn:x'/>")}) {
        std::string const document = "<o:root xmlns:o='urn:o'>" + content + "</o:root>";
        EXPECT_EQ(reduced.Validate(document), whole.Validate(document)) << content;
    }
    EXPECT_EQ(reduced.Validate("<o:root xmlns:o='urn:o'><p xsi:type='o:Gone'><n>1</n></p></o:root>"),
              "There is no type [o:Gone].\nPath: /o:root/p");
}

} // namespace
