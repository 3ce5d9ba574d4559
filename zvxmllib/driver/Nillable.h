// INillable, for classes whose element can be nil (XML Schema Part 1, 2.6.2).
#pragma once

#include "zvxmllib/platform/Api.h"

namespace ZvXmlLib16 {

class ZV_API INillable {
public:
    virtual bool GetIsNil() = 0;
    virtual void SetIsNil(bool isNil) = 0;

protected:
    ~INillable() = default;
};

} // namespace ZvXmlLib16
