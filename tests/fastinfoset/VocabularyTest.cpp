// The vocabulary and the options of Fast Infoset.
#include "tests/support/MessageOf.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <gmock/gmock.h>

#include <type_traits>

namespace ZvXmlLib16 {
namespace {

using detail::IndexMap;
using testing::ElementsAre;

std::vector<std::string> TextsOf(CFIVocabulary::CFIStringTable const& table) {
    return {table.begin(), table.end()};
}

std::string NamesOf(CFIVocabulary::CFIQNameTable const& table) {
    std::string text;
    for (CFIVocabulary::CQNameParts const& name : table)
        text += std::to_string(name.m_dwPrefixIndex) + ' ' + std::to_string(name.m_dwNamespaceIndex) + ' ' +
                std::to_string(name.m_dwLocalNameIndex) + '\n';
    return text;
}

std::string DumpOf(CFIVocabulary const& vocabulary) {
    testing::internal::CaptureStdout();
    vocabulary.Dump();
    return testing::internal::GetCapturedStdout();
}

char const* const kXml = "http://www.w3.org/XML/1998/namespace";

TEST(FIVocabulary, NumbersTheNamesThatAreAdded) {
    CFIVocabulary vocabulary;
    EXPECT_THAT(TextsOf(vocabulary.GetPrefixNamesTable()), ElementsAre("xml"));
    EXPECT_THAT(TextsOf(vocabulary.GetNamespaceNamesTable()), ElementsAre(kXml));
    EXPECT_THAT(TextsOf(vocabulary.GetLocalNamesTable()), ElementsAre());

    vocabulary.AddElement("", "", "a");
    for (int i = 0; i < 2; ++i) {
        vocabulary.AddElement("p", "u", "b");
        vocabulary.AddAttribute("p", "u", "b");
    }
    vocabulary.AddElement("q", "u", "b");
    vocabulary.AddElement("xml", kXml, "");
    EXPECT_EQ(NamesOf(vocabulary.GetElementNamesTable()), "0 0 1\n2 2 2\n3 2 2\n1 1 3\n");
    EXPECT_EQ(NamesOf(vocabulary.GetAttributeNamesTable()), "2 2 2\n");
    EXPECT_THAT(TextsOf(vocabulary.GetPrefixNamesTable()), ElementsAre("xml", "p", "q"));
    EXPECT_THAT(TextsOf(vocabulary.GetNamespaceNamesTable()), ElementsAre(kXml, "u"));
    EXPECT_THAT(TextsOf(vocabulary.GetLocalNamesTable()), ElementsAre("a", "b", ""));
}

TEST(FIVocabulary, KeepsTheFirstIndexOfWhatIsAddedTwice) {
    CFIVocabulary vocabulary;
    vocabulary.AddPrefixName("xml");
    vocabulary.AddNamespaceName(kXml);
    vocabulary.AddLocalName("a");
    vocabulary.AddElementValue("v");
    vocabulary.AddElementValue("v");
    vocabulary.AddAttributeValue("w");
    vocabulary.AddElement("p", "", "a");
    EXPECT_THAT(TextsOf(vocabulary.GetPrefixNamesTable()), ElementsAre("xml", "xml", "p"));
    EXPECT_THAT(TextsOf(vocabulary.GetCharacterChunksTable()), ElementsAre("v", "v"));
    EXPECT_THAT(TextsOf(vocabulary.GetAttributeValuesTable()), ElementsAre("w"));
    EXPECT_EQ(NamesOf(vocabulary.GetElementNamesTable()), "3 0 1\n");
    EXPECT_EQ(DumpOf(vocabulary), "\n** Dumping FI Tables **\n\nAttr Names\n\nAttr Values\nw, 1\n"
                                  "\nCharacter Chunks\nv, 1\n\nElement Names\na\1\1p, 1\n"
                                  "\nLocal Names\na, 1\n\nNamespace Names\n" +
                                      std::string(kXml) + ", 1\n\nPrefix Names\np, 2\nxml, 1\n");
}

TEST(FIVocabulary, DumpsByTheBytesOfTheTexts) {
    CFIVocabulary vocabulary;
    for (char const* text : {"b", "\xC3\xA9", "ab", "B", "a", "", "a\x01"})
        vocabulary.AddLocalName(text);
    std::string const dump = DumpOf(vocabulary);
    EXPECT_THAT(dump, testing::HasSubstr(
                          "\nLocal Names\n, 6\nB, 4\na, 5\na\x01, 7\nab, 3\nb, 1\n\xC3\xA9, 2\n\nNamespace"));
}

TEST(FIVocabulary, DropsWhatIsBeyondTheLimit) {
    CFIVocabulary vocabulary;
    for (int i = 0; i <= 1048576; ++i)
        vocabulary.AddLocalName(std::to_string(i));
    EXPECT_EQ(vocabulary.GetLocalNamesTable().m_table.size(), 1048576U);
    EXPECT_EQ(vocabulary.GetLocalNamesTable().m_table.back(), "1048575");
    vocabulary.AddElement("", "", "1048576"); // finds no room for its local name
    EXPECT_EQ(NamesOf(vocabulary.GetElementNamesTable()), "0 0 1048576\n");
}

TEST(IndexMap, FindsEveryTextAmongMany) {
    IndexMap map;
    auto const text = [](std::uint32_t i) { return std::string(i % 20, 'x') + std::to_string(i); };
    constexpr std::uint32_t kTexts = 20000;
    for (std::uint32_t i = 1; i <= kTexts; ++i) {
        EXPECT_EQ(map.Find(text(i)), 0U);
        map.Add(text(i), IndexMap::Hash(text(i)));
    }
    IndexMap const copy = map;
    for (std::uint32_t i = 1; i <= kTexts; ++i) {
        ASSERT_EQ(copy.Find(text(i)), i);
        ASSERT_EQ(copy.GetText(i), text(i));
    }
    EXPECT_EQ(copy.Find(text(kTexts + 1)), 0U);
}

// A name and the same bytes split elsewhere are different names, a name and its text are one entry.
TEST(IndexMap, TellsNamesApartByTheirParts) {
    IndexMap map;
    std::vector<IndexMap::QName> const names = {{"a", "", ""},   {"a", "u", ""},  {"a", "u", "p"},
                                                {"a", "", "up"}, {"au", "", "p"}, {"", "au", "p"}};
    for (IndexMap::QName const& name : names) {
        EXPECT_EQ(map.Find(name, IndexMap::Hash(name)), 0U);
        map.Add(name, IndexMap::Hash(name));
    }
    for (std::uint32_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(map.Find(names[i], IndexMap::Hash(names[i])), i + 1);
    EXPECT_EQ(map.GetText(3), "a\1u\1p");
}

TEST(FastInfosetContext, IsCopiedWithItsContext) {
    static_assert(!std::is_copy_constructible_v<CFIVocabulary> && std::is_copy_assignable_v<CFIVocabulary>);
    CSerializationContext ctx;
    CFastInfosetContext& fi = ctx.GetFIContext();
    fi.SetExternalVocabularyURI("urn:v");
    fi.SetEncoding(ItemType_string, {2, 10});
    fi.GetVocabulary()->AddElement("p", "u", "a");
    CSerializationContext copy(ctx);
    fi.GetVocabulary()->AddLocalName("later");
    CFastInfosetContext& copied = copy.GetFIContext();
    EXPECT_EQ(copied.GetExternalVocabularyURI(), "urn:v");
    EXPECT_EQ(copied.GetEncoding(ItemType_string).index, 10U);
    EXPECT_THAT(TextsOf(copied.GetVocabulary()->GetLocalNamesTable()), ElementsAre("a"));
    EXPECT_EQ(NamesOf(copied.GetVocabulary()->GetElementNamesTable()), "2 2 1\n");
}

} // namespace
} // namespace ZvXmlLib16
