// Enumerations whose numbers pass between generated code and the library. The underlying types are fixed, so
// a value out of range is well-defined and can be refused.
#pragma once

#include <cstdint>

namespace ZvXmlLib16 {

// The encoding of text as bytes.
enum XmlEncoding : std::int32_t {
    XmlEncoding_None = 0,               // no encoding chosen: text stays in the local encoding
    XmlEncoding_UTF8 = 1,               // no byte order mark
    XmlEncoding_UTF16 = 2,              // little-endian; files begin with FF FE
    XmlEncoding_UTF16NoDeclaration = 3, // as UTF-16, but the XML declaration names no encoding
};

// How lines end in text that is written.
enum EOLType : std::int32_t {
    EOLType_CRLF = 0,
    EOLType_LF = 1,
};

// Both compressed forms use the fastest level.
enum CompressionType : std::int32_t {
    CompressionType_None = 0,
    CompressionType_GZip = 1, // stream and file forms
    CompressionType_ZLib = 2, // stream forms only
};

// The XML declaration that heads a Fast Infoset document (X.891 clause 12.3).
enum FInfoDecl : std::int32_t {
    FInfoDecl_None = 0,
    FInfoDecl_Plain = 1,
    FInfoDecl_StandaloneYes = 2,
    FInfoDecl_StandaloneNo = 3,
    FInfoDecl_Version10 = 4,
    FInfoDecl_Version10StandaloneYes = 5,
    FInfoDecl_Version10StandaloneNo = 6,
    FInfoDecl_Version11 = 7,
    FInfoDecl_Version11StandaloneYes = 8,
    FInfoDecl_Version11StandaloneNo = 9,
};

// The kind of schema behind the bound classes.
enum SchemaType : std::int32_t {
    SchemaType_Namespaces = 0,
    SchemaType_Reserved = 1,     // behaves as SchemaType_Namespaces
    SchemaType_NoNamespaces = 2, // the parser does no namespace processing
};

// What a class or a metadata entry stands for.
enum XmlElementType : std::int32_t {
    XmlElementType_Element = 0, // has a start and an end tag
    XmlElementType_Pseudo = 1,  // a model group: its content stands in the enclosing element
};

// The content model of a generated class.
enum XmlElementGroupType : std::int32_t {
    XmlElementGroupType_Sequence = 0,
    XmlElementGroupType_Choice = 1,
    XmlElementGroupType_All = 2,
};

// The primitive types of the library.
enum ItemType : std::uint32_t {
    ItemType_invalid = 0,
    ItemType_hexBinary = 1,
    ItemType_base64Binary = 2,
    ItemType_i1 = 3,
    ItemType_i2 = 4,
    ItemType_i4 = 5,
    ItemType_i8 = 6,
    ItemType_ui1 = 7,
    ItemType_ui2 = 8,
    ItemType_ui4 = 9,
    ItemType_ui8 = 10,
    ItemType_r4 = 11,
    ItemType_r8 = 12,
    ItemType_duration = 13,
    ItemType_yearMonth = 14,
    ItemType_monthDay = 15,
    ItemType_year = 16,
    ItemType_month = 17,
    ItemType_day = 18,
    ItemType_date = 19,
    ItemType_datetime = 20,
    ItemType_time = 21,
    ItemType_char = 22,
    ItemType_string = 23,
    ItemType_boolean = 24,
    ItemType_decimal = 25,
    ItemType_integer = 26,
    ItemType_XmlObjectBase = 27,
    ItemType_XmlCollection = 28,
};

} // namespace ZvXmlLib16
