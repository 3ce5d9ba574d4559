// The examples of docs/json.md on writing: each block of XML is read, and written as the blocks of JSON
// behind it show, in the mode that they name.
#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/json/JsonParser.h"
#include "tests/support/LocalEncoding.h"

#include <gmock/gmock.h>

#include <fstream>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

constexpr char kFence[] = "```";

// A fenced block: what stands behind its fence, and its lines.
struct Block {
    std::string info;
    std::string text;
};

std::vector<Block> BlocksOfSection(std::string const& heading) {
    std::ifstream document(ZV_DOCS_DIR "/json.md");
    std::vector<Block> blocks;
    bool isInSection = false;
    bool isInBlock = false;
    for (std::string line; std::getline(document, line);) {
        if (line.rfind("## ", 0) == 0)
            isInSection = line == "## " + heading;
        else if (isInSection && line == kFence && isInBlock)
            isInBlock = false;
        else if (isInSection && line.rfind(kFence, 0) == 0) {
            isInBlock = true;
            blocks.push_back({line.substr(3), ""});
        } else if (isInBlock)
            blocks.back().text += line + '\n';
    }
    return blocks;
}

JsonRoundTrip ModeOf(std::string const& info) {
    for (auto const& [name, mode] : {std::pair("json none", JsonRoundTrip_None),
                                     std::pair("json no-namespaces", JsonRoundTrip_NoNamespaces),
                                     std::pair("json full", JsonRoundTrip_Full)}) {
        if (info == name)
            return mode;
    }
    ADD_FAILURE() << "no mode: " << info;
    return JsonRoundTrip_Full;
}

CSmartPtr<CXmlObjectBase> ReadXml(Block const& block, CSerializationContext& ctx) {
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
    for (Block const& block : BlocksOfSection("From objects to JSON")) {
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
