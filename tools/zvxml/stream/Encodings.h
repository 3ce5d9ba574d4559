// Encodings of XML text that the parser does not know.
#pragma once

#include <expat.h>

namespace zvxml {

// Code pages of one to three bytes for a character, by their names at IANA: windows-1252, ISO-8859-15, KOI8-R,
// Shift_JIS. False for any other name.
bool FillEncoding(char const* name, XML_Encoding& encoding);

} // namespace zvxml
