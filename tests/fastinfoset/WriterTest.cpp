// Fast Infoset documents out, octet by octet.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/fastinfoset/FastInfosetWriter.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Functions.h"
#include "zvxmllib/streams/ZvZip.h"

#include <gmock/gmock.h>

#include <cstdint>

namespace ZvXmlLib16 {
namespace {

struct Row {
    char const* what;
    WrittenObject::Body body;
    char const* octets; // behind the header
};

void Value(CXmlWriter& w, std::string const& text, ItemType type = ItemType_string) {
    w.WriteElementValue(text, type, false);
}

void Element(CXmlWriter& w, std::string const& name, std::string const& text = {},
             ItemType type = ItemType_string) {
    w.WriteElementStart(name, "");
    Value(w, text, type);
    w.WriteElementEnd();
}

void Attribute(CXmlWriter& w, std::string const& name, std::string const& value,
               ItemType type = ItemType_string) {
    w.WriteAttribute(name, "", value, type);
}

void ExpectRows(std::vector<Row> const& rows, CSerializationContext const& ctx = CSerializationContext()) {
    for (Row const& row : rows)
        EXPECT_EQ(FastInfosetOf(row.body, ctx), row.octets) << row.what;
}

// All rows write into a root "r", whose octets 38 F0 3C 00 72 are left out, as is the end of the document.
void ExpectContent(std::vector<Row> const& rows, CSerializationContext const& ctx = CSerializationContext()) {
    for (Row const& row : rows) {
        std::string const octets = FastInfosetOf(
            [&](CXmlWriter& w) {
                w.WriteElementStart("r", "");
                row.body(w);
                w.WriteElementEnd();
            },
            ctx);
        std::string const expected(row.octets);
        EXPECT_THAT(octets, testing::AnyOf("38 F0 3C 00 72 " + expected, "78 F0 3C 00 72 " + expected))
            << row.what;
    }
}

TEST(FastInfosetWriter, WritesElementsAttributesAndTexts) {
    ExpectRows({
        {"a root with nothing in it", [](CXmlWriter& w) { Element(w, "a"); }, "38 F0 3C 00 61 FF"},
        {"attribute and text",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Attribute(w, "x", "1");
             Value(w, "hi");
             w.WriteElementEnd();
         },
         "78 F0 3C 00 61 78 00 78 40 31 F0 91 68 69 FF"},
        {"attributes alone",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Attribute(w, "x", "1");
             Attribute(w, "y", "");
             w.WriteElementEnd();
         },
         "78 F0 3C 00 61 78 00 78 40 31 78 00 79 FF F0 FF"},
        {"comments, instructions and schemas leave no trace",
         [](CXmlWriter& w) {
             w.WriteProcessingInstruction("<?p?>");
             w.WriteComment("c");
             w.WriteElementStart("a", "");
             Attribute(w, "x", "1");
             w.WriteInlineSchema("<s/>");
             w.WriteComment("c");
             w.WriteProcessingInstruction("<?p?>");
             w.WriteElementEnd();
         },
         "78 F0 3C 00 61 78 00 78 40 31 F0 FF"},
        {"two texts in one element are two chunks",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Value(w, "p");
             Value(w, "p");
             w.WriteElementEnd();
         },
         "38 F0 3C 00 61 90 70 A0 FF"},
        {"nothing but a document", [](CXmlWriter&) {}, "F0"},
    });
}

TEST(FastInfosetWriter, JoinsTheEndsOfTwoElements) {
    ExpectContent({
        {"one child: its end and that of the root", [](CXmlWriter& w) { Element(w, "a"); }, "3C 00 61 FF F0"},
        {"a sibling follows the first end",
         [](CXmlWriter& w) {
             Element(w, "a");
             Element(w, "a");
         },
         "3C 00 61 F0 01 FF F0"},
        {"a text follows it",
         [](CXmlWriter& w) {
             Element(w, "a");
             Value(w, "x");
         },
         "3C 00 61 F0 90 78 FF"},
        {"an empty text does so, too",
         [](CXmlWriter& w) {
             Element(w, "a");
             Value(w, "");
         },
         "3C 00 61 F0 FF"},
        {"three ends",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Element(w, "b");
             w.WriteElementEnd();
         },
         "3C 00 61 3C 00 62 FF FF"},
        {"the end of attributes stands before the child",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             Attribute(w, "x", "1");
             Element(w, "b");
             w.WriteElementEnd();
         },
         "7C 00 61 78 00 78 40 31 F0 3C 00 62 FF FF"},
    });
}

