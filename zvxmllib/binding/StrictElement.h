// What a strict context tests of an element that holds a value, whoever reads it.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"

#include <optional>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Tests attributes and content: xsi:nil only where allowed, xsi:type only for a type that the value may have,
// otherwise only attributes that XML Schema allows on every element; no children, and nothing at all in a nil
// element. Returns true for nil. A type of ItemType_invalid is one of the schema's own. Throws
// CZvValidationException.
bool CheckValueElement(CSerializationContext const& ctx, CXmlElement const& element, ItemType type,
                       bool isNillable);

// Throws CZvValidationException for an element, which is nil, that has content.
void CheckNilElement(CXmlElement const& element);

// The text of xsi:nil, collapsed: "true", "false", "1" or "0"; nothing for any other.
std::optional<bool> ParseStrictNil(std::string_view text);

// The namespace and the local part of an xsi:type attribute. The prefix must be declared; without one the
// default namespace counts. Throws CZvValidationException.
struct TypeName {
    std::string ns;
    std::string name;
};
TypeName ReadTypeName(CXmlElement const& element, CXmlAttribute const& attribute);
// Whether this is xsi:type.
bool IsTypeAttribute(CXmlAttribute const& attribute);

} // namespace ZvXmlLib16
