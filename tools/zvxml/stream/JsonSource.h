// JSON text as a source of events.
#pragma once

#include "ByteInput.h"
#include "Events.h"

#include "zvxmllib/json/JsonContext.h"

#include <memory>
#include <string>

namespace zvxml {

// By the rules of docs/strict.md. With `root` the whole text is the value of that element. The text is read
// twice: attributes may stand behind the children of their object, and these are kept, as is one text for
// each open element and the names of its members. `input` is borrowed.
std::unique_ptr<Source> MakeJsonSource(ByteInput& input, ZvXmlLib16::JsonRoundTrip mode,
                                       std::string const& root);

} // namespace zvxml
