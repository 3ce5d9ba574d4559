// The 25 collections of values, one for each simple type: ChexBinaryCol, Cbase64BinaryCol, Ci1Col, Ci2Col,
// Ci4Col, Ci8Col, Cui1Col, Cui2Col, Cui4Col, Cui8Col, Cr4Col, Cr8Col, CdurationCol, CyearMonthCol,
// CmonthDayCol, CyearCol, CmonthCol, CdayCol, CdateCol, CdatetimeCol, CtimeCol, CstringCol, CbooleanCol,
// CdecimalCol, CintegerCol. Their operations are those of detail::ValueCollection, of dates those of
// CdatetimeBaseCol.
#pragma once

#include "zvxmllib/collections/DatetimeBaseCol.h"
#include "zvxmllib/collections/ValueCollection.h"
#include "zvxmllib/collections/ValueItems.h"
#include "zvxmllib/foundation/SimpleTypes.h"

// The template of a collection, by the kind of its type.
#define ZV_COLLECTION_SCALAR ValueCollection
#define ZV_COLLECTION_TEXT ValueCollection
#define ZV_COLLECTION_OBJECT ValueCollection
#define ZV_COLLECTION_BINARY ValueCollection
#define ZV_COLLECTION_NUMBER ValueCollection
#define ZV_COLLECTION_DATE DateCollection

namespace ZvXmlLib16 {

namespace detail {

#define ZV_STORE(Value) extern template class ValueStore<Value>;
ZV_SIMPLE_VALUES(ZV_STORE)
#undef ZV_STORE

#define ZV_COLLECTION(name, Policy, Name, Value, KIND, slot)                                                 \
    extern template class ZV_COLLECTION_##KIND<Policy##Item>;
ZV_COLLECTED_TYPES(ZV_COLLECTION)
#undef ZV_COLLECTION

} // namespace detail

#define ZV_COLLECTION(name, Policy, Name, Value, KIND, slot)                                                 \
    class ZV_API C##name##Col : public detail::ZV_COLLECTION_##KIND<detail::Policy##Item> {                  \
    public:                                                                                                  \
        using ZV_COLLECTION_##KIND::ZV_COLLECTION_##KIND;                                                    \
                                                                                                             \
    protected:                                                                                               \
        ~C##name##Col() override;                                                                            \
    };
ZV_COLLECTED_TYPES(ZV_COLLECTION)
#undef ZV_COLLECTION

} // namespace ZvXmlLib16
