// Gives a document its own namespace prefixes back.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// Enters the prefixes of all namespaces that `document` uses, and its default namespace, into `ctx`,
// from where they are declared at the root. A prefix that a value refers to by a qualified name is kept
// for its namespace, too. A namespace that has no prefix to be found gets one made up.
void UsePrefixesOf(ZvXmlLib16::CXmlDocument const& document, ZvXmlLib16::CSerializationContext& ctx);

} // namespace zvxml
