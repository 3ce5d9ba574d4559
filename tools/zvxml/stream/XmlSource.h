// XML text as a source of events.
#pragma once

#include "ByteInput.h"
#include "Events.h"

#include <memory>

namespace zvxml {

// Well-formed by XML 1.0 and Namespaces in XML. Entities that the document declares itself are replaced; a
// reference to one that is not read is refused, with its name. Reads the encodings of the parser and
// those of Encodings.h. `input` is borrowed.
std::unique_ptr<Source> MakeXmlSource(ByteInput& input);

} // namespace zvxml
