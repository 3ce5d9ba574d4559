// Texts that come again and again, made once.
#pragma once

#include "zvxmllib/foundation/SharedText.h"

#include <string_view>

namespace ZvXmlLib16::detail {

// The text, shared with an earlier one of this thread where that is still remembered. Each thread remembers
// some short texts until it ends, without a lock.
SharedText ShareRecent(std::string_view text);

} // namespace ZvXmlLib16::detail
