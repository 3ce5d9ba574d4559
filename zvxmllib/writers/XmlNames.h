// Names and characters of XML 1.0.
#pragma once

#include <string_view>

namespace ZvXmlLib16 {

// All texts are UTF-8. The character classes of names are those of Appendix B (up to the Fourth Edition):
// what is a name by them is one for every XML parser, also by the wider classes of the Fifth Edition.

// Name: colons may stand in it.
bool IsXmlName(std::string_view utf8) noexcept;
// NCName of Namespaces in XML: a Name without a colon.
bool IsXmlNCName(std::string_view utf8) noexcept;

// The first thing in a text that no XML document can have in it (production 2, Char).
struct XmlTextFault {
    enum Kind { kNone, kMalformed, kCharacter } kind; // malformed UTF-8 anywhere comes first
    char32_t character;                               // of the third kind
};
XmlTextFault FindXmlTextFault(std::string_view utf8) noexcept;

} // namespace ZvXmlLib16