TEST(FastInfosetWriter, WritesANameOnceAndThenItsIndex) {
    ExpectContent({
        {"elements",
         [](CXmlWriter& w) {
             Element(w, "a");
             Element(w, "r");
             Element(w, "a");
         },
         "3C 00 61 F0 00 F0 01 FF F0"},
        {"an element and an attribute share the local name only",
         [](CXmlWriter& w) {
             Attribute(w, "r", "1");
             w.WriteElementStart("r", "");
             Attribute(w, "r", "1");
             w.WriteElementEnd();
         },
         "78 80 40 31 F0 40 00 80 F0 FF F0"},
        {"an attribute with attributes ahead of it",
         [](CXmlWriter& w) {
             for (char const* name : {"a", "b"})
                 Attribute(w, name, "");
             w.WriteElementStart("r", "");
             for (char const* name : {"b", "a"})
                 Attribute(w, name, "");
             w.WriteElementEnd();
         },
         "78 00 61 FF 78 00 62 FF F0 40 01 FF 00 FF F0 FF F0"},
    });
}

TEST(FastInfosetWriter, NamesNamespaces) {
    CSerializationContext ctx;
    auto const xsi = Hex("http://www.w3.org/2001/XMLSchema-instance");
    ExpectRows({
        {"a made up alias stands in names and is declared nowhere",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "u");
             w.WriteElementStart("b", "u");
             w.WriteAttribute("c", "u", "1", ItemType_string);
             w.WriteElementEnd();
             w.WriteElementEnd();
         },
         "38 F0 3F 01 41 41 00 75 00 61 7F 81 81 00 62 7B 81 81 00 63 40 31 F0 FF F0"},
        {"aliases are declared by the root in the order of their namespaces",
         [](CXmlWriter& w) {
             w.AddNamespaceAlias("q", "v");
             w.AddNamespaceAlias("p", "u");
             w.AddNamespaceAlias("", "w");
             w.AddNamespaceAlias("x", "http://www.w3.org/XML/1998/namespace#more");
             w.WriteElementStart("a", "v");
             w.WriteElementStart("a", "u");
             w.WriteElementEnd();
             w.WriteElementEnd();
         },
         "38 CF 00 70 00 75 CF 00 71 00 76 F0 3F 82 82 00 61 3F 81 81 80 FF F0"},
        {"the default namespace needs no prefix, but for attributes",
         [](CXmlWriter& w) {
             w.SetDefaultNamespace("d");
             w.WriteElementStart("a", "d");
             w.WriteAttribute("b", "d", "1", ItemType_string);
             w.WriteElementStart("a", "");
             w.WriteElementEnd();
             w.WriteElementEnd();
         },
         "78 CD 00 64 F0 3D 81 00 61 7B 01 41 41 81 00 62 40 31 F0 3C 80 FF F0"},
        {"the XML namespace is there from the start",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             w.WriteAttribute("lang", "http://www.w3.org/XML/1998/namespace", "en", ItemType_string);
             w.WriteElementEnd();
         },
         "78 F0 3C 00 61 7B 80 80 03 6C 61 6E 67 41 65 6E F0 FF"},
        {"an alias ends with its element: the next one gets it, too",
         [](CXmlWriter& w) {
             w.WriteElementStart("a", "");
             for (char const* ns : {"u", "v"}) {
                 w.WriteElementStart("b", ns);
                 w.WriteElementEnd();
             }
             w.WriteElementEnd();
         },
         "38 F0 3C 00 61 3F 01 41 41 00 75 00 62 F0 3F 81 00 76 81 FF F0"},
    });
    EXPECT_EQ(FastInfosetOf([](CXmlWriter& w) {
                  w.WriteElementStart("a", "");
                  w.WriteTypeAttribute("u", "t", ItemType_string);
                  w.WriteNilAttribute();
                  w.WriteElementEnd();
              }),
              "78 F0 3C 00 61 7B 01 41 42 28 " + xsi +
                  " 03 74 79 70 65 43 41 41 3A 74 7B 81 81 02 6E 69 6C 43 74 72 75 65 F0 FF");
    EXPECT_EQ(FastInfosetOf([](CXmlWriter& w) {
                  w.SetDefaultNamespace("u");
                  w.WriteElementStart("a", "u");
                  w.WriteTypeAttribute("u", "t", ItemType_string);
                  w.WriteElementEnd();
              }),
              "78 CD 00 75 F0 3D 81 00 61 7B 01 41 41 28 " + xsi + " 03 74 79 70 65 40 74 F0 FF");
}

