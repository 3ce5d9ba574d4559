// Fast Infoset documents out, octet by octet.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/fastinfoset/FastInfosetWriter.h"
#include "zvxmllib/foundation/DebugTrace.h"

#include <gmock/gmock.h>

#include <cstdint>

namespace ZvXmlLib16 {
namespace {

// Of octets behind the header.
void ExpectRows(std::string const& section) {
    for (auto const& row : Vectors("fastinfoset.txt", section))
        EXPECT_EQ(FastInfosetOf(Script(row[1])), row[2]) << row[0];
}

// What is written into a root "r", whose octets are left out, as is the mark that it has attributes.
std::string ContentOf(WrittenObject::Body const& body,
                      CSerializationContext const& ctx = CSerializationContext()) {
    std::string const octets = FastInfosetOf(
        [&](CXmlWriter& w) {
            w.WriteElementStart("r", "");
            body(w);
            w.WriteElementEnd();
        },
        ctx);
    EXPECT_THAT(octets.substr(0, 15), testing::AnyOf("38 F0 3C 00 72 ", "78 F0 3C 00 72 "));
    return octets.substr(15);
}

void ExpectContent(std::string const& section) {
    for (auto const& row : Vectors("fastinfoset.txt", section))
        EXPECT_EQ(ContentOf(Script(row[1])), row[2]) << row[0];
}

void LimitIndexed(CSerializationContext& ctx, std::uint32_t length) {
    ctx.GetFIContext().SetAttributeMaxAddLength(length);
    ctx.GetFIContext().SetElementMaxAddLength(length);
}

TEST(FastInfosetWriter, WritesElementsAttributesAndTexts) {
    ExpectRows("writes elements attributes and texts: what, script, octets");
}

TEST(FastInfosetWriter, JoinsTheEndsOfTwoElements) {
    ExpectContent("joins the ends of two elements: what, script, octets");
}

TEST(FastInfosetWriter, WritesANameOnceAndThenItsIndex) {
    ExpectContent("writes a name once and then its index: what, script, octets");
}

TEST(FastInfosetWriter, NamesNamespaces) {
    ExpectRows("names namespaces: what, script, octets");
}

TEST(FastInfosetWriter, IndexesShortValues) {
    ExpectContent("indexes short values: what, script, octets");
    CSerializationContext ctx;
    LimitIndexed(ctx, 0);
    EXPECT_EQ(ContentOf(Script("@a=1 @b=1 '1' '1'"), ctx), "78 00 61 00 31 78 00 62 00 31 F0 80 31 80 31 FF");
    LimitIndexed(ctx, 0xFFFFFFFF);
    EXPECT_EQ(ContentOf(Script("@a=123456789 @b=123456789 '123456789' '123456789'"), ctx),
              "78 00 61 48 00 31 32 33 34 35 36 37 38 39 78 00 62 80 F0 "
              "92 06 31 32 33 34 35 36 37 38 39 A0 FF");
}

TEST(FastInfosetWriter, WritesSuggestedEncodings) {
    CSerializationContext ctx;
    ctx.GetFIContext().SetSuggestedValues();
    struct Typed {
        char const* what;
        ItemType attributeType;
        char const* attribute;
        ItemType textType;
        char const* text;
        char const* octets;
    };
    for (Typed const& row :
         {Typed{"decimals, odd and even", ItemType_decimal, "-1.5e", ItemType_decimal, "12.5",
                "78 00 61 60 02 A1 C5 DF F0 98 01 12 C5 FF"},
          Typed{"date and time", ItemType_datetime, "2024-02-29T12:00:00Z", ItemType_date, "2024-02-29",
                "78 00 61 20 18 01 20 24 A0 2A 29 C1 2B 00 B0 0D F0 88 06 02 20 24 A0 2A 29 FF"},
          Typed{"bytes", ItemType_hexBinary, "0aFF", ItemType_base64Binary, "YWJj",
                "78 00 61 70 01 0A FF F0 9C 06 00 61 62 63 FF"},
          Typed{"durations and strings are texts", ItemType_duration, "P1D", ItemType_string, "12",
                "78 00 61 42 50 31 44 F0 91 31 32 FF"},
          Typed{"what has no octets is the empty value", ItemType_base64Binary, "  ", ItemType_base64Binary,
                "  ", "78 00 61 FF F0 FF"}})
        EXPECT_EQ(ContentOf(
                      [&](CXmlWriter& w) {
                          w.WriteAttribute("a", "", row.attribute, row.attributeType);
                          w.WriteElementValue(row.text, row.textType, false);
                      },
                      ctx),
                  row.octets)
            << row.what;
    EXPECT_EQ(ContentOf(
                  [](CXmlWriter& w) {
                      w.WriteNilAttribute();
                      w.WriteElementValue("false", ItemType_boolean, false);
                  },
                  ctx),
              "7B 01 41 41 28 " + Hex("http://www.w3.org/2001/XMLSchema-instance") +
                  " 02 6E 69 6C 70 50 38 F0 9C 14 30 FF");
    EXPECT_EQ(ContentOf(
                  [](CXmlWriter& w) {
                      w.WriteAttribute("a", "", "258", ItemType_i4);
                      w.WriteAttribute("b", "", "258", ItemType_string);
                      w.WriteElementValue("  ", ItemType_base64Binary, false);
                      w.WriteElementValue("  ", ItemType_string, false);
                  },
                  ctx),
              "78 00 61 70 33 00 00 01 02 78 00 62 80 F0 91 20 20 FF")
        << "an integer is indexed by its text, and nothing without octets is indexed";
}

// The ten algorithms and the two alphabets by the numbers that stand in the document.
TEST(FastInfosetWriter, WritesTheIndexAcrossTwoOctets) {
    for (auto const& row :
         Vectors("fastinfoset.txt", "encodings by number: type, index, value, attribute, chunk")) {
        auto const type = static_cast<std::uint32_t>(std::stoul(row[0]));
        auto const index = static_cast<std::uint32_t>(std::stoul(row[1]));
        CSerializationContext ctx;
        LimitIndexed(ctx, 0);
        ctx.GetFIContext().SetEncoding(ItemType_string, {type, index});
        std::string const value(row[2]);
        EXPECT_EQ(ContentOf(Script("@b='" + value + "' '" + value + "'"), ctx),
                  std::string("78 00 62 ") + row[3] + " F0 " + row[4] + " FF")
            << type << ' ' << index;
    }
}

TEST(FastInfosetWriter, HeadsTheDocument) {
    auto const nothing = [](CXmlWriter&) {};
    CSerializationContext ctx;
    int declaration = FInfoDecl_None;
    for (char const* text :
         {"", "<?xml encoding='finf'?>", "<?xml encoding='finf' standalone='yes'?>",
          "<?xml encoding='finf' standalone='no'?>", "<?xml version='1.0' encoding='finf'?>",
          "<?xml version='1.0' encoding='finf' standalone='yes'?>",
          "<?xml version='1.0' encoding='finf' standalone='no'?>", "<?xml version='1.1' encoding='finf'?>",
          "<?xml version='1.1' encoding='finf' standalone='yes'?>",
          "<?xml version='1.1' encoding='finf' standalone='no'?>"})
        EXPECT_EQ(FastInfosetBytes(nothing, ctx, static_cast<FInfoDecl>(declaration++)),
                  text + std::string("\xE0\x00\x00\x01\x00\xF0", 6));
    for (int const none : {-1, 10})
        EXPECT_EQ(
            MessageOf<CZvException>([&] { FastInfosetBytes(nothing, ctx, static_cast<FInfoDecl>(none)); }),
            "Invalid FastInfoset declaration.");

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
    Script const body("!p=u (u|a (b @c=x @d='long value of an attribute' 'v'))");
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
        std::string const text(row.local);
        EXPECT_EQ(FastInfosetOf(Script("(" + text + " @a=" + text + " '" + text + "')")),
                  std::string("78 F0 3C ") + row.name + " 78 00 61 " + row.value + " F0 " + row.chunk + " FF")
            << row.page;
    }
}

TEST(FastInfosetWriter, CutsTextAtAZero) {
    EXPECT_EQ(ContentOf(Script(std::string("@x='1\0002' @y='\0002' '\0'", 20))),
              "78 00 78 40 31 78 00 79 FF F0 FF");
}

TEST(FastInfosetWriter, TellsWhatCannotBeWritten) {
    struct Failure {
        char const* message; // behind "Failed to write FastInfoset. "
        Script script;
        CFastInfosetContext::EncodedCharacterString encoding = {};
    };
    for (Failure const& row :
         {Failure{"A name is empty.", "()"},
          Failure{"Invalid Restricted Alphabet value [0]", "(a @b=1", {1, 0}},
          Failure{"Invalid Restricted Alphabet value [3]", "(a '1'", {1, 3}},
          Failure{"Invalid Encoding Algorithm value [0]", "(a '1'", {2, 0}},
          Failure{"Invalid Encoding Algorithm value [11]", "(a @b=1", {2, 11}},
          Failure{"Unknown encoding in EncodedCharacterStringBit5.", "(a @b=1", {3, 1}},
          Failure{"Unknown encoding in EncodedCharacterStringBit7.", "(a '1'", {3, 1}},
          Failure{"Invalid character not found for Restricted Alphabet.", "(a '12:00:00.5Z'", {1, 2}},
          Failure{"Invalid character not found for Restricted Alphabet.", "(a @b=12:00+01:00", {1, 2}}}) {
        CSerializationContext ctx;
        ctx.GetFIContext().SetEncoding(ItemType_string, row.encoding);
        EXPECT_EQ(MessageOf<CZvException>([&] { FastInfosetOf(row.script, ctx); }),
                  std::string("Failed to write FastInfoset. ") + row.message);
    }
    // As the conversion of a value fails.
    CSerializationContext ctx;
    ctx.GetFIContext().SetEncoding(ItemType_string, {2, 3});
    EXPECT_EQ(MessageOf<CZvInvalidValueException>([&] { FastInfosetOf(Script("(a '70000')"), ctx); }),
              "The value [70000] is to large to fit in a i2");
    EXPECT_EQ(MessageOf<CZvInvalidParamException>([] {
                  FastInfosetOf([](CXmlWriter& w) {
                      w.WriteElementStart("a", "");
                      w.WriteElementValue("1", static_cast<ItemType>(29), false);
                  });
              }),
              "Item type [29] has no Fast Infoset encoding.");
}

TEST(FastInfosetWriter, ReportsMisuse) {
    char const* const kLateAttribute = "Attributes must be added before elements";
    for (auto const& [script, message] :
         {std::pair("(a (b) @c=1", kLateAttribute), std::pair("(a @b=1 'x' %", kLateAttribute),
          std::pair("(a ? ^u|t", kLateAttribute), // the instruction settled that there are none
          std::pair("%", kLateAttribute), std::pair("'x'", "A value must be written inside an element."),
          std::pair(")", "There is no open element to be closed."),
          std::pair("(a", "An Element has not been closed.")})
        EXPECT_EQ(MessageOf<CZvException>([script = script] { FastInfosetOf(Script(script)); }), message)
            << script;
}

std::string g_trace;

TEST(FastInfosetWriter, TracesItsCalls) {
    g_trace.clear();
    DebugTraceSink const before = SetDebugTraceSink([](char const* text) { g_trace += text; });
    FastInfosetOf(Script("(u|a @x=1 ^v|t (b 'text'))"));
    SetDebugTraceSink(before);
    EXPECT_EQ(g_trace, "Root Elm: u::a\n"
                       "Add Att: ::x\nAtt Val: 1\n"
                       "Add Att: AC http://www.w3.org/2001/XMLSchema-instance::type\nAtt Val: AB:t\n"
                       "New Elm: ::b\nElm Val: text\nEnd Elm: ::b\nEnd Elm: u::a\n");
}

} // namespace
} // namespace ZvXmlLib16
