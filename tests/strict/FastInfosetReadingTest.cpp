// Fast Infoset in: each document by the usual rules and by the strict ones.
#include "tests/fastinfoset/Octets.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ZvXmlLib16 {
namespace {

constexpr std::string_view kFailed = "Failed to parse FastInfoset. ";

// The tree, or what is wrong behind the words that all messages have in common.
std::string Outcome(std::string const& octets, CSerializationContext& ctx, bool strict) {
    ctx.SetStrict(strict);
    CXmlDocument document(ctx);
    std::string const message = MessageOf<CZvException>([&] { Load(document, octets); });
    if (message == "nothing was thrown")
        return TreeText(document);
    return message.substr(0, kFailed.size()) == kFailed ? message.substr(kFailed.size()) : message;
}

struct Row {
    std::string octets; // behind the identification and the version
    std::string usual;
    std::string strict; // "same" for the usual outcome
};

void ExpectRows(std::vector<Row> const& rows, CSerializationContext ctx = {}) {
    for (Row const& row : rows) {
        std::string const octets = Octets("E0 00 00 01" + row.octets);
        EXPECT_EQ(Outcome(octets, ctx, false), row.usual) << row.octets;
        EXPECT_EQ(Outcome(octets, ctx, true), row.strict == "same" ? row.usual : row.strict) << row.octets;
    }
}

TEST(StrictFastInfosetReading, TakesNamesAndCharactersOfXmlAlone) {
    ExpectRows({
        {"00 3C 02 'a b' FF", "0 {}a b\n", "Invalid name [a b]."},
        {"00 3C 02 'p:a' FF", "0 {}p:a\n", "Invalid name [p:a]."},
        {"00 3C 02 'a' 00 'b' FF", "0 {}a\n", "Invalid name [a]."},
        {"00 3C 01 C3 A9 FF", "0 {}\xC3\xA9\n", "same"},
        {"00 3C 01 C0 80 FF", "0 {}\xEF\xBF\xBD\xEF\xBF\xBD\n", "Invalid name [\xEF\xBF\xBD\xEF\xBF\xBD]."},
        {"00 7C 00 'a' 78 04 'xmlns' 42 'urn' FF", "0 {}a\nA {}xmlns=urn\n", "Invalid name [xmlns]."},
        {"00 3C 04 'xmlns' FF", "0 {}xmlns\n", "same"},
        {"00 38 CF 01 'p ' 00 'u' F0 3C 00 'a' FF", "0 {}a\n", "Invalid name [p ]."},
        {"00 3D 00 01 00 'a' FF", "0 {\x01}a\n", "Invalid character [U+0001]."},
        {"00 3C 00 'a' 92 00 'x' 00 'y' FF", "0 {}a\nT x\n", "Invalid character [U+0000]."},
        {"00 3C 00 'a' 90 01 FF", "0 {}a\nT \\x01;\n", "Invalid character [U+0001]."},
        {"00 3C 00 'a' 92 00 EF BF BE FF", "0 {}a\nT \xEF\xBF\xBE\n", "Invalid character [U+FFFE]."},
        {"00 3C 00 'a' 90 FF FF", "0 {}a\nT \xEF\xBF\xBD\n", "Invalid UTF-8."},
        {"00 7C 00 'a' 78 00 'k' 40 01 FF", "0 {}a\nA {}k=\\x01;\n", "Invalid character [U+0001]."},
        {"00 3C 00 'a' 95 D8 00 FF", "0 {}a\nT \xEF\xBF\xBD\n", "Invalid UTF-16."},
        {"00 3C 00 'a' 96 00 00 'x' 00 FF", "0 {}a\nT x\xEF\xBF\xBD\n", "Invalid UTF-16."},
        {"00 3C 00 'a' 95 00 01 FF", "0 {}a\nT \\x01;\n", "Invalid character [U+0001]."},
        {"00 3C 00 'a' 9C 24 01 F0", "0 {}a\nT \\x01;\n", "Invalid character [U+0001]."},
        // Carriage returns are text.
        {"00 3C 00 'a' 92 00 'x' 0D 'y' FF", "0 {}a\nT xy\n", "0 {}a\nT x\\ry\n"},
    });
}

TEST(StrictFastInfosetReading, TakesNoCharactersThatLocalTextLacks) {
    LocalEncoding const local(28591);
    std::string const refused = "The character [U+20AC] can not be expressed in the local encoding.";
    ExpectRows({
        {"00 3C 00 'a' 91 C3 A9 FF", "0 {}a\nT \xE9\n", "same"},
        {"00 3C 00 'a' 92 00 E2 82 AC FF", "0 {}a\nT ?\n", refused},
        {"00 3C 00 'a' 95 20 AC FF", "0 {}a\nT ?\n", refused},
        {"00 7C 00 'a' 78 00 'k' 42 E2 82 AC FF", "0 {}a\nA {}k=?\n", refused},
        {"00 3D 02 E2 82 AC 00 'a' FF", "0 {?}a\n", refused},
        {"00 3C 02 E4 B8 80 FF", "0 {}?\n",
         "The character [U+4E00] can not be expressed in the local encoding."},
    });
}

TEST(StrictFastInfosetReading, TakesNoTwins) {
    ExpectRows({
        {"00 7C 00 'a' 78 00 'k' 40 '1' 00 40 '2' FF", "0 {}a\nA {}k=1\nA {}k=2\n",
         "Duplicate attribute [k]."},
        {"00 7C 00 'a' 78 00 'k' 40 '1' 78 00 'k' 40 '2' FF", "0 {}a\nA {}k=1\nA {}k=2\n",
         "Duplicate attribute [k]."},
        {"00 38 CD 00 'u' CD 00 'v' F0 3C 00 'a' FF", "0 {}a\n", "Duplicate attribute []."},
        {"00 78 CF 00 'p' 00 'u' F0 3C 00 'a' 78 00 'k' 40 '1' 7B 81 81 81 40 '2' F0 FF",
         "0 {}a\nA {}k=1\nA {u}k=2\n", "same"},
        {"00 7C 00 'a' 78 00 'k' 40 '1' F0 40 00 40 '2' F0 FF F0", "0 {}a\nA {}k=1\n1 {}a\nA {}k=2\n",
         "same"},
    });
}

TEST(StrictFastInfosetReading, TakesPrefixesInScopeAlone) {
    std::string const declared = "00 38 CF 00 'p' 00 'u' F0 ";
    ExpectRows({
        {"00 3F 00 'p' 00 'u' 00 'a' FF", "0 {u}a\n", "The prefix [p] is not declared."},
        {declared + "3F 81 81 00 'a' FF", "0 {u}a\n", "same"},
        {declared + "3F 81 00 'v' 00 'a' FF", "0 {v}a\n", "The prefix [p] is not declared."},
        {"00 7C 00 'a' 7B 00 'p' 00 'u' 00 'k' 40 '1' FF", "0 {}a\nA {u}k=1\n",
         "The prefix [p] is not declared."},
        {"00 7C 00 'a' 7B 80 80 03 'lang' 41 'en' F0 FF",
         "0 {}a\nA {http://www.w3.org/XML/1998/namespace}lang=en\n", "same"},
        {"00 3F 80 00 'u' 00 'a' FF", "0 {u}a\n", "The prefix [xml] is not declared."},
        // The scope of a declaration ends with its element, also for a name that comes by its index.
        {"00 3C 00 'r' 38 CF 00 'p' 00 'u' F0 3F 81 81 00 'a' F0 01 FF", "0 {}r\n1 {u}a\n1 {u}a\n",
         "The prefix [p] is not declared."},
        {declared + "3C 00 'r' 38 CF 81 00 'v' F0 3F 81 82 00 'a' F0 3F 81 81 81 FF F0",
         "0 {}r\n1 {v}a\n1 {u}a\n", "same"},
        {"00 38 CD 1C 'http://www.w3.org/2000/xmlns/' F0 3C 00 'a' FF", "0 {}a\n",
         "Invalid declaration of prefix []."},
        {"00 38 CF 80 00 'u' F0 3C 00 'a' FF", "0 {}a\n", "Invalid declaration of prefix [xml]."},
        {"00 38 CF 04 'xmlns' 00 'u' F0 3C 00 'a' FF", "0 {}a\n", "Invalid declaration of prefix [xmlns]."},
        {"00 38 CE 00 'p' F0 3C 00 'a' FF", "0 {}a\n", "Invalid declaration of prefix [p]."},
        {"00 38 CD 00 'd' F0 3D 81 00 'r' 38 CC F0 3C 00 'a' FF F0", "0 {d}r\n1 {}a\n", "same"},
    });
}

TEST(StrictFastInfosetReading, TakesTheInitialVocabularyIn) {
    CSerializationContext known;
    known.GetFIContext().GetVocabulary()->AddElement("", "", "known");
    known.GetFIContext().SetUseGeneratedVocabulary(true);
    known.GetFIContext().SetExternalVocabularyURI("urn:v");
    std::string const own = "20 0010 01 02'red' 03'blue' 7C00'r' 7800'a' 44'green' F0 7C00'b' 00 80 FFFF";
    ExpectRows({
        {own, "0 {}r\nA {}a=green\n1 {}b\nA {}a=green\n", "0 {}r\nA {}a=green\n1 {}b\nA {}a=red\n"},
        // All tables: r, an attribute k in the namespace u, and a text.
        {"20 0FFF 00 01'ab' 00 00'u' 00 00'p' 00 00'u' 01 00'r' 00'k' 00 00'n' 00 00'o' 00 00'v' 00 01'tx' "
         "00 00's' 00 00 00 00 03 01 01 01 78 CF 81 81 F0 00 00 80 F0 A0 FF",
         "Index [2] is beyond the table of prefixes.", "0 {}r\nA {u}k=v\nT tx\n"},
        {"20 0002 00 00 05 00 FF", "Index [1] is beyond the table of element names.",
         "Index [6] is beyond the table of local names."},
        {"20 0080 00 02'a b' 3C 80 FF", "Index [1] is beyond the table of local names.",
         "Invalid name [a b]."},
        {"20 2000 3C 00 'a' FF", "0 {}a\n", "Invalid Encoding of Document type."},
        {"20 1000 04 'urn:w' 3C 00 'a' FF", "0 {}a\n", "Unknown external vocabulary [urn:w]."},
    });
    ExpectRows(
        {
            {"20 1000 04 'urn:v' 00 FF", "0 {}known\n", "same"},
            {"20 1080 04 'urn:v' 00 00'b' 3C 81 FF", "Index [2] is beyond the table of local names.",
             "0 {}b\n"},
            {"20 1000 04 'urn:w' 00 FF", "0 {}known\n", "Unknown external vocabulary [urn:w]."},
            // A document that names none has none.
            {"00 3C 00 'a' 01 FF", "0 {}a\n1 {}a\n", "Index [2] is beyond the table of element names."},
        },
        known);
}

TEST(StrictFastInfosetReading, TakesWholeDocumentsOfKnownItemsAlone) {
    std::string const unknownItem = "Invalid Encoding of Document type.";
    ExpectRows({
        {"00 3C 00 'a' C8 00 'e' FF", "0 {}a\n", "Unexpanded entity [e]."},
        {"00 D5 3C 00 'a' FF", "0 {}a\n", unknownItem},
        {"00 3C 00 'a' FF 'junk'", "0 {}a\n", "Data behind the document."},
        {"00 3C 00 'a' F0 F0 00", "0 {}a\n", "Data behind the document."},
        {"00 3C 00 'a' F0", "0 {}a\n", "Unexpected End of File."},
        {"00 3C 00 'a' F0 3C 00 'b' FF", "0 {}a\n", unknownItem},
        {"00 3C 00 'a' F0 FF", "0 {}a\n", unknownItem},
        {"00 3C 00 'a' F0 E2 00 'c' E1 00 't' FF F0", "0 {}a\n", "same"},
        {"00 E2 00 'c' 7C 00 'a' 78 00 'k' 40 '1' FF F0", "0 {}a\nA {}k=1\n", "same"},
        {"00 7C 00 'a' 78 00 'k' 40 '1' E0 FF", "0 {}a\nA {}k=1\n", "Invalid Encoding of Element type."},
        {"00 38 C0 3C 00 'a' FF", "0 {}a\n", unknownItem},
        {"00 C5 00 'p' C0 3C 00 'a' FF", "0 {}a\n", unknownItem},
        {"10 C0 00 'n' E0 3C 00 'a' FF", "0 {}a\n", unknownItem},
    });
}

TEST(FastInfosetPositions, AreOctetsOfTheDocument) {
    std::string const octets =
        Octets("E0 00 00 01 00 78 CD 00 'u' F0 3D 81 00 'r' 78 00 'k' 40 '1' F0 3C 00 'b' FF F0");
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        ctx.SetKeepPositions(true);
        CXmlDocument document(ctx);
        Load(document, octets);
        CXmlElement const* const root = document.GetDocumentElement();
        EXPECT_EQ(root->GetLine(), 0U);
        EXPECT_EQ(root->GetColumn(), 6U);
        EXPECT_EQ(root->GetAttributeAt(0)->GetColumn(), 15U);
        EXPECT_EQ(root->GetFirstElement()->GetColumn(), 21U);
        for (bool const keeps : {false, true}) {
            ctx.SetKeepPositions(keeps);
            try {
                CXmlDocument damaged(ctx);
                Load(damaged, octets.substr(0, 20) + "\xC0");
                ADD_FAILURE();
            } catch (CZvException const& failure) {
                EXPECT_EQ(failure.GetColumn(), keeps ? 21U : 0U);
            }
        }
    }
}

} // namespace
} // namespace ZvXmlLib16
