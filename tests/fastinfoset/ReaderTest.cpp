// What each item of a Fast Infoset document becomes in the tree.
#include "Octets.h"

#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/FInfoDeclarations.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/streams/ZvZip.h"

#include <gmock/gmock.h>

namespace ZvXmlLib16 {
namespace {

// Of octets behind a header without any component.
void ExpectTrees(std::string const& section) {
    for (auto const& row : Vectors("fastinfoset.txt", section))
        EXPECT_EQ(Tree(Document(Octets(row[0].c_str()))), row[1]) << row[0];
}

TEST(FastInfosetReader, ReadsElementsAndTheirEnds) {
    ExpectTrees("reads elements and their ends");
}

TEST(FastInfosetReader, ReadsAttributesByNameAndByIndex) {
    ExpectTrees("reads attributes by name and by index");
}

// Other producers end an attribute list and its element by one octet; it never ends the parent.
TEST(FastInfosetReader, EndsAnElementWithItsAttributes) {
    ExpectTrees("ends an element with its attributes");
}

TEST(FastInfosetReader, JoinsTheChunksOfAnElement) {
    ExpectTrees("joins the chunks of an element");
}

TEST(FastInfosetReader, DecodesEachKindOfEncodedString) {
    for (auto const& row : Vectors("fastinfoset.txt", "encoded strings: as a chunk, as a value, text")) {
        std::string chunk = Octets(row[0].c_str());
        std::string value = Octets(row[1].c_str());
        std::string const element = Octets("3C 00 'a'");
        std::string const attribute = Octets("7C 00 'a' 78 00 'x'");
        std::string const text = Escaped(row[2]);
        EXPECT_EQ(Tree(Document(element + chunk + '\xF0')), "0 {}a\nT " + text + '\n') << row[0];
        EXPECT_EQ(Tree(Document(attribute + value + Octets("F0 F0"))), "0 {}a\nA {}x=" + text + '\n')
            << row[1];
        // With the bit that adds it to its table it can be had again.
        chunk[0] = static_cast<char>(chunk[0] | 0x10);
        value[0] = static_cast<char>(value[0] | 0x40);
        EXPECT_EQ(Tree(Document(element + chunk + Octets("3C 00 'b' A0 FF"))),
                  "0 {}a\nT " + text + "\n1 {}b\nT " + text + '\n')
            << row[0];
        EXPECT_EQ(Tree(Document(attribute + value + Octets("78 00 'y' 80 F0 F0"))),
                  "0 {}a\nA {}x=" + text + "\nA {}y=" + text + '\n')
            << row[1];
    }
}

TEST(FastInfosetReader, ReadsOverWhatTheTreeHasNoPlaceFor) {
    ExpectTrees("reads over what the tree has no place for");
}

TEST(FastInfosetReader, ReadsOverEachComponentOfTheHeader) {
    struct Component {
        unsigned flag;
        char const* octets;
    };
    constexpr Component kComponents[] = {
        {0x40, "01 00 'u' 00 'd' 02 'uri' 01 'dd'"},
        {0x20, "1F FF 00 'x' 00 01 'ab' 00 00 'g' 01 00 'p' 00 'q' 00 00 'n' 00 00 'l' 00 00 'c' 00 00 'r'"
               "01 00 'v' 30 F0 'w' 00 01 'cc' 00 20 F0 'z' 00 03 00 00 00 01 00 00 01 00 00"},
        {0x10, "C3 00 'n' 00 's' 00 'p' C0 80 F0"},
        {0x08, "D1 00 'e' 00 's' 00 'p' 00 'n' D0 80 80 80 F0"},
        {0x04, "04 'UTF-8'"},
        {0x02, "01"},
        {0x01, "02 '1.0'"}};
    for (unsigned flags = 0; flags < 0x80; ++flags) {
        std::string octets = Octets("E0 00 00 01") + static_cast<char>(flags);
        for (Component const& component : kComponents) {
            if ((flags & component.flag) != 0)
                octets += Octets(component.octets);
        }
        EXPECT_EQ(Tree(octets + Octets("3C 00 'a' 90 'x' A0 F0")), "0 {}a\nT xx\n") << flags;
    }
    // Nothing of it enters the tables.
    for (char const* content : {"00 FF", "3C 80 FF", "7C 00 'a' 00 80 FF", "3C 00 'a' A0 FF"}) {
        std::string const octets = Octets("E0 00 00 01 20") + Octets(kComponents[1].octets) + Octets(content);
        EXPECT_THAT(MessageOf<CZvException>([&] { Tree(octets); }),
                    testing::HasSubstr(" is beyond the table of "))
            << content;
    }
}

TEST(FastInfosetReader, GivesNamespaceDeclarationsToTheDocument) {
    struct Declared {
        char const* octets;
        char const* prefix;
        char const* uri;
    };
    for (Declared const& row :
         {Declared{"38 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' FF", "p", "u"},
          Declared{"38 CD 00 'u' F0 3C 00 'a' FF", "", "u"},
          Declared{"38 CF 80 80 F0 3C 00 'a' FF", "xml", "http://www.w3.org/XML/1998/namespace"},
          Declared{"38 CF 00 'p' 00 'u' CF 81 00 'v' F0 3C 00 'a' FF", "p", "v"},
          Declared{"38 CF 00 'p' 00 'u' CE 81 F0 3C 00 'a' FF", "p", ""},
          Declared{"3C 00 'a' 78 CF 00 'p' 00 'u' F0 3C 00 'b' 78 00 'x' FF FF F0", "p", "u"}}) {
        CXmlDocument document;
        Load(document, Document(Octets(row.octets)));
        EXPECT_EQ(document.LookupNamespaceFromAlias(row.prefix), row.uri) << row.octets;
        EXPECT_EQ(document.LookupAliasFromNamespace(row.uri), row.prefix) << row.octets;
    }
}

TEST(FastInfosetReader, ConvertsToTheLocalEncoding) {
    std::string const octets =
        Document(Octets("7C 01 C3 A9 78 00 'x' 42 E2 82 AC F0 92 00 C3 A9 'z' 3C 00 'b' 85 20 AC 90 80 FF"));
    {
        LocalEncoding const local(1252);
        EXPECT_EQ(Tree(Document(Octets("3C 00 'a' 92 07 C3 A9 'abcdefgh' F0"))), "0 {}a\nT \xE9"
                                                                                 "abcdefgh\n");
        EXPECT_EQ(Tree(octets), "0 {}\xE9\nA {}x=\x80\nT \xE9z\n1 {}b\nT \x80?\n");
    }
    LocalEncoding const local(1252, true);
    EXPECT_EQ(Tree(octets), "0 {}\xC3\xA9\nA {}x=\xE2\x82\xAC\nT \xC3\xA9z\n1 {}b\nT \x80\x80\n");
}

TEST(FastInfosetReader, RecognisesADocumentByItsFirstOctets) {
    std::string const content = Octets("00 3C 00 'a' FF");
    for (std::string_view const declaration : kFInfoDeclarations)
        EXPECT_EQ(Tree(std::string(declaration) + std::string(kFInfoMagic) + content), "0 {}a\n")
            << declaration;

    std::string const plain = std::string(kFInfoMagic) + content;
    for (CompressionType const type : {CompressionType_GZip, CompressionType_ZLib}) {
        CBinaryData data =
            DataOf(Document(Octets("3C 00 'a' 83 00 00 10 00") + std::string(4096 + 259, 't') + '\xF0'));
        CZvZip::Compress(data, type);
        CXmlDocument document;
        document.LoadXmlStream(data.GetData(), data.GetLength());
        EXPECT_EQ(document.GetDocumentElement()->GetText().size(), 4355u);
    }
    TemporaryFile const file(plain);
    CXmlDocument document;
    document.Load(file.Path());
    EXPECT_EQ(TreeText(document), "0 {}a\n");

    // The rest is for the XML parser.
    std::string const otherVersion = Octets("E0 00 00 02") + content;
    for (std::string const& octets :
         {std::string(kFInfoMagic), std::string(kFInfoDeclarations[0]), Octets("E0 00 00"), otherVersion,
          std::string(kFInfoDeclarations[0]) + std::string(kFInfoMagic)})
        EXPECT_THAT(MessageOf<CZvException>([&] { Tree(octets); }), testing::HasSubstr(" at line 1"));
    EXPECT_EQ(Tree("<?xml version='1.0'?><a/>"), "0 {}a\n");
    EXPECT_THAT(MessageOf<CZvException>([&] { document.LoadXml(plain.c_str()); }),
                testing::HasSubstr(" at line 1"));
}

// A vocabulary that is known in advance is in force if the context says so, whatever the document names.
TEST(FastInfosetReader, BeginsWithTheVocabularyOfTheContext) {
    CSerializationContext ctx;
    CFIVocabulary& vocabulary = *ctx.GetFIContext().GetVocabulary();
    vocabulary.AddElement("p", "u", "a");
    vocabulary.AddElement("", "", "b");
    vocabulary.AddAttribute("p", "u", "a");
    vocabulary.AddAttributeValue("value");
    vocabulary.AddElementValue("text");
    vocabulary.AddElementValue("more\r text");
    std::string const octets = Octets("E0 00 00 01 20 10 00 04 'urn:v' 40 00 80 F0 A1 01 F0 A0 3F 81 81 80 F0"
                                      "3C 00 'c' F0 02 90 'x' A2 FF");
    CXmlDocument without(ctx);
    EXPECT_EQ(MessageOf<CZvException>([&] { Load(without, octets); }),
              "Failed to parse FastInfoset. Index [1] is beyond the table of element names.");
    ctx.GetFIContext().SetUseGeneratedVocabulary(true);
    CXmlDocument document(ctx);
    Load(document, octets);
    *ctx.GetFIContext().GetVocabulary() = CFIVocabulary(); // the tree keeps what it has
    EXPECT_EQ(TreeText(document),
              "0 {u}a\nA {u}a=value\nT more texttext\n1 {}b\n1 {u}a\n1 {}c\n1 {u}a\nT xx\n");
}

bool TakeEverything(CXmlElement*) {
    return true;
}

TEST(FastInfosetReader, DoesNotCallTheCallbackOfADocument) {
    CXmlDocument document(&TakeEverything);
    Load(document, Document(Octets("3C 00 'a' 3C 00 'b' FF")));
    EXPECT_EQ(TreeText(document), "0 {}a\n1 {}b\n");
}

std::string s_trace;

TEST(FastInfosetReader, TracesTheElements) {
    s_trace.clear();
    DebugTraceSink const before = SetDebugTraceSink([](char const* text) { s_trace += text; });
    Tree(Document(Octets("3D 00 'u' 00 'a' 3C 00 'b' FF")));
    SetDebugTraceSink(before);
    EXPECT_EQ(s_trace, "New Root Elm: u::a\nNew Elm: ::b\nEnd Elm: ::b\nEnd Elm: u::a\n");
}

// Two elements that differ, and are shown alike.
TEST(FastInfosetReader, NumbersPathsByTheNamesThatTheyShow) {
    CXmlDocument document;
    Load(document, Document(Octets(
                       "38 CF 00 'b' 04 'urn:x' F0 3C 00 'r' 3D 81 00 'c' F0 3C 02 'b:c' F0 3C 00 'c' FF")));
    CXmlElement const* child = document.GetDocumentElement()->GetFirstElement();
    for (char const* path : {"/r/b:c[1]", "/r/b:c[2]", "/r/c"}) {
        EXPECT_EQ(child->GetXPath(), path);
        child = child->GetNextSiblingElement();
    }
}

} // namespace
} // namespace ZvXmlLib16
