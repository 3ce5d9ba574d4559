// Whether two documents hold the same.
#pragma once

#include "ByteInput.h"
#include "Documents.h"

#include <string>

namespace zvxml {

// The first place where they differ, in words; empty if they are the same. They may have different forms.
// Attributes have no order, and prefixes, comments, instructions, the document type and white space between
// elements count for nothing. Reads `second` in a thread of its own, so they must not share a Progress.
// Throws FileError.
std::string FindDifference(ByteInput& first, ByteInput& second, JsonOptions const& json);

} // namespace zvxml
