// Paths for messages.
#include "Documents.h"

namespace ZvXmlLib16 {
namespace {

TEST(XPath, NumbersChildrenThatShareTheirName) {
    CXmlDocument document;
    document.LoadXml("<r><b/><c/><b><d x='' /></b></r>");
    EXPECT_EQ(At(document, {}).GetXPath(), "/r");
    EXPECT_EQ(At(document, {0}).GetXPath(), "/r/b[1]");
    EXPECT_EQ(At(document, {1}).GetXPath(), "/r/c");
    EXPECT_EQ(At(document, {2}).GetXPath(), "/r/b[2]");
    EXPECT_EQ(At(document, {2, 0}).GetAttributes()[0]->GetXPath(), "/r/b[2]/d/@x");
}

TEST(XPath, TakesPrefixesFromTheDocumentsDeclarations) {
    CXmlDocument document;
    document.LoadXml("<o:order xmlns:o='u' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' xmlns:b='u'>"
                     "<item xmlns='u'/><b:item i:nil='true' b:y=''/><item/></o:order>");
    // The default namespace is the smallest prefix of all.
    EXPECT_EQ(At(document, {}).GetXPath(), "/order");
    // Same names as they are shown, although the third is in no namespace.
    EXPECT_EQ(At(document, {1}).GetXPath(), "/order/item[2]");
    EXPECT_EQ(At(document, {2}).GetXPath(), "/order/item[3]");
    EXPECT_EQ(At(document, {1}).GetAttributes()[0]->GetXPath(), "/order/item[2]/i:@nil");
    EXPECT_EQ(At(document, {1}).GetAttributes()[1]->GetXPath(), "/order/item[2]/@y");

    document.LoadXml("<z:r xmlns:z='u' xmlns:a='u'><z:c a:x=''/><c/></z:r>");
    EXPECT_EQ(At(document, {}).GetXPath(), "/a:r");
    EXPECT_EQ(At(document, {0}).GetXPath(), "/a:r/a:c");
    EXPECT_EQ(At(document, {1}).GetXPath(), "/a:r/c");
    EXPECT_EQ(At(document, {0}).GetAttributes()[0]->GetXPath(), "/a:r/a:c/a:@x");
}

} // namespace
} // namespace ZvXmlLib16
