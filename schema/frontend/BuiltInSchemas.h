// The schemas that need no file.
#pragma once

#include <string>

namespace ZvXmlLib16::schema {

// That of the namespace of the prefix xml, used where an import names no file of its own.
constexpr char const kXmlSchemaFile[] = "(built-in)/xml.xsd";

// Null for a file that is not built in.
char const* FindBuiltInSchema(std::string const& file);

} // namespace ZvXmlLib16::schema
