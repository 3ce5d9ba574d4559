// zvxml convert to Fast Infoset, octet by octet, and back.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/support/Vectors.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

using ZvXmlLib16::Hex;

namespace {

constexpr char kHead[] = "E0 00 00 01 00 ";

TEST(ZvxmlConvertToFastInfoset, DeclaresEveryNamespaceAtTheRoot) {
    ScratchDirectory const scratch;
    for (auto const& row : Vectors("tool.txt", "to Fast Infoset: options, input, octets")) {
        ToolResult const result = scratch.Run("convert --lax --to fi " + row[0] + " - -", row[1]);
        EXPECT_EQ(Hex(result.out), kHead + row[2]) << row[1];
        EXPECT_EQ(result.exitCode, 0) << row[1] << '\n' << result.err;
    }
}

} // namespace