TEST(FastInfosetWriter, IndexesShortValues) {
    std::vector<Row> const rows = {
        {"an attribute value of five characters",
         [](CXmlWriter& w) {
             Attribute(w, "a", "12345");
             Attribute(w, "b", "12345");
         },
         "78 00 61 44 31 32 33 34 35 78 00 62 80 F0 FF"},
        {"of six",
         [](CXmlWriter& w) {
             Attribute(w, "a", "123456");
             Attribute(w, "b", "123456");
         },
         "78 00 61 05 31 32 33 34 35 36 78 00 62 05 31 32 33 34 35 36 F0 FF"},
        {"a text of five characters",
         [](CXmlWriter& w) {
             Element(w, "a", "12345");
             Element(w, "a", "12345");
         },
         "3C 00 61 92 02 31 32 33 34 35 F0 01 A0 FF F0"},
        {"of six",
         [](CXmlWriter& w) {
             Element(w, "a", "123456");
             Element(w, "a", "123456");
         },
         "3C 00 61 82 03 31 32 33 34 35 36 F0 01 82 03 31 32 33 34 35 36 FF F0"},
        {"attributes and texts have a table each",
         [](CXmlWriter& w) {
             Attribute(w, "a", "1");
             Value(w, "1");
             Value(w, "1");
         },
         "78 00 61 40 31 F0 90 31 A0 FF"},
    };
    ExpectContent(rows);

    CSerializationContext none;
    none.GetFIContext().SetAttributeMaxAddLength(0);
    none.GetFIContext().SetElementMaxAddLength(0);
    ExpectContent({{"nothing is indexed",
                    [](CXmlWriter& w) {
                        Attribute(w, "a", "1");
                        Attribute(w, "b", "1");
                        Value(w, "1");
                        Value(w, "1");
                    },
                    "78 00 61 00 31 78 00 62 00 31 F0 80 31 80 31 FF"}},
                  none);
    CSerializationContext all;
    all.GetFIContext().SetAttributeMaxAddLength(0xFFFFFFFF);
    all.GetFIContext().SetElementMaxAddLength(0xFFFFFFFF);
    ExpectContent({{"everything is",
                    [](CXmlWriter& w) {
                        Attribute(w, "a", "123456789");
                        Attribute(w, "b", "123456789");
                        Value(w, "123456789");
                        Value(w, "123456789");
                    },
                    "78 00 61 48 00 31 32 33 34 35 36 37 38 39 78 00 62 80 F0 "
                    "92 06 31 32 33 34 35 36 37 38 39 A0 FF"}},
                  all);
}

