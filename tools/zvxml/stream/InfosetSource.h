// Fast Infoset as a source of events.
#pragma once

#include "ByteInput.h"
#include "Events.h"

#include <memory>

namespace zvxml {

// By the rules of docs/fast-infoset.md for strict reading, without external vocabularies. Memory holds the
// tables of the document and its longest value. `input` is borrowed.
std::unique_ptr<Source> MakeInfosetSource(ByteInput& input);

} // namespace zvxml
