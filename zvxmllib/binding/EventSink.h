// IEventSink, the listener to changes in collections.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <cstdint>

namespace ZvXmlLib16 {

// Hears of the changes in collections that it is registered with, see CXmlCollectionBase::AddEventListener.
class ZV_API IEventSink {
public:
    // What happens to a collection, and what `data` points to.
    enum MsgType : std::int32_t {
        MsgCollectionChange = 0,         // data: null
        MsgCollectionAdd = 1,            // data: the item that will be added
        MsgCollectionAddComplete = 2,    // data: the item added
        MsgCollectionRemove = 3,         // data: int const*, the index; null if unknown
        MsgCollectionRemoveComplete = 4, // the same
    };

protected:
    ~IEventSink() = default;

    // `data` is valid during the call only.
    virtual void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) = 0;

    friend class CXmlObjectBase;
};

} // namespace ZvXmlLib16
