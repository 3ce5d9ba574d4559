// A schema, and what stands behind its end, up to which there is a NUL, as a document: a schema is refused
// with a reason, or documents can be tested by it.
#include "SchemaFile.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string_view const text = TextOf(data, size);
    std::size_t const end = std::min(text.find('\0'), text.size());
    std::unique_ptr<schema::Schema> const read = ReadSchemaText(text.substr(0, end));
    if (read == nullptr)
        return 0;
    Attempt([&] {
        grammar::Grammar const grammar(read->GetRows());
        CSerializationContext ctx;
        return IsValid(grammar, std::string(text.substr(std::min(end + 1, text.size()))), ctx);
    });
    return 0;
}
