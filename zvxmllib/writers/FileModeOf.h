// How the entry points write files. Header only.
#pragma once

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/platform/File.h"

namespace ZvXmlLib16 {

// A strict context loses no file that is there before the new one is complete.
inline platform::FileMode FileModeOf(CSerializationContext const& ctx) noexcept {
    return ctx.GetStrict() ? platform::FileMode::kReplace : platform::FileMode::kOverwrite;
}

} // namespace ZvXmlLib16
