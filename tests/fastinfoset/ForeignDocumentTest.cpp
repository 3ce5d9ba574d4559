// Documents that another implementation made.
#include "Octets.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace ZvXmlLib16 {
namespace {

std::string ReadFile(std::string const& name) {
    std::ifstream file(ZV_TEST_DATA_DIR "/fastinfoset/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(FastInfosetReader, ReadsDocumentsOfAnotherProducer) {
    for (std::string const name :
         {"attributes", "mixed", "ns-default", "names-40", "comments-and-pis", "typed-integers"}) {
        std::string const tree = ReadFile(name + ".tree");
        EXPECT_EQ(Tree(ReadFile(name + ".fi")), tree);
        EXPECT_EQ(Tree(ReadFile(name + ".xml")), tree);
    }
}

} // namespace
} // namespace ZvXmlLib16
