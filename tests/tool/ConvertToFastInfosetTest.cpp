// zvxml convert to Fast Infoset, octet by octet, and back.
#include "tests/fastinfoset/WrittenOctets.h"
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

using ZvXmlLib16::Hex;

namespace {

constexpr char kHead[] = "E0 00 00 01 00 ";

struct Row {
    char const* options;
    char const* input;
    std::string octets; // behind the header
};

TEST(ZvxmlConvertToFastInfoset, DeclaresEveryNamespaceAtTheRoot) {
    ScratchDirectory const scratch;
    std::string const xsi = "http://www.w3.org/2001/XMLSchema-instance";
    std::string const nil = "<a xmlns:xsi='" + xsi + "'><b xsi:nil='true'/></a>";
    for (Row const& row :
         {Row{"", R"(<a xmlns="u"><b/></a>)", "38 CD 00 75 F0 3D 81 00 61 3D 81 00 62 F0 FF"},
          Row{"", R"(<p:a xmlns:p="u"><q:b xmlns:q="v" q:c="1"/></p:a>)",
              "38 CF 00 70 00 75 CF 00 71 00 76 F0 3F 81 81 00 61 "
              "7F 82 82 00 62 7B 82 82 00 63 40 31 F0 F0 FF"},
          Row{"", R"(<a><b xmlns="u"/></a>)", "38 CF 02 6E 73 31 00 75 F0 3C 00 61 3F 81 81 00 62 F0 FF"},
          Row{"", nil.c_str(),
              "38 CF 02 78 73 69 28 " + Hex(xsi) +
                  " F0 3C 00 61 7C 00 62 7B 81 81 02 6E 69 6C 43 74 72 75 65 F0 F0 FF"},
          Row{"", "<a><b>1</b><b>1</b></a>", "38 F0 3C 00 61 3C 00 62 90 31 F0 01 A0 F0 FF"},
          Row{"--add-length 0", "<a><b>1</b><b>1</b></a>", "38 F0 3C 00 61 3C 00 62 80 31 F0 01 80 31 F0 FF"},
          Row{"--add-length=7", "<a b='123456'>123456</a>",
              "78 F0 3C 00 61 78 00 62 45 31 32 33 34 35 36 F0 92 03 31 32 33 34 35 36 FF"},
          Row{"--pretty --encoding utf-16", "<a> <b/> </a>", "38 F0 3C 00 61 3C 00 62 F0 FF"}}) {
        ToolResult const result =
            scratch.Run("convert --to fi " + std::string(row.options) + " - -", row.input);
        EXPECT_EQ(Hex(result.out), kHead + row.octets) << row.input;
        EXPECT_EQ(result.exitCode, 0) << row.input << '\n' << result.err;
    }
}

} // namespace