TEST(FastInfosetWriter, WritesSuggestedEncodings) {
    CSerializationContext ctx;
    ctx.GetFIContext().SetSuggestedValues();
    ExpectContent(
        {
            {"decimals, odd and even",
             [](CXmlWriter& w) {
                 Attribute(w, "a", "-1.5e", ItemType_decimal);
                 Value(w, "12.5", ItemType_decimal);
             },
             "78 00 61 60 02 A1 C5 DF F0 98 01 12 C5 FF"},
            {"date and time",
             [](CXmlWriter& w) {
                 Attribute(w, "a", "2024-02-29T12:00:00Z", ItemType_datetime);
                 Value(w, "2024-02-29", ItemType_date);
             },
             "78 00 61 20 18 01 20 24 A0 2A 29 C1 2B 00 B0 0D F0 88 06 02 20 24 A0 2A 29 FF"},
            {"booleans",
             [](CXmlWriter& w) {
                 w.WriteNilAttribute();
                 Value(w, "false", ItemType_boolean);
             },
             "7B 01 41 41 28 68 74 74 70 3A 2F 2F 77 77 77 2E 77 33 2E 6F 72 67 2F 32 30 30 31 2F 58 4D 4C "
             "53 "
             "63 68 65 6D 61 2D 69 6E 73 74 61 6E 63 65 02 6E 69 6C 70 50 38 F0 9C 14 30 FF"},
            {"an integer that is indexed by its text",
             [](CXmlWriter& w) {
                 Attribute(w, "a", "258", ItemType_i4);
                 Attribute(w, "b", "258", ItemType_string);
                 Value(w, "258", ItemType_i2);
             },
             "78 00 61 70 33 00 00 01 02 78 00 62 80 F0 9C 09 01 02 FF"},
            {"bytes",
             [](CXmlWriter& w) {
                 Attribute(w, "a", "0aFF", ItemType_hexBinary);
                 Value(w, "YWJj", ItemType_base64Binary);
             },
             "78 00 61 70 01 0A FF F0 9C 06 00 61 62 63 FF"},
            {"durations and strings are texts",
             [](CXmlWriter& w) {
                 Attribute(w, "a", "P1D", ItemType_duration);
                 Value(w, "12", ItemType_string);
             },
             "78 00 61 42 50 31 44 F0 91 31 32 FF"},
            {"what has no octets is the empty value, and is not indexed",
             [](CXmlWriter& w) {
                 Attribute(w, "a", "  ", ItemType_base64Binary);
                 Value(w, "  ", ItemType_base64Binary);
                 Value(w, "  ", ItemType_string);
             },
             "78 00 61 FF F0 91 20 20 FF"},
        },
        ctx);
}

// The ten algorithms and the two alphabets by the numbers that stand in the document.
TEST(FastInfosetWriter, WritesTheIndexAcrossTwoOctets) {
    struct Encoding {
        std::uint32_t type, index;
        char const* value;
        char const* attribute;
        char const* chunk;
    };
    for (Encoding const& row :
         {Encoding{1, 1, "12", "20 00 12", "88 00 12"}, Encoding{1, 2, "1Z", "20 10 1D", "88 04 1D"},
          Encoding{2, 1, "0A", "30 00 0A", "8C 00 0A"}, Encoding{2, 2, "YQ==", "30 10 61", "8C 04 61"},
          Encoding{2, 3, "-2", "30 21 FF FE", "8C 09 FF FE"},
          Encoding{2, 4, "1", "30 33 00 00 00 01", "8C 0E 01 00 00 00 01"},
          Encoding{2, 5, "1", "30 47 00 00 00 00 00 00 00 01", "8C 12 05 00 00 00 00 00 00 00 01"},
          Encoding{2, 6, "1", "30 50 38", "8C 14 38"},
          Encoding{2, 7, "1", "30 63 3F 80 00 00", "8C 1A 01 3F 80 00 00"},
          Encoding{2, 8, "1", "30 77 3F F0 00 00 00 00 00 00", "8C 1E 05 3F F0 00 00 00 00 00 00"},
          Encoding{2, 9, "0102", "30 81 01 02", "8C 21 01 02"},
          Encoding{2, 10, "ab", "30 91 61 62", "8C 25 61 62"}}) {
        CSerializationContext ctx;
        ctx.GetFIContext().SetAttributeMaxAddLength(0);
        ctx.GetFIContext().SetElementMaxAddLength(0);
        ctx.GetFIContext().SetEncoding(ItemType_string, {row.type, row.index});
        EXPECT_EQ(FastInfosetOf(
                      [&](CXmlWriter& w) {
                          w.WriteElementStart("a", "");
                          Attribute(w, "b", row.value);
                          Value(w, row.value);
                          w.WriteElementEnd();
                      },
                      ctx),
                  std::string("78 F0 3C 00 61 78 00 62 ") + row.attribute + " F0 " + row.chunk + " FF")
            << row.type << ' ' << row.index;
    }
}

