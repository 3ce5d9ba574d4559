// One small policy for each value type of a typed collection. Header only.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SimpleTypes.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16::detail {

// `Collection` is the named class; `Argument` is a value as Add takes it. The policies are exported because a
// template cannot be more visible than its arguments.
template <class Collection_, ItemType type, class Value_, class Argument_ = Value_>
struct ValueItem {
    using Collection = Collection_;
    using Value = Value_;
    using Argument = Argument_;
    static constexpr ItemType kType = type;
};

// The kind of date that the collection takes.
template <class Collection, ItemType type, CDateTime::DTType kind>
struct ZV_API KindOfDateItem : ValueItem<Collection, type, CDateTime, CDateTime const&> {
    static constexpr CDateTime::DTType kKind = kind;
};

// HexBinaryItem, I4Item and so on.
#define ZV_ITEM_SCALAR(name, Value, slot) ValueItem<C##name##Col, ItemType_##name, Value>
#define ZV_ITEM_TEXT ZV_ITEM_SCALAR
#define ZV_ITEM_OBJECT(name, Value, slot) ValueItem<C##name##Col, ItemType_##name, Value, Value const&>
#define ZV_ITEM_BINARY ZV_ITEM_OBJECT
#define ZV_ITEM_NUMBER ZV_ITEM_OBJECT
#define ZV_ITEM_DATE(name, Value, slot) KindOfDateItem<C##name##Col, ItemType_##name, CDateTime::dt_##slot>
#define ZV_ITEM(name, Policy, Name, Value, KIND, slot)                                                       \
    struct ZV_API Policy##Item : ZV_ITEM_##KIND(name, Value, slot) {};
ZV_COLLECTED_TYPES(ZV_ITEM)
#undef ZV_ITEM
#undef ZV_ITEM_DATE
#undef ZV_ITEM_NUMBER
#undef ZV_ITEM_BINARY
#undef ZV_ITEM_OBJECT
#undef ZV_ITEM_TEXT
#undef ZV_ITEM_SCALAR

} // namespace ZvXmlLib16::detail
