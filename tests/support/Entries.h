// Short forms of table entries for tests: i4 values with collapsed white space, no namespace.
#pragma once

#include "tests/support/ProbeClass.h"

#include <cstring>

namespace entries {

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

// A primitive entry of the member `Info`.
template <class Info>
CElementInfo* Prim(char const* name, int index, char const* defaultValue = nullptr, bool nillable = false,
                   char const* ns = "") {
    return new Info(name, ns, index, nillable, ItemType_i4, nullptr,
                    CWhitespaceUtils::WhitespaceRule_Collapse, CPrimitiveRestrictions(), defaultValue);
}

inline char const* ColourToText(int colour) {
    return colour == 1 ? "red" : "blue";
}
inline int TextToColour(char const* text) {
    if (std::strcmp(text, "red") == 0)
        return 1;
    if (std::strcmp(text, "blue") == 0)
        return 2;
    throw CZvInvalidValueException(std::string("no colour: ") + text);
}

template <class Info>
CElementInfo* Enum(char const* name, int index, char const* defaultValue = nullptr, bool nillable = false) {
    return new Info(name, "", index, nillable, ColourToText, TextToColour, defaultValue);
}

inline CAttributeInfo* Attribute(char const* name, int index, bool optional,
                                 char const* defaultValue = nullptr) {
    return new CAttributeInfoPrimitive(name, "", index, optional, ItemType_i4, nullptr,
                                       CWhitespaceUtils::WhitespaceRule_Collapse, CPrimitiveRestrictions(),
                                       defaultValue);
}

} // namespace entries
