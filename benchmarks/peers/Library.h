// The two programs of this library differ in their classes only.
#pragma once

#include "benchmarks/peers/Peers.h"

#include <zvxmllib/ZvXmlLib.h>

#include <cstdint>
#include <stdexcept>

namespace peers {

inline std::string BytesOf(ZvXmlLib16::CBinaryData const& data) {
    return std::string(reinterpret_cast<char const*>(data.GetData()), data.GetLength());
}

// Object is a bound object, in the form and by the context.
inline std::string Written(ZvXmlLib16::CXmlObjectBase& object, Form form,
                           ZvXmlLib16::CSerializationContext const& ctx) {
    using namespace ZvXmlLib16;
    switch (form) {
    case Form::kXml:
        return object.ToXml(false, false, EOLType_LF, ctx);
    case Form::kJson:
        return object.ToJson(false, EOLType_LF, ctx);
    default:
        return BytesOf(object.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None));
    }
}

} // namespace peers
