// Documents against a schema that has something of everything: one that fails at its first failure also fails
// where all are collected, and the other way round.
#include "SchemaFile.h"

#include <limits>

namespace {

constexpr char const kSchema[] = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns="urn:t"
 targetNamespace="urn:t" elementFormDefault="qualified">
<xs:element name="r"><xs:complexType><xs:sequence>
 <xs:choice minOccurs="0" maxOccurs="unbounded">
  <xs:element name="a" type="b" nillable="true"/><xs:element ref="h"/><xs:element name="v" type="values"/>
  <xs:sequence minOccurs="2" maxOccurs="3"><xs:element name="s" minOccurs="2" maxOccurs="3"/></xs:sequence>
 </xs:choice>
 <xs:element name="m" minOccurs="0"><xs:complexType mixed="true"><xs:choice minOccurs="0" maxOccurs="9">
  <xs:element ref="r"/><xs:any namespace="##other" processContents="lax"/></xs:choice></xs:complexType></xs:element>
 <xs:element name="l" minOccurs="0"><xs:complexType><xs:all><xs:element name="x" type="xs:decimal"/>
  <xs:element name="y" type="xs:int" minOccurs="0" default="1"/></xs:all></xs:complexType></xs:element>
</xs:sequence><xs:anyAttribute processContents="lax"/></xs:complexType>
<xs:key name="K"><xs:selector xpath=".//*"/><xs:field xpath="@k"/></xs:key>
<xs:keyref name="F" refer="K"><xs:selector xpath="*"/><xs:field xpath="@f"/></xs:keyref>
</xs:element>
<xs:complexType name="b"><xs:sequence><xs:element name="c" type="xs:dateTime" minOccurs="0"/></xs:sequence>
 <xs:attribute name="k" type="xs:decimal"/><xs:attribute name="f" type="xs:decimal"/>
 <xs:attribute name="i" type="xs:ID"/><xs:attribute name="j" type="xs:IDREFS"/></xs:complexType>
<xs:complexType name="e"><xs:complexContent><xs:extension base="b"><xs:sequence>
 <xs:element name="d" type="xs:duration" maxOccurs="9999999999"/></xs:sequence>
 <xs:attribute name="q" type="xs:QName"/></xs:extension></xs:complexContent></xs:complexType>
<xs:element name="h" type="xs:anySimpleType" abstract="true"/>
<xs:element name="n" type="xs:base64Binary" substitutionGroup="h"/>
<xs:simpleType name="word"><xs:restriction base="xs:token"><xs:pattern value="\p{Lu}\i*(-\d{1,3})?"/>
 <xs:maxLength value="9"/></xs:restriction></xs:simpleType>
<xs:simpleType name="values"><xs:list><xs:simpleType><xs:union memberTypes="xs:double word xs:gYear"/>
 </xs:simpleType></xs:list></xs:simpleType>
</xs:schema>)";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    static std::unique_ptr<schema::Schema> const schema = ReadSchemaText(kSchema);
    static grammar::Grammar const grammar(schema->GetRows());
    std::string const xml(TextOf(data, size));
    CSerializationContext first;
    CSerializationContext all;
    all.SetFailureLimit(std::numeric_limits<std::size_t>::max());
    Require(IsValid(grammar, xml, first) == IsValid(grammar, xml, all));
    return 0;
}