TEST(FastInfosetWriter, HeadsTheDocument) {
    auto const nothing = [](CXmlWriter&) {};
    CSerializationContext ctx;
    for (auto const& [declaration, text] :
         {std::pair(FInfoDecl_None, ""), std::pair(FInfoDecl_Plain, "<?xml encoding='finf'?>"),
          std::pair(FInfoDecl_StandaloneYes, "<?xml encoding='finf' standalone='yes'?>"),
          std::pair(FInfoDecl_StandaloneNo, "<?xml encoding='finf' standalone='no'?>"),
          std::pair(FInfoDecl_Version10, "<?xml version='1.0' encoding='finf'?>"),
          std::pair(FInfoDecl_Version10StandaloneYes,
                    "<?xml version='1.0' encoding='finf' standalone='yes'?>"),
          std::pair(FInfoDecl_Version10StandaloneNo, "<?xml version='1.0' encoding='finf' standalone='no'?>"),
          std::pair(FInfoDecl_Version11, "<?xml version='1.1' encoding='finf'?>"),
          std::pair(FInfoDecl_Version11StandaloneYes,
                    "<?xml version='1.1' encoding='finf' standalone='yes'?>"),
          std::pair(FInfoDecl_Version11StandaloneNo,
                    "<?xml version='1.1' encoding='finf' standalone='no'?>")})
        EXPECT_EQ(FastInfosetBytes(nothing, ctx, declaration),
                  text + std::string("\xE0\x00\x00\x01\x00\xF0", 6));

    ctx.GetFIContext().SetUseGeneratedVocabulary(true);
    EXPECT_EQ(FastInfosetBytes(nothing, ctx),
              std::string("\xE0\x00\x00\x01\x20\x10\x00\x16", 8) + "urn:zvxmllib:vocabulary" + "\xF0");
    ctx.GetFIContext().SetExternalVocabularyURI(std::string(65, 'u'));
    EXPECT_EQ(FastInfosetBytes(nothing, ctx),
              std::string("\xE0\x00\x00\x01\x20\x10\x00\x40\x00", 9) + std::string(65, 'u') + "\xF0");
}

TEST(FastInfosetWriter, BeginsWithTheVocabularyOfTheContext) {
    CSerializationContext ctx;
    CFIVocabulary& vocabulary = *ctx.GetFIContext().GetVocabulary();
    vocabulary.AddElement("p", "u", "a");
    vocabulary.AddElement("", "", "b");
    vocabulary.AddAttribute("", "", "c");
    vocabulary.AddAttributeValue("long value of an attribute");
    vocabulary.AddElementValue("v");
    auto const body = [](CXmlWriter& w) {
        w.AddNamespaceAlias("p", "u");
        w.WriteElementStart("a", "u");
        w.WriteElementStart("b", "");
        Attribute(w, "c", "x");
        Attribute(w, "d", "long value of an attribute");
        Value(w, "v");
        w.WriteElementEnd();
        w.WriteElementEnd();
    };
    std::string const longValue = Hex("long value of an attribute");
    EXPECT_EQ(FastInfosetOf(body, ctx),
              "38 CF 00 70 00 75 F0 3F 81 81 00 61 7C 00 62 78 00 63 40 78 78 00 64 "
              "08 11 " +
                  longValue + " F0 90 76 FF F0");
    ctx.GetFIContext().SetUseGeneratedVocabulary(true);
    ctx.GetFIContext().SetAttributeMaxAddLength(100);
    std::string const begin =
        Hex(std::string("\xE0\x00\x00\x01\x20\x10\x00\x16", 8) + "urn:zvxmllib:vocabulary");
    // A value that the vocabulary gives and one that the document adds are numbered in one row; each document
    // begins anew.
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Hex(FastInfosetBytes(body, ctx)),
                  begin + " 38 CF 81 81 F0 00 41 00 40 78 78 00 64 80 F0 A0 FF F0");
}

