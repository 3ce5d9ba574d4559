// Gives a document its own namespace prefixes back.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// Enters the prefixes of all namespaces that `document` uses, and its default namespace, into `ctx`, from
// where they are declared at the root. A prefix used by a qualified name in a value is kept for its
// namespace, too. A namespace without a prefix gets a generated one.
void UsePrefixesOf(ZvXmlLib16::CXmlDocument const& document, ZvXmlLib16::CSerializationContext& ctx);

} // namespace zvxml
