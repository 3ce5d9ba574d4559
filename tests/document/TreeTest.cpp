// What the tree holds of an XML text.
#include "Documents.h"

#include "tests/support/LocalEncoding.h"
#include "tests/support/Vectors.h"
#include "zvxmllib/context/SerializationContext.h"

namespace ZvXmlLib16 {
namespace {

TEST(ParsedTree, JoinsTheCharacterDataOfAnElementInDocumentOrder) {
    for (auto const& row : Vectors("xml.txt", "texts of elements")) {
        CXmlDocument document;
        document.LoadXml(row[0].c_str());
        EXPECT_EQ(document.GetDocumentElement()->GetText(), row[1]) << row[0];
    }
}

TEST(ParsedTree, KeepsTextsOfAnySizeAndInAnyNumberOfPieces) {
    std::string xml = "<r>";
    std::string between;
    std::string const large(3'000'000, 'x');
    for (int i = 0; i < 2000; ++i) {
        std::string const gap = i % 3 == 0 ? "\n" : "\n    ";
        xml +=
            gap + "<e a='" + std::to_string(i) + "'>" + (i == 1000 ? large : std::to_string(i * 7)) + "</e>";
        between += gap;
    }
    xml += "</r>";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    EXPECT_EQ(document.GetDocumentElement()->GetText(), between);
    int i = 0;
    for (CXmlElement* e = At(document, {}).GetFirstElement(); e != nullptr;
         e = e->GetNextSiblingElement(), ++i) {
        ASSERT_EQ(e->GetText(), i == 1000 ? large : std::to_string(i * 7));
        ASSERT_EQ(e->GetAttribute("a", ""), std::to_string(i));
    }
    EXPECT_EQ(i, 2000);
}

// Past the largest chunk of storage the attributes of one element have to move more than once.
TEST(ParsedTree, KeepsAnyNumberOfAttributesOfOneElement) {
    constexpr std::size_t kCount = 150'000;
    std::string xml = "<r";
    for (std::size_t i = 0; i < kCount; ++i)
        xml += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
    xml += "/>";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    CXmlElement const& r = At(document, {});
    ASSERT_EQ(r.GetAttributeCount(), kCount);
    for (std::size_t i = 0; i < kCount; i += 7)
        ASSERT_EQ(r.GetAttributeAt(i)->GetValueView(), std::to_string(i));
}

// Wherever a chunk of storage ends, between an element and its attributes too.
TEST(ParsedTree, KeepsAttributesWhereverStorageEnds) {
    std::string xml = "<r>";
    for (int i = 0; i < 4000; ++i) {
        xml += "<e";
        for (int n = 0; n < i % 7; ++n)
            xml += " a" + std::to_string(n) + "='" + std::to_string(i + n) + "'";
        xml += i % 5 == 0 ? ">x<f/>y</e>" : "/>";
    }
    xml += "</r>";
    for (CXmlDocument::ElementCallback const callback :
         {CXmlDocument::ElementCallback(), CXmlDocument::ElementCallback([](CXmlElement* element) {
              return element->GetLocalName() == "f" || element->GetAttributes().size() == 4;
          })}) {
        CXmlDocument document(callback);
        document.LoadXml(xml.c_str());
        CXmlElement const* e = At(document, {}).GetFirstElement();
        for (int i = 0; i < 4000; ++i) {
            if (callback != nullptr && i % 7 == 4)
                continue;
            ASSERT_NE(e, nullptr);
            ASSERT_EQ(e->GetAttributes().size(), static_cast<std::size_t>(i % 7));
            for (int n = 0; n < i % 7; ++n) {
                CXmlAttribute const& attribute = *e->GetAttributes()[static_cast<std::size_t>(n)];
                ASSERT_EQ(attribute.GetLocalName() + attribute.GetValue(),
                          "a" + std::to_string(n) + std::to_string(i + n));
            }
            ASSERT_EQ(e->GetText(), i % 5 == 0 ? "xy" : "");
            ASSERT_EQ(e->GetFirstElement() != nullptr, i % 5 == 0 && callback == nullptr);
            ASSERT_EQ(e->GetParentElm(), document.GetDocumentElement());
            e = e->GetNextSiblingElement();
        }
        EXPECT_EQ(e, nullptr);
    }
}

TEST(ParsedTree, ResolvesNamespacesByScope) {
    CXmlDocument document;
    document.LoadXml("<a xmlns='u' xmlns:p='v' p:x='1' x='2' xml:lang='en'>"
                     "<p:b xmlns:p='w' p:y=''/><c xmlns=''/><p:d/></a>");
    CXmlElement& a = At(document, {});
    EXPECT_EQ(a.GetNamespaceURI(), "u");
    ASSERT_EQ(a.GetAttributes().size(), 3u);
    EXPECT_EQ(a.GetAttributes()[0]->GetNamespaceURI(), "v");
    EXPECT_EQ(a.GetAttributes()[1]->GetNamespaceURI(), "");
    EXPECT_EQ(a.GetAttributes()[2]->GetNamespaceURI(), "http://www.w3.org/XML/1998/namespace");
    EXPECT_EQ(a.GetAttributes()[2]->GetLocalName(), "lang");
    EXPECT_EQ(a.GetAttribute("x", "v"), "1");
    EXPECT_EQ(a.GetAttribute("x", ""), "2");
    EXPECT_EQ(a.GetAttribute("x", "w"), "");
    EXPECT_EQ(At(document, {0}).GetNamespaceURI(), "w");
    EXPECT_EQ(At(document, {1}).GetNamespaceURI(), "");
    EXPECT_EQ(At(document, {2}).GetNamespaceURI(), "v");
    // The flat table knows the last declaration only.
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "w");
    EXPECT_EQ(document.LookupNamespaceFromAlias(""), "");
    EXPECT_EQ(document.LookupNamespaceFromAlias("q"), "");
    EXPECT_EQ(document.LookupAliasFromNamespace("w"), "p");
    EXPECT_EQ(document.LookupAliasFromNamespace("v"), "") << "its prefix was bound anew";
}

TEST(ParsedTree, KeepsQualifiedNamesAndDeclarationsWithoutNamespaceProcessing) {
    CSerializationContext context;
    context.SetSchemaType(SchemaType_NoNamespaces);
    CXmlDocument document(context);
    document.LoadXml("<p:a xmlns:p='u' p:x='1'/>");
    CXmlElement& a = At(document, {});
    EXPECT_EQ(a.GetLocalName(), "p:a");
    EXPECT_EQ(a.GetNamespaceURI(), "");
    ASSERT_EQ(a.GetAttributes().size(), 2u);
    EXPECT_EQ(a.GetAttributes()[0]->GetLocalName(), "xmlns:p");
    EXPECT_EQ(a.GetAttributes()[1]->GetLocalName(), "p:x");
    EXPECT_EQ(document.LookupNamespaceFromAlias("p"), "");
}

TEST(ParsedTree, KeepsTheMarksOfCdataSectionsWhenAsked) {
    CSerializationContext context;
    context.SetStripCDATA(false);
    CXmlDocument document(context);
    document.LoadXml("<a><![CDATA[1<2]]> &lt; <![CDATA[]]><b><![CDATA[x]]></b></a>");
    EXPECT_EQ(At(document, {}).GetText(), "<![CDATA[1<2]]> < <![CDATA[]]>");
    EXPECT_EQ(At(document, {0}).GetText(), "<![CDATA[x]]>");
}

TEST(ParsedTree, DropsReferencesToExternalEntities) {
    CXmlDocument document;
    document.LoadXml("<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>x&e;y</a>");
    EXPECT_EQ(At(document, {}).GetText(), "xy");
}

TEST(ParsedTree, TellsAttributesThatAreNoDataOfTheSchema) {
    CXmlDocument document;
    document.LoadXml("<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='t' i:nil='true' "
                     "i:schemaLocation='s' i:noNamespaceSchemaLocation='n' i:other='' type='' nil=''/>");
    std::string kinds;
    for (CXmlAttribute const* attribute : At(document, {}).GetAttributes()) {
        kinds += attribute->IsNamespaceAttribute() ? 'N' : '-';
        kinds += attribute->IsNilAttribute() ? 'n' : '-';
    }
    EXPECT_EQ(kinds, "N--nN-N-------");
}

TEST(ParsedTree, GivesEveryRequestTheSameString) {
    CXmlDocument document;
    document.LoadXml("<a b='v'>x<c/>y<c/>z</a>");
    CXmlElement const& a = At(document, {});
    EXPECT_EQ(&a.GetText(), &a.GetText());
    EXPECT_EQ(&a.GetAttributes(), &a.GetAttributes());
    EXPECT_EQ(&a.GetAttributes()[0]->GetValue(), &a.GetAttribute("b", ""));
    EXPECT_EQ(a.GetNodeText().View(), "xyz");
}

TEST(ParsedTree, HoldsLocalTextOfTheChosenCodePage) {
    LocalEncoding const local(28591);
    CXmlDocument document;
    std::string const many(600, 'n');
    document.LoadXml(
        ("<\xC3\xA9 xmlns='u\xC3\xA8' a='\xC3\xBC\xE2\x82\xAC'>\xC3\xA4<" + many + "/></\xC3\xA9>").c_str());
    CXmlElement& root = At(document, {});
    EXPECT_EQ(root.GetLocalName(), "\xE9");
    EXPECT_EQ(root.GetNamespaceURI(), "u\xE8");
    EXPECT_EQ(root.GetAttribute("a", ""), "\xFC?");
    EXPECT_EQ(root.GetText(), "\xE4");
    EXPECT_EQ(At(document, {0}).GetLocalName(), many);
    EXPECT_EQ(document.LookupAliasFromNamespace("u\xE8"), "");
}

TEST(ParsedTree, CountsItsNodesInBulk) {
    auto const line = [](char const* name) {
        std::string const state = CInstanceMonitor::DumpState();
        std::size_t const at = state.find(std::string(" ") + name + " = ");
        return at == std::string::npos ? std::string() : state.substr(at, state.find('\n', at) - at);
    };
    CInstanceMonitor::Cleanup();
    {
        CXmlDocument document;
        document.LoadXml("<a x='1' y='2'><b/><b z=''/></a>");
        EXPECT_EQ(line("CXmlElement"), " CXmlElement = 3/3");
        EXPECT_EQ(line("CXmlAttribute"), " CXmlAttribute = 3/3");
        document.LoadXml("<a/>");
        EXPECT_EQ(line("CXmlElement"), " CXmlElement = 1/4");
    }
    EXPECT_EQ(line("CXmlElement"), " CXmlElement = 0/4");
    EXPECT_EQ(line("CXmlAttribute"), " CXmlAttribute = 0/3");
}

TEST(ParsedTree, NeedsNoStackForDepth) {
    constexpr int kDepth = 100'000;
    std::string xml;
    for (int i = 0; i < kDepth; ++i)
        xml += "<e>";
    for (int i = 0; i < kDepth; ++i)
        xml += "</e>";
    CXmlDocument document;
    document.LoadXml(xml.c_str());
    CXmlElement const* element = document.GetDocumentElement();
    int depth = 0;
    for (; element->GetFirstElement() != nullptr; ++depth)
        element = element->GetFirstElement();
    EXPECT_EQ(depth, kDepth - 1);
    EXPECT_EQ(element->GetXPath().size(), 2u * kDepth);
}

} // namespace
} // namespace ZvXmlLib16
