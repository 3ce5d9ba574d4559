// The examples of docs/json.md on writing: each block of XML is read, and written as the blocks of JSON
// behind it show, in the mode that they name.
#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/json/DocumentedExamples.h"
#include "tests/json/JsonParser.h"
#include "tests/support/LocalEncoding.h"

#include <gmock/gmock.h>

#include <string>

using namespace ZvXmlLib16;

namespace {

CSmartPtr<CXmlObjectBase> ReadXml(DocumentedBlock const& block, CSerializationContext& ctx) {
    if (block.info == "xml") {
        CSmartPtr<CElement> element(new CElement(""));
        element->FromXml(block.text.c_str());
        return element->GetBase();
    }
    EXPECT_EQ(block.info, "xml order");
    CSmartPtr<purchase_order::COrder> order(new purchase_order::COrder);
    ctx.SetDefaultNamespaceURI("urn:example:purchase-order");
    order->FromXml(block.text.c_str(), ctx);
    return order->GetBase();
}

TEST(JsonDocumentation, ShowsWhatIsWritten) {
    LocalEncoding const local(65001);
    CSerializationContext ctx;
    ctx.SetIndentChars("  ");
    CSmartPtr<CXmlObjectBase> object;
    int examples = 0;
    for (DocumentedBlock const& block : BlocksOf("json.md", "From objects to JSON")) {
        if (block.info.rfind("xml", 0) == 0) {
            ctx.SetDefaultNamespaceURI("");
            object = ReadXml(block, ctx);
        } else if (block.info.rfind("json", 0) == 0) {
            ASSERT_TRUE(object != nullptr) << block.text;
            ctx.GetJsonContext().SetSupportRoundtrip(ModeOf(block.info));
            bool const isFormatted = block.text.find("\n ") != std::string::npos;
            EXPECT_EQ(object->ToJson(isFormatted, EOLType_LF, ctx) + '\n', block.text);
            EXPECT_EQ(FaultOfJson(block.text), "");
            ++examples;
        }
    }
    EXPECT_GE(examples, 8);
    object = nullptr;
    purchase_order::COrder::CleanUp();
    purchase_order::CItem::CleanUp();
}

} // namespace
