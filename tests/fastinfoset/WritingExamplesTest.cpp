// The examples of docs/fast-infoset.md on writing: each block of XML is read, and written as the blocks of
// octets behind it show.
#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/LocalEncoding.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <string>

using namespace ZvXmlLib16;

namespace {

constexpr char kNamespace[] = "urn:example:purchase-order";

struct Block {
    std::string info; // what stands behind the fence
    std::string text;
};

std::vector<Block> BlocksOfDocumentation() {
    std::ifstream document(ZV_DOCS_DIR "/fast-infoset.md");
    std::vector<Block> blocks;
    bool isInBlock = false;
    for (std::string line; std::getline(document, line);) {
        bool const isFence = line.rfind("```", 0) == 0;
        if (isFence && !isInBlock)
            blocks.push_back({line.substr(3), ""});
        else if (isInBlock && !isFence)
            blocks.back().text += line + '\n';
        isInBlock = isInBlock != isFence;
    }
    return blocks;
}

// A line is octets, two blanks or more, and what they are: 3C 00 61   the name "a". In the octets, a text
// stands between apostrophes.
std::string OctetsOf(std::string const& text) {
    std::string octets;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = line.substr(0, line.find("  "));
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (line[i] == '\'') {
                std::size_t const end = line.find('\'', i + 1);
                octets += line.substr(i + 1, end - i - 1);
                i = end;
            } else if (line[i] != ' ') {
                octets += static_cast<char>(std::stoi(line.substr(i++, 2), nullptr, 16));
            }
        }
    }
    return octets;
}

CSmartPtr<CXmlObjectBase> ReadXml(Block const& block, CSerializationContext& ctx) {
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
    for (Block const& block : BlocksOfDocumentation()) {
        if (block.info.rfind("xml", 0) == 0) {
            object = ReadXml(block, plain);
        } else if (block.info.rfind("octets", 0) == 0) {
            ASSERT_TRUE(object != nullptr) << block.text;
            CSerializationContext ctx(plain);
            if (block.info == "octets suggested")
                ctx.GetFIContext().SetSuggestedValues();
            CBinaryData const data = object->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
            EXPECT_EQ(Hex(BytesOf(data)), Hex(OctetsOf(block.text)));
            ++examples;
        }
    }
    EXPECT_GE(examples, 3);
    object = nullptr;
    purchase_order::COrder::CleanUp();
    purchase_order::CItem::CleanUp();
}

} // namespace
