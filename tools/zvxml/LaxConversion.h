// Conversions by way of objects: the usual way of the library, and by a schema.
#pragma once

#include "ConvertOptions.h"

namespace zvxml {

class Progress;

void ConvertUntyped(Operands const& operands, ConvertOptions const& options, Progress& progress);
// Strict. `options` name schemas.
void ConvertTyped(Operands const& operands, ConvertOptions const& options, Progress& progress);

} // namespace zvxml
