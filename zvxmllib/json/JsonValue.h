// JsonValue, a JSON value in memory. Header only.
#pragma once

#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/foundation/Enumerations.h"

#include <string>
#include <utility>
#include <vector>

namespace ZvXmlLib16 {

struct JsonMember;

// A value of RFC 8259, section 3. The strict forms work on whole values: what an object is to become, or how
// it is to be written, shows at its end.
struct JsonValue {
    enum Kind { kNull, kBare, kString, kObject, kArray };

    Kind kind = kNull;
    std::string text;                // of a string; of a bare value: a number, true or false
    std::vector<JsonMember> members; // of an object; of an array, without names
    detail::NodePosition position{}; // of what was read: where it begins
};

struct JsonMember {
    std::string name;
    JsonValue value;
};

// Types whose lexical forms are those of JSON, except NaN and INF.
constexpr bool StandsBare(ItemType type) {
    return (type >= ItemType_i1 && type <= ItemType_r8) ||
           (type >= ItemType_boolean && type <= ItemType_integer);
}

} // namespace ZvXmlLib16
