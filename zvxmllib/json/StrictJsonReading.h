// Reading JSON by the letter of RFC 8259, without loss: what a strict context asks for.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/json/JsonPlaces.h"

#include <string_view>

namespace ZvXmlLib16 {

// The JSON text, UTF-8, as an XML document in UTF-8, by the context's JSON options; its comments option has
// no say. The whole text is one value; names stand once in their object; attributes and texts may stand
// anywhere in it; null is nil. Throws CZvException and its kin.
CBinaryData ConvertStrictJson(std::string_view utf8, CSerializationContext const& ctx);
// The same, and where its nodes come from.
CBinaryData ConvertStrictJson(std::string_view utf8, CSerializationContext const& ctx,
                              detail::JsonPlaces& places);

} // namespace ZvXmlLib16
