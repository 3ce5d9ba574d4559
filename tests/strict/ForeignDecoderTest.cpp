// A Fast Infoset decoder of another maker reads what a strict context writes, without any alias given. Built
// where that decoder is installed.
#include "tests/fastinfoset/Octets.h"

#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/support/Bytes.h"
#include "tests/support/Infoset.h"
#include "tests/support/RealDocuments.h"
#include "tests/support/Script.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace ZvXmlLib16 {
namespace {

std::string TreeOfFile(char const* file) {
    CXmlDocument document;
    document.Load(file);
    return TreeText(document);
}

// What the other decoder makes of the document: a file of XML.
void DecodeElsewhere(CXmlObjectBase& object, CSerializationContext const& ctx, TemporaryFile const& xml) {
    TemporaryFile const octets(TextOf(object.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None)));
    std::string const command =
        std::string("'" ZV_JAVA "' -cp '" ZV_FASTINFOSET_JAR "' com.sun.xml.fastinfoset.tools.FI_SAX_XML '") +
        octets.Path() + "' '" + xml.Path() + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
}
std::string DecodedElsewhere(CXmlObjectBase& object, CSerializationContext const& ctx) {
    TemporaryFile const xml;
    DecodeElsewhere(object, ctx, xml);
    return TreeOfFile(xml.Path());
}

CSerializationContext Strict() {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    return ctx;
}

TEST(ForeignDecoder, ReadsRealDocuments) {
    for (std::string const& path : RealDocuments()) {
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromXmlFile(path.c_str(), Strict());
        TemporaryFile const xml;
        DecodeElsewhere(*element, Strict(), xml);
        std::optional<Infoset> const decoded = InfosetOfXml(ReadAll(xml.Path()));
        ASSERT_TRUE(decoded.has_value()) << path;
        EXPECT_TRUE(Print(*decoded, TextPlaces::Exact) ==
                    Print(*InfosetOfXml(ReadAll(path)), TextPlaces::Exact))
            << path;
    }
}

TEST(ForeignDecoder, ReadsNamespacesTypesAndInstructions) {
    for (char const* script : {
             "(u|a (u|b) (v|c @w|x=1 'text') (n *d (d|e (n2))))",
             "? ~ (a ^u|t ? (u|b %) ~ 'text')",
             "*d !p=u (d|r (n @u|x=1 (d|s)) (u|t !q=v (v|w)))",
         }) {
        CSmartPtr<WrittenObject> const object(new WrittenObject(Script(script)));
        CSerializationContext const ctx = Strict();
        CXmlDocument document(ctx);
        Load(document, TextOf(object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None)));
        EXPECT_EQ(DecodedElsewhere(*object, ctx), TreeText(document)) << script;
    }
}

TEST(ForeignDecoder, ReadsEncodedValues) {
    constexpr char const* kOrder =
        "<order number='7' status='sent' xmlns='urn:example:purchase-order'><customer>A</customer>"
        "<item sku='tea-01'><name>Tea</name><quantity>2</quantity><price>4.2</price></item></order>";
    CSmartPtr<purchase_order::COrder> const order(new purchase_order::COrder);
    CSerializationContext ctx = Strict();
    ctx.GetFIContext().SetSuggestedValues();
    order->FromXml(kOrder, ctx);
    TemporaryFile const xml(order->ToXml(false, false, EOLType_LF, ctx));
    EXPECT_EQ(DecodedElsewhere(*order, ctx), TreeOfFile(xml.Path()));
}

} // namespace
} // namespace ZvXmlLib16
