// The bytes of a schema document in an encoding that has ASCII as it is.
#pragma once

#include <optional>
#include <string>

namespace ZvXmlLib16::schema {

// UTF-16 becomes UTF-8, and its name in the XML declaration white space, so that the places stay. Nothing for
// UCS-4 and EBCDIC, which are not supported. Other bytes, and UTF-16 that is broken, are left to the parser.
std::optional<std::string> ReadableText(std::string bytes);

} // namespace ZvXmlLib16::schema
