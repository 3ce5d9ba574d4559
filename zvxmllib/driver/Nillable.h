// INillable, for classes whose element can be nil (XML Schema Part 1, 2.6.2).
#pragma once

#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

// A generated class whose element can be nil derives from it as well.
class ZV_API INillable {
public:
    // Whether the object is nil: written with xsi:nil and without content. Reading sets it.
    virtual bool GetIsNil() = 0;
    virtual void SetIsNil(bool isNil) = 0;

protected:
    ~INillable() = default;
};

} // namespace ZvXmlLib16