TEST(FastInfosetWriter, WritesUtf8WhateverLocalTextIs) {
    auto const body = [](std::string const& text) {
        return [text](CXmlWriter& w) {
            w.WriteElementStart(text, "");
            Attribute(w, "a", text);
            Value(w, text);
            w.WriteElementEnd();
        };
    };
    struct Text {
        unsigned page;
        bool asciiOnly;
        char const* local;
        char const* name; // with their lengths
        char const* value;
        char const* chunk;
    };
    for (Text const& row : {Text{65001, false, "\xC3\xA9", "01 C3 A9", "41 C3 A9", "91 C3 A9"},
                            Text{28591, false, "\xE9", "01 C3 A9", "41 C3 A9", "91 C3 A9"},
                            Text{1252, false, "\x80", "02 E2 82 AC", "42 E2 82 AC", "92 00 E2 82 AC"},
                            Text{65001, false, "\xE9", "02 EF BF BD", "42 EF BF BD", "92 00 EF BF BD"},
                            Text{28591, true, "\xE9", "00 E9", "40 E9", "90 E9"}}) {
        LocalEncoding const encoding(row.page, row.asciiOnly);
        EXPECT_EQ(FastInfosetOf(body(row.local)),
                  std::string("78 F0 3C ") + row.name + " 78 00 61 " + row.value + " F0 " + row.chunk + " FF")
            << row.page;
    }
}

TEST(FastInfosetWriter, CutsTextAtAZero) {
    EXPECT_EQ(FastInfosetOf([](CXmlWriter& w) {
                  w.WriteElementStart("a", "");
                  Attribute(w, "x", std::string("1\0002", 3));
                  Attribute(w, "y", std::string("\0002", 2));
                  Value(w, std::string("\0", 1));
                  w.WriteElementEnd();
              }),
              "78 F0 3C 00 61 78 00 78 40 31 78 00 79 FF F0 FF");
}

TEST(FastInfosetWriter, TellsWhatCannotBeWritten) {
    struct Failure {
        char const* message;
        ItemType type;
        CFastInfosetContext::EncodedCharacterString encoding;
        WrittenObject::Body body;
    };
    auto const attribute = [](char const* value, ItemType type) {
        return [=](CXmlWriter& w) {
            w.WriteElementStart("a", "");
            Attribute(w, "b", value, type);
        };
    };
    auto const text = [](char const* value, ItemType type) {
        return [=](CXmlWriter& w) {
            w.WriteElementStart("a", "");
            Value(w, value, type);
        };
    };
    for (Failure const& row : {
             Failure{"Attributes must be added before elements",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) {
                         w.WriteElementStart("a", "");
                         Element(w, "b");
                         Attribute(w, "c", "1");
                     }},
             Failure{"Attributes must be added before elements",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) {
                         w.WriteElementStart("a", "");
                         Attribute(w, "b", "1");
                         Value(w, "x");
                         w.WriteNilAttribute();
                     }},
             Failure{"Attributes must be added before elements",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) {
                         w.WriteElementStart("a", "");
                         w.WriteProcessingInstruction("<?p?>"); // which settled that there are none
                         w.WriteTypeAttribute("u", "t", ItemType_string);
                     }},
             Failure{"Attributes must be added before elements",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) { w.WriteNilAttribute(); }},
             Failure{"A value must be written inside an element.",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) { Value(w, "x"); }},
             Failure{"There is no open element to be closed.",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) { w.WriteElementEnd(); }},
             Failure{"An Element has not been closed.",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) { w.WriteElementStart("a", ""); }},
             Failure{"Failed to write FastInfoset. A name is empty.",
                     ItemType_string,
                     {},
                     [](CXmlWriter& w) { Element(w, ""); }},
             Failure{"Failed to write FastInfoset. Invalid Restricted Alphabet value [0]",
                     ItemType_string,
                     {1, 0},
                     attribute("1", ItemType_string)},
             Failure{"Failed to write FastInfoset. Invalid Restricted Alphabet value [3]",
                     ItemType_string,
                     {1, 3},
                     text("1", ItemType_string)},
             Failure{"Failed to write FastInfoset. Invalid Encoding Algorithm value [0]",
                     ItemType_string,
                     {2, 0},
                     text("1", ItemType_string)},
             Failure{"Failed to write FastInfoset. Invalid Encoding Algorithm value [11]",
                     ItemType_string,
                     {2, 11},
                     attribute("1", ItemType_string)},
             Failure{"Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit5.",
                     ItemType_string,
                     {3, 1},
                     attribute("1", ItemType_string)},
             Failure{"Failed to write FastInfoset. Unknown encoding in EncodedCharacterStringBit7.",
                     ItemType_string,
                     {3, 1},
                     text("1", ItemType_string)},
             Failure{"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.",
                     ItemType_datetime,
                     {1, 2},
                     text("2024-02-29T12:00:00.5Z", ItemType_datetime)},
             Failure{"Failed to write FastInfoset. Invalid character not found for Restricted Alphabet.",
                     ItemType_datetime,
                     {1, 2},
                     attribute("2024-02-29T12:00:00+01:00", ItemType_datetime)},
             Failure{"Item type [29] has no Fast Infoset encoding.",
                     ItemType_string,
                     {},
                     text("1", static_cast<ItemType>(29))},
         }) {
        CSerializationContext ctx;
        ctx.GetFIContext().SetEncoding(row.type, row.encoding);
        auto const write = [&] { FastInfosetOf(row.body, ctx); };
        std::string const message = row.body && std::string_view(row.message).substr(0, 4) == "Item"
                                        ? MessageOf<CZvInvalidParamException>(write)
                                        : MessageOf<CZvException>(write);
        EXPECT_EQ(message, row.message);
    }
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    for (int const declaration : {-1, 10})
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      object->ToFastInfosetStream(static_cast<FInfoDecl>(declaration),
                                                  CSerializationContext(), CompressionType_None);
                  }),
                  "Invalid FastInfoset declaration.");
}

