// What becomes of a schema in C++.
#include "schema/mapping/Mapping.h"

#include "SchemaTestSupport.h"

namespace {

using namespace schema_test;

std::string FileText(std::string const& name) {
    std::ifstream stream(std::string(ZV_SCHEMA_TEST_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// `zvxml-gen --dump-model` prints the same. A difference is either a fault or a change that generated
// programs feel.
TEST(Mapping, IsThatOfTheFile) {
    schema::Diagnostics diagnostics;
    auto const read = schema::ReadSchemas({std::string(ZV_SCHEMA_TEST_DIR) + "/model.xsd"}, {}, diagnostics);
    ASSERT_NE(read, nullptr);
    schema::NameTable names;
    schema::Mapping const mapping(*read, {}, "model", names, diagnostics);
    std::string told = mapping.Dump();
    for (schema::Diagnostic const& diagnostic : diagnostics.GetSorted()) {
        std::string const line = schema::Diagnostics::Format(diagnostic);
        told += line.substr(line.rfind("model.xsd")) + "\n";
    }
    EXPECT_EQ(told, FileText("model.txt"));
}

} // namespace
