// The examples of docs/fast-infoset.md on writing: each block of XML is read, and written as the blocks of
// octets behind it show.
#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/fastinfoset/Octets.h"
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/DocumentedExamples.h"
#include "tests/support/LocalEncoding.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>

using namespace ZvXmlLib16;

namespace {

constexpr char kNamespace[] = "urn:example:purchase-order";

// A line is octets, two blanks or more, and what they are: 3C 00 61   the name "a".
std::string OctetsOf(std::string const& text) {
    std::string octets;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        octets += Octets(line.substr(0, line.find("  ")));
    return octets;
}

CSmartPtr<CXmlObjectBase> ReadXml(DocumentedBlock const& block, CSerializationContext& ctx) {
    bool const isOrder = block.info == "xml order";
    ctx.SetDefaultNamespaceURI(isOrder ? kNamespace : "");
    if (!isOrder) {
        CSmartPtr<CElement> element(new CElement(""));
        element->FromXml(block.text.c_str());
        return element->GetBase();
    }
    CSmartPtr<purchase_order::COrder> order(new purchase_order::COrder);
    order->FromXml(block.text.c_str(), ctx);
    return order->GetBase();
}

TEST(FastInfosetDocumentation, ShowsWhatIsWritten) {
    LocalEncoding const local(65001);
    CSmartPtr<CXmlObjectBase> object;
    CSerializationContext plain;
    int examples = 0;
    for (DocumentedBlock const& block : BlocksOf("fast-infoset.md")) {
        if (block.info.rfind("xml", 0) == 0) {
            object = ReadXml(block, plain);
        } else if (block.info.rfind("octets", 0) == 0) {
            ASSERT_TRUE(object != nullptr) << block.text;
            CSerializationContext ctx(plain);
            if (block.info == "octets suggested")
                ctx.GetFIContext().SetSuggestedValues();
            CBinaryData const data = object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
            EXPECT_EQ(Hex(TextOf(data)), Hex(OctetsOf(block.text)));
            ++examples;
        }
    }
    EXPECT_GE(examples, 3);
    object = nullptr;
    purchase_order::COrder::CleanUp();
    purchase_order::CItem::CleanUp();
}

} // namespace
