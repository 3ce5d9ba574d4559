// Reference counting of bound objects, for code on floors below their classes. Defined in binding/.
#pragma once

#include "zvxmllib/foundation/Forward.h"

namespace ZvXmlLib16::detail {

// The object is not null.
void AddRefObject(CXmlObjectBase* object) noexcept;
void ReleaseObject(CXmlObjectBase* object) noexcept;

} // namespace ZvXmlLib16::detail
