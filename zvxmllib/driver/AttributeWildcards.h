// The attribute wildcards of a table.
#pragma once

#include "zvxmllib/driver/AttributeInfoFamily.h"

namespace ZvXmlLib16Data {

template <class Visit>
void ForEachWildcard(CAttributeInfo* const* entries, Visit visit) {
    for (; *entries != nullptr; ++entries) {
        if (auto const* const wildcard = dynamic_cast<CAttributeInfoAny const*>(*entries))
            visit(*wildcard);
    }
}

} // namespace ZvXmlLib16Data
