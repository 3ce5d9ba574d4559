// Pieces of C++ text.
#pragma once

#include <string>
#include <string_view>

namespace ZvXmlLib16::schema {

// A string literal of these octets.
std::string Literal(std::string_view text);
// The text as comment lines with this indent, wrapped; without control characters, those of writing direction
// too, and without what continues a line.
std::string Comment(std::string_view text, std::string const& indent);
// Opens and closes a::b.
std::string OpenNamespace(std::string const& name);
std::string CloseNamespace(std::string const& name);
// The text without the ends of namespaces that are opened again at once.
std::string JoinNamespaces(std::string const& text);

} // namespace ZvXmlLib16::schema