TEST(FastInfosetWriter, FailsAsTheConversionOfAValueDoes) {
    struct Failure {
        std::uint32_t algorithm;
        char const* text;
        char const* message;
    };
    for (Failure const& row : {Failure{3, "70000", "The value [70000] is to large to fit in a i2"},
                               Failure{5, "18446744073709551615",
                                       "The value [18446744073709551615] is to large to fit in a i8"}}) {
        CSerializationContext ctx;
        ctx.GetFIContext().SetEncoding(ItemType_string, {2, row.algorithm});
        EXPECT_EQ(MessageOf<CZvInvalidValueException>(
                      [&] { FastInfosetOf([&](CXmlWriter& w) { Element(w, "a", row.text); }, ctx); }),
                  row.message);
    }
}

TEST(FastInfosetWriter, GivesFilesAndCompressedStreams) {
    CSmartPtr<WrittenObject> const object(
        new WrittenObject([](CXmlWriter& w) { Element(w, "a", std::string(500, 'x')); }));
    CSerializationContext const ctx;
    std::string const plain = TextOf(object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None));
    for (CompressionType const compression : {CompressionType_GZip, CompressionType_ZLib}) {
        CBinaryData data = object->ToFastInfosetStream(FInfoDecl_None, ctx, compression);
        CBinaryData decompressed;
        ASSERT_TRUE(CZvZip::TryDecompress(data.GetData(), data.GetLength(), decompressed)) << compression;
        EXPECT_EQ(Hex(TextOf(decompressed)), Hex(plain));
    }
    TemporaryFile const file;
    object->ToFastInfosetFile(file.Path(), FInfoDecl_None, ctx, CompressionType_None);
    EXPECT_EQ(Hex(file.Content()), Hex(plain));
    EXPECT_EQ(MessageOf<CZvException>(
                  [&] { object->ToFastInfosetFile(file.Path(), FInfoDecl_None, ctx, CompressionType_ZLib); }),
              "ZLIB Compression only available for To Stream methods.");
    EXPECT_EQ(Hex(file.Content()), Hex(plain));
}

std::string g_trace;

TEST(FastInfosetWriter, TracesItsCalls) {
    g_trace.clear();
    DebugTraceSink const before = SetDebugTraceSink([](char const* text) { g_trace += text; });
    FastInfosetOf([](CXmlWriter& w) {
        w.WriteElementStart("a", "u");
        Attribute(w, "x", "1");
        w.WriteTypeAttribute("v", "t", ItemType_string);
        w.WriteElementStart("b", "");
        Value(w, "text");
        w.WriteElementEnd();
        w.WriteElementEnd();
    });
    SetDebugTraceSink(before);
    EXPECT_EQ(g_trace, "Root Elm: u::a\n"
                       "Add Att: ::x\nAtt Val: 1\n"
                       "Add Att: AC http://www.w3.org/2001/XMLSchema-instance::type\nAtt Val: AB:t\n"
                       "New Elm: ::b\nElm Val: text\nEnd Elm: ::b\nEnd Elm: u::a\n");
}

} // namespace
} // namespace ZvXmlLib16
