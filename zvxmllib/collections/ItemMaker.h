// IItemMaker, what a collection of groups has that says what its items are.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

// A collection whose items are groups derives from it, too. Without it nobody can tell which elements the
// groups know, and a strict context that ignores unknown elements ignores none beside such a collection.
class ZV_API IItemMaker {
public:
    // A new item, which is not added. Never null.
    virtual CSmartPtr<CXmlObjectBase> MakeItem() const = 0;

protected:
    ~IItemMaker() = default;
};

} // namespace ZvXmlLib16
